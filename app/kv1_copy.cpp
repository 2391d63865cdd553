// kv1 copy PROJECT.kv1 NEW.kv1: open as Kelvrin opens, save as Kelvrin saves.
#include "flows/projectcopy.h"
#include "kv1commands.h"
#include "kv1project.h"

#include <QFileInfo>

namespace {
bool sameFile(const QString& a, const QString& b) {
    const QFileInfo x(a), y(b);
    return x.absoluteFilePath() == y.absoluteFilePath() ||
           (y.exists() && x.canonicalFilePath() == y.canonicalFilePath());
}

int runCopy(const ToolArguments& arguments) {
    const int cell = WholeOption(arguments, QStringLiteral("--cell"), 1, 4096);
    const QString target = QFileInfo(arguments.positional[1]).absoluteFilePath();
    if (!target.endsWith(QLatin1String(".kv1"), Qt::CaseInsensitive))
        throw UsageError(QStringLiteral("the new project's name must end in .kv1: ") +
                         arguments.positional[1]);
    const QFileInfo existing(target);
    if (!QFileInfo(existing.absolutePath()).isDir())
        throw ToolFailure(QStringLiteral("no such folder: ") + existing.absolutePath());
    if (existing.exists() ? !existing.isWritable() : !QFileInfo(existing.absolutePath()).isWritable())
        throw ToolFailure(QStringLiteral("cannot write ") + target);

    ToolProject opened(arguments.positional[0]);
    if (sameFile(opened.path, target))
        throw ToolFailure(QStringLiteral("the copy would replace the project itself: ") + target);
    opened.rebuildCompletely(static_cast<float>(cell));

    const ProjectCopy copy = CopyProject(opened.project(), target);
    if (!copy.fileWritten) throw ToolFailure(QStringLiteral("could not write ") + target);
    if (copy.lostPictures)
        throw ToolFailure(QStringLiteral("%1 pictures could not be copied into %2")
                              .arg(copy.lostPictures)
                              .arg(copy.pictureFolder));
    Print(QStringLiteral("Copied %1 to %2: %3 panes, %4 pictures of %5 x %5 pixels in %6\n")
              .arg(opened.path, target)
              .arg(copy.paneTotal)
              .arg(copy.pictures)
              .arg(cell)
              .arg(copy.pictureFolder));
    return 0;
}
} // namespace

ToolCommand CopyCommand() {
    return {QStringLiteral("copy"),
            {QStringLiteral("PROJECT.kv1"), QStringLiteral("NEW.kv1")},
            QStringLiteral("Opens the project as Kelvrin's Open Project does, building every pane\n"
                           "picture again from the picture folder, and saves it as Save Project As\n"
                           "does: NEW.kv1 and its picture folder beside it. When pictures are\n"
                           "missing it names them and stops without writing NEW.kv1."),
            {CellOption()},
            runCopy};
}
