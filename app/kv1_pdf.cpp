// kv1 pdf PROJECT.kv1 OUT.pdf: the project's contact sheet, as Kelvrin's Export As PDF writes it.
#include "export/sheetpainter.h"
#include "kv1commands.h"
#include "kv1project.h"

#include <QFileInfo>

namespace {
bool given(const ToolArguments& arguments, const char* name) {
    return !arguments.option(QString::fromLatin1(name)).isEmpty();
}

SheetOptions sheetOptions(const ToolArguments& arguments) {
    SheetOptions options;
    const QString perPage = arguments.option(QStringLiteral("--per-page"));
    if (perPage != QLatin1String("board")) {
        bool ok = false;
        options.perPage = perPage.toInt(&ok);
        if (!ok || options.perPage == 0 || !kSheetPerPageChoices.contains(options.perPage))
            throw UsageError(QStringLiteral("--per-page takes board, 1, 2, 3, 4, 6, 9 or 12"));
    }
    const QString paper = arguments.option(QStringLiteral("--paper")).toLower();
    if (paper == QLatin1String("a4"))
        options.paper = QPageSize::A4;
    else if (paper == QLatin1String("letter"))
        options.paper = QPageSize::Letter;
    else
        throw UsageError(QStringLiteral("--paper takes a4 or letter"));
    options.landscape = given(arguments, "--landscape");
    options.texts = !given(arguments, "--no-texts");
    options.labels = given(arguments, "--labels");
    options.urls = given(arguments, "--urls");
    options.numbers = !given(arguments, "--no-numbers");
    options.dpi = WholeOption(arguments, QStringLiteral("--dpi"), 36, 1200);
    return options;
}

int runPdf(const ToolArguments& arguments) {
    const SheetOptions options = sheetOptions(arguments);
    const QString out = OutputPath(arguments.positional[1]);
    ToolProject opened(arguments.positional[0]);
    opened.requireOpenable();

    // Pictures come from the picture folder's copies; no working pictures are needed.
    const Project& project = opened.project();
    const bool verbose = PaneTotal(project) > 100;
    const SheetResult result = WriteSheetPdf(out, project, options, [verbose](int done, int total) {
        if (verbose && (done % 100 == 0 || done == total))
            Report(QStringLiteral("kv1: pane %1 of %2\n").arg(done).arg(total));
        return true;
    });
    if (!result.complete) throw ToolFailure(result.error);
    for (int pane : result.missing)
        Report(QStringLiteral("kv1: pane %1: picture missing (%2)\n")
                   .arg(pane)
                   .arg(project.Panes(pane).SourceFile));
    Print(QStringLiteral("Wrote %1: %2 panes, %3 of them with pictures missing\n")
              .arg(out)
              .arg(PaneTotal(project))
              .arg(result.missing.size()));
    return 0;
}
} // namespace

ToolCommand PdfCommand() {
    return {
        QStringLiteral("pdf"),
        {QStringLiteral("PROJECT.kv1"), QStringLiteral("OUT.pdf")},
        QStringLiteral("Writes the project's contact sheet as Kelvrin's Export As PDF does: every pane's\n"
                       "picture with its number and text under it, the title at the top and the\n"
                       "footer and \"Page n of m\" at the bottom of every page. Panes whose picture\n"
                       "cannot be read are drawn as \"picture missing\" and listed on standard error;\n"
                       "the exit status is still 0. OUT.pdf appears only once it is complete."),
        {{QStringLiteral("--per-page"), QStringLiteral("N"),
          QStringLiteral("panes per page: 1, 2, 3, 4, 6, 9, 12 or board"), QStringLiteral("board")},
         {QStringLiteral("--paper"), QStringLiteral("SIZE"), QStringLiteral("a4 or letter"),
          LocaleSheetPaper() == QPageSize::Letter ? QStringLiteral("letter") : QStringLiteral("a4")},
         FlagOption("--landscape", "pages wider than high"),
         FlagOption("--no-texts", "no pane texts under the pictures"),
         FlagOption("--labels", "the panes' labels under the pictures"),
         FlagOption("--urls", "the panes' URLs under the pictures, as links"),
         FlagOption("--no-numbers", "no pane numbers"),
         {QStringLiteral("--dpi"), QStringLiteral("N"),
          QStringLiteral("resolution of the pictures, 36 to 1200"), QStringLiteral("300")}},
        runPdf};
}
