#pragma once

#include "model/project.h"

// Mirrors a pane's working picture in place and toggles the pane's flag for that direction, so
// that a later rebuild from the source picture gives the same orientation. horizontal is -1 (true)
// for left to right and 0 for top to bottom; any other value toggles nothing and saves an empty
// square. The mirrored draw is one pixel longer than the square, as when the picture is stored,
// so each flip shifts the picture by one pixel at the edge. positionX and positionY are taken for
// the caller's sake and not used. A working picture that cannot be read is a RunTimeError raised
// before any flag changes.
void FlipPaneImage(Project& project, qint16 paneIndex, float cellSize, qint16 positionX, qint16 positionY,
                   qint16 horizontal);

// Forgets the pane's picture: no working picture, no source, no stem, no flips. The working file
// stays on disk and the pane's text, label and URL stay as they are.
void MakePaneBlank(Project& project, qint16 paneIndex);
