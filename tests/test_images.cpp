// The pictures: working pictures built from BMP, GIF and JPEG sources with their flips, what a
// failure leaves behind, the DIB section the export loads them into, and the JPEG files written
// from it.
#include "images/dibsection.h"
#include "images/jpegwriter.h"
#include "images/panebatch.h"
#include "images/paneimage.h"
#include "images/picture.h"
#include "support/check.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

namespace {
// Two colours that every depth can hold exactly.
const QColor kA(200, 32, 8), kB(16, 64, 224);
// A 5 x 3 picture: top row A, the rest B, but the bottom-right pixel A.
bool isA(int x, int y) {
    return y == 0 || (x == 4 && y == 2);
}
void put(QByteArray& out, quint32 v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.append(static_cast<char>((v >> (8 * i)) & 0xFF));
}
// A bottom-up BMP of the pattern at 1, 4, 8 (two-entry palette), 24 or 32 bits.
QByteArray patternBmp(int bits) {
    const int w = 5, h = 3, stride = (w * bits + 31) / 32 * 4, palette = bits <= 8 ? 8 : 0;
    QByteArray out("BM");
    for (quint32 v : {quint32(54 + palette + stride * h), 0u, quint32(54 + palette), 40u, quint32(w),
                      quint32(h), quint32(1 | bits << 16), 0u, 0u, 2835u, 2835u, bits <= 8 ? 2u : 0u, 0u})
        put(out, v, 4);
    const auto rgb = [](const QColor& c) { return quint32(c.blue() | c.green() << 8 | c.red() << 16); };
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
} // namespace

class TestImages : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir_;
    Project project_;
    QString source(const QString& name) const { return dir_->filePath(name); }
    QStringList workFiles() const { return QDir(project_.WorkFolder).entryList(QDir::Files); }

private slots:
    void init() {
        dir_ = std::make_unique<QTemporaryDir>();
        project_ = Project();
        project_.WorkFolder = dir_->filePath("MyProjects");
        QVERIFY(QDir().mkpath(project_.WorkFolder));
    }

    void storesEachFormatFlippedAsCellSizedBmp() {
        // The source, its flips (1 horizontal, 2 vertical) and the quadrants then seen.
        for (auto [name, flips, seen] : {std::tuple{"Photo.bmp", 0, "TL TR BL BR"},
                                         {"Anim7.gif", 1, "TR TL BR BL"},
                                         {"Vanto05.jpg", 2, "BL BR TL TR"},
                                         {"Renamed.bmp", 3, "BR BL TR TL"}}) {
            const QString file = name, path = source(file);
            const QImage picture = QuadrantPicture(80, 60);
            QVERIFY(file.endsWith(".gif") ? WriteGif(picture, path)
                    : file == "Photo.bmp" ? WriteBmp(picture, path)
                                          : WriteJpeg(picture, path));
            Pane& pane = project_.Panes(1000);
            pane.SourceFile = path;
            pane.SourceStem = file.left(file.size() - 4);
            pane.FlipHorizontal = qint16(flips & 1), pane.FlipVertical = qint16(flips >> 1);
            // Built, then rebuilt over the same file at a new size, the flips applied from the source again.
            for (int side : {40, 24}) {
                StorePaneImage(project_, 1000, float(side), side == 40);
                // 24 bits per pixel; rows of 120 and 72 bytes need no padding.
                const QByteArray bmp = ReadAll(pane.ImageFile);
                QCOMPARE(Joined(file, bmp.left(2), int(bmp[28]), bmp.size()),
                         Joined(file, "BM", 24, 54 + side * side * 3));
                const QImage stored(pane.ImageFile);
                QCOMPARE(Joined(file, stored.size(), QuadrantsOf(stored)),
                         Joined(file, QSize(side, side), seen));
            }
        }
    }

    void pngTransparencyLiesOnWhite() {
        // Opaque blue on the left, transparent on the right.
        QImage picture(2, 1, QImage::Format_ARGB32);
        picture.setPixelColor(0, 0, Qt::blue);
        picture.setPixelColor(1, 0, Qt::transparent);
        QVERIFY(WritePng(picture, source("Render1.png")));
        const QImage loaded = LoadPicture(source("Render1.png"));
        QCOMPARE(Joined(loaded.pixelColor(0, 0), loaded.pixelColor(1, 0)),
                 Joined(QColor(Qt::blue), QColor(Qt::white)));
    }

    void mirroredDrawDropsOneSourceEdge() {
        // A source one pixel larger than the square is drawn at its own size when mirrored: column
        // (or row) 0 of the source lands one pixel outside the square and is lost; the square's last
        // column shows source column 1.
        const int side = 20;
        QImage picture(side + 1, side + 1, QImage::Format_RGB32);
        for (int y = 0; y <= side; ++y)
            for (int x = 0; x <= side; ++x)
                picture.setPixelColor(x, y, QColor(x * 10, y * 10, 100));
        const QImage h = RenderPaneSquare(picture, side, 1, 0), v = RenderPaneSquare(picture, side, 0, 1);
        for (int k = 0; k < side; ++k)
            QCOMPARE(Joined(h.pixelColor(k, 0).red(), v.pixelColor(0, k).green()),
                     Joined((side - k) * 10, (side - k) * 10));
        const QImage both = RenderPaneSquare(picture, side, 1, 1);
        QCOMPARE(Joined(both.pixelColor(0, 0), both.pixelColor(side - 1, side - 1)),
                 Joined(QColor(side * 10, side * 10, 100), QColor(10, 10, 100)));
        // Flag values other than 0 and 1 draw nothing.
        QCOMPARE(RenderPaneSquare(picture, side, 2, -1), EmptySquare(side));
    }

    void failuresWriteNothing() {
        Pane& p = project_.Panes(2);
        p.ImageFile = "kept";
        QVERIFY(WriteAll(source("broken.jpg"), "\xff\xd8\xff\xe0 this is not really a JPEG"));
        for (auto [file, error] : {std::pair{"broken.jpg", 481}, {"missing.bmp", 53}}) {
            p.SourceFile = source(file);
            p.SourceStem = "broken";
            QCOMPARE(ErrorNumberOf([&] { StorePaneImage(project_, 2, 40.0f, true); }), error);
            QCOMPARE(p.ImageFile, "kept");
            QCOMPARE(workFiles(), QStringList());
        }
    }

    void manyPanesStopAtTheFirstFailure() {
        // Built on every core, committed in order: the panes before a failure are done, the ones
        // after it are untouched, exactly as one by one.
        for (int n = 1; n <= 40; ++n) {
            Pane& p = project_.Panes(n);
            if (n % 5 == 0) continue; // no source: skipped
            p.SourceFile = source(QString("f%1.jpg").arg(n));
            p.SourceStem = "f";
            if (n != 27) QVERIFY(WriteJpeg(SolidPicture(64, 48, QColor(n * 6, 0, 0)), p.SourceFile));
        }
        int progressCalls = 0;
        const auto storeAll = [&] {
            progressCalls = 0;
            StorePaneImages(project_, 1, 40, 16.0f, true, [&](int done, int total) {
                QCOMPARE(Joined(done, total), Joined(++progressCalls, 40));
            });
        };
        QCOMPARE(ErrorNumberOf(storeAll), 53);
        QCOMPARE(progressCalls, 26);
        for (int n = 1; n <= 40; ++n) {
            const bool built = n < 27 && n % 5 != 0;
            QCOMPARE(
                Joined(project_.Panes(n).ImageFile != kNone, QFileInfo::exists(PaneImageName(project_, n))),
                Joined(built, built));
            if (built)
                QVERIFY(Near(QImage(project_.Panes(n).ImageFile).pixelColor(8, 8), QColor(n * 6, 0, 0), 8));
        }
    }

    void dibLoadsEveryDepthAndRefusesOthers() {
        ScriptedPrompts prompts;
        for (int bits : {1, 4, 8, 24, 32}) {
            const QString path = source(QString("p%1.bmp").arg(bits));
            QVERIFY(WriteAll(path, patternBmp(bits)));
            cDIBSection dib;
            QVERIFY2(dib.Load(path, &prompts), qPrintable(path));
            QCOMPARE(Joined(dib.dib_width(), dib.dib_height(), dib.dib_channels(), dib.BytesPerScanLine()),
                     "5|3|3|16");
            // Memory row 0 is the bottom row of the picture.
            for (int y = 0; y < 3; ++y)
                for (int x = 0; x < 5; ++x) {
                    const uchar* p = dib.DIBSectionBitsPtr() + (2 - y) * 16 + x * 3;
                    QCOMPARE(Joined(bits, x, y, QColor(p[2], p[1], p[0])),
                             Joined(bits, x, y, isA(x, y) ? kA : kB));
                }
            if (bits != 24) continue;
            QImage block(4, 4, QImage::Format_RGB32);
            block.fill(Qt::white);
            dib.PaintPicture(&block, 1, 1, 2, 2, 3, 1); // picture pixels (3, 1) and (4, 2)
            QCOMPARE(Joined(block.pixelColor(0, 0), block.pixelColor(1, 1), block.pixelColor(2, 2)),
                     Joined(QColor(Qt::white), kB, kA));
        }

        // Not a BMP, whatever the name says, or no file at all: told once each, and the object stays empty.
        QVERIFY(WriteJpeg(QuadrantPicture(16, 16), source("photo.bmp")));
        cDIBSection dib;
        for (const QString& path : {source("photo.bmp"), source("missing.bmp")})
            QVERIFY(dib.Create(3, 3, 3) && !dib.Load(path, &prompts) && !dib.hDib() && !dib.hDC() &&
                    dib.dib_width() == 0);
        QCOMPARE(prompts.messages.size(), 2);
        for (const auto& m : prompts.messages)
            QVERIFY(m.text == "Could not load bmp." && m.title == "KV1 : Load Problem" &&
                    m.icon == MsgIcon::Exclamation);
    }

    void jpegIsUprightAt75With420() {
        cDIBSection dib;
        QVERIFY(dib.Create(105, 40, 3)); // rows of 315 bytes and one byte of padding
        for (int row = 0; row < 40; ++row)
            for (int x = 0; x < 105; ++x) {
                uchar* p = dib.DIBSectionBitsPtr() + row * dib.BytesPerScanLine() + x * 3;
                // The last memory rows, the top of the picture, red; the rest blue.
                p[0] = row >= 32 ? 0 : 255;
                p[2] = row >= 32 ? 255 : 0;
            }
        const QString path = source("Vanto01-001.JPG");
        QVERIFY(SaveJPG(dib, path));
        const QByteArray jpeg = ReadAll(path);
        // Baseline frame: 40 rows of 105, three components, the first sampled 2 x 2 (4:2:0).
        QCOMPARE(jpeg.mid(int(jpeg.indexOf("\xFF\xC0")) + 5, 7).toHex(), "00280069030122");
        // Quality 75 halves the standard luminance table: its first entry, 16, becomes 8.
        QCOMPARE(jpeg.mid(int(jpeg.indexOf("\xFF\xDB")) + 4, 2), QByteArray("\x00\x08", 2));
        const QImage decoded = QImage::fromData(jpeg);
        QVERIFY(Near(decoded.pixelColor(50, 2), Qt::red) && Near(decoded.pixelColor(50, 30), Qt::blue));

        // Over a longer file: written from its first byte, the old tail stays.
        QVERIFY(WriteAll(source("old.JPG"), QByteArray(jpeg.size() + 5000, 'Z')));
        QVERIFY(SaveJPG(dib, source("old.JPG")));
        QCOMPARE(ReadAll(source("old.JPG")), jpeg + QByteArray(5000, 'Z'));
        QVERIFY(!dib.Create(0, 4, 3));
    }
};

QTEST_GUILESS_MAIN(TestImages)
#include "test_images.moc"
