// kv1: Kelvrin's companion tool for project files, for the command line and scripts.
#include "kv1commands.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <cstring>
#include <memory>

QList<ToolCommand> Kv1Commands() {
    return {InfoCommand(), CopyCommand(), ExportCommand(), PdfCommand(), AnimaticCommand()};
}

namespace {
// kv1 tells what went wrong in its own words; the offscreen platform's notes are noise there.
void quietWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "kv1: %s\n", qPrintable(message));
}
} // namespace

int main(int argc, char** argv) {
    // Drawing text (a contact sheet's, a video's captions and "picture missing") needs Qt's GUI
    // application and its fonts. kv1 never shows a window, so it draws on the offscreen platform
    // whatever the desktop is; the other commands make do with the core.
    const bool draws = argc > 1 && (std::strcmp(argv[1], "pdf") == 0 || std::strcmp(argv[1], "animatic") == 0);
    std::unique_ptr<QCoreApplication> app;
    if (draws) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(quietWarnings);
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("kv1"));
    return RunTool(Kv1Commands(), QCoreApplication::arguments().mid(1));
}
