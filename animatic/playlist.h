#pragma once

#include "model/project.h"

#include <QList>
#include <QString>

// Which panes a slideshow or an animatic plays, and when each one is on screen.

// Panes 1 to the last pane of the last board in pane order; panes without a picture only when
// includeBlanks is set.
QList<int> PlayedPanes(const Project& project, bool includeBlanks);

// The first of `count` frames at `rate` frames a second that belongs to the slot-th pane shown
// for `seconds` each. Counting from the start, not pane by pane, keeps rounding from drifting:
// pane k is frames FirstFrameOf(k) up to FirstFrameOf(k + 1).
qint64 FirstFrameOf(int slot, double seconds, int rate);

enum class AnimaticFormat { Unknown, Mp4, WebM, Gif };
// By the file name's extension, in any case.
AnimaticFormat AnimaticFormatOf(const QString& path);
