#include "corpus.h"

#include "images/bmpfile.h"
#include "model/numbers.h"
#include "support/testpictures.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <cstdio>
#include <turbojpeg.h>

QImage PhotoLikeFrame(int width, int height, quint32 seed) {
    QRandomGenerator rng(seed);
    QImage img(width, height, QImage::Format_RGB32);
    QPainter p(&img);
    QLinearGradient sky(0, 0, width * rng.bounded(1.0), height);
    sky.setColorAt(0, QColor::fromHsv(rng.bounded(360), 80 + rng.bounded(100), 120 + rng.bounded(120)));
    sky.setColorAt(1, QColor::fromHsv(rng.bounded(360), 60 + rng.bounded(120), 40 + rng.bounded(120)));
    p.fillRect(img.rect(), sky);
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 60; ++i) {
        const int r = 10 + rng.bounded(300);
        QRadialGradient g(rng.bounded(width), rng.bounded(height), r);
        g.setColorAt(0, QColor::fromHsv(rng.bounded(360), rng.bounded(256), rng.bounded(256), 200));
        g.setColorAt(1, QColor(0, 0, 0, 0));
        p.setBrush(g);
        p.drawEllipse(g.center(), r, r * (0.5 + rng.bounded(1.0)));
    }
    for (int i = 0; i < 400; ++i) {
        p.setBrush(QColor::fromHsv(rng.bounded(360), rng.bounded(256), rng.bounded(256), 60 + rng.bounded(160)));
        p.drawRect(rng.bounded(width), rng.bounded(height), 2 + rng.bounded(40), 2 + rng.bounded(40));
    }
    p.end();
    // Sensor noise: what makes a photograph expensive to compress and decode.
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int n = static_cast<int>(rng.generate() % 25) - 12;
            const QRgb c = line[x];
            line[x] = qRgb(qBound(0, qRed(c) + n, 255), qBound(0, qGreen(c) + n, 255), qBound(0, qBlue(c) + n, 255));
        }
    }
    return img;
}

namespace {
void writeJpeg(const QImage& img, const QString& path, int quality) {
    tjhandle h = tjInitCompress();
    unsigned char* out = nullptr;
    unsigned long size = 0;
    tjCompress2(h, img.constBits(), img.width(), static_cast<int>(img.bytesPerLine()), img.height(), TJPF_BGRX, &out,
                &size, TJSAMP_420, quality, 0);
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(reinterpret_cast<const char*>(out), static_cast<qint64>(size));
    tjFree(out);
    tjDestroy(h);
}
} // namespace

void WriteCorpus(const QString& folder, int frames) {
    QDir().mkpath(folder + QStringLiteral("/mixed"));
    for (int i = 1; i <= frames; ++i)
        writeJpeg(PhotoLikeFrame(1920, 1080, static_cast<quint32>(i)),
                  folder + QStringLiteral("/Frame") + Format(i, "000") + QStringLiteral(".jpg"), 90);
    for (int i = 1; i <= 3; ++i) {
        const QImage frame = PhotoLikeFrame(1920, 1080, 1000u + static_cast<quint32>(i));
        SaveBmp24(frame, folder + QStringLiteral("/mixed/Still") + Format(i, "00") + QStringLiteral(".bmp"));
        const QImage few = frame.scaled(640, 360).convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
        WriteGif(few.convertToFormat(QImage::Format_RGB32),
                 folder + QStringLiteral("/mixed/Clip") + Format(i, "00") + QStringLiteral(".gif"));
    }
}
