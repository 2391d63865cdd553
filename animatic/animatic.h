#pragma once

#include "animatic/playlist.h"
#include "model/project.h"

#include <QSize>
#include <QString>
#include <functional>

// The project's panes in order as a video or an animated GIF, each shown for the same time.
struct AnimaticOptions {
    QSize size{1920, 1080}; // pictures letterboxed into it
    double seconds = 2;     // a pane's time on screen
    int fps = 24;           // frames a second of a video; a GIF holds one picture a pane
    bool captions = false;  // the panes' texts under their pictures
    bool includeBlanks = false;
};

// Why the options cannot make a video, or empty: sides even and from 64 to 4096 pixels, 1 to 60
// frames a second, 0.1 to 600 seconds a pane and at least one frame a pane.
QString AnimaticOptionsProblem(const AnimaticOptions& options);

struct AnimaticResult {
    bool done = false;      // the file is in place
    bool cancelled = false; // progress asked to stop; nothing was written
    QString error;          // why it failed; nothing was written
    int panes = 0;
    qint64 ticks = 0; // frames of a video, hundredths of a second of a GIF
};

// Writes the animatic of the project's panes to path, in the format its extension names. The
// file appears only when complete: it is written under a temporary name beside it and renamed.
// progress(done, total) is told after every pane; returning false cancels. Missing pictures are
// frames saying "picture missing".
AnimaticResult WriteAnimatic(const Project& project, const AnimaticOptions& options, const QString& path,
                             const std::function<bool(int, int)>& progress = {});
