// The project file: exact bytes on saving, what the reader makes of every kind of file, round
// trips with pictures, and the Save Project As / Open Project flows of the main window.
#include "dialogs/frmhtml.h"
#include "images/paneimage.h"
#include "model/linevalue.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "model/projectopen.h"
#include "model/runtimeerror.h"
#include "stage/frmmain.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {
template <typename F> int errorNumberOf(F&& f) {
    try {
        f();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
bool writeAll(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}
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

class TestProjectFile : public QObject {
    Q_OBJECT
private slots:
    void init() { dir_ = std::make_unique<QTemporaryDir>(); }
    void savesExactBytes();
    void numericLinesKeepLongestConvertingPrefix();
    void readerEdgeCases();
    void roundTripWithPictures_data();
    void roundTripWithPictures();
    void savingTwiceAndPanesAboveTotal();
    void mainWindowFlows();

private:
    QString at(const QString& name) const { return dir_->filePath(name); }
    QString folder() const { return dir_->path() + "/"; }
    std::unique_ptr<Project> load(const QByteArray& bytes) {
        writeAll(at("hand.kv1"), bytes);
        auto p = std::make_unique<Project>();
        p->WorkFolder = at("work");
        p->GlobalHighlightColor = p->MoveHighlightColor = 255; // opening does not reset the colours
        LoadProjectFile(*p, at("hand.kv1"), folder(), "hand");
        return p;
    }
    std::unique_ptr<QTemporaryDir> dir_;
};

void TestProjectFile::savesExactBytes() {
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
    QCOMPARE(readAll(at("trip.kv1")), expected);
    QVERIFY(QFileInfo(at("trip_Data")).isDir() && QDir(at("trip_Data")).isEmpty());

    // Before any picture is copied a failure stops the program; after it, it is ignored.
    QCOMPARE(errorNumberOf([&] { SaveProjectFile(p, "x", at("no/x.kv1"), at("no/"), 4, 1, 2); }), 76);
    QVERIFY(QDir().mkpath(at("d.kv1")));
    QCOMPARE(errorNumberOf([&] { SaveProjectFile(p, "d", at("d.kv1"), folder(), 4, 1, 2); }), 75);
    p.Panes(1).ImageFile = at("gone.BMP");
    p.Panes(1).SourceStem = "gone";
    QCOMPARE(errorNumberOf([&] { SaveProjectFile(p, "d", at("d.kv1"), folder(), 4, 1, 2); }), 0);
    QVERIFY(QDir(at("d_Data")).isEmpty());
}

void TestProjectFile::numericLinesKeepLongestConvertingPrefix() {
    QStringList lines =
        QString("12e-3000|99999e-1|327675e-1|-32768.5|2147483647.5|&HFFFFFFFF1|&O37777777777").split('|');
    lines << "0." + QString(400, '0') + "1"
          << "0.000e-" + QString(400, '9') << " &h" + QString(60, '0') + "FFFF ";
    const QString pieces = " +-0159.eEdD&HhOFx"; // every line of up to four of these, then random ones
    for (int length = 1, count = 18; length <= 4; ++length, count *= 18)
        for (int n = 0; n < count; ++n) {
            QString line;
            for (int k = 0, m = n; k < length; ++k, m /= 18)
                line += pieces[m % 18];
            lines << line;
        }
    QRandomGenerator random(1234);
    for (int n = 0; n < 20000; ++n) {
        QString line;
        for (int k = random.bounded(5, 17); k > 0; --k)
            line += pieces[random.bounded(pieces.size())];
        lines << line;
    }
    for (const QString& line : lines) {
        qint16 fast16 = 7, slow16 = 7;
        qint32 fast32 = 7, slow32 = 7;
        QCOMPARE(LastConvertingPrefix(line, fast16), storedByEveryCharacter<qint16>(line, slow16, TryCInt));
        QCOMPARE(LastConvertingPrefix(line, fast32), storedByEveryCharacter<qint32>(line, slow32, TryCLng));
        if (fast16 != slow16 || fast32 != slow32) QFAIL(qPrintable(line));
    }
    // A hostile line: far fewer conversions than characters, the same answer.
    const QString digits = QString("1234567890").repeated(10000);
    qint16 v16 = 0;
    qint32 v32 = 0;
    QVERIFY(LastConvertingPrefix(digits, v16) && LastConvertingPrefix(digits, v32));
    QCOMPARE(QList<int>({v16, v32}), QList<int>({12345, 1234567890}));
}

void TestProjectFile::readerEdgeCases() {
    // Line feeds alone end nothing: the whole file is line 1, and "412" is its longest number.
    auto p = load("4\n1\n2\nFoot\n65280\n65280\nTitle\nsky-0001\n0\n0\nToUse\nToUse\nToUse\n");
    QCOMPARE(p->DialogReply2[1] + p->DialogReply2[2] + p->DialogReply2[3], QString("41200"));
    QCOMPARE(p->FooterText + p->Panes(1).SourceStem, QString("ToUsenone"));

    // Odd numbers, empty lines, flags of 1 and a file cut short without its last line end.
    p = load("12a\r\na12\r\n40000\r\n\r\nblue\r\n&HFF00\r\nT\r\nsky-0001\r\n1\r\n1\r\n\r\nHi\r\nu");
    QCOMPARE(p->DialogReply2[1] + "|" + p->DialogReply2[2] + "|" + p->DialogReply2[3], QString("12|0|4000"));
    QCOMPARE(p->FooterText + p->BoardTitle, QString("ToUseT"));
    QCOMPARE(QList<int>({p->GlobalHighlightColor, p->MoveHighlightColor}), QList<int>({255, -256}));
    const Pane& one = p->Panes(1);
    QCOMPARE(one.SourceStem + one.Label + one.Text + one.Url, QString("skyToUseHiu"));
    QCOMPARE(one.SourceFile + one.ImageFile, at("hand_Data/sky-0001.bmp") + at("work/sky-0001.BMP"));
    QCOMPARE(p->Panes(2).SourceFile + p->Panes(2).Text, QString("noneToUse"));

    // Surplus records go to the panes after the total; names under five characters store nothing.
    p = load("1\r\n1\r\n2\r\nF\r\n0\r\n0\r\nT\r\n" + record("abcd") + record("xy-0002", "L", "two") +
             record("-0003"));
    QCOMPARE(p->Panes(1).SourceStem + p->Panes(1).SourceFile, QString("nonenone"));
    QCOMPARE(p->Panes(2).SourceStem + p->Panes(2).Label + p->Panes(2).Text + p->Panes(2).ImageFile,
             QString("xyLtwonone"));
    QCOMPARE(p->Panes(3).SourceStem, QString());

    // Pane 1000 of a 40-board 5 x 5 project is read; records past it are dropped.
    QByteArray big = "1000\r\n40\r\n5\r\nF\r\n0\r\n0\r\nT\r\n";
    for (int i = 1; i < 1000; ++i)
        big += record("none");
    p = load(big + record("last-1000", "L") + record("over-1001", "O"));
    QCOMPARE(p->Panes(1000).SourceStem + p->Panes(1000).Label, QString("lastL"));
    QCOMPARE(p->Panes(1000).SourceFile, at("hand_Data/last-1000.bmp"));

    Project q;
    QCOMPARE(errorNumberOf([&] { LoadProjectFile(q, at("none.kv1"), folder(), "none"); }), 53);
    QCOMPARE(errorNumberOf([&] { LoadProjectFile(q, at("no/none.kv1"), folder(), "none"); }), 76);
}

void TestProjectFile::roundTripWithPictures_data() {
    QTest::addColumn<int>("grid");
    QTest::addColumn<int>("boards");
    QTest::newRow("2 x 2") << 2 << 3;
    QTest::newRow("3 x 3") << 3 << 2;
    QTest::newRow("4 x 4") << 4 << 1;
    QTest::newRow("5 x 5") << 5 << 40;
}

void TestProjectFile::roundTripWithPictures() {
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
    p.BoardTitle = "Title";
    p.FooterText = "Footer";
    p.GlobalHighlightColor = 16711680;
    p.MoveHighlightColor = 65535;
    SaveProjectFile(p, "proj", at("proj.kv1"), folder(), qint16(total), qint16(boards), qint16(grid));
    QCOMPARE(readAll(at("proj.kv1")).count("\r\n"), 7 + 6 * total); // 6007 lines for 40 boards of 5 x 5

    Project q;
    q.WorkFolder = at("work2");
    QVERIFY(QDir().mkpath(q.WorkFolder));
    ReadProject(q, at("proj.kv1"), folder(), "proj");
    RebuildPaneImages(q, 40);
    QCOMPARE(QList<int>({q.GridSide, q.BoardCount, AnnouncedPaneTotal(q)}),
             QList<int>({grid, boards, total}));
    // Everything comes back: saved again it is the same file, but for the flag read as 0.
    SaveProjectFile(q, "back", at("back.kv1"), folder(), qint16(total), qint16(boards), qint16(grid));
    QCOMPARE(readAll(at("back.kv1")),
             readAll(at("proj.kv1")).replace("my-shot-0001\r\n1", "my-shot-0001\r\n0"));
    const Pane& flipped = q.Panes(1);
    QCOMPARE(flipped.SourceFile, at("proj_Data/my-shot-0001.bmp"));
    QCOMPARE(flipped.ImageFile, q.WorkFolder + "/my-shot-0001.BMP");
    // The saved picture already shows the flip: it comes back mirrored, with the flag at 0.
    QVERIFY(Near(QImage(flipped.ImageFile).pixelColor(3, 3), kTopRight));
    QVERIFY(Near(QImage(at("work2/ab-%1.BMP").arg(Format(total, "0000"))).pixelColor(3, 3), kTopLeft));
}

void TestProjectFile::savingTwiceAndPanesAboveTotal() {
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
    QVERIFY(QFileInfo::exists(at("s_Data/c-0007.bmp")) && readAll(at("s.kv1")).count("\r\n") == 7 + 24);

    setPicture(1, "a", Qt::yellow);
    p.Panes(2).ImageFile = p.Panes(2).SourceStem = kNone;
    SaveProjectFile(p, "s", at("s.kv1"), folder(), 4, 1, 2);
    QVERIFY(readAll(at("s.kv1")).contains("\r\n" + record("a-0001") + record("none")));
    QCOMPARE(QImage(at("s_Data/a-0001.bmp")).pixelColor(1, 1), QColor(Qt::yellow));
    QVERIFY(QFileInfo::exists(at("s_Data/b-0002.bmp"))); // the folder is never emptied
}

void TestProjectFile::mainWindowFlows() {
    Project project;
    project.ProgramFolder = dir_->path();
    project.WorkFolder = at("MyProjects");
    ScriptedPrompts prompts;
    frmMain w(project, prompts);
    w.WorkArea = [] { return QRect(0, 0, 1024, 740); };
    w.Form_Load();
    w.LastFileName = at("holiday.jpg");

    w.mnu_SaveAs->trigger(); // cancelled: nothing is written; "Untitled.kv1" goes to the export window
    const FileRequest& save = prompts.requests[0];
    QCOMPARE(save.title + save.filter + save.fileName,
             "Save Project ...KV1 (*.kv1)|*.kv1" + at("holiday.jpg"));
    QCOMPARE(w.HTML->DialogFileName + project.DialogReply[1], QString("Untitled.kv1none"));
    QCOMPARE(QDir(dir_->path()).entryList(QDir::Files), QStringList());

    // A hand-made 3 x 3 project of two boards with one picture, opened through the menu.
    QVERIFY(QDir().mkpath(at("hand_Data")) &&
            WriteBmp(QuadrantPicture(30, 30), at("hand_Data/pic-0002.bmp")));
    const QByteArray head = "18\r\n2\r\n3\r\nF\r\n255\r\n255\r\nT\r\n";
    QVERIFY(writeAll(at("hand.kv1"),
                     head + record("none", "ToUse", "first") + record("pic-0002", "L", "second")));
    prompts.answers << at("hand.kv1");
    w.mnu_OpenProject->trigger();
    QCOMPARE(prompts.requests[1].title + prompts.requests[1].folder, "Load Project ..." + dir_->path());
    QCOMPARE(project.DialogReply[2] + "|" + project.DialogReply[3], folder() + "|hand");
    QVERIFY(w.Combo_PageView->count() == 2 && w.List1->count() == 18 && !project.IsBusy);
    QCOMPARE(w.Combo_PageView->itemText(1) + w.List1->item(1)->text() + w.List1->item(17)->text(),
             QString("Board 02002. second018. ToUse"));
    const int side = CInt(w.StageSize / 3);
    QCOMPARE(w.CellSize, float(side));
    QCOMPARE(QImage(project.Panes(2).ImageFile).size(), QSize(side, side));
    QVERIFY(Near(w.picStage->Picture.pixelColor(side + 4, side - 4), kBottomLeft)); // pane 2 on the stage

    // Saved again: the dialog offers the name just opened; the file holds what was read.
    prompts.answers << at("again.kv1");
    w.mnu_SaveAs->trigger();
    QCOMPARE(prompts.requests[2].fileName, at("hand.kv1"));
    QVERIFY(readAll(at("again.kv1")).startsWith(head + record("none", "ToUse", "first")) &&
            QFileInfo::exists(at("again_Data/pic-0002.bmp")));

    // A picture missing from the picture folder stops the program with its run-time error.
    QVERIFY(QFile::remove(at("hand_Data/pic-0002.bmp")));
    prompts.answers << at("hand.kv1");
    QCOMPARE(errorNumberOf([&] { w.OpenProject(); }), 53);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    TestProjectFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_projectfile.moc"
