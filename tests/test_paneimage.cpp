// The pane image store: working pictures built from BMP, GIF and JPEG sources, flips on pixels,
// and what a failure leaves behind.
#include "images/bmpfile.h"
#include "images/panebatch.h"
#include "images/paneimage.h"
#include "model/runtimeerror.h"
#include "support/testpictures.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestPaneImage : public QObject {
    Q_OBJECT
private slots:
    void init();
    void storesEachFormatAsCellSizedBmp_data();
    void storesEachFormatAsCellSizedBmp();
    void mirrorCasesOnPixels();
    void mirroredDrawDropsOneSourceEdge();
    void rebuildKeepsNameAndFlips();
    void paneWithoutSourceIsSkipped();
    void unreadableSourceWritesNothing();
    void manyPanesStopAtTheFirstFailure();

private:
    QString source(const QString& name) const { return dir_->filePath(name); }
    std::unique_ptr<QTemporaryDir> dir_;
    Project project_;
};

void TestPaneImage::init() {
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
    project_ = Project();
    project_.WorkFolder = dir_->filePath(QStringLiteral("MyProjects"));
    QVERIFY(QDir().mkpath(project_.WorkFolder));
}

void TestPaneImage::storesEachFormatAsCellSizedBmp_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("bmp") << QStringLiteral("Photo.bmp");
    QTest::newRow("gif") << QStringLiteral("Anim7.gif");
    QTest::newRow("jpeg") << QStringLiteral("Vanto05.jpg");
    QTest::newRow("jpeg named .bmp") << QStringLiteral("Renamed.bmp");
}

void TestPaneImage::storesEachFormatAsCellSizedBmp() {
    QFETCH(QString, file);
    const QImage picture = QuadrantPicture(64, 48);
    const QString path = source(file);
    if (file.endsWith(QLatin1String(".gif")))
        QVERIFY(WriteGif(picture, path));
    else if (file == QLatin1String("Photo.bmp"))
        QVERIFY(WriteBmp(picture, path));
    else
        QVERIFY(picture.save(path, "JPEG", 95));

    Pane& pane = project_.Panes(5);
    pane.SourceFile = path;
    pane.SourceStem = file.left(file.size() - 4);
    StorePaneImage(project_, 5, 40.0f, true);

    const QString expected =
        project_.WorkFolder + QLatin1Char('/') + pane.SourceStem + QStringLiteral("-0005.BMP");
    QCOMPARE(pane.ImageFile, expected);
    QFile bmp(expected);
    QVERIFY(bmp.open(QIODevice::ReadOnly));
    const QByteArray header = bmp.read(54);
    QCOMPARE(header.left(2), QByteArray("BM"));
    QCOMPARE(static_cast<int>(header[28]), 24);  // 24 bits per pixel
    QCOMPARE(bmp.size(), qint64(54 + 40 * 120)); // rows of 120 bytes, already 4-byte aligned

    const QImage stored(expected);
    QCOMPARE(stored.size(), QSize(40, 40));
    QVERIFY(Near(stored.pixelColor(5, 5), kTopLeft));
    QVERIFY(Near(stored.pixelColor(34, 5), kTopRight));
    QVERIFY(Near(stored.pixelColor(5, 34), kBottomLeft));
    QVERIFY(Near(stored.pixelColor(34, 34), kBottomRight));
}

void TestPaneImage::mirrorCasesOnPixels() {
    const QString path = source(QStringLiteral("q.bmp"));
    QVERIFY(WriteBmp(QuadrantPicture(80, 60), path));
    struct Case {
        qint16 h, v;
        QColor topLeft, topRight, bottomLeft, bottomRight;
    };
    const Case cases[] = {{0, 0, kTopLeft, kTopRight, kBottomLeft, kBottomRight},
                          {1, 0, kTopRight, kTopLeft, kBottomRight, kBottomLeft},
                          {0, 1, kBottomLeft, kBottomRight, kTopLeft, kTopRight},
                          {1, 1, kBottomRight, kBottomLeft, kTopRight, kTopLeft}};
    int pane = 1;
    for (const Case& c : cases) {
        Pane& p = project_.Panes(pane);
        p.SourceFile = path;
        p.SourceStem = QStringLiteral("q");
        p.FlipHorizontal = c.h;
        p.FlipVertical = c.v;
        StorePaneImage(project_, static_cast<qint16>(pane), 30.0f, true);
        const QImage img(p.ImageFile);
        QVERIFY2(Near(img.pixelColor(3, 3), c.topLeft, 10), qPrintable(QString::number(pane)));
        QVERIFY(Near(img.pixelColor(26, 3), c.topRight, 10));
        QVERIFY(Near(img.pixelColor(3, 26), c.bottomLeft, 10));
        QVERIFY(Near(img.pixelColor(26, 26), c.bottomRight, 10));
        ++pane;
    }
}

void TestPaneImage::mirroredDrawDropsOneSourceEdge() {
    // A source one pixel larger than the square is drawn at its own size when mirrored: column
    // (or row) 0 of the source lands one pixel outside the square and is lost; the square's last
    // column shows source column 1.
    const int side = 20;
    QImage picture(side + 1, side + 1, QImage::Format_RGB32);
    for (int y = 0; y <= side; ++y)
        for (int x = 0; x <= side; ++x)
            picture.setPixelColor(x, y, QColor(x * 10, y * 10, 100));
    const QImage h = RenderPaneSquare(picture, side, 1, 0);
    for (int x = 0; x < side; ++x)
        QCOMPARE(h.pixelColor(x, 0).red(), (side - x) * 10);
    const QImage v = RenderPaneSquare(picture, side, 0, 1);
    for (int y = 0; y < side; ++y)
        QCOMPARE(v.pixelColor(0, y).green(), (side - y) * 10);
    const QImage both = RenderPaneSquare(picture, side, 1, 1);
    QCOMPARE(both.pixelColor(0, 0), QColor(side * 10, side * 10, 100));
    QCOMPARE(both.pixelColor(side - 1, side - 1), QColor(10, 10, 100));
    // Flag values other than 0 and 1 draw nothing.
    QCOMPARE(RenderPaneSquare(picture, side, 2, -1), EmptySquare(side));
}

void TestPaneImage::rebuildKeepsNameAndFlips() {
    const QString path = source(QStringLiteral("Frame12.jpg"));
    QVERIFY(QuadrantPicture(100, 100).save(path, "JPEG", 95));
    Pane& p = project_.Panes(1000);
    p.SourceFile = path;
    p.SourceStem = QStringLiteral("Frame");
    p.FlipHorizontal = 1;
    StorePaneImage(project_, 1000, 50.0f, true);
    QCOMPARE(QFileInfo(p.ImageFile).fileName(), QStringLiteral("Frame-1000.BMP"));
    const QString name = p.ImageFile;
    // A re-layout rebuilds over the same file at the new size, flips applied from the source again.
    StorePaneImage(project_, 1000, 24.0f, false);
    QCOMPARE(p.ImageFile, name);
    const QImage img(name);
    QCOMPARE(img.size(), QSize(24, 24));
    QVERIFY(Near(img.pixelColor(2, 2), kTopRight));
}

void TestPaneImage::paneWithoutSourceIsSkipped() {
    Pane& p = project_.Panes(3);
    p.ImageFile = QStringLiteral("kept");
    StorePaneImage(project_, 3, 40.0f, true);
    QCOMPARE(p.ImageFile, QStringLiteral("kept"));
    QVERIFY(QDir(project_.WorkFolder).isEmpty());
}

void TestPaneImage::unreadableSourceWritesNothing() {
    const QString broken = source(QStringLiteral("broken.jpg"));
    QFile f(broken);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("\xff\xd8\xff\xe0 this is not really a JPEG");
    f.close();
    struct Case {
        QString path;
        int error;
    };
    for (const Case& c : {Case{broken, 481}, Case{source(QStringLiteral("missing.bmp")), 53}}) {
        Pane& p = project_.Panes(2);
        p.SourceFile = c.path;
        p.SourceStem = QStringLiteral("broken");
        p.ImageFile = kNone;
        int number = 0;
        try {
            StorePaneImage(project_, 2, 40.0f, true);
        } catch (const RunTimeError& e) {
            number = e.number();
        }
        QCOMPARE(number, c.error);
        QCOMPARE(p.ImageFile, kNone);
        QVERIFY(QDir(project_.WorkFolder).isEmpty());
    }
}

void TestPaneImage::manyPanesStopAtTheFirstFailure() {
    // Built on every core, committed in order: the panes before a failure are done, the ones
    // after it are untouched, exactly as one by one.
    for (int n = 1; n <= 40; ++n) {
        Pane& p = project_.Panes(n);
        if (n % 5 == 0) continue; // no source: skipped
        p.SourceFile = source(QStringLiteral("f%1.jpg").arg(n));
        p.SourceStem = QStringLiteral("f");
        if (n != 27) QVERIFY(SolidPicture(64, 48, QColor(n * 6, 0, 0)).save(p.SourceFile, "JPEG", 95));
    }
    int progressCalls = 0;
    int number = 0;
    try {
        StorePaneImages(project_, 1, 40, 16.0f, true, [&](int done, int total) {
            QCOMPARE(total, 40);
            QCOMPARE(done, ++progressCalls);
        });
    } catch (const RunTimeError& e) {
        number = e.number();
    }
    QCOMPARE(number, 53);
    QCOMPARE(progressCalls, 26);
    for (int n = 1; n <= 40; ++n) {
        const bool built = n < 27 && n % 5 != 0;
        QCOMPARE(project_.Panes(n).ImageFile != kNone, built);
        QCOMPARE(QFileInfo::exists(PaneImageName(project_, n)), built);
        if (built)
            QVERIFY(Near(QImage(project_.Panes(n).ImageFile).pixelColor(8, 8), QColor(n * 6, 0, 0), 8));
    }
}

QTEST_GUILESS_MAIN(TestPaneImage)
#include "test_paneimage.moc"
