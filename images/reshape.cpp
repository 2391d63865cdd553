#include "images/reshape.h"

#include "images/panebatch.h"
#include "model/workfolder.h"

void ReshapePanes(Project& project, float cellSize, bool discard,
                  const std::function<void(int, int)>& progress) {
    if (!discard) {
        StorePaneImages(project, 1, kMaxPane, cellSize, false, progress);
        return;
    }
    EnsureWorkFolder(project.WorkFolder);
    for (int i = 0; i <= kMaxPane; ++i) {
        Pane& pane = project.Panes(i);
        pane.ImageFile = kNone;
        pane.SourceFile = kNone;
        pane.SourceStem = kNone;
        pane.FlipHorizontal = 0;
        pane.FlipVertical = 0;
    }
}
