#include "testpictures.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QVector>

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

bool WriteJpeg(const QImage& image, const QString& path, int quality) { return image.save(path, "JPEG", quality); }

bool Near(const QColor& a, const QColor& b, int tolerance) {
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance &&
           qAbs(a.blue() - b.blue()) <= tolerance;
}

bool WriteGif(const QImage& source, const QString& path) {
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    QVector<QRgb> palette;
    QHash<QRgb, int> index;
    QByteArray pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb c = image.pixel(x, y) | 0xFF000000u;
            if (!index.contains(c)) {
                if (palette.size() == 256) return false;
                index.insert(c, palette.size());
                palette.append(c);
            }
            pixels.append(static_cast<char>(index.value(c)));
        }
    palette.resize(256);

    QByteArray out("GIF89a");
    auto put16 = [&out](int v) {
        out.append(static_cast<char>(v & 0xFF));
        out.append(static_cast<char>((v >> 8) & 0xFF));
    };
    put16(image.width());
    put16(image.height());
    out.append(static_cast<char>(0xF7)); // global colour table of 256 entries
    out.append('\0');
    out.append('\0');
    for (QRgb c : palette) {
        out.append(static_cast<char>(qRed(c)));
        out.append(static_cast<char>(qGreen(c)));
        out.append(static_cast<char>(qBlue(c)));
    }
    out.append(',');
    put16(0);
    put16(0);
    put16(image.width());
    put16(image.height());
    out.append('\0');
    // LZW with 8-bit literals only: a clear code before every 254 literals keeps codes at 9 bits.
    out.append(static_cast<char>(8));
    QByteArray codes;
    quint32 bitBuffer = 0;
    int bitCount = 0;
    auto put = [&](int code) {
        bitBuffer |= static_cast<quint32>(code) << bitCount;
        bitCount += 9;
        while (bitCount >= 8) {
            codes.append(static_cast<char>(bitBuffer & 0xFF));
            bitBuffer >>= 8;
            bitCount -= 8;
        }
    };
    for (int i = 0; i < pixels.size(); ++i) {
        if (i % 254 == 0) put(256);
        put(static_cast<unsigned char>(pixels[i]));
    }
    put(257);
    if (bitCount > 0) codes.append(static_cast<char>(bitBuffer & 0xFF));
    for (int i = 0; i < codes.size(); i += 255) {
        const QByteArray block = codes.mid(i, 255);
        out.append(static_cast<char>(block.size()));
        out.append(block);
    }
    out.append('\0');
    out.append(';');
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(out) == out.size();
}
