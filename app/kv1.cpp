// kv1: Kelvrin's companion tool for project files, for the command line and scripts.
#include "kv1commands.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <memory>

QList<ToolCommand> Kv1Commands() {
    return {InfoCommand(), CopyCommand(), ExportCommand(), AnimaticCommand()};
}

int main(int argc, char** argv) {
    // Drawing text into pictures (captions, "picture missing") needs Qt's GUI application. kv1
    // never shows a window, so it draws on the offscreen platform whatever the desktop is.
    const bool draws = argc > 1 && qstrcmp(argv[1], "animatic") == 0;
    if (draws) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt's remarks on that platform (no runtime folder and the like) are no concern of kv1's
        // user; kv1's own messages do not go through Qt's log.
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtFatalMsg) std::fprintf(stderr, "kv1: %s\n", qPrintable(text));
        });
    }
    std::unique_ptr<QCoreApplication> app;
    if (draws)
        app = std::make_unique<QGuiApplication>(argc, argv);
    else
        app = std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kv1"));
    return RunTool(Kv1Commands(), QCoreApplication::arguments().mid(1));
}
