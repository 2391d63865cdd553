#include "dialogs/qtprompts.h"
#include "endsignals.h"
#include "model/project.h"
#include "model/runtimeerror.h"
#include "model/workfolder.h"
#include "stage/application.h"
#include "stage/frmmain.h"

#include <QCommandLineParser>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
    KelvrinApplication app(argc, argv);
    KelvrinApplication::setApplicationName(QStringLiteral("kelvrin"));
    KelvrinApplication::setDesktopFileName(QStringLiteral("works.orvane.Kelvrin"));
    KelvrinApplication::setApplicationVersion(QStringLiteral(KELVRIN_VERSION));

    QCommandLineParser arguments;
    arguments.setApplicationDescription(QStringLiteral("Lays out sequences of pictures as boards of panes."));
    arguments.addHelpOption();
    arguments.addVersionOption();
    arguments.addPositionalArgument(QStringLiteral("PROJECT.kv1"), QStringLiteral("A project to open."),
                                    QStringLiteral("[PROJECT.kv1]"));
    arguments.process(app);
    const QStringList projects = arguments.positionalArguments();
    if (projects.size() > 1) {
        std::fprintf(stderr, "kelvrin: one project at a time\n");
        return 2;
    }

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
        // Opened once the window is up, as the Open Project command would open it.
        if (!projects.isEmpty())
            QTimer::singleShot(0, &window,
                               [&window, &projects] { window.OpenProjectFromCommandLine(projects.first()); });
        return KelvrinApplication::exec();
    } catch (const RunTimeError& error) {
        app.Fail(error);
    }
    return 1;
}
