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

QByteArray RenderPaneBmp(const QString& sourceFile, int side, int flipH, int flipV) {
    // The mirrored draws are one pixel longer than the square: the picture must cover that.
    return EncodeBmp24(
        RenderPaneSquare(LoadPictureAtLeast(sourceFile, QSize(side + 1, side + 1)), side, flipH, flipV));
}

QByteArray RenderPaneBmpOf(const QByteArray& source, const QString& sourceFile, int side, int flipH,
                           int flipV) {
    return EncodeBmp24(
        RenderPaneSquare(DecodePicture(source, QSize(side + 1, side + 1), sourceFile), side, flipH, flipV));
}

void CommitPaneImage(Project& project, qint16 paneIndex, const QByteArray& bmp, bool makeNewName) {
    Pane& pane = project.Panes(paneIndex);
    if (!makeNewName) {
        WriteFileBytes(bmp, pane.ImageFile);
        return;
    }
    const QString name = PaneImageName(project, paneIndex);
    WriteFileBytes(bmp, name);
    pane.ImageFile = name;
}

qint16 StorePaneImage(Project& project, qint16 paneIndex, float paneSize, bool makeNewName) {
    const Pane& pane = project.Panes(paneIndex);
    if (pane.SourceFile == kNone) return 0;
    const QByteArray bmp =
        RenderPaneBmp(pane.SourceFile, CInt(paneSize), pane.FlipHorizontal, pane.FlipVertical);
    CommitPaneImage(project, paneIndex, bmp, makeNewName);
    return 0;
}
