// Contact sheets: where the panes of a 1000-pane project go for each choice of panes per page
// (computed, not drawn), long texts, a pane's picture for output, PDFs read back with poppler's
// tools, kv1 pdf, and Print and Export As PDF from the File menu.
#include "dialogs/frmsheet.h"
#include "export/sheetpainter.h"
#include "images/outputpicture.h"
#include "support/mainwindow.h"
#include "support/runprocess.h"

#include <QPrintPreviewDialog>

namespace {
// "Pages:", "Page size:" and the like, as pdfinfo tells them.
QString pdfInfo(const QString& pdf, const QString& field) {
    for (const QString& line : run("pdfinfo", {pdf}).out.split('\n'))
        if (line.startsWith(field + ':')) return line.mid(field.size() + 1).trimmed();
    return {};
}
// The rows of pdfimages -list after its two header lines.
int pdfImageCount(const QString& pdf) {
    return run("pdfimages", {"-list", pdf}).out.trimmed().split('\n').size() - 2;
}

// A project in a temporary folder whose panes get real pictures.
struct SheetProject {
    QTemporaryDir dir;
    Project p;
    SheetProject(int grid, int boards) {
        p.GridSide = qint16(grid), p.BoardCount = qint16(boards);
        p.WorkFolder = dir.filePath("work");
        QDir().mkpath(p.WorkFolder);
    }
    QString path(const QString& name) const { return dir.filePath(name); }
    void give(int pane, const QImage& image) {
        const QString stem = QString("shot%1").arg(pane);
        QVERIFY(WriteBmp(image, path(stem + ".bmp")));
        p.Panes(pane).SourceFile = path(stem + ".bmp");
        p.Panes(pane).SourceStem = stem;
        StorePaneImage(p, qint16(pane), 32.0f, true);
    }
};

SheetLayout layOut(const Project& p, const SheetOptions& o, const CaptionHeight& caption = {}) {
    return LayOutSheet(p, o, SheetPageSize(SheetPageLayout(o)), caption);
}
// Page, column and row of every pane ("page|column|row"), read from the rectangles: columns and
// rows are the distinct left and top edges of a page, in order.
QMap<int, Values> placesOf(const SheetLayout& layout) {
    QMap<int, Values> places;
    for (int page = 0; page < layout.pages.size(); ++page) {
        QList<double> lefts, tops;
        for (const SheetCell& c : layout.pages[page].cells) {
            if (!lefts.contains(c.picture.left())) lefts << c.picture.left();
            if (!tops.contains(c.picture.top())) tops << c.picture.top();
        }
        std::sort(lefts.begin(), lefts.end());
        std::sort(tops.begin(), tops.end());
        for (const SheetCell& c : layout.pages[page].cells)
            places[c.pane] = Joined(page, lefts.indexOf(c.picture.left()), tops.indexOf(c.picture.top()));
    }
    return places;
}
// The first fault of a layout's geometry: a cell outside the body or overlapping another.
QString geometryFault(const SheetLayout& layout) {
    for (const SheetPage& page : layout.pages)
        for (const SheetCell& c : page.cells) {
            const QRectF whole = c.picture.united(c.caption);
            if (!layout.body.adjusted(-0.01, -0.01, 0.01, 0.01).contains(whole))
                return QString("pane %1 leaves the body").arg(c.pane);
            for (const SheetCell& d : page.cells)
                if (d.pane != c.pane && whole.intersects(d.picture.united(d.caption)))
                    return QString("panes %1 and %2 overlap").arg(c.pane).arg(d.pane);
        }
    return {};
}
} // namespace

class TestSheets : public QObject {
    Q_OBJECT
private slots:
    void placementOfAThousandPanes_data() {
        QTest::addColumn<int>("grid");
        QTest::addColumn<int>("perPage");
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("pages");
        QTest::newRow("a 5 x 5 board a page") << 5 << 0 << false << 5 << 40;
        QTest::newRow("a 4 x 4 board a page, landscape") << 4 << 0 << true << 4 << 62;
        QTest::newRow("1") << 5 << 1 << false << 1 << 1000;
        QTest::newRow("2 landscape") << 5 << 2 << true << 2 << 500;
        QTest::newRow("12 landscape") << 5 << 12 << true << 4 << 84;
    }
    // Pane k goes to slot k - 1 of the sequence of pages, row by row; a board per page starts
    // every board on a page of its own.
    void placementOfAThousandPanes() {
        QFETCH(int, grid);
        QFETCH(int, perPage);
        QFETCH(bool, landscape);
        QFETCH(int, columns);
        QFETCH(int, pages);
        Project p;
        p.GridSide = qint16(grid), p.BoardCount = qint16(1000 / (grid * grid));
        for (int i = 1; i <= 1000; i += 7)
            p.Panes(i).Text = "A text of usual length";
        SheetOptions o;
        o.perPage = perPage, o.landscape = landscape;
        const SheetLayout layout = layOut(p, o);
        QCOMPARE(layout.pages.size(), pages);
        QCOMPARE(geometryFault(layout), QString());
        const int perSheet = perPage ? perPage : grid * grid;
        const QMap<int, Values> places = placesOf(layout);
        for (int k = 1; k <= PaneTotal(p); ++k) {
            const int slot = (k - 1) % perSheet;
            QCOMPARE(places.value(k), Joined((k - 1) / perSheet, slot % columns, slot / columns));
        }
        QCOMPARE(SheetPageSubject(layout.pages[1]),
                 perPage == 1 ? QString("Pane 2")
                 : perPage    ? QString("Panes %1 to %2").arg(perSheet + 1).arg(2 * perSheet)
                              : QString("Board 2"));
    }

    // Expected: the quadrants and size of the picture asked to cover 100 x 100, the size of the
    // one asked to fit inside it, and whether each is missing.
    void outputPicture_data() {
        QTest::addColumn<QString>("source"); // "bmp", "jpeg", "gone" or "none"
        QTest::addColumn<int>("flipH");
        QTest::addColumn<int>("flipV");
        QTest::addColumn<QString>("expected");
        QTest::newRow("as made") << "bmp" << 0 << 0 << "TL TR BL BR|400x200|400x200|0|0";
        QTest::newRow("both") << "bmp" << 1 << 1 << "BR BL TR TL|400x200|400x200|0|0";
        // A JPEG comes at the smallest scale that covers, or fills when fitted, the size asked for.
        QTest::newRow("top to bottom, JPEG") << "jpeg" << 0 << 1 << "BL BR TL TR|200x100|100x50|0|0";
        // The working picture is square and carries its flips already.
        QTest::newRow("source gone: the working picture")
            << "gone" << 1 << 0 << "TR TL BR BL|32x32|32x32|0|0";
        QTest::newRow("nothing readable") << "none" << 0 << 0 << "|0x0|0x0|1|1";
    }
    // The source in its own proportions with the pane's flips, or the working picture.
    void outputPicture() {
        QFETCH(QString, source);
        QFETCH(int, flipH);
        QFETCH(int, flipV);
        QFETCH(QString, expected);
        SheetProject s(2, 1);
        Pane& pane = s.p.Panes(1);
        pane.FlipHorizontal = qint16(flipH), pane.FlipVertical = qint16(flipV);
        s.give(1, QuadrantPicture(400, 200));
        if (source == "jpeg") {
            QVERIFY(WriteJpeg(QuadrantPicture(400, 200), s.path("shot1.jpg")));
            pane.SourceFile = s.path("shot1.jpg");
        }
        if (source == "gone" || source == "none") QFile::remove(pane.SourceFile);
        if (source == "none") QFile::remove(pane.ImageFile);
        const OutputPicture out = LoadOutputPicture(pane, QSize(100, 100));
        const OutputPicture fitted = LoadOutputPictureToFit(pane, QSize(100, 100));
        const QString quadrants = out.image.isNull() ? QString() : QuadrantsOf(out.image);
        QCOMPARE(NAMED_VALUES(quadrants, out.image.size(), fitted.image.size(), out.missing, fitted.missing),
                 expected);
    }

    // Written, then read back as a reader of the PDF would: every text findable, one picture per
    // pane with one, the pages and paper asked for, links kept.
    void longCaptionsShrinkThenFlow() {
        Project p;
        p.GridSide = 3, p.BoardCount = 4; // 36 panes, 12 a page: 3 pages
        SheetOptions o;
        o.perPage = 12;
        const SheetLayout usual = layOut(p, o, [](int, double) { return 100.0; });
        const double picture = usual.pages[0].cells[0].picture.height();
        for (double caption : {picture * 0.3, picture * 1.5}) {
            const SheetLayout layout =
                layOut(p, o, [caption](int pane, double) { return pane == 5 ? caption : 100.0; });
            QCOMPARE(geometryFault(layout), QString());
            const SheetCell five = layout.pages[0].cells[4];
            QCOMPARE(five.caption.height(), caption);
            QCOMPARE(layout.pages[0].cells[3].picture.height(), five.picture.height()); // its row
            QCOMPARE(layout.pages[0].cells[0].picture.height(), picture);               // another row
            const bool flows = caption > picture;
            QVERIFY(five.picture.height() < picture);
            QCOMPARE(five.picture.height() == picture / 2, flows);
            QCOMPARE(Joined(layout.pages.size(), layout.pages[0].cells.size()), flows ? "4|9" : "3|12");
            QCOMPARE(placesOf(layout).value(10), flows ? "1|0|0" : "0|0|3");
        }
        // A board whose rows do not fit goes on over pages of its own; the next board starts afresh.
        o.perPage = 0;
        const SheetLayout boards = layOut(p, o, [](int pane, double) { return pane == 4 ? 4000.0 : 100.0; });
        QCOMPARE(boards.pages.size(), 6);
        for (int page : {1, 2})
            QCOMPARE(Joined(SheetPageSubject(boards.pages[page]), boards.pages[page].cells.first().pane),
                     Joined("Board 1, continued", 3 * page + 1));
        QCOMPARE(SheetPageSubject(boards.pages[3]), QString("Board 2"));

        // Real fonts: a text of 256 characters takes more lines than are kept, a short one fewer.
        p.Panes(1).Text = QString("Word ").repeated(51) + "X";
        p.Panes(2).Text = "Short";
        const QList<CaptionBlock> blocks = CaptionBlocks(p, 1, o);
        QCOMPARE(Joined(blocks.size(), blocks[0].text), "2|1");
        const SheetLayout real = layOut(p, o);
        const double width = real.pages[0].cells[0].caption.width();
        QVERIFY(MeasureCaption(blocks, width) > 3 * BlockHeight({CaptionBlock::Text, "Short"}, width));
        QVERIFY(real.pages[0].cells[0].picture.height() < real.pages[0].cells[3].picture.height());
        QCOMPARE(geometryFault(real), QString());
    }

    void pdfReadBack() {
        SheetProject s(3, 2);
        s.p.BoardTitle = "Harbour at Dawn", s.p.FooterText = "Draft two, Orvane Works";
        const QStringList texts = {"Fog over the water", "Café “Größe” – 5 € naïve", "The ferry arrives"};
        for (int i = 1; i <= 18; ++i) {
            if (i != 3 && i != 12) s.give(i, QuadrantPicture(160, 90));
            s.p.Panes(i).Text = texts[i % 3] + QString(" %1").arg(i);
        }
        s.p.Panes(4).Label = "Establishing";
        s.p.Panes(5).Url = "https://example.org/shot/5";
        QFile::remove(s.p.Panes(8).SourceFile);
        QFile::remove(s.p.Panes(8).ImageFile); // pane 8's picture is gone altogether
        SheetOptions o;
        o.perPage = 6;
        o.labels = o.urls = true;
        o.dpi = 100;
        const QString pdf = s.path("sheet.pdf");
        const SheetResult result = WriteSheetPdf(pdf, s.p, o);
        QVERIFY(result.complete);
        QCOMPARE(result.missing, QList<int>{8});
        // 18 panes, two blank, one missing: 15 pictures
        QCOMPARE(Joined(pdfInfo(pdf, "Pages"), pdfInfo(pdf, "Page size"), pdfInfo(pdf, "Title"), pdfImageCount(pdf)),
                 "3|595 x 842 pts (A4)|Harbour at Dawn|15");

        const QString text = run("pdftotext", {"-raw", pdf, "-"}).out;
        QStringList expected = {
            "Harbour at Dawn", "Draft two, Orvane Works",    "Page 2 of " + pdfInfo(pdf, "Pages"),
            "Establishing",    "https://example.org/shot/5", "picture missing"};
        for (int i = 1; i <= 18; ++i)
            expected << texts[i % 3] + QString(" %1").arg(i);
        for (const QString& wanted : expected)
            QVERIFY2(text.contains(wanted), qPrintable(wanted + " is not in the PDF"));
        QVERIFY(ReadAll(pdf).contains("(https://example.org/shot/5)")); // a link annotation's URI
    }

    // The picture on paper shows the pane's flips: its quadrants are mirrored both ways.
    void flippedPictureOnPaper() {
        SheetProject s(1, 1);
        s.p.Panes(1).FlipHorizontal = 1, s.p.Panes(1).FlipVertical = 1;
        s.give(1, QuadrantPicture(300, 150));
        SheetOptions o;
        o.perPage = 1, o.dpi = 60;
        const QString pdf = s.path("flips.pdf");
        QVERIFY(WriteSheetPdf(pdf, s.p, o).complete);
        QCOMPARE(run("pdftoppm", {"-png", "-r", "72", pdf, s.path("page")}).status, 0);
        const QImage rendered(s.path("page-1.png"));
        QCOMPARE(rendered.size(), QSize(595, 842));
        // The picture lies in the box's top left corner, as wide as the box at 2:1.
        const QRectF box = layOut(s.p, o).pages[0].cells[0].picture;
        const QRectF paint = SheetPageLayout(o).paintRect(QPageLayout::Point);
        const QRect at = QRectF(paint.left() + box.left() / 10, paint.top() + box.top() / 10,
                                box.width() / 10, box.width() / 20)
                             .toAlignedRect()
                             .adjusted(3, 3, -3, -3);
        QCOMPARE(QuadrantsOf(rendered.copy(at)), QString("BR BL TR TL"));
    }

    // A destination that cannot be written, a cancel and a failure leave no file, not even a
    // temporary one.
    void nothingLeftBehind() {
        SheetProject s(2, 3);
        for (int i = 1; i <= 12; ++i)
            s.give(i, SolidPicture(40, 30, Qt::darkCyan));
        QDir().mkpath(s.path("out"));
        for (const QString& path : {s.path("no/such/folder/a.pdf"), s.path("out")}) {
            const SheetResult r = WriteSheetPdf(path, s.p, SheetOptions{});
            QVERIFY2(r.error.startsWith(path + " cannot be written: "), qPrintable(r.error));
        }
        QList<int> seen;
        const SheetResult cancelled =
            WriteSheetPdf(s.path("out/c.pdf"), s.p, SheetOptions{}, [&](int done, int total) {
                seen << done << total;
                return done < 5;
            });
        QVERIFY(!cancelled.complete && cancelled.error.isEmpty());
        QCOMPARE(seen.mid(0, 4), (QList<int>{1, 12, 2, 12}));
        QCOMPARE(seen.size(), 10);
        QCOMPARE(QDir(s.path("out")).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    // kv1 pdf as a user runs it: options, a missing picture listed and still a PDF, failures.
    void kv1Pdf() {
        QTemporaryDir dir;
        const QString folder = dir.path() + "/", trip = folder + "trip.kv1";
        QByteArray file = "8\r\n2\r\n2\r\nThe end\r\n65280\r\n65280\r\nCoast\r\n";
        for (int i = 1; i <= 3; ++i)
            file += QString("sea-000%1\r\n0\r\n0\r\nToUse\r\nText %1\r\nToUse\r\n").arg(i).toLatin1();
        file += QByteArray("none\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n").repeated(5);
        QVERIFY(WriteAll(trip, file) && QDir().mkpath(folder + "trip_Data"));
        for (int i : {1, 2})
            QVERIFY(WriteBmp(QuadrantPicture(60, 40), folder + QString("trip_Data/sea-000%1.bmp").arg(i)));

        Run r = run(KV1_EXECUTABLE, {"pdf", trip, folder + "a.pdf", "--per-page", "4", "--paper", "letter",
                                     "--landscape", "--dpi", "72"});
        QCOMPARE(Joined(r.status, r.err),
                 Joined(0, QString("kv1: pane 3: picture missing (%1trip_Data/sea-0003.bmp)\n").arg(folder)));
        QCOMPARE(Joined(pdfInfo(folder + "a.pdf", "Pages"), pdfInfo(folder + "a.pdf", "Page size"),
                        pdfImageCount(folder + "a.pdf")),
                 "2|792 x 612 pts (letter)|2");

        r = run(KV1_EXECUTABLE, {"pdf", trip, folder + "no/c.pdf"});
        QCOMPARE(Joined(r.status, r.err), Joined(1, QString("kv1: no such folder: %1no\n").arg(folder)));
        for (const QStringList& wrong : {QStringList{"--per-page", "5"}, {"--paper", "a3"}, {"--dpi", "0"}})
            QCOMPARE(run(KV1_EXECUTABLE, QStringList{"pdf", trip, folder + "d.pdf"} + wrong).status, 2);
        QCOMPARE(QDir(folder).entryList({"*.pdf"}, QDir::Files), QStringList{"a.pdf"});
    }

    // Print and Export As PDF, the window's choices and the flows behind them.
    void fileMenuCommands() {
        StartedMain m; // the menu's order is checked with every other menu's at start-up

        m.project.BoardTitle = "Trip";
        m.give(1, QuadrantPicture(80, 40), "Vanto01");
        m.project.Panes(1).Text = "Hello there";
        QStringList shown;
        // The window is answered as a user would: choices made, then Export.
        m.w->ShowModal = [&](QDialog& d) {
            shown << (qobject_cast<QPrintPreviewDialog*>(&d) ? QString("preview") : d.objectName());
            if (auto* sheet = qobject_cast<frmSheet*>(&d)) {
                shown << sheet->Buttons->button(QDialogButtonBox::Ok)->text();
                sheet->show();
                QVERIFY(!sheet->Preview->pixmap().isNull());
                sheet->Combo_PerPage->setCurrentIndex(kSheetPerPageChoices.indexOf(2));
                sheet->Check_Numbers->setChecked(false);
                sheet->accept();
            }
        };
        m.w->ProjectFile = m.path("trip.kv1");
        m.prompts.answers << m.path("trip");
        m.w->mnu_ExportPDF_Click();
        QCOMPARE(shown, (QStringList{"frmSheet", "Export ..."}));
        QCOMPARE(Joined(m.prompts.requests.last().fileName, m.prompts.requests.last().title),
                 Joined(m.path("trip.pdf"), "Export As PDF ..."));
        QCOMPARE(pdfInfo(m.path("trip.pdf"), "Pages"), QString("2")); // 4 panes, 2 a page
        const QString text = run("pdftotext", {m.path("trip.pdf"), "-"}).out;
        QVERIFY(text.contains("Hello there") && text.contains("Trip") && !text.contains("\n1\n"));
        QCOMPARE(m.w->Sheet->Options().perPage, 2); // the choices stay for the session

        m.prompts.answers << m.path("no/such/x.pdf");
        m.w->mnu_ExportPDF_Click();
        QCOMPARE(m.prompts.messages.last().text,
                 QString("The PDF was not written: %1 cannot be written: No such file or directory.")
                     .arg(m.path("no/such/x.pdf")));

        shown.clear();
        m.w->mnu_Print_Click();
        QCOMPARE(shown, (QStringList{"frmSheet", "Print ...", "preview"}));
    }
};

QTEST_MAIN(TestSheets)
#include "test_sheets.moc"
