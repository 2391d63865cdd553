// kv1: Kelvrin's companion tool for project files, for the command line and scripts.
#include "kv1commands.h"

#include <QCoreApplication>

QList<ToolCommand> Kv1Commands() {
    return {InfoCommand(), CopyCommand(), ExportCommand()};
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kv1"));
    return RunTool(Kv1Commands(), QCoreApplication::arguments().mid(1));
}
