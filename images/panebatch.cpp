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
    RenderInOrder<RenderedPane>(
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
