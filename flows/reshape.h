#pragma once

#include "model/project.h"

#include <functional>

// What a new project shape does to the pane records. Keeping rebuilds the working picture of
// every pane record, 1 to 1000, at the new cell size: panes keep their contents by index, so a
// pane moves to another board or cell when the grid changes, and records beyond the new pane
// total keep theirs for a later regrow. Discarding makes sure the working folder exists and
// forgets every picture and flip (records 0 to 1000) while the texts, labels and URLs stay in the
// records. A source picture that cannot be read while keeping is a RunTimeError.
void ReshapePanes(Project& project, float cellSize, bool discard,
                  const std::function<void(int, int)>& progress = {});
