#include "dialogs/qtprompts.h"
#include "endsignals.h"
#include "model/project.h"
#include "model/runtimeerror.h"
#include "model/workfolder.h"
#include "stage/application.h"
#include "stage/frmmain.h"

int main(int argc, char** argv) {
    KelvrinApplication app(argc, argv);
    KelvrinApplication::setApplicationName(QStringLiteral("kelvrin"));
    KelvrinApplication::setDesktopFileName(QStringLiteral("works.orvane.Kelvrin"));

    QtPrompts prompts;
    app.SetPrompts(&prompts);

    Project project;
    project.ProgramFolder = KelvrinApplication::applicationDirPath();
    try {
        const WorkFolderClaim workFolder(project.ProgramFolder);
        project.WorkFolder = workFolder.path();
        frmMain window(project, prompts);
        prompts.setParent(&window);
        // Every window of the program, message boxes included, carries the program's icon.
        KelvrinApplication::setWindowIcon(window.windowIcon());
        CloseOnEndSignals(window);
        window.Form_Load();
        // The window covers the work area; without a window manager to maximise it, it is placed there.
        window.setGeometry(window.WorkArea());
        window.showMaximized();
        return KelvrinApplication::exec();
    } catch (const RunTimeError& error) {
        app.Fail(error);
    }
    return 1;
}
