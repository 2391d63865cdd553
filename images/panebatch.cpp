#include "images/panebatch.h"

#include "images/paneimage.h"
#include "model/numbers.h"

#include <QFuture>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>
#include <deque>

RenderedPane RenderCatching(const std::function<QByteArray()>& render) {
    RenderedPane result;
    try {
        result.bmp = render();
    } catch (const RunTimeError& error) {
        result.error = error;
    } catch (const std::bad_alloc&) {
        result.error = RunTimeError::OutOfMemory();
    }
    return result;
}

void RenderInOrder(int count, const std::function<RenderedPane(int)>& render,
                   const std::function<bool(int, RenderedPane&)>& commit) {
    // Enough jobs in flight to keep every core busy, few enough that memory does not grow with
    // the number of pictures.
    const int window = 2 * qMax(1, QThread::idealThreadCount()) + 2;
    std::deque<QFuture<RenderedPane>> inFlight;
    int next = 0;
    const auto fill = [&] {
        while (next < count && static_cast<int>(inFlight.size()) < window) {
            const int job = next++;
            inFlight.push_back(QtConcurrent::run([&render, job] { return render(job); }));
        }
    };
    fill();
    bool go = true;
    for (int i = 0; i < count && go; ++i) {
        RenderedPane result = inFlight.front().result();
        inFlight.pop_front();
        go = commit(i, result);
        if (go) fill();
    }
    // Jobs rendered ahead of a stop are dropped, but they must finish before their data goes.
    for (QFuture<RenderedPane>& f : inFlight)
        f.waitForFinished();
}

void StorePaneImages(Project& project, int first, int last, float paneSize, bool makeNewName,
                     const std::function<void(int, int)>& progress) {
    struct Job {
        QString source;
        int flipH, flipV;
    };
    const int side = CInt(paneSize);
    std::vector<Job> jobs;
    for (int n = first; n <= last; ++n) {
        const Pane& pane = project.Panes(n);
        jobs.push_back({pane.SourceFile, pane.FlipHorizontal, pane.FlipVertical});
    }
    const int count = static_cast<int>(jobs.size());
    std::optional<RunTimeError> failure;
    RenderInOrder(
        count,
        [&jobs, side](int i) {
            const Job& job = jobs[static_cast<size_t>(i)];
            if (job.source == kNone) return RenderedPane{true, {}, {}};
            return RenderCatching([&] { return RenderPaneBmp(job.source, side, job.flipH, job.flipV); });
        },
        [&](int i, RenderedPane& result) {
            if (result.error) {
                failure = result.error;
                return false;
            }
            if (!result.skip) {
                try {
                    CommitPaneImage(project, static_cast<qint16>(first + i), result.bmp, makeNewName);
                } catch (const RunTimeError& error) {
                    failure = error;
                    return false;
                }
            }
            if (progress) progress(i + 1, count);
            return true;
        });
    if (failure) throw *failure;
}
