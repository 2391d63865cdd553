#include "stage/frmmain.h"

#include "stage/progress.h"

#include "dialogs/frmhtml.h"
#include "export/htmlexport.h"
#include "model/numbers.h"

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
