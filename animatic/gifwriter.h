#pragma once

#include "animatic/framesink.h"

#include <memory>

// An animated GIF that loops for ever: one picture a pane, held for its time in hundredths of a
// second, each with its own palette of 256 colours chosen by median cut (giflib).
std::unique_ptr<FrameSink> OpenGif(const QString& path, QSize size);
