#include "animatic/animatic.h"

#include "animatic/gifwriter.h"
#include "animatic/slide.h"
#include "animatic/videowriter.h"

#include <QDir>
#include <QFileInfo>
#include <QFuture>
#include <QTemporaryFile>
#include <QThread>
#include <QtConcurrent>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>

namespace {
bool goodSide(int side) {
    return side >= 64 && side <= 4096 && side % 2 == 0;
}

QImage frameOf(const Pane& pane, const AnimaticOptions& options) {
    Slide slide;
    slide.picture = LoadOutputPicture(pane, options.size);
    if (options.captions) slide.caption = CaptionOf(pane);
    return RenderSlide(options.size, slide);
}

std::unique_ptr<FrameSink> openSink(const QString& path, const AnimaticOptions& options) {
    const AnimaticFormat format = AnimaticFormatOf(path);
    if (format == AnimaticFormat::Gif) return OpenGif(path, options.size);
    return OpenVideo(path, format, options.size, options.fps);
}

// Every pane's picture in pane order, prepared on the other cores a few panes ahead of the
// encoder, so that decoding and encoding overlap while only a few frames are held at once.
AnimaticResult encode(const Project& project, const QList<int>& panes, const AnimaticOptions& options,
                      FrameSink& sink, const std::function<bool(int, int)>& progress) {
    AnimaticResult result;
    const int ahead = qMax(2, QThread::idealThreadCount());
    std::deque<QFuture<QImage>> pending;
    int queued = 0;
    const auto fill = [&] {
        while (queued < panes.size() && static_cast<int>(pending.size()) < ahead) {
            const Pane pane = project.Panes(panes[queued++]);
            pending.push_back(QtConcurrent::run([pane, options] { return frameOf(pane, options); }));
        }
    };
    const auto stop = [&] {
        for (QFuture<QImage>& f : pending)
            f.waitForFinished();
    };
    try {
        for (int slot = 0; slot < panes.size(); ++slot) {
            fill();
            const QImage frame = pending.front().result();
            pending.pop_front();
            const qint64 ticks = FirstFrameOf(slot + 1, options.seconds, sink.Rate()) -
                                 FirstFrameOf(slot, options.seconds, sink.Rate());
            sink.Write(frame, ticks);
            result.ticks += ticks;
            if (progress && !progress(slot + 1, static_cast<int>(panes.size()))) {
                stop();
                result.cancelled = true;
                return result;
            }
        }
        sink.Finish();
    } catch (...) {
        stop();
        throw;
    }
    result.panes = static_cast<int>(panes.size());
    result.done = true;
    return result;
}
} // namespace

QString AnimaticOptionsProblem(const AnimaticOptions& o) {
    if (!goodSide(o.size.width()) || !goodSide(o.size.height()))
        return QStringLiteral("the size must be even on both sides and from 64 to 4096 pixels: %1x%2")
            .arg(o.size.width())
            .arg(o.size.height());
    if (o.fps < 1 || o.fps > 60) return QStringLiteral("the frame rate must be from 1 to 60");
    if (!(o.seconds >= 0.1 && o.seconds <= 600))
        return QStringLiteral("a pane's time must be from 0.1 to 600 seconds");
    if (o.seconds * o.fps < 1) return QStringLiteral("a pane must last at least one frame");
    return QString();
}

AnimaticResult WriteAnimatic(const Project& project, const AnimaticOptions& options, const QString& path,
                             const std::function<bool(int, int)>& progress) {
    AnimaticResult result;
    const auto failed = [&result](const QString& why) {
        result.error = why;
        return result;
    };
    if (AnimaticFormatOf(path) == AnimaticFormat::Unknown)
        return failed(QStringLiteral("the file's name must end in .mp4, .webm or .gif: ") + path);
    const QString problem = AnimaticOptionsProblem(options);
    if (!problem.isEmpty()) return failed(problem);
    const QList<int> panes = PlayedPanes(project, options.includeBlanks);
    if (panes.isEmpty()) return failed(QStringLiteral("there is no pane with a picture to show"));
    const QFileInfo target(path);
    if (target.isDir()) return failed(QStringLiteral("a folder has that name: ") + path);

    // The temporary file keeps the extension: it names the format for FFmpeg as well.
    QTemporaryFile part(target.absolutePath() + QStringLiteral("/.") + target.completeBaseName() +
                        QStringLiteral("-XXXXXX.") + target.suffix());
    if (!part.open())
        return failed(
            QStringLiteral("cannot write in %1: %2").arg(target.absolutePath(), part.errorString()));
    part.close();
    try {
        std::unique_ptr<FrameSink> sink = openSink(part.fileName(), options);
        result = encode(project, panes, options, *sink, progress);
    } catch (const AnimaticError& error) {
        return failed(QStringLiteral("%1: %2").arg(path, error.message));
    }
    if (!result.done) return result;
    part.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    // rename() replaces an older file of that name in one step.
    if (std::rename(QFile::encodeName(part.fileName()).constData(),
                    QFile::encodeName(target.absoluteFilePath()).constData()) != 0) {
        result.done = false;
        return failed(
            QStringLiteral("cannot write %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno))));
    }
    part.setAutoRemove(false);
    return result;
}
