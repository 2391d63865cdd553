// kv1 animatic PROJECT.kv1 OUT: the panes in order as a video or an animated GIF.
#include "animatic/animatic.h"
#include "kv1commands.h"
#include "kv1project.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {
AnimaticOptions optionsOf(const ToolArguments& arguments) {
    AnimaticOptions options;
    const QString size = arguments.option(QStringLiteral("--size"));
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$")).match(size);
    if (!match.hasMatch())
        throw UsageError(QStringLiteral("--size takes WIDTHxHEIGHT, as 1280x720: ") + size);
    options.size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    bool ok = false;
    options.seconds = arguments.option(QStringLiteral("--seconds")).toDouble(&ok);
    if (!ok) throw UsageError(QStringLiteral("--seconds takes a number of seconds, as 1.5"));
    options.fps = WholeOption(arguments, QStringLiteral("--fps"), 1, 60);
    options.captions = !arguments.option(QStringLiteral("--captions")).isEmpty();
    options.includeBlanks = !arguments.option(QStringLiteral("--include-blanks")).isEmpty();
    const QString problem = AnimaticOptionsProblem(options);
    if (!problem.isEmpty()) throw UsageError(problem);
    return options;
}

int runAnimatic(const ToolArguments& arguments) {
    const AnimaticOptions options = optionsOf(arguments);
    if (AnimaticFormatOf(arguments.positional[1]) == AnimaticFormat::Unknown)
        throw UsageError(QStringLiteral("the video's name must end in .mp4, .webm or .gif: ") +
                         arguments.positional[1]);
    const QString out = OutputPath(arguments.positional[1]);

    ToolProject opened(arguments.positional[0]);
    opened.requireOpenable();
    const QList<int> missing = opened.missingPictures();
    if (!missing.isEmpty())
        Report(QStringLiteral("kv1: ") + opened.describeMissing(missing) + QLatin1Char('\n'));

    const AnimaticResult result = WriteAnimatic(opened.project(), options, out, [](int done, int total) {
        if (total > 100 && (done % 100 == 0 || done == total))
            Report(QStringLiteral("kv1: pane %1 of %2\n").arg(done).arg(total));
        return true;
    });
    if (!result.done) throw ToolFailure(result.error);
    const bool gif = AnimaticFormatOf(out) == AnimaticFormat::Gif;
    Print(QStringLiteral("Wrote %1: %2 panes, %3 seconds%4\n")
              .arg(out)
              .arg(result.panes)
              .arg(double(result.ticks) / (gif ? 100 : options.fps))
              .arg(gif ? QString() : QStringLiteral(", %1 frames").arg(result.ticks)));
    return 0;
}
} // namespace

ToolCommand AnimaticCommand() {
    return {QStringLiteral("animatic"),
            {QStringLiteral("PROJECT.kv1"), QStringLiteral("OUT")},
            QStringLiteral("Plays the panes in pane order into a video, each pane's picture letterboxed\n"
                           "and held for the same time; panes without a picture are left out. OUT's\n"
                           "extension gives the format: .mp4 (H.264), .webm (VP9) or .gif (animated, one\n"
                           "picture a pane). A missing picture is a frame saying \"picture missing\"."),
            {{QStringLiteral("--seconds"), QStringLiteral("S"),
              QStringLiteral("each pane's time, 0.1 to 600"), QStringLiteral("2")},
             {QStringLiteral("--size"), QStringLiteral("WxH"),
              QStringLiteral("frame size, even sides of 64 to 4096"), QStringLiteral("1920x1080")},
             {QStringLiteral("--fps"), QStringLiteral("N"), QStringLiteral("frames a second, 1 to 60"),
              QStringLiteral("24")},
             FlagOption("--captions", "the panes' texts under their pictures"),
             FlagOption("--include-blanks", "panes without a picture as black frames")},
            runAnimatic};
}
