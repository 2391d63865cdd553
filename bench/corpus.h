#pragma once

#include <QImage>
#include <QString>

// A photo-like 1920 x 1080 frame: soft gradients, shapes at several scales and sensor-like
// noise, different for every seed, so that JPEG sizes and decode times are those of real frames.
QImage PhotoLikeFrame(int width, int height, quint32 seed);

// Writes `frames` JPEG frames Frame001.jpg ... at quality 90 into folder, and a few GIF and BMP
// pictures into folder/mixed.
void WriteCorpus(const QString& folder, int frames);
