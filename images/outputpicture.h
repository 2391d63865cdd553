#pragma once

#include "model/project.h"

#include <QImage>
#include <QSize>

// A pane's picture for showing larger than on the stage: a printed sheet, the slideshow, a video
// frame. The stage's working picture is a small square, so these start from the original picture.
struct OutputPicture {
    QImage image;         // null when there is nothing to show
    bool missing = false; // the pane has a picture, but neither its source nor its working picture reads
};

// The pane's source picture decoded at least `atLeast` (a JPEG may come smaller than its full
// size), in its own proportions, with the pane's flips applied as whole mirrors; when the source
// cannot be read, its working picture. A pane without a picture gives a null image and missing
// false. Safe to call from several threads at once for different panes.
OutputPicture LoadOutputPicture(const Pane& pane, QSize atLeast);

// The same for a picture that is to fit inside `box` keeping its proportions: decoded only as large
// as that needs (a wide picture in a square box needs its width, not its height, to cover the box).
OutputPicture LoadOutputPictureToFit(const Pane& pane, QSize box);
