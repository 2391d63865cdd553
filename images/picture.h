#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

// Reads a BMP, GIF, JPEG or PNG picture, recognised by its content rather than its name; a PNG with
// transparency comes composed on white. A missing file is RunTimeError 53, a file that cannot be
// read 75, anything that is not a readable picture of those kinds (damaged, cut short, or of an
// absurd size) 481.
QImage LoadPicture(const QString& path);

// The same, but a JPEG may come out smaller than its full size: decoded at the smallest scale
// that is still at least `atLeast` on both sides. Other pictures come at full size.
QImage LoadPictureAtLeast(const QString& path, QSize atLeast);

// The decoding of LoadPictureAtLeast on a file's bytes; path only names the file in the error.
QImage DecodePicture(const QByteArray& data, QSize atLeast, const QString& path);

// The most memory one decoded picture may take; larger pictures count as unreadable.
constexpr qint64 kMaxPictureBytes = 256ll * 1024 * 1024;
