// The DIB section the export loads working pictures into, and the JPEG files written from it.
#include "images/dibsection.h"
#include "images/jpegwriter.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>
#include <turbojpeg.h>

using namespace Qt::StringLiterals;

namespace {
// Two colours that every depth can hold exactly (multiples of 8 survive 5-bit channels).
const QColor kA(200, 32, 8), kB(16, 64, 224);
// A 5 x 3 picture: top row A, the rest B, but the bottom-right pixel A.
bool isA(int x, int y) {
    return y == 0 || (x == 4 && y == 2);
}

void put(QByteArray& out, quint32 v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.append(static_cast<char>((v >> (8 * i)) & 0xFF));
}

// A bottom-up BMP of the pattern at 1, 4, 8 (two-entry palette), 16 (5-5-5), 24 or 32 bits.
QByteArray patternBmp(int bits) {
    const int w = 5, h = 3, stride = (w * bits + 31) / 32 * 4, palette = bits <= 8 ? 8 : 0;
    QByteArray out("BM");
    for (quint32 v :
         {quint32(54 + palette + stride * h), 0u, quint32(54 + palette), 40u, quint32(w), quint32(h)})
        put(out, v, 4);
    put(out, 1 | bits << 16, 4); // planes, bits per pixel
    for (quint32 v : {0u, 0u, 2835u, 2835u, bits <= 8 ? 2u : 0u, 0u})
        put(out, v, 4);
    auto rgb = [bits](const QColor& c) {
        return bits == 16 ? quint32((c.red() >> 3) << 10 | (c.green() >> 3) << 5 | c.blue() >> 3)
                          : quint32(c.blue() | c.green() << 8 | c.red() << 16);
    };
    if (bits <= 8) put(out, rgb(kA), 4), put(out, rgb(kB), 4);
    for (int y = h - 1; y >= 0; --y) {
        QByteArray row;
        quint32 acc = 0;
        for (int x = 0; x < w; ++x) {
            const quint32 index = isA(x, y) ? 0 : 1;
            if (bits >= 8)
                put(row, bits == 8 ? index : rgb(isA(x, y) ? kA : kB), bits / 8);
            else
                acc |= index << (32 - bits - x * bits);
        }
        if (bits < 8) put(row, qToBigEndian(acc), 4);
        out.append(row.leftJustified(stride, '\0'));
    }
    return out;
}

bool writeFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

class TestDibSection : public QObject {
    Q_OBJECT
private slots:
    void stridesChannelsAndCleanUp();
    void loadsEveryDepthAndRefusesOthers();
    void jpegIsUprightAt75With420();
};

void TestDibSection::stridesChannelsAndCleanUp() {
    cDIBSection dib;
    for (auto [width, stride] : {std::pair{1, 4}, {2, 8}, {3, 12}, {4, 12}, {100, 300}, {101, 304}}) {
        QVERIFY(dib.Create(width, 2, 3));
        QCOMPARE(dib.BytesPerScanLine(), stride);
        QCOMPARE(dib.Header().biSizeImage, quint32(2 * stride));
    }
    for (auto [channels, expected] : {std::pair{3, 3}, {4, 4}, {1, 4}}) {
        QVERIFY(dib.Create(5, 4, channels));
        QCOMPARE(dib.dib_channels(), expected);
        QCOMPARE(dib.BytesPerScanLine(), expected == 3 ? 16 : 20);
        QCOMPARE(dib.hDC()->constBits(), dib.DIBSectionBitsPtr());
    }
    QVERIFY(!dib.Create(0, 4, 3));
    for (int i = 0; i < 2; ++i) {
        dib.CleanUp();
        QVERIFY(!dib.hDib() && !dib.hDC() && !dib.DIBSectionBitsPtr());
        QCOMPARE(dib.Header().biSize, 40u);
        QCOMPARE(dib.BytesPerScanLine(), 0);
    }
}

void TestDibSection::loadsEveryDepthAndRefusesOthers() {
    QTemporaryDir dir;
    ScriptedPrompts prompts;
    for (int bits : {1, 4, 8, 16, 24, 32}) {
        const QString path = dir.filePath(u"p%1.bmp"_s.arg(bits));
        QVERIFY(writeFile(path, patternBmp(bits)));
        cDIBSection dib;
        QVERIFY2(dib.Load(path, &prompts), qPrintable(path));
        QCOMPARE((std::array{dib.dib_width(), dib.dib_height(), dib.dib_channels(), dib.BytesPerScanLine()}),
                 (std::array{5, 3, 3, 16}));
        // Memory row 0 is the bottom row of the picture; painting turns it upright.
        QImage whole(5, 3, QImage::Format_RGB32);
        dib.PaintPicture(&whole, 0, 0, -1, -1, 0, 0, RasterOp::SrcCopy);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 5; ++x) {
                const uchar* p = dib.DIBSectionBitsPtr() + (2 - y) * 16 + x * 3;
                QVERIFY(Near(QColor(p[2], p[1], p[0]), isA(x, y) ? kA : kB, bits == 16 ? 8 : 0));
                QVERIFY(Near(whole.pixelColor(x, y), isA(x, y) ? kA : kB, bits == 16 ? 8 : 0));
            }
        if (bits != 24) continue;
        QImage block(4, 4, QImage::Format_RGB32);
        block.fill(Qt::white);
        dib.PaintPicture(&block, 1, 1, 2, 2, 3, 1);
        QCOMPARE((QList<QColor>{block.pixelColor(0, 0), block.pixelColor(1, 1), block.pixelColor(2, 2)}),
                 (QList<QColor>{Qt::white, kB, kA})); // picture pixels (3, 1) and (4, 2)
    }
    QVERIFY(prompts.messages.isEmpty());

    // Not a BMP, whatever the name says, or no file at all: told once each, and the object stays empty.
    const QString jpeg = dir.filePath(u"photo.bmp"_s);
    QVERIFY(WriteJpeg(QuadrantPicture(16, 16), jpeg));
    cDIBSection dib;
    for (const QString& path : {jpeg, dir.filePath(u"missing.bmp"_s)})
        QVERIFY(dib.Create(3, 3, 3) && !dib.Load(path, &prompts) && !dib.hDib() && !dib.hDC() &&
                dib.dib_width() == 0);
    QCOMPARE(prompts.messages.size(), 2);
    for (const auto& m : prompts.messages)
        QVERIFY(m.text == u"Could not load bmp."_s && m.title == u"KV1 : Load Problem"_s &&
                m.icon == MsgIcon::Exclamation);
}

void TestDibSection::jpegIsUprightAt75With420() {
    QTemporaryDir dir;
    cDIBSection dib;
    QVERIFY(dib.Create(101, 40, 3)); // rows of 303 bytes and one byte of padding
    for (int row = 0; row < 40; ++row)
        for (int x = 0; x < 101; ++x) {
            uchar* p = dib.DIBSectionBitsPtr() + row * dib.BytesPerScanLine() + x * 3;
            p[0] = row >= 32 ? 0 : 255; // the last memory rows, the top of the picture, red; the rest blue
            p[2] = row >= 32 ? 255 : 0;
        }
    const QString path = dir.filePath(u"Vanto01-001.JPG"_s);
    QVERIFY(SaveJPG(dib, path));
    const QByteArray jpeg = readFile(path);
    tjhandle tj = tjInitDecompress();
    int w = 0, h = 0, subsampling = -1, colourspace = -1;
    QCOMPARE(tjDecompressHeader3(tj, reinterpret_cast<const uchar*>(jpeg.constData()), jpeg.size(), &w, &h,
                                 &subsampling, &colourspace),
             0);
    tjDestroy(tj);
    QCOMPARE((std::array{w, h, subsampling, colourspace}),
             (std::array{101, 40, int(TJSAMP_420), int(TJCS_YCbCr)}));
    // Quality 75 halves the standard luminance table: its first entry, 16, becomes 8.
    const int dqt = jpeg.indexOf("\xFF\xDB");
    QVERIFY(dqt > 0);
    QCOMPARE(jpeg.mid(dqt + 4, 2), QByteArray("\x00\x08", 2));
    const QImage decoded = QImage::fromData(jpeg);
    QVERIFY(Near(decoded.pixelColor(50, 2), Qt::red) && Near(decoded.pixelColor(50, 30), Qt::blue));

    // Over a longer file: written from its first byte, the old tail stays.
    const QString old = dir.filePath(u"old.JPG"_s);
    QVERIFY(writeFile(old, QByteArray(jpeg.size() + 5000, 'Z')));
    QVERIFY(SaveJPG(dib, old));
    QCOMPARE(readFile(old), jpeg + QByteArray(5000, 'Z'));
}

QTEST_GUILESS_MAIN(TestDibSection)
#include "test_dibsection.moc"
