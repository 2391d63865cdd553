// kv1 export PROJECT.kv1 PAGE.htm: open as Kelvrin opens, then what the export window's Accept and
// the picture conversion do.
#include "flows/projectexport.h"
#include "kv1commands.h"
#include "kv1project.h"

#include <QFileInfo>

namespace {
bool given(const ToolArguments& arguments, const char* name) {
    return !arguments.option(QString::fromLatin1(name)).isEmpty();
}

int runExport(const ToolArguments& arguments) {
    const int cell = WholeOption(arguments, QStringLiteral("--cell"), 1, 4096);
    HtmlExportOptions options;
    options.GridIndex = WholeOption(arguments, QStringLiteral("--grid"), 2, 5) - 2;
    options.ScaleOption = given(arguments, "--small-screens") ? 0 : 1;
    const char* boxes[6] = {"--no-dock-labels", "--no-alt-labels", "--no-numbers",
                            "--no-url-borders", "--no-title",      "--no-footer"};
    for (int i = 0; i < 6; ++i)
        options.Structure[static_cast<size_t>(i)] = !given(arguments, boxes[i]);
    options.AutoCreate = !given(arguments, "--first-page-only");

    const ExportTarget target = ExportTargetOf(QFileInfo(arguments.positional[1]).absoluteFilePath());
    if (!target.Path.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive) || target.Stem.isEmpty())
        throw UsageError(QStringLiteral("the page's name must end in .htm: ") + arguments.positional[1]);
    if (!QFileInfo(target.Folder).isDir())
        throw ToolFailure(QStringLiteral("no such folder: ") + target.Folder);

    ToolProject opened(arguments.positional[0]);
    opened.rebuildCompletely(static_cast<float>(cell));

    Project& project = opened.project();
    const bool verbose = project.BoardCount * project.GridSide * project.GridSide > 100;
    const ProjectExport exported = ExportProject(project, options, target, [verbose](int pane, int last) {
        if (verbose && (pane % 100 == 0 || pane == last))
            Report(QStringLiteral("kv1: picture %1 of %2\n").arg(pane).arg(last));
    });
    if (!exported.done) throw ToolFailure(exported.failure);
    Print(QStringLiteral("Exported %1 to %2: %3 pages, %4 pictures\n")
              .arg(opened.path, target.Folder)
              .arg(exported.pages.size())
              .arg(exported.pictures.size()));
    for (const QString& file : exported.pages + exported.pictures)
        Print(QStringLiteral("  ") + file + QLatin1Char('\n'));
    return 0;
}
} // namespace

ToolCommand ExportCommand() {
    return {QStringLiteral("export"),
            {QStringLiteral("PROJECT.kv1"), QStringLiteral("PAGE.htm")},
            QStringLiteral("Opens the project as Kelvrin's Open Project does and exports it as Kelvrin's\n"
                           "Export As Html does: pages PAGE_001.htm, PAGE_002.htm, ... linked by \"Next\",\n"
                           "and one JPEG per pane with a picture, all in PAGE.htm's folder. Without\n"
                           "options it uses the export window's defaults."),
            {CellOption(),
             {QStringLiteral("--grid"), QStringLiteral("N"),
              QStringLiteral("panes per side of a page, 2 to 5"), QStringLiteral("2")},
             FlagOption("--small-screens", "scale panes for 640 x 480 (else 800 x 600, 1024 x 768)"),
             FlagOption("--no-dock-labels", "no labels with the panes"),
             FlagOption("--no-alt-labels", "no labels as ALT text"),
             FlagOption("--no-numbers", "no pane numbers"),
             FlagOption("--no-url-borders", "no border setting for linked panes"),
             FlagOption("--no-title", "no board title"),
             FlagOption("--no-footer", "no footer text"),
             FlagOption("--first-page-only", "write page 1 only (auto-create off)")},
            runExport};
}
