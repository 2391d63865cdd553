#include "flows/projectsave.h"
#include "stage/frmmain.h"

#include "stage/progress.h"

#include "dialogs/frmhtml.h"
#include "flows/projectopen.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "model/recentprojects.h"
#include "model/runtimeerror.h"
#include "stage/application.h"

#include <QFileInfo>
#include <cstdio>

namespace {
const QString kProjectFilter = QStringLiteral("KV1 (*.kv1)|*.kv1");
} // namespace

void frmMain::AskSavePath() {
    project.DialogReply.ReDim(3);
    FileRequest request;
    request.title = QStringLiteral("Save Project ...");
    request.filter = kProjectFilter;
    request.filterIndex = 1;
    // The dialog offers the name it held last; "Untitled.kv1" goes to the export window's dialog
    // instead. Both are kept as they have always been.
    request.fileName = LastFileName;
    HTML->DialogFileName = QStringLiteral("Untitled.kv1");
    const QString chosen = prompts.AskSaveFile(request);
    if (!chosen.isEmpty()) LastFileName = chosen;
    SetPathReply(project.DialogReply, chosen);
}

void frmMain::AskOpenPath() {
    project.DialogReply.ReDim(3);
    FileRequest request;
    request.title = QStringLiteral("Load Project ...");
    request.filter = kProjectFilter;
    request.filterIndex = 1;
    request.folder = project.ProgramFolder;
    const QString chosen = prompts.AskOpenFile(request);
    if (!chosen.isEmpty()) LastFileName = chosen;
    SetPathReply(project.DialogReply, chosen);
}

void frmMain::SaveProject() {
    const qint16 boards = CInt(Combo_PageView->count());
    const qint16 paneTotal = Mul16(Mul16(project.GridSide, project.GridSide), boards);
    AskSavePath();
    if (project.DialogReply[1] == kNone) return;
    SaveProjectFile(project, project.DialogReply[3], project.DialogReply[1], project.DialogReply[2],
                    paneTotal, boards, project.GridSide);
    NoteRecentProject(project.DialogReply[1]);
}

void frmMain::OpenProject() {
    AskOpenPath();
    if (project.DialogReply[1] == kNone) return;
    OpenChosenProject();
}

void frmMain::OpenProjectFile(const QString& path) {
    const QString chosen = QFileInfo(path).absoluteFilePath();
    LastFileName = chosen;
    SetPathReply(project.DialogReply, chosen);
    OpenChosenProject();
}

void frmMain::OpenChosenProject() {
    const QString path = project.DialogReply[1];
    picStage->setCursor(Qt::WaitCursor);
    picStage->ClearPicture();

    ReadProject(project, project.DialogReply[1], project.DialogReply[2], project.DialogReply[3]);
    project.IsBusy = true;

    RefillBoardChooser(project.BoardCount);
    RefillPaneList(PaneTotal(project), true);

    // A file that says its grid has no side, or a negative one, cannot be laid out.
    if (project.GridSide == 0) throw RunTimeError(11, QStringLiteral("Division by zero"));
    CellSize = CInt(StageSize / project.GridSide);
    if (CellSize < 0) throw RunTimeError(380, QStringLiteral("Invalid property value"));
    {
        ProgressWindow progress(this, project, QStringLiteral("Opening project ..."));
        RebuildPaneImages(project, CellSize, progress.Callback());
    }

    picLoader = BlankPicture();
    project.IsBusy = false;
    picStage->setCursor(Qt::ArrowCursor);
    DrawCurrentBoard();
    NoteRecentProject(path);
}

void frmMain::OpenProjectFromCommandLine(const QString& path) {
    try {
        OpenProjectFile(path);
    } catch (const RunTimeError& error) {
        // Told as the menu's Open Project tells it, but nobody asked yet for anything else: the
        // program goes on with the empty project it started with.
        std::fprintf(stderr, "kelvrin: %s\n", error.what());
        ReportRunTimeError(error, prompts);
        StartEmptyProject();
    }
}

void frmMain::StartEmptyProject() {
    // The colours and lists of start-up too: a project read in part may have changed them.
    InitLists();
    project.IsBusy = true;
    project.GridSide = 2;
    project.BoardCount = 1;
    project.BoardTitle = kToUse;
    project.FooterText = kToUse;
    ResetPanes(project);
    RefillBoardChooser(project.BoardCount);
    RefillPaneList(PaneTotal(project), false);
    picLoader = BlankPicture();
    project.IsBusy = false;
    picStage->setCursor(Qt::ArrowCursor);
    DrawCurrentBoard();
}

// Recent projects.

void frmMain::NoteRecentProject(const QString& path) {
    WriteRecentProjects(RecentSettingsFile, WithRecentProject(ReadRecentProjects(RecentSettingsFile), path));
    RefreshRecentMenu();
}

void frmMain::RefreshRecentMenu() {
    // An entry may be the one being chosen right now: it goes once its signal is over.
    for (QAction* old : mnu_OpenRecent->actions()) {
        mnu_OpenRecent->removeAction(old);
        old->deleteLater();
    }
    const QStringList recent = ReadRecentProjects(RecentSettingsFile);
    for (const QString& path : recent) {
        // "&" would otherwise mark a shortcut letter.
        QAction* entry =
            mnu_OpenRecent->addAction(QString(path).replace(QLatin1Char('&'), QStringLiteral("&&")));
        entry->setData(path);
        // A project moved or deleted since is shown, but cannot be opened.
        entry->setEnabled(QFileInfo(path).isFile());
        connect(entry, &QAction::triggered, this, [this, path] { OpenProjectFile(path); });
    }
    mnu_OpenRecent->addSeparator();
    mnu_ClearRecent = mnu_OpenRecent->addAction(QStringLiteral("Clear Menu"));
    mnu_ClearRecent->setObjectName(QStringLiteral("mnu_ClearRecent"));
    mnu_ClearRecent->setEnabled(!recent.isEmpty());
    connect(mnu_ClearRecent, &QAction::triggered, this, [this] {
        WriteRecentProjects(RecentSettingsFile, {});
        RefreshRecentMenu();
    });
}

void frmMain::mnu_OpenProject_Click() {
    OpenProject();
}
void frmMain::mnu_SaveAs_Click() {
    SaveProject();
}
