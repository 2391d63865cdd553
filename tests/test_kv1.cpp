// The companion tool kv1, run as a user runs it, on projects made here.
#include "export/htmlwords.h"
#include "export/webpage.h"
#include "flows/projectopen.h"
#include "model/ansi.h"
#include "support/check.h"
#include "support/runprocess.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
Run kv1(const QStringList& arguments) {
    return run(KV1_EXECUTABLE, arguments);
}
} // namespace

class TestKv1 : public QObject {
    Q_OBJECT
private slots:
    void infoCopyExportAndUsage() {
        QTemporaryDir dir;
        const QString folder = dir.path() + "/", trip = folder + "trip.kv1", copy = folder + "copy.kv1",
                      web = folder + "web/";
        // Two 2 x 2 boards; pane 1 and pane 6 (flipped) have pictures.
        QByteArray file = "8\r\n2\r\n2\r\nToUse\r\n65280\r\n65280\r\nCoast <b>\r\n";
        for (int i = 1; i <= 8; ++i)
            file += i == 1   ? "sea-0001\r\n0\r\n0\r\nFirst\r\nHello\r\nToUse\r\n"
                    : i == 6 ? "sea-0006\r\n1\r\n0\r\nToUse\r\nSix\r\nsix.htm\r\n"
                             : "none\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n";
        QVERIFY(WriteAll(trip, file) && QDir().mkpath(folder + "trip_Data") && QDir().mkpath(web));
        QVERIFY(WriteBmp(QuadrantPicture(40, 40), folder + "trip_Data/sea-0001.bmp"));

        // A missing picture: info names it and fails; copy and export name it and write nothing.
        Run r = kv1({"info", trip});
        QCOMPARE(r.status, 1);
        for (const char* line :
             {"Grid:           2 x 2\n", "Boards:         2\n", "Panes:          8\n", "With pictures:  2\n",
              "Title:          Coast <b>\n", "Footer:         (none)\n", "  sea-0006.bmp (pane 6)\n"})
            QVERIFY2(r.out.contains(line), qPrintable(r.out));
        QCOMPARE(r.err, QString("kv1: 1 picture missing from %1trip_Data: sea-0006.bmp\n").arg(folder));
        for (const QStringList& command :
             {QStringList{"copy", trip, copy}, {"export", trip, web + "two.htm"}}) {
            r = kv1(command);
            QVERIFY(r.status == 1 && r.err.startsWith("kv1: 1 picture missing") && r.err.count('\n') == 1);
        }
        QVERIFY(!QFileInfo::exists(copy) && QDir(web).isEmpty());

        // Copied at 32 pixels: the file Kelvrin saves after opening it (flags back at 0), and nothing
        // made in the program's own working folder.
        QVERIFY(WriteBmp(QuadrantPicture(60, 30), folder + "trip_Data/sea-0006.bmp"));
        QCOMPARE(kv1({"info", trip}).status, 0);
        const QString programWork = QFileInfo(KV1_EXECUTABLE).dir().filePath("MyProjects");
        const bool workThere = QFileInfo::exists(programWork);
        QCOMPARE(kv1({"copy", trip, copy, "--cell", "32"}).status, 0);
        QCOMPARE(QFileInfo::exists(programWork), workThere);
        QCOMPARE(ReadAll(copy), QByteArray(file).replace("sea-0006\r\n1", "sea-0006\r\n0"));
        const QImage picture(folder + "copy_Data/sea-0006.bmp");
        QCOMPARE(Joined(picture.size(), QuadrantsOf(picture)), "32x32|TL TR BL BR");

        QCOMPARE(kv1({"export", trip, web + "story.htm", "--cell", "48", "--no-numbers"}).status, 0);
        QCOMPARE(QDir(web).entryList(QDir::Files, QDir::Name),
                 (QStringList{"sea-001.JPG", "sea-006.JPG", "story_001.htm", "story_002.htm"}));
        QCOMPARE(QImage(web + "sea-006.JPG").size(), QSize(48, 48));
        // Page 2 is what the generator makes of the project as Kelvrin opens it.
        Project project;
        ReadProject(project, trip, folder, "trip");
        for (int id = 101; id <= 130; ++id)
            project.HtmlWords[id - 100] = LoadResString(id);
        HtmlExportOptions options;
        options.Structure[kNumberPanes] = false;
        WebpageState state{1, 2, 0, 0, 0};
        MakeWebpage(project, options, "story", state);
        state.CurrentPage = 2;
        QCOMPARE(ReadAll(web + "story_002.htm"),
                 ToAnsi(MakeWebpage(project, options, "story", state) + "\r\n"));
        QVERIFY(ReadAll(web + "story_001.htm").contains("<a href=\"story_002.htm\">Next</a>"));
        // Auto-create off writes page 1 only; pictures are still converted. Pages of 3 x 3 hold both boards.
        QVERIFY(QDir(web).removeRecursively() && QDir().mkpath(web));
        QCOMPARE(kv1({"export", trip, web + "one.htm", "--first-page-only"}).status, 0);
        QCOMPARE(kv1({"export", trip, web + "nine.htm", "--grid", "3"}).status, 0);
        QCOMPARE(QDir(web).entryList(QDir::Files, QDir::Name),
                 (QStringList{"nine_001.htm", "one_001.htm", "sea-001.JPG", "sea-006.JPG"}));

        r = kv1({"--help"});
        QVERIFY(r.status == 0 && r.out.contains("kv1 copy PROJECT.kv1 NEW.kv1 [--cell N]") &&
                r.out.contains("info"));
        for (const QStringList& wrong : {QStringList{},
                                         {"info"},
                                         {"copy", "a.kv1", "b.kv1", "--cell", "0"},
                                         {"copy", "a.kv1", "b.kv1", "--size", "9"},
                                         {"export"},
                                         {"export", trip, web + "noext"}}) {
            r = kv1(wrong);
            QVERIFY2(r.status == 2 && r.err.startsWith("kv1: ") && r.err.contains("Usage: kv1 info"),
                     qPrintable(r.err));
        }
        r = kv1({"info", "/nowhere/at/all.kv1"});
        QCOMPARE(QString::number(r.status) + r.err, "1kv1: Path not found: /nowhere/at/all.kv1\n");
    }
};

QTEST_GUILESS_MAIN(TestKv1)
#include "test_kv1.moc"
