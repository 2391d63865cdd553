// The project model, its index arithmetic, limits and conversions, and the project file: exact
// bytes on saving, what the reader makes of every kind of file, round trips with pictures, and
// the Save Project As / Open Project flows of the main window.
#include "dialogs/frmhtml.h"
#include "flows/projectopen.h"
#include "flows/projectsave.h"
#include "model/ansi.h"
#include "model/linevalue.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "support/mainwindow.h"

namespace {
QByteArray record(const char* name, const char* label = "ToUse", const char* text = "ToUse") {
    return QByteArray(name) + "\r\n0\r\n0\r\n" + label + "\r\n" + text + "\r\nToUse\r\n";
}
// The reader as it was first written: a conversion after every character.
template <typename T>
bool storedByEveryCharacter(const QString& line, T& out, bool (*convert)(const QString&, T&)) {
    bool stored = false;
    for (int k = 1; k <= line.size(); ++k)
        stored = convert(line.left(k), out) || stored;
    return stored;
}
} // namespace

class TestModel : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir_;
    QString at(const QString& name) const { return dir_->filePath(name); }
    QString folder() const { return dir_->path() + "/"; }
    std::unique_ptr<Project> load(const QByteArray& bytes) {
        WriteAll(at("hand.kv1"), bytes);
        auto p = std::make_unique<Project>();
        p->WorkFolder = at("work");
        p->GlobalHighlightColor = p->MoveHighlightColor = 255; // opening does not reset the colours
        LoadProjectFile(*p, at("hand.kv1"), folder(), "hand");
        return p;
    }

private slots:
    void init() { dir_ = std::make_unique<QTemporaryDir>(); }

    void paneRecordsIndicesAndLimits() {
        // grid, boards; a board and cell, the pane there; the pane total
        const int rows[][6] = {{4, 62, 3, 1, 33, 992},
                               {4, 62, 2, 16, 32, 992},
                               {5, 40, 40, 25, 1000, 1000},
                               {3, 1, 2, 9, 18, 9}};
        Project p;
        for (auto [grid, boards, board, cell, pane, total] : rows) {
            p.GridSide = qint16(grid), p.BoardCount = qint16(boards);
            QCOMPARE(Joined(PaneOfCell(p, board, cell), BoardOfPane(p, pane), PaneTotal(p)),
                     Joined(pane, board, total));
        }
        p.GridSide = p.BoardCount = 200; // 16-bit overflow is a fault, not a wrap
        p.DialogReply.ReDim(3);
        QCOMPARE(Joined(ErrorNumberOf([&] { PaneTotal(p); }),
                        ErrorNumberOf([&] { p.Panes(1000).Text = "last"; }),
                        ErrorNumberOf([&] { p.Panes(1001); }), ErrorNumberOf([&] { p.Panes(-1); }),
                        p.DialogReply[3], ErrorNumberOf([&] { p.DialogReply[4]; })),
                 "6|0|9|9||9");

        // Resetting the records restores the sentinels; the cell table belongs to the stage.
        for (int i : {1, 500, 1000}) {
            Pane& pane = p.Panes(i);
            pane.Text = pane.Label = pane.Url = "x";
            pane.ImageFile = pane.SourceFile = pane.SourceStem = "/tmp/y";
            pane.FlipHorizontal = pane.FlipVertical = 1;
            pane.Position[0] = 17, pane.Position[1] = 34;
        }
        ResetPanes(p);
        for (int i : {1, 500, 1000})
            QCOMPARE(PaneFields(p.Panes(i)), "ToUse|ToUse|ToUse|0|0|none|none|none|17|34");
    }

    void numbersAndText() {
        QCOMPARE(Joined(Format(7, "000"), Format(1000, "000"), Format(1, "00"), Format(100, "00"),
                        Format(12, "0000"), Format(-5, "000")),
                 "007|1000|01|100|0012|-005");
        // Halves round to even; text converts as the number it spells, a 16-bit hex literal signed.
        QCOMPARE(Joined(CInt(2.5), CInt(3.5), CInt(-2.5), CInt(226.33), CInt(-32768.5), CLng(2147483647.0)),
                 "2|4|-2|226|-32768|2147483647");
        QCOMPARE(Joined(CInt(" 42 "), CInt("-3"), CInt("2.5"), CInt("1E2"), CLng("65280"), CLng("&HFF00"),
                        CLng("&HFF0000")),
                 "42|-3|2|100|65280|-256|16711680");
        QCOMPARE(Joined(ErrorNumberOf([] { CInt(32767.5); }), ErrorNumberOf([] { CLng(2147483648.0); }),
                        ErrorNumberOf([] { CInt("12a"); }), ErrorNumberOf([] { CInt(QString()); }),
                        ErrorNumberOf([] { CInt("40000"); })),
                 "6|6|13|13|6");

        const QByteArray bytes = ToAnsi("caf\u00e9 \u20ac5 \u201cquoted\u201d \u4e2d");
        QCOMPARE(bytes, QByteArray("caf\xe9 \x80"
                                   "5 \x93quoted\x94 ?"));
        QCOMPARE(FromAnsi(bytes), "caf\u00e9 \u20ac5 \u201cquoted\u201d ?");
    }

    void savesExactBytes() {
        Project p;
        p.Panes(2).Text = QString(); // an empty value is written as "ToUse"
        p.Panes(3).Label = "caf\u00e9 \u20ac";
        p.Panes(9).Text = "past the pane total";
        p.BoardTitle = QString();
        p.FooterText = "Foot";
        p.MoveHighlightColor = 255;
        SaveProjectFile(p, "trip", at("trip.kv1"), folder(), 8, 2, 2);
        QByteArray expected = "8\r\n2\r\n2\r\nFoot\r\n65280\r\n255\r\nToUse\r\n";
        for (int i = 1; i <= 8; ++i)
            expected += record("none", i == 3 ? "caf\xe9 \x80" : "ToUse");
        QCOMPARE(ReadAll(at("trip.kv1")), expected);
        QVERIFY(QFileInfo(at("trip_Data")).isDir() && QDir(at("trip_Data")).isEmpty());

        // Before any picture is copied a failure stops the program; after it, it is ignored.
        QCOMPARE(ErrorNumberOf([&] { SaveProjectFile(p, "x", at("no/x.kv1"), at("no/"), 4, 1, 2); }), 76);
        QVERIFY(QDir().mkpath(at("d.kv1")));
        QCOMPARE(ErrorNumberOf([&] { SaveProjectFile(p, "d", at("d.kv1"), folder(), 4, 1, 2); }), 75);
        p.Panes(1).ImageFile = at("gone.BMP");
        p.Panes(1).SourceStem = "gone";
        QCOMPARE(ErrorNumberOf([&] { SaveProjectFile(p, "d", at("d.kv1"), folder(), 4, 1, 2); }), 0);
        QVERIFY(QDir(at("d_Data")).isEmpty());
    }

    void numericLinesKeepLongestConvertingPrefix() {
        QStringList lines =
            QString("12e-3000|99999e-1|327675e-1|-32768.5|2147483647.5|&HFFFFFFFF1|&O37777777777").split('|');
        lines << "0." + QString(400, '0') + "1"
              << "0.000e-" + QString(400, '9') << " &h" + QString(60, '0') + "FFFF ";
        const QString pieces = " +-0159.eEdD&HhOFx";
        for (int n = 1; n <= 111150; ++n) { // every line of up to four pieces
            QString line;
            for (int m = n; m > 0; m = (m - 1) / 18)
                line += pieces[(m - 1) % 18];
            lines << line;
        }
        for (const QString& line : lines) { // the value and whether one was stored, at 16 and 32 bits
            qint16 fast16 = 7, slow16 = 7;
            qint32 fast32 = 7, slow32 = 7;
            const bool f16 = LastConvertingPrefix(line, fast16), f32 = LastConvertingPrefix(line, fast32);
            const bool s16 = storedByEveryCharacter<qint16>(line, slow16, TryCInt),
                       s32 = storedByEveryCharacter<qint32>(line, slow32, TryCLng);
            if (f16 != s16 || f32 != s32 || fast16 != slow16 || fast32 != slow32)
                QCOMPARE(Joined(line, f16, fast16, f32, fast32), Joined(line, s16, slow16, s32, slow32));
        }
    }

    void readerEdgeCases() {
        // Line feeds alone end nothing: the whole file is line 1, and "412" is its longest number.
        auto p = load("4\n1\n2\nFoot\n65280\n65280\nTitle\nsky-0001\n0\n0\nToUse\nToUse\nToUse\n");
        QCOMPARE(p->DialogReply2[1] + p->DialogReply2[2] + p->DialogReply2[3], "41200");
        QCOMPARE(p->FooterText + p->Panes(1).SourceStem, "ToUsenone");

        // Odd numbers, empty lines, flags of 1 and a file cut short without its last line end.
        p = load("12a\r\na12\r\n40000\r\n\r\nblue\r\n&HFF00\r\nT\r\nsky-0001\r\n1\r\n1\r\n\r\nHi\r\nu");
        QCOMPARE(Joined(p->DialogReply2[1], p->DialogReply2[2], p->DialogReply2[3], p->FooterText,
                        p->BoardTitle, p->GlobalHighlightColor, p->MoveHighlightColor),
                 "12|0|4000|ToUse|T|255|-256");
        QCOMPARE(PaneFields(p->Panes(1)), Joined("Hi", "ToUse", "u", 0, 0, at("work/sky-0001.BMP"),
                                                 at("hand_Data/sky-0001.bmp"), "sky", 0, 0));

        // Surplus records go to the panes after the total; names under five characters store nothing.
        p = load("1\r\n1\r\n2\r\nF\r\n0\r\n0\r\nT\r\n" + record("abcd") + record("xy-0002", "L", "two") +
                 record("-0003"));
        QCOMPARE(Joined(p->Panes(1).SourceStem, p->Panes(1).SourceFile, p->Panes(2).SourceStem,
                        p->Panes(2).Label, p->Panes(2).Text, p->Panes(2).ImageFile, p->Panes(3).SourceStem),
                 "none|none|xy|L|two|none|");

        Project q;
        QCOMPARE(ErrorNumberOf([&] { LoadProjectFile(q, at("none.kv1"), folder(), "none"); }), 53);
        QCOMPARE(ErrorNumberOf([&] { LoadProjectFile(q, at("no/none.kv1"), folder(), "none"); }), 76);
    }

    void roundTripWithPictures_data() {
        QTest::addColumn<int>("grid");
        QTest::addColumn<int>("boards");
        QTest::newRow("2 x 2") << 2 << 3;
        QTest::newRow("5 x 5") << 5 << 40;
    }
    void roundTripWithPictures() {
        QFETCH(int, grid);
        QFETCH(int, boards);
        const int total = grid * grid * boards;
        Project p;
        p.WorkFolder = at("work1");
        QVERIFY(QDir().mkpath(p.WorkFolder));
        QVERIFY(WriteBmp(QuadrantPicture(60, 40), at("my-shot.bmp")) &&
                WriteJpeg(QuadrantPicture(50, 50), at("ab.jpg")));
        const auto setPicture = [&](int i, const QString& stem, const QString& file, qint16 flip) {
            p.Panes(i).SourceFile = at(file);
            p.Panes(i).SourceStem = stem;
            p.Panes(i).FlipHorizontal = flip;
            StorePaneImage(p, static_cast<qint16>(i), 40, true);
        };
        setPicture(1, "my-shot", "my-shot.bmp", 1); // a stem with a hyphen, flipped
        setPicture(total, "ab", "ab.jpg", 0);       // a two-letter stem
        p.Panes(2).Text = "Shot 2";
        p.Panes(2).Label = "\u00c9t\u00e9";
        p.Panes(2).Url = "http://example.org/a?b=c";
        SaveProjectFile(p, "proj", at("proj.kv1"), folder(), qint16(total), qint16(boards), qint16(grid));
        QCOMPARE(ReadAll(at("proj.kv1")).count("\r\n"), 7 + 6 * total); // 6007 lines for 40 boards of 5 x 5

        Project q;
        q.WorkFolder = at("work2");
        QVERIFY(QDir().mkpath(q.WorkFolder));
        ReadProject(q, at("proj.kv1"), folder(), "proj");
        RebuildPaneImages(q, 40);
        QCOMPARE(Joined(q.GridSide, q.BoardCount, AnnouncedPaneTotal(q)), Joined(grid, boards, total));
        // Everything comes back: saved again it is the same file, but for the flag read as 0.
        SaveProjectFile(q, "back", at("back.kv1"), folder(), qint16(total), qint16(boards), qint16(grid));
        QCOMPARE(ReadAll(at("back.kv1")),
                 ReadAll(at("proj.kv1")).replace("my-shot-0001\r\n1", "my-shot-0001\r\n0"));
        const Pane& flipped = q.Panes(1);
        // The saved picture already shows the flip: it comes back mirrored, with the flag at 0.
        QCOMPARE(QuadrantsOf(QImage(flipped.ImageFile)) + " / " +
                     QuadrantsOf(QImage(at("work2/ab-%1.BMP").arg(Format(total, "0000")))),
                 "TR TL BR BL / TL TR BL BR");
    }

    void savingTwiceAndPanesAboveTotal() {
        Project p;
        const auto setPicture = [&](int i, const char* stem, const QColor& colour) {
            p.Panes(i).SourceStem = stem;
            p.Panes(i).ImageFile = at(QString("%1-%2.BMP").arg(stem).arg(i));
            QVERIFY(WriteBmp(SolidPicture(8, 8, colour), p.Panes(i).ImageFile));
        };
        setPicture(1, "a", Qt::red);
        setPicture(2, "b", Qt::green);
        setPicture(7, "c", Qt::blue); // above the pane total of one 2 x 2 board
        SaveProjectFile(p, "s", at("s.kv1"), folder(), 4, 1, 2);
        QVERIFY(QFileInfo::exists(at("s_Data/c-0007.bmp")) && ReadAll(at("s.kv1")).count("\r\n") == 7 + 24);

        setPicture(1, "a", Qt::yellow);
        p.Panes(2).ImageFile = p.Panes(2).SourceStem = kNone;
        SaveProjectFile(p, "s", at("s.kv1"), folder(), 4, 1, 2);
        QVERIFY(ReadAll(at("s.kv1")).contains("\r\n" + record("a-0001") + record("none")));
        // The copy replaced the old one whole, with the working picture's bytes.
        QCOMPARE(ReadAll(at("s_Data/a-0001.bmp")), ReadAll(p.Panes(1).ImageFile));
        QVERIFY(QFileInfo::exists(at("s_Data/b-0002.bmp"))); // the folder is never emptied
    }

    void mainWindowFlows() {
        StartedMain m;
        const QString folder = m.dir.path() + "/";
        m.w->LastFileName = m.path("holiday.jpg");
        m.w->mnu_SaveAs->trigger(); // cancelled: nothing is written; "Untitled.kv1" goes to the export window
        const FileRequest& save = m.prompts.requests[0];
        QCOMPARE(save.title + save.filter + save.fileName,
                 "Save Project ...KV1 (*.kv1)|*.kv1" + m.path("holiday.jpg"));
        QCOMPARE(m.w->HTML->DialogFileName + m.project.DialogReply[1], "Untitled.kv1none");
        QCOMPARE(QDir(m.dir.path()).entryList(QDir::Files), QStringList());

        // A hand-made 3 x 3 project of two boards with one picture, opened through the menu.
        QVERIFY(QDir().mkpath(m.path("hand_Data")) &&
                WriteBmp(QuadrantPicture(30, 30), m.path("hand_Data/pic-0002.bmp")));
        const QByteArray head = "18\r\n2\r\n3\r\nF\r\n255\r\n255\r\nT\r\n";
        QVERIFY(WriteAll(m.path("hand.kv1"),
                         head + record("none", "ToUse", "first") + record("pic-0002", "L", "second")));
        m.prompts.answers << m.path("hand.kv1");
        m.w->mnu_OpenProject->trigger();
        QCOMPARE(m.prompts.requests[1].title + m.prompts.requests[1].folder,
                 "Load Project ..." + m.dir.path());
        QCOMPARE(Joined(m.project.DialogReply[2], m.project.DialogReply[3]), Joined(folder, "hand"));
        QVERIFY(m.w->Combo_PageView->count() == 2 && m.w->List1->count() == 18 && !m.project.IsBusy);
        QCOMPARE(m.w->Combo_PageView->itemText(1) + m.w->List1->item(1)->text() +
                     m.w->List1->item(17)->text(),
                 "Board 02002. second018. ToUse");
        const int side = CInt(m.w->StageSize / 3);
        QCOMPARE(QImage(m.project.Panes(2).ImageFile).size(), QSize(side, side));

        // A picture missing from the picture folder stops the program with its run-time error.
        QVERIFY(QFile::remove(m.path("hand_Data/pic-0002.bmp")));
        m.prompts.answers << m.path("hand.kv1");
        QCOMPARE(ErrorNumberOf([&] { m.w->OpenProject(); }), 53);
    }
};

QTEST_MAIN(TestModel)
#include "test_model.moc"
