// kv1: Kelvrin's companion tool for project files, for the command line and scripts.
#include "kv1commands.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <cstring>
#include <memory>

QList<ToolCommand> Kv1Commands() {
    return {InfoCommand(), CopyCommand(), ExportCommand(), PdfCommand()};
}

namespace {
// kv1 tells what went wrong in its own words; the offscreen platform's notes are noise there.
void quietWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "kv1: %s\n", qPrintable(message));
}
} // namespace

int main(int argc, char** argv) {
    // Laying out text for a PDF needs fonts, which come with a GUI application; its offscreen
    // platform needs no display. The other commands make do with the core.
    std::unique_ptr<QCoreApplication> app;
    if (argc > 1 && std::strcmp(argv[1], "pdf") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(quietWarnings);
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("kv1"));
    return RunTool(Kv1Commands(), QCoreApplication::arguments().mid(1));
}
