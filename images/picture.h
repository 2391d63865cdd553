#pragma once

#include <QImage>
#include <QString>

// Reads a BMP, GIF or JPEG picture, recognised by its content rather than its name.
// A missing file is RunTimeError 53, anything that is not a readable picture of those
// three kinds RunTimeError 481.
QImage LoadPicture(const QString& path);
