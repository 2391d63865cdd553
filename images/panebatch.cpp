#include "images/panebatch.h"

#include "images/paneimage.h"
#include "model/numbers.h"

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

void StorePaneImages(Project& project, int first, int last, float paneSize, bool makeNewName,
                     const std::function<void(int, int)>& progress) {
    // Only panes with a source go to the workers; the others are passed over in order here, so a
    // project of few pictures (or none, at start-up) costs no thread hand-offs.
    struct Job {
        int pane;
        QString source;
        int flipH, flipV;
    };
    const int side = CInt(paneSize);
    const int count = qMax(0, last - first + 1);
    std::vector<Job> jobs;
    for (int n = first; n <= last; ++n) {
        const Pane& pane = project.Panes(n);
        if (pane.SourceFile != kNone)
            jobs.push_back({n, pane.SourceFile, pane.FlipHorizontal, pane.FlipVertical});
    }
    int done = 0; // panes before this one are finished
    const auto passOverTo = [&](int pane) {
        for (; first + done < pane; ++done)
            if (progress) progress(done + 1, count);
    };
    std::optional<RunTimeError> failure;
    RenderInOrder<RenderedPane>(
        static_cast<int>(jobs.size()),
        [&jobs, side](int i) {
            const Job& job = jobs[static_cast<size_t>(i)];
            return RenderCatching([&] { return RenderPaneBmp(job.source, side, job.flipH, job.flipV); });
        },
        [&](int i, RenderedPane& result) {
            const int pane = jobs[static_cast<size_t>(i)].pane;
            passOverTo(pane);
            if (result.error) {
                failure = result.error;
                return false;
            }
            try {
                CommitPaneImage(project, static_cast<qint16>(pane), result.bmp, makeNewName);
            } catch (const RunTimeError& error) {
                failure = error;
                return false;
            }
            passOverTo(pane + 1);
            return true;
        });
    if (failure) throw *failure;
    passOverTo(last + 1);
}
