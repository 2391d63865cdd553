#pragma once

#include "images/outputpicture.h"

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QString>

// One pane as the slideshow shows it and an animatic frame holds it: on black, the picture as
// large as fits, the caption in a band under it, a small note in the bottom-right corner.
struct Slide {
    OutputPicture picture; // a missing picture shows "picture missing"; a blank pane nothing
    QString caption;       // empty for none
    QString corner;        // "pane 3 of 18"; empty for none
};

// The pane's text as a caption: empty when the pane has none.
QString CaptionOf(const Pane& pane);

void DrawSlide(QPainter& painter, const QRect& area, const Slide& slide);
// The slide drawn on a picture of its own, opaque, in QImage::Format_RGB32.
QImage RenderSlide(QSize size, const Slide& slide);
