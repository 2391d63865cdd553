// kv1 copy PROJECT.kv1 NEW.kv1: open as Kelvrin opens, save as Kelvrin saves.
#include "kv1commands.h"
#include "kv1project.h"
#include "model/numbers.h"
#include "model/projectfile.h"

#include <QFileInfo>

namespace {
bool sameFile(const QString& a, const QString& b) {
    const QFileInfo x(a), y(b);
    return x.absoluteFilePath() == y.absoluteFilePath() ||
           (y.exists() && x.canonicalFilePath() == y.canonicalFilePath());
}

// Saving traps its failures once pictures are being copied; a copy that lacks its file or a
// picture is no copy.
void checkWritten(const Project& project, const QString& file, const QString& pictures) {
    if (!QFileInfo(file).isFile()) throw ToolFailure(QStringLiteral("could not write ") + file);
    int lost = 0;
    for (int i = 1; i <= kMaxPane; ++i) {
        const Pane& pane = project.Panes(i);
        if (pane.ImageFile == kNone) continue;
        const QString copy = pictures + QLatin1Char('/') + pane.SourceStem + QLatin1Char('-') +
                             Format(i, "0000") + QStringLiteral(".bmp");
        if (!QFileInfo(copy).isFile()) ++lost;
    }
    if (lost)
        throw ToolFailure(QStringLiteral("%1 pictures could not be copied into %2").arg(lost).arg(pictures));
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

    ReplyList reply;
    SetPathReply(reply, target);
    Project& p = opened.project();
    // As the save flow counts them: the grid's panes times the boards the chooser holds.
    const qint16 total = Mul16(Mul16(p.GridSide, p.GridSide), p.BoardCount);
    SaveProjectFile(p, reply[3], reply[1], reply[2], total, p.BoardCount, p.GridSide);
    const QString pictures = PictureFolder(reply[2], reply[3]);
    checkWritten(p, target, pictures);

    int copied = 0;
    for (int i = 1; i <= kMaxPane; ++i)
        if (p.Panes(i).ImageFile != kNone) ++copied;
    Print(QStringLiteral("Copied %1 to %2: %3 panes, %4 pictures of %5 x %5 pixels in %6\n")
              .arg(opened.path, target)
              .arg(total)
              .arg(copied)
              .arg(cell)
              .arg(pictures));
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
