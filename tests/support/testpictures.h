#pragma once

#include <QColor>
#include <QImage>
#include <QString>

// Real pictures for the tests, written in the formats the program reads.

// A w x h picture split into four quadrants of distinct colours (top-left red, top-right green,
// bottom-left blue, bottom-right yellow), so that flips and stretches can be checked on pixels.
QImage QuadrantPicture(int w, int h);
inline const QColor kTopLeft(255, 0, 0), kTopRight(0, 255, 0), kBottomLeft(0, 0, 255),
    kBottomRight(255, 255, 0);

// A picture of one colour.
QImage SolidPicture(int w, int h, const QColor& colour);

// Writes a GIF (Qt reads GIF but does not write it). At most 256 distinct colours.
bool WriteGif(const QImage& image, const QString& path);
// Writes BMP (24-bit) or JPEG (quality 95) through Qt.
bool WriteBmp(const QImage& image, const QString& path);
bool WriteJpeg(const QImage& image, const QString& path, int quality = 95);
// Writes PNG through Qt, with the image's alpha channel when it has one.
bool WritePng(const QImage& image, const QString& path);

// Whether two colours are within tolerance on every channel (JPEG and smoothing blur edges).
bool Near(const QColor& a, const QColor& b, int tolerance = 40);
// Which quadrant of QuadrantPicture each corner of a picture shows, read an eighth of the way in:
// "TL TR BL BR" for the picture as made, "TR TL BR BL" mirrored left to right; "?" for neither.
QString QuadrantsOf(const QImage& image, int tolerance = 40);
