#pragma once

#include "model/project.h"
#include "model/runtimeerror.h"

#include <QByteArray>
#include <QFuture>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>
#include <deque>
#include <functional>
#include <optional>

// Building many working pictures at once: decoding and scaling run on every core, while the
// results are committed one after the other, in pane order, on the calling thread. What the user
// sees (which files exist, which panes changed, where a failure stops the work) is exactly what
// building the pictures one by one gives.

struct RenderedPane {
    QByteArray bmp;                    // the working picture's file bytes
    std::optional<RunTimeError> error; // why it could not be built
};

// Renders job i (0 to count - 1) with render(i) on worker threads, never more than a few jobs
// ahead of the one being committed, and hands each result to commit(i, result) in order on the
// calling thread. Stops when commit returns false. render must be safe to call from any thread.
template <typename Result, typename Render, typename Commit>
void RenderInOrder(int count, const Render& render, const Commit& commit) {
    // Enough jobs in flight to keep every core busy, few enough that memory does not grow with
    // the number of pictures.
    const int window = 2 * qMax(1, QThread::idealThreadCount()) + 2;
    std::deque<QFuture<Result>> inFlight;
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
        Result result = inFlight.front().result();
        inFlight.pop_front();
        go = commit(i, result);
        if (go) fill();
    }
    // Jobs rendered ahead of a stop are dropped, but they must finish before their data goes.
    for (QFuture<Result>& f : inFlight)
        f.waitForFinished();
}

// A render that turns a RunTimeError into the result's error.
RenderedPane RenderCatching(const std::function<QByteArray()>& render);

// StorePaneImage for panes first to last in order, skipping panes without a source. A pane that
// fails raises its RunTimeError after every pane before it is done and nothing after it is
// touched. progress(done, total) follows each pane.
void StorePaneImages(Project& project, int first, int last, float paneSize, bool makeNewName,
                     const std::function<void(int, int)>& progress = {});
