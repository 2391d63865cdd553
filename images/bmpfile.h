#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// The working pictures are plain 24-bit, bottom-up BMP files with 4-byte aligned rows.
QByteArray EncodeBmp24(const QImage& image);
// Writes the picture as a 24-bit BMP, replacing the file; a file that cannot be written is
// RunTimeError 75.
void SaveBmp24(const QImage& image, const QString& path);
// Replaces the file with the bytes in one write; RunTimeError 75 when that fails.
void WriteFileBytes(const QByteArray& bytes, const QString& path);
