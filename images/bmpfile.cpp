#include "images/bmpfile.h"

#include "model/runtimeerror.h"
#include "model/writewatch.h"

#include <QFile>
#include <cstring>

namespace {
void put16(char* p, quint16 v) {
    p[0] = static_cast<char>(v & 0xFF);
    p[1] = static_cast<char>(v >> 8);
}
void put32(char* p, quint32 v) {
    for (int i = 0; i < 4; ++i)
        p[i] = static_cast<char>((v >> (8 * i)) & 0xFF);
}
} // namespace

QByteArray EncodeBmp24(const QImage& image) {
    const bool direct = image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32 ||
                        image.format() == QImage::Format_BGR888;
    const QImage source = direct ? image : image.convertToFormat(QImage::Format_RGB32);
    const quint32 w = static_cast<quint32>(source.width());
    const quint32 h = static_cast<quint32>(source.height());
    const quint32 stride = (3 * w + 3) & ~3u;
    const quint32 imageSize = stride * h;
    QByteArray out(static_cast<qsizetype>(54 + imageSize), '\0');
    char* d = out.data();
    d[0] = 'B';
    d[1] = 'M';
    put32(d + 2, 54 + imageSize);
    put32(d + 10, 54);
    put32(d + 14, 40);
    put32(d + 18, w);
    put32(d + 22, h);
    put16(d + 26, 1);
    put16(d + 28, 24);
    put32(d + 34, imageSize);
    char* row = d + 54;
    // Rows go bottom-up, each pixel as blue, green, red.
    for (quint32 y = 0; y < h; ++y, row += stride) {
        const int line = static_cast<int>(h - 1 - y);
        if (source.format() == QImage::Format_BGR888) {
            std::memcpy(row, source.constScanLine(line), 3 * w);
            continue;
        }
        const auto* px = reinterpret_cast<const QRgb*>(source.constScanLine(line));
        char* o = row;
        for (quint32 x = 0; x < w; ++x, o += 3) {
            o[0] = static_cast<char>(qBlue(px[x]));
            o[1] = static_cast<char>(qGreen(px[x]));
            o[2] = static_cast<char>(qRed(px[x]));
        }
    }
    return out;
}

void SaveBmp24(const QImage& image, const QString& path) {
    WriteFileBytes(EncodeBmp24(image), path);
}

void WriteFileBytes(const QByteArray& bytes, const QString& path) {
    NotifyFileReplace(path);
    QFile file(path);
    // A full disk can cut the write short without the write saying so; the file's length tells.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size() ||
        !file.flush() || file.size() != bytes.size())
        throw RunTimeError::PathFileAccess(path);
}
