#include "testpictures.h"

#include "support/check.h"

#include <QPainter>

QImage QuadrantPicture(int w, int h) {
    QImage image(w, h, QImage::Format_RGB32);
    QPainter p(&image);
    p.fillRect(0, 0, w / 2, h / 2, kTopLeft);
    p.fillRect(w / 2, 0, w - w / 2, h / 2, kTopRight);
    p.fillRect(0, h / 2, w / 2, h - h / 2, kBottomLeft);
    p.fillRect(w / 2, h / 2, w - w / 2, h - h / 2, kBottomRight);
    return image;
}

QImage SolidPicture(int w, int h, const QColor& colour) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

bool WriteBmp(const QImage& image, const QString& path) {
    return image.convertToFormat(QImage::Format_RGB888).save(path, "BMP");
}

bool WriteJpeg(const QImage& image, const QString& path, int quality) {
    return image.save(path, "JPEG", quality);
}

bool WritePng(const QImage& image, const QString& path) {
    return image.save(path, "PNG");
}

bool Near(const QColor& a, const QColor& b, int tolerance) {
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance &&
           qAbs(a.blue() - b.blue()) <= tolerance;
}

QString QuadrantsOf(const QImage& image, int tolerance) {
    const int w = image.width(), h = image.height();
    QStringList corners;
    for (QPoint at : {QPoint(w / 8, h / 8), QPoint(w - 1 - w / 8, h / 8), QPoint(w / 8, h - 1 - h / 8),
                      QPoint(w - 1 - w / 8, h - 1 - h / 8)}) {
        const QColor c = image.pixelColor(at);
        corners << (Near(c, kTopLeft, tolerance)       ? "TL"
                    : Near(c, kTopRight, tolerance)    ? "TR"
                    : Near(c, kBottomLeft, tolerance)  ? "BL"
                    : Near(c, kBottomRight, tolerance) ? "BR"
                                                       : "?");
    }
    return corners.join(' ');
}

bool WriteGif(const QImage& source, const QString& path) {
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    const int w = image.width(), h = image.height();
    QList<QRgb> palette;
    QByteArray codes;
    quint32 bits = 0;
    int count = 0;
    auto put = [&](int code) { // 9-bit codes, least significant bit first
        for (bits |= quint32(code) << count, count += 9; count >= 8; bits >>= 8, count -= 8)
            codes.append(char(bits & 0xFF));
    };
    for (int n = 0; n < w * h; ++n) {
        const QRgb c = image.pixel(n % w, n / w);
        if (!palette.contains(c)) palette.append(c);
        if (palette.size() > 256) return false;
        if (n % 254 == 0) put(256); // literals only: a clear code before every 254 keeps 9 bits
        put(int(palette.indexOf(c)));
    }
    put(257);
    if (count > 0) codes.append(char(bits & 0xFF));
    palette.resize(256);
    QByteArray out("GIF89a");
    auto put16 = [&out](int v) { out.append(char(v & 0xFF)).append(char(v >> 8)); };
    put16(w), put16(h), out.append("\xF7\0\0", 3); // a global colour table of 256 entries
    for (QRgb c : palette)
        out.append(char(qRed(c))).append(char(qGreen(c))).append(char(qBlue(c)));
    out.append(",\0\0\0\0", 5), put16(w), put16(h), out.append("\0\x08", 2);
    for (int i = 0; i < codes.size(); i += 255)
        out.append(char(qMin(255, int(codes.size()) - i))).append(codes.mid(i, 255));
    return WriteAll(path, out.append("\0;", 2));
}
