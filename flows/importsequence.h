#pragma once

#include "images/sequence.h"
#include "model/project.h"

#include <QString>
#include <functional>

// The import that fills consecutive panes from a numbered picture sequence.

struct ImportOutcome {
    qint16 NextPane = 0; // the pane after the last one filled
    bool Halted = false; // a file was missing or unreadable; false when pane 1000 was filled
};

// Fills panes firstPane, firstPane + 1, ... with the files of the sequence until the next file
// is missing or cannot be read, or pane 1000 has been filled, whatever the project's size. Each
// filled pane takes the prefix as its stem, the file as its source, no flips and a new working
// picture of cellSize pixels. The pane at which the import halts gets its picture references
// back; its flips stay cleared.
// progress(done, most) follows every pane filled.
ImportOutcome ImportSequence(Project& project, const ImageSequence& sequence, qint16 firstPane,
                             float cellSize, const std::function<void(int, int)>& progress = {});

// What the import reports when it halts at pane nextPane after starting at firstPane. The message
// is chosen by nextPane - 1 while the count shown is nextPane - firstPane; the two agree only for
// an import that starts at pane 1, and that is how the report has always read.
QString ImportCountMessage(qint16 nextPane, qint16 firstPane);
// The message for a name without a usable number, and for an import that found nothing.
QString NoImagesMessage();
