#include "animatic/playlist.h"

#include <cmath>

QList<int> PlayedPanes(const Project& project, bool includeBlanks) {
    QList<int> panes;
    for (int i = 1; i <= qMin<int>(PaneTotal(project), kMaxPane); ++i)
        if (includeBlanks || project.Panes(i).ImageFile != kNone) panes << i;
    return panes;
}

qint64 FirstFrameOf(int slot, double seconds, int rate) {
    return std::llround(slot * seconds * rate);
}

AnimaticFormat AnimaticFormatOf(const QString& path) {
    const QString name = path.toLower();
    if (name.endsWith(QLatin1String(".mp4"))) return AnimaticFormat::Mp4;
    if (name.endsWith(QLatin1String(".webm"))) return AnimaticFormat::WebM;
    if (name.endsWith(QLatin1String(".gif"))) return AnimaticFormat::Gif;
    return AnimaticFormat::Unknown;
}
