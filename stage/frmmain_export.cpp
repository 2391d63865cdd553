#include "stage/frmmain.h"

#include "stage/progress.h"

#include "animatic/animatic.h"
#include "dialogs/frmanimatic.h"
#include "dialogs/frmhtml.h"
#include "export/htmlexport.h"
#include "model/numbers.h"

#include <QFileInfo>

void frmMain::mnu_ExportHTML_Click() {
    project.DialogReply.ReDim(5);
    project.DialogReply[4] = Str(project.BoardCount);
    project.DialogReply[5] = Str(project.GridSide);
    ShowModal(*HTML);
    ExportPanePictures();
}

void frmMain::ExportPanePictures() {
    const ReplyList& reply = project.DialogReply;
    if (reply[1] == kNone || reply[1].isEmpty()) return;
    // The window's own cursor, not an application-wide one: a failure's message box keeps its arrow.
    setCursor(Qt::WaitCursor);
    ProgressWindow progress(this, project, QStringLiteral("Exporting pictures ..."));
    ::ExportPanePictures(project, CInt(reply[4]), CInt(reply[5]), reply[2], tmpPic, prompts, nullptr,
                         progress.Callback());
    unsetCursor();
}

void frmMain::mnu_ExportAnimatic_Click() {
    frmAnimatic choices(this);
    ShowModal(choices);
    if (choices.result() != QDialog::Accepted) return;
    FileRequest request;
    request.title = QStringLiteral("Export As Animatic ...");
    request.filter = QStringLiteral("MP4 video (*.mp4)|*.mp4|WebM video (*.webm)|*.webm|Animated GIF (*.gif)|*.gif");
    request.filterIndex = 1;
    if (!LastFileName.isEmpty()) request.folder = QFileInfo(LastFileName).absolutePath();
    request.fileName = QStringLiteral("animatic.mp4");
    const QString path = prompts.AskSaveFile(request);
    if (path.isEmpty()) return;
    const QString title = QStringLiteral("Kelvrin : Animatic");
    if (AnimaticFormatOf(path) == AnimaticFormat::Unknown) {
        prompts.Message(QStringLiteral("An animatic's name ends in .mp4, .webm or .gif."), MsgIcon::Exclamation,
                        title);
        return;
    }
    AnimaticResult result;
    {
        setCursor(Qt::WaitCursor);
        ProgressWindow progress(this, project, QStringLiteral("Exporting the animatic ..."), true);
        const auto told = progress.Callback();
        result = WriteAnimatic(project, choices.Options(), path, [&](int done, int total) {
            told(done, total);
            return !progress.Cancelled();
        });
        unsetCursor();
    }
    if (!result.done && !result.cancelled) prompts.Message(result.error, MsgIcon::Exclamation, title);
}
