#include "images/outputpicture.h"

#include "images/picture.h"
#include "model/runtimeerror.h"

#include <QImageReader>
#include <QPainter>

namespace {
// Transparent parts are shown on white, as on paper.
QImage opaque(const QImage& picture) {
    if (!picture.hasAlphaChannel()) return picture.convertToFormat(QImage::Format_RGB32);
    QImage out(picture.size(), QImage::Format_RGB32);
    out.fill(Qt::white);
    QPainter(&out).drawImage(0, 0, picture);
    return out;
}

// The stage's reading of the two flags: both 1 mirror both ways, flags that cancel out none.
QImage flipped(const QImage& picture, int flipH, int flipV) {
    if (flipH + flipV == 0) return picture;
    if (flipH + flipV == 2) return picture.mirrored(true, true);
    return picture.mirrored(flipH == 1, flipV == 1);
}

QImage tryLoad(const QString& path, QSize atLeast) {
    if (path == kNone) return QImage();
    try {
        return LoadPictureAtLeast(path, atLeast);
    } catch (const RunTimeError&) {
        return QImage();
    }
}
} // namespace

OutputPicture LoadOutputPicture(const Pane& pane, QSize atLeast) {
    OutputPicture out;
    if (pane.ImageFile == kNone) return out; // a blank pane
    QImage picture = tryLoad(pane.SourceFile, atLeast);
    if (!picture.isNull()) {
        out.image = flipped(opaque(picture), pane.FlipHorizontal, pane.FlipVertical);
        return out;
    }
    // The working picture already has its flips applied.
    picture = tryLoad(pane.ImageFile, QSize());
    if (picture.isNull())
        out.missing = true;
    else
        out.image = opaque(picture);
    return out;
}

OutputPicture LoadOutputPictureToFit(const Pane& pane, QSize box) {
    QSize atLeast = box;
    // Only the header is read here; a size that cannot be told leaves the whole box to cover.
    const QSize full =
        pane.ImageFile == kNone || pane.SourceFile == kNone ? QSize() : QImageReader(pane.SourceFile).size();
    if (!full.isEmpty()) atLeast = full.scaled(box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return LoadOutputPicture(pane, atLeast);
}
