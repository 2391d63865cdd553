#include "images/reshape.h"

#include "images/paneimage.h"
#include "model/workfolder.h"

void ReshapePanes(Project& project, float cellSize, bool discard) {
    if (!discard) {
        for (int i = 1; i <= kMaxPane; ++i)
            StorePaneImage(project, static_cast<qint16>(i), cellSize, false);
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
