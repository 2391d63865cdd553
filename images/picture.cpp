#include "images/picture.h"

#include "images/cutshort.h"
#include "images/jpegdecode.h"
#include "model/runtimeerror.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

namespace {
QByteArray readAll(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) throw RunTimeError::FileNotFound(path);
    if (!info.isFile()) throw RunTimeError::PathFileAccess(path);
    // No picture of a size the program accepts comes from a file this large.
    if (info.size() > kMaxPictureBytes) throw RunTimeError::InvalidPicture(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw RunTimeError::PathFileAccess(path);
    return file.readAll();
}
} // namespace

QImage DecodePicture(const QByteArray& data, QSize atLeast, const QString& path) {
    QImage image;
    switch (DecodeJpeg(data, atLeast, image, kMaxPictureBytes)) {
    case JpegDecodeResult::Decoded:
        return image;
    case JpegDecodeResult::Unreadable:
        throw RunTimeError::InvalidPicture(path);
    case JpegDecodeResult::NotJpeg:
        break;
    }
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAllocationLimit(static_cast<int>(kMaxPictureBytes / (1024 * 1024)));
    const QByteArray format = reader.format();
    if (format != "bmp" && format != "gif" && format != "jpeg" && format != "jpg" && format != "png")
        throw RunTimeError::InvalidPicture(path);
    if ((format == "bmp" && BmpCutShort(data)) || (format == "gif" && GifCutShort(data)) ||
        (format == "png" && PngCutShort(data)))
        throw RunTimeError::InvalidPicture(path);
    image = reader.read();
    if (image.isNull()) throw RunTimeError::InvalidPicture(path);
    if (format == "png" && image.hasAlphaChannel()) {
        // Rendered frames often carry transparency; a board shows them as on paper.
        QImage onWhite(image.size(), QImage::Format_RGB32);
        onWhite.fill(Qt::white);
        QPainter(&onWhite).drawImage(0, 0, image);
        return onWhite;
    }
    return image;
}

QImage LoadPicture(const QString& path) {
    return DecodePicture(readAll(path), QSize(1 << 30, 1 << 30), path);
}

QImage LoadPictureAtLeast(const QString& path, QSize atLeast) {
    return DecodePicture(readAll(path), atLeast, path);
}
