#include "images/paneimage.h"

#include "images/bmpfile.h"
#include "images/picture.h"
#include "model/numbers.h"

#include <QPainter>

namespace {
const QColor kCanvasColour(240, 240, 240);

// The picture scaled to w x h, mirrored as asked, and cut to the top-left side x side square.
QImage mirroredDraw(const QImage& picture, int side, int w, int h, bool horizontal, bool vertical) {
    const QImage scaled = picture.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return scaled.mirrored(horizontal, vertical).copy(0, 0, side, side);
}
} // namespace

QString PaneImageName(const Project& project, int paneIndex) {
    return project.WorkFolder + QLatin1Char('/') + project.Panes(paneIndex).SourceStem + QLatin1Char('-') +
           Format(paneIndex, "0000") + QStringLiteral(".BMP");
}

QImage EmptySquare(int side) {
    QImage square(side, side, QImage::Format_RGB32);
    square.fill(kCanvasColour);
    return square;
}

QImage RenderPaneSquare(const QImage& picture, int side, int flipH, int flipV) {
    if (side <= 0) return QImage();
    QImage source = picture.convertToFormat(QImage::Format_RGB32);
    if (picture.hasAlphaChannel()) {
        // Transparent parts of a GIF show the canvas behind them.
        source.fill(kCanvasColour);
        QPainter(&source).drawImage(0, 0, picture);
    }
    if (flipH + flipV == 0) return source.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (flipH + flipV == 2) return mirroredDraw(source, side, side + 1, side + 1, true, true);
    QImage square = EmptySquare(side);
    QPainter painter(&square);
    if (flipH == 1) painter.drawImage(0, 0, mirroredDraw(source, side, side + 1, side, true, false));
    if (flipV == 1) painter.drawImage(0, 0, mirroredDraw(source, side, side, side + 1, false, true));
    return square;
}

qint16 StorePaneImage(Project& project, qint16 paneIndex, float paneSize, bool makeNewName) {
    Pane& pane = project.Panes(paneIndex);
    if (pane.SourceFile == kNone) return 0;
    const int side = CInt(paneSize);
    // The mirrored draws are one pixel longer than the square: the picture must cover that.
    const QImage picture = LoadPictureAtLeast(pane.SourceFile, QSize(side + 1, side + 1));
    const QImage square = RenderPaneSquare(picture, side, pane.FlipHorizontal, pane.FlipVertical);
    if (!makeNewName) {
        SaveBmp24(square, pane.ImageFile);
        return 0;
    }
    const QString name = PaneImageName(project, paneIndex);
    SaveBmp24(square, name);
    pane.ImageFile = name;
    return 0;
}
