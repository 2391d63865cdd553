// kv1 info PROJECT.kv1: what a project holds, for people.
#include "kv1commands.h"
#include "kv1project.h"
#include "model/numbers.h"

#include <QFileInfo>

namespace {
QString row(const QString& label, const QString& value) {
    return (label + QLatin1Char(':')).leftJustified(16) + value + QLatin1Char('\n');
}

QString shown(const QString& text) {
    return IsSet(text) ? text : QStringLiteral("(none)");
}

int runInfo(const ToolArguments& arguments) {
    const ToolProject opened(arguments.positional[0]);
    const Project& p = opened.project();
    const qint16 total = opened.paneTotal();
    int withPictures = 0;
    for (int i = 1; i <= qMin<int>(total, kMaxPane); ++i)
        if (p.Panes(i).SourceStem != kNone) ++withPictures;

    QString panes = Str(total);
    const qint64 shaped = qint64(p.GridSide) * p.GridSide * p.BoardCount;
    if (shaped != total) panes += QStringLiteral(" (the grid and boards make %1)").arg(shaped);
    QString text = row(QStringLiteral("Project"), opened.path) +
                   row(QStringLiteral("Grid"), QStringLiteral("%1 x %1").arg(p.GridSide)) +
                   row(QStringLiteral("Boards"), Str(p.BoardCount)) + row(QStringLiteral("Panes"), panes) +
                   row(QStringLiteral("With pictures"), Str(withPictures)) +
                   row(QStringLiteral("Title"), shown(p.BoardTitle)) +
                   row(QStringLiteral("Footer"), shown(p.FooterText)) +
                   row(QStringLiteral("Picture folder"), opened.pictureFolder());
    const QString why = opened.whyKelvrinCannotOpen();
    if (!why.isEmpty())
        text += row(QStringLiteral("Warning"), QStringLiteral("Kelvrin cannot open it: ") + why);
    const QList<int> missing = opened.missingPictures();
    text += row(QStringLiteral("Missing"),
                missing.isEmpty() ? QStringLiteral("none")
                                  : QStringLiteral("%1 of %2").arg(missing.size()).arg(withPictures));
    for (int i : missing)
        text += QStringLiteral("  %1 (pane %2)\n").arg(QFileInfo(p.Panes(i).SourceFile).fileName()).arg(i);
    Print(text);
    opened.requireOpenable();
    if (!missing.isEmpty()) throw ToolFailure(opened.describeMissing(missing));
    return 0;
}
} // namespace

ToolCommand InfoCommand() {
    return {QStringLiteral("info"),
            {QStringLiteral("PROJECT.kv1")},
            QStringLiteral("Prints the project's grid, boards and pane total, how many panes have\n"
                           "pictures, its title and footer, and every picture that its picture\n"
                           "folder should hold but does not. Exits with status 1 when pictures\n"
                           "are missing or Kelvrin cannot open the project."),
            {},
            runInfo};
}
