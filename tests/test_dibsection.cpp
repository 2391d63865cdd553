// The DIB section the export loads working pictures into, and the JPEG files written from it.
#include "images/dibsection.h"
#include "images/jpegwriter.h"
#include "model/runtimeerror.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>
#include <turbojpeg.h>

namespace {
// Two colours that every depth can hold exactly (multiples of 8 survive 5-bit channels).
const QColor kA(200, 32, 8), kB(16, 64, 224);
// A 5 x 3 picture: top row A, the rest B, but the bottom-right pixel A.
bool isA(int x, int y) { return y == 0 || (x == 4 && y == 2); }

void put(QByteArray& out, quint32 v, int bytes) {
    for (int i = 0; i < bytes; ++i) out.append(static_cast<char>((v >> (8 * i)) & 0xFF));
}

// A bottom-up BMP of the pattern at 1, 4, 8 (two-entry palette), 16 (5-5-5), 24 or 32 bits.
QByteArray patternBmp(int bits) {
    const int w = 5, h = 3, stride = (w * bits + 31) / 32 * 4;
    const int paletteSize = bits <= 8 ? 2 * 4 : 0;
    QByteArray out("BM");
    put(out, 54 + paletteSize + stride * h, 4);
    put(out, 0, 4);
    put(out, 54 + paletteSize, 4);
    for (quint32 v : {40u, quint32(w), quint32(h)}) put(out, v, 4);
    put(out, 1, 2);
    put(out, static_cast<quint32>(bits), 2);
    for (quint32 v : {0u, 0u, 2835u, 2835u, bits <= 8 ? 2u : 0u, 0u}) put(out, v, 4);
    if (bits <= 8)
        for (const QColor& c : {kA, kB}) put(out, quint32(c.blue() | c.green() << 8 | c.red() << 16), 4);
    for (int y = h - 1; y >= 0; --y) {
        QByteArray row(stride, '\0');
        for (int x = 0; x < w; ++x) {
            const QColor c = isA(x, y) ? kA : kB;
            if (bits <= 8) {
                const int bit = x * bits;
                row[bit / 8] = static_cast<char>(row[bit / 8] | (isA(x, y) ? 0 : 1) << (8 - bits - bit % 8));
            } else {
                const quint32 v = bits == 16 ? quint32((c.red() >> 3) << 10 | (c.green() >> 3) << 5 | c.blue() >> 3)
                                             : quint32(c.blue() | c.green() << 8 | c.red() << 16);
                QByteArray px;
                put(px, v, bits / 8);
                row.replace(x * bits / 8, bits / 8, px);
            }
        }
        out.append(row);
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

QColor bgrAt(const cDIBSection& dib, int x, int memoryRow) {
    const uchar* p = dib.DIBSectionBitsPtr() + memoryRow * dib.BytesPerScanLine() + x * 3;
    return QColor(p[2], p[1], p[0]);
}
} // namespace

class TestDibSection : public QObject {
    Q_OBJECT
private slots:
    void stridesChannelsAndCleanUp();
    void loadsEveryBmpDepthBottomUp();
    void paintsUprightBlocks();
    void nonBmpIsReportedOnce();
    void jpegIsUprightAt75With420();
    void jpegOverLongerFileKeepsTail();
};

void TestDibSection::stridesChannelsAndCleanUp() {
    cDIBSection dib;
    const int widths[] = {1, 2, 3, 4, 100, 101}, strides[] = {4, 8, 12, 12, 300, 304};
    for (int i = 0; i < 6; ++i) {
        QVERIFY(dib.Create(widths[i], 2, 3));
        QCOMPARE(dib.BytesPerScanLine(), strides[i]);
        QCOMPARE(dib.Header().biSizeImage, quint32(2 * strides[i]));
    }
    for (auto [channels, expected] : {std::pair{3, 3}, {4, 4}, {1, 4}}) {
        QVERIFY(dib.Create(5, 4, channels));
        QCOMPARE(dib.dib_channels(), expected);
        QCOMPARE(dib.BytesPerScanLine(), expected == 3 ? 16 : 20);
        QCOMPARE(dib.hDC()->size(), QSize(5, 4));
        QCOMPARE(dib.hDC()->constBits(), dib.DIBSectionBitsPtr());
    }
    QVERIFY(!dib.Create(0, 4, 3));
    QVERIFY(!dib.hDib() && !dib.hDC());
    for (int i = 0; i < 2; ++i) {
        dib.CleanUp();
        QVERIFY(!dib.hDib() && !dib.hDC() && !dib.DIBSectionBitsPtr());
        QCOMPARE(dib.Header().biSize, 40u);
        QCOMPARE(dib.dib_width(), 0);
        QCOMPARE(dib.BytesPerScanLine(), 0);
    }
}

void TestDibSection::loadsEveryBmpDepthBottomUp() {
    QTemporaryDir dir;
    ScriptedPrompts prompts;
    for (int bits : {1, 4, 8, 16, 24, 32}) {
        const QString path = dir.filePath(QStringLiteral("p%1.bmp").arg(bits));
        QVERIFY(writeFile(path, patternBmp(bits)));
        cDIBSection dib;
        QVERIFY2(dib.Load(path, &prompts), qPrintable(path));
        QCOMPARE(dib.dib_width(), 5);
        QCOMPARE(dib.dib_height(), 3);
        QCOMPARE(dib.dib_channels(), 3);
        QCOMPARE(dib.BytesPerScanLine(), 16);
        // Memory row 0 is the bottom row of the picture.
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 5; ++x)
                QVERIFY2(Near(bgrAt(dib, x, 2 - y), isA(x, y) ? kA : kB, bits == 16 ? 8 : 0),
                         qPrintable(QStringLiteral("%1 bits, %2,%3").arg(bits).arg(x).arg(y)));
    }
    QVERIFY(prompts.messages.isEmpty());
}

void TestDibSection::paintsUprightBlocks() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("p.bmp"));
    QVERIFY(writeFile(path, patternBmp(24)));
    cDIBSection dib;
    QVERIFY(dib.Load(path, nullptr));
    QImage whole(5, 3, QImage::Format_RGB32);
    whole.fill(Qt::white);
    dib.PaintPicture(&whole, 0, 0, -1, -1, 0, 0, RasterOp::SrcCopy);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x) QCOMPARE(whole.pixelColor(x, y), isA(x, y) ? kA : kB);
    QImage block(4, 4, QImage::Format_RGB32);
    block.fill(Qt::white);
    dib.PaintPicture(&block, 1, 1, 2, 2, 3, 1);
    QCOMPARE(block.pixelColor(0, 0), QColor(Qt::white));
    QCOMPARE(block.pixelColor(1, 1), kB);
    QCOMPARE(block.pixelColor(2, 2), kA); // picture pixel (4, 2)
    QCOMPARE(block.pixelColor(3, 3), QColor(Qt::white));
}

void TestDibSection::nonBmpIsReportedOnce() {
    QTemporaryDir dir;
    const QString jpeg = dir.filePath(QStringLiteral("photo.bmp"));
    QVERIFY(WriteJpeg(QuadrantPicture(16, 16), jpeg));
    for (const QString& path : {jpeg, dir.filePath(QStringLiteral("missing.bmp"))}) {
        ScriptedPrompts prompts;
        cDIBSection dib;
        QVERIFY(dib.Create(3, 3, 3));
        QVERIFY(!dib.Load(path, &prompts));
        QCOMPARE(prompts.messages.size(), 1);
        QCOMPARE(prompts.messages[0].text, QStringLiteral("Could not load bmp."));
        QCOMPARE(prompts.messages[0].title, QStringLiteral("KV1 : Load Problem"));
        QCOMPARE(prompts.messages[0].icon, MsgIcon::Exclamation);
        QVERIFY(!dib.hDib() && !dib.hDC() && !dib.DIBSectionBitsPtr());
        QCOMPARE(dib.dib_width(), 0);
    }
}

void TestDibSection::jpegIsUprightAt75With420() {
    QTemporaryDir dir;
    cDIBSection dib;
    QVERIFY(dib.Create(101, 40, 3)); // rows of 303 bytes and one byte of padding
    for (int row = 0; row < 40; ++row)
        for (int x = 0; x < 101; ++x) {
            uchar* p = dib.DIBSectionBitsPtr() + row * dib.BytesPerScanLine() + x * 3;
            const bool top = row >= 32; // the last memory rows are the top of the picture
            p[0] = top ? 0 : 255;
            p[1] = 0;
            p[2] = top ? 255 : 0;
        }
    const QString path = dir.filePath(QStringLiteral("Vanto01-001.JPG"));
    QVERIFY(SaveJPG(dib, path));
    const QByteArray jpeg = readFile(path);
    tjhandle tj = tjInitDecompress();
    int w = 0, h = 0, subsampling = -1, colourspace = -1;
    QCOMPARE(tjDecompressHeader3(tj, reinterpret_cast<const uchar*>(jpeg.constData()), jpeg.size(), &w, &h,
                                 &subsampling, &colourspace),
             0);
    tjDestroy(tj);
    QCOMPARE(QSize(w, h), QSize(101, 40));
    QCOMPARE(subsampling, int(TJSAMP_420));
    QCOMPARE(colourspace, int(TJCS_YCbCr));
    // Quality 75 scales the standard luminance table by one half: its DC entry 16 becomes 8.
    const int dqt = jpeg.indexOf("\xFF\xDB");
    QVERIFY(dqt > 0);
    QCOMPARE(int(uchar(jpeg[dqt + 4])), 0x00); // 8-bit table 0
    QCOMPARE(int(uchar(jpeg[dqt + 5])), 8);
    const QImage decoded = QImage::fromData(jpeg);
    QVERIFY(Near(decoded.pixelColor(50, 2), QColor(255, 0, 0)));
    QVERIFY(Near(decoded.pixelColor(50, 30), QColor(0, 0, 255)));

    // Nothing to encode: false and no file. A missing folder is the caller's run-time error.
    cDIBSection empty;
    QVERIFY(!SaveJPG(empty, dir.filePath(QStringLiteral("empty.JPG"))));
    QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("empty.JPG"))));
    int number = 0;
    try {
        SaveJPG(dib, dir.filePath(QStringLiteral("no/such.JPG")));
    } catch (const RunTimeError& e) {
        number = e.number();
    }
    QCOMPARE(number, 76);
}

void TestDibSection::jpegOverLongerFileKeepsTail() {
    QTemporaryDir dir;
    cDIBSection dib;
    QVERIFY(dib.Create(64, 64, 3));
    const QString fresh = dir.filePath(QStringLiteral("fresh.JPG")), old = dir.filePath(QStringLiteral("old.JPG"));
    QVERIFY(SaveJPG(dib, fresh));
    const QByteArray jpeg = readFile(fresh);
    QVERIFY(writeFile(old, QByteArray(jpeg.size() + 5000, 'Z')));
    QVERIFY(SaveJPG(dib, old));
    QCOMPARE(readFile(old), jpeg + QByteArray(5000, 'Z'));
}

QTEST_GUILESS_MAIN(TestDibSection)
#include "test_dibsection.moc"
