#include "flows/projectsave.h"
#include "stage/frmmain.h"

#include "stage/progress.h"

#include "dialogs/frmhtml.h"
#include "flows/projectopen.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "model/runtimeerror.h"

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
}

void frmMain::OpenProject() {
    AskOpenPath();
    if (project.DialogReply[1] == kNone) return;
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
}

void frmMain::mnu_OpenProject_Click() {
    OpenProject();
}
void frmMain::mnu_SaveAs_Click() {
    SaveProject();
}
