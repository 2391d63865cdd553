// A long session on the core routines, driven by a fixed random seed: single loads, imports (one
// of them running into a picture cut short), drags, flips, blanks, shuffles, texts, new shapes,
// re-layouts, saves and opens. After every step each working picture exists and is a square of the
// cell size; after every save and open the project is the one that was saved.
#include "flows/importsequence.h"
#include "flows/projectopen.h"
#include "flows/projectsave.h"
#include "flows/reshape.h"
#include "images/panebatch.h"
#include "images/paneflip.h"
#include "images/paneimage.h"
#include "images/shuffle.h"
#include "model/numbers.h"
#include "support/testpictures.h"

#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {
// What a save and an open must give back.
QStringList saved(const Project& p) {
    QStringList v{p.BoardTitle,    p.FooterText,     Str(p.GlobalHighlightColor), Str(p.MoveHighlightColor),
                  Str(p.GridSide), Str(p.BoardCount)};
    for (int i = 1; i <= PaneTotal(p); ++i)
        v << p.Panes(i).Text << p.Panes(i).Label << p.Panes(i).Url << p.Panes(i).SourceStem;
    return v;
}

QString brokenInvariant(const Project& p, int cell) {
    for (int i = 1; i <= kMaxPane; ++i) {
        const Pane& pane = p.Panes(i);
        if ((pane.ImageFile == kNone) != (pane.SourceStem == kNone) ||
            (pane.ImageFile == kNone) != (pane.SourceFile == kNone))
            return QStringLiteral("pane %1 has a picture by half").arg(i);
        if (pane.ImageFile != kNone && QImageReader(pane.ImageFile).size() != QSize(cell, cell))
            return QStringLiteral("pane %1: %2 is not a square of %3").arg(i).arg(pane.ImageFile).arg(cell);
    }
    return {};
}
} // namespace

class TestSoak : public QObject {
    Q_OBJECT
private slots:
    void longSession();
};

void TestSoak::longSession() {
    QTemporaryDir dir;
    const QString folder = dir.path() + "/";
    Project p;
    p.WorkFolder = folder + "MyProjects";
    QVERIFY(QDir().mkpath(p.WorkFolder));
    // Sources: a sequence of four JPEGs, a sequence of BMPs whose second is cut short, one GIF.
    for (int i = 1; i <= 4; ++i)
        QVERIFY(WriteJpeg(QuadrantPicture(12 + i, 9), folder + QString("f0%1.jpg").arg(i)));
    for (int i = 1; i <= 3; ++i)
        QVERIFY(WriteBmp(SolidPicture(7, 5 + i, Qt::cyan), folder + QString("g%1.bmp").arg(i)));
    QFile cut(folder + "g2.bmp");
    QVERIFY(cut.resize(cut.size() / 2) && WriteGif(QuadrantPicture(10, 10), folder + "h.gif"));
    const QStringList singles{"f01.jpg", "g3.bmp", "h.gif"}, texts{"ToUse", "Sky", "caf\u00e9 \u20ac", " x "};
    const qint32 colours[] = {0, 255, 65280, 65535, 16711680, 16777215};

    QRandomGenerator random(2024);
    const auto any = [&random](int n) { return int(random.bounded(n)); };
    int cell = 20;
    for (int step = 0; step < 2500; ++step) {
        const int total = PaneTotal(p), pane = 1 + any(total), other = 1 + any(total), op = any(100);
        Pane& a = p.Panes(pane);
        if (op < 18) { // a single picture
            const QString file = singles[any(singles.size())];
            a.SourceStem = file.left(file.size() - 4);
            a.SourceFile = a.ImageFile = folder + file;
            a.FlipHorizontal = a.FlipVertical = 0;
            StorePaneImage(p, qint16(pane), float(cell), true);
        } else if (op < 24) { // an import
            const QString first = any(2) ? "f01.jpg" : "g1.bmp";
            ImportSequence(p, AnalyseSequence(folder + first, first), qint16(pane), float(cell));
        } else if (op < 38) { // a drag from one pane onto another
            std::swap(a, p.Panes(other));
            std::swap(a.Position, p.Panes(other).Position); // the cell table stays with its record
        } else if (op < 52) {
            if (a.ImageFile != kNone) FlipPaneImage(p, qint16(pane), float(cell), 0, 0, any(2) ? -1 : 0);
        } else if (op < 60) {
            MakePaneBlank(p, qint16(pane));
        } else if (op < 68) {
            const qint16 n = CellsPerBoard(p);
            p.DialogReply.ReDim(n);
            MoveShuffledPictures(
                p, ShufflePanes(p, p.GridSide, (pane - 1) / n, [&] { return random.generateDouble(); }), n);
        } else if (op < 84) { // texts and settings
            a.Text = texts[any(4)], a.Label = texts[any(4)], a.Url = texts[any(4)] + "/";
            p.BoardTitle = texts[any(4)], p.FooterText = texts[any(4)];
            p.GlobalHighlightColor = colours[any(6)], p.MoveHighlightColor = colours[any(6)];
        } else if (op < 89) { // a new shape, keeping or discarding the pictures
            p.GridSide = qint16(2 + any(4));
            p.BoardCount = qint16(1 + any(3));
            cell = CInt(48.0 / p.GridSide);
            ReshapePanes(p, float(cell), any(2));
        } else if (op < 93) { // a re-layout at another stage size
            cell = 6 + any(20);
            StorePaneImages(p, 1, kMaxPane, float(cell), false);
        } else { // saved, then opened again
            const QString name = any(2) ? "trip" : "other";
            const QStringList before = saved(p);
            SaveProjectFile(p, name, folder + name + ".kv1", folder, PaneTotal(p), p.BoardCount, p.GridSide);
            ReadProject(p, folder + name + ".kv1", folder, name);
            RebuildPaneImages(p, float(cell));
            QCOMPARE(saved(p), before);
        }
        const QString broken = brokenInvariant(p, cell);
        QVERIFY2(broken.isEmpty(),
                 qPrintable(QStringLiteral("step %1 (%2): %3").arg(step).arg(op).arg(broken)));
    }
}

QTEST_GUILESS_MAIN(TestSoak)
#include "test_soak.moc"
