#include "images/picture.h"

#include "model/runtimeerror.h"

#include <QFileInfo>
#include <QImageReader>

QImage LoadPicture(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) throw RunTimeError::FileNotFound(path);
    if (!info.isFile()) throw RunTimeError::PathFileAccess(path);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format != "bmp" && format != "gif" && format != "jpeg" && format != "jpg")
        throw RunTimeError::InvalidPicture(path);
    QImage image = reader.read();
    if (image.isNull()) throw RunTimeError::InvalidPicture(path);
    return image;
}
