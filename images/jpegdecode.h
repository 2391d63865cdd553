#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

// JPEG decoding through libjpeg-turbo at a reduced scale: a camera frame that ends as a pane of
// a few hundred pixels is decoded at the smallest DCT scale (1/8 to 1) that is still at least
// `atLeast` on both sides, which is most of the time saved on an import.

// The scale factor (as numerator / denominator) that such a decode uses, and the size it gives.
struct JpegScale {
    int num = 1, denom = 1;
    QSize size;
};
JpegScale ChooseJpegScale(QSize full, QSize atLeast);

enum class JpegDecodeResult { Decoded, NotJpeg, Unreadable };

// Decodes `data` into `out` (Format_RGB32). NotJpeg when the data does not start like a JPEG
// the decoder can take (the caller may try another reader); Unreadable for a JPEG that is
// damaged or cut short, or whose decoded size passes maxBytes.
JpegDecodeResult DecodeJpeg(const QByteArray& data, QSize atLeast, QImage& out, qint64 maxBytes);
