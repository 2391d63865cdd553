#include "flows/reshape.h"

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
        ForgetPicture(project.Panes(i));
    }
}
