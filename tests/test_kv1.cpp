// The companion tool kv1, run as a user runs it, on projects made here.
#include "export/htmlwords.h"
#include "export/webpage.h"
#include "model/ansi.h"
#include "model/projectopen.h"
#include "support/check.h"
#include "support/testpictures.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {
struct Run {
    int status;
    QString out, err;
};
Run kv1(const QStringList& arguments) {
    QProcess process;
    process.start(KV1_EXECUTABLE, arguments);
    process.waitForFinished(-1);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
// A project file of panes panes after the header, every pane empty but those given.
QByteArray projectFile(const QByteArray& header, int panes, const QMap<int, QByteArray>& records) {
    QByteArray file = header;
    for (int i = 1; i <= panes; ++i)
        file += records.value(i, "none\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n");
    return file;
}
} // namespace

class TestKv1 : public QObject {
    Q_OBJECT
private slots:
    void infoCopyAndUsage() {
        QTemporaryDir dir;
        const QString folder = dir.path() + "/", trip = folder + "trip.kv1", copy = folder + "copy.kv1";
        QByteArray file = projectFile("18\r\n2\r\n3\r\nToUse\r\n65280\r\n65280\r\nCoast\r\n", 18,
                                      {{2, "sea-0002\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n"},
                                       {18, "sea-0018\r\n1\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n"}});
        QVERIFY(WriteAll(trip, file) && QDir().mkpath(folder + "trip_Data") &&
                WriteBmp(QuadrantPicture(40, 40), folder + "trip_Data/sea-0002.bmp"));

        // A missing picture: info names it and fails; copy names it and writes nothing.
        Run r = kv1({"info", trip});
        QCOMPARE(r.status, 1);
        for (const char* line :
             {"Grid:           3 x 3\n", "Boards:         2\n", "Panes:          18\n", "With pictures:  2\n",
              "Title:          Coast\n", "Footer:         (none)\n", "  sea-0018.bmp (pane 18)\n"})
            QVERIFY2(r.out.contains(line), qPrintable(r.out));
        QCOMPARE(r.err, QString("kv1: 1 picture missing from %1trip_Data: sea-0018.bmp\n").arg(folder));
        r = kv1({"copy", trip, copy});
        QVERIFY(r.status == 1 && r.err.startsWith("kv1: 1 picture missing") && r.err.count('\n') == 1);
        QVERIFY(!QFileInfo::exists(copy));

        // Copied at 32 pixels: the file Kelvrin saves after opening it (flags back at 0), and nothing
        // made in the program's own working folder.
        QVERIFY(QFile::copy(folder + "trip_Data/sea-0002.bmp", folder + "trip_Data/sea-0018.bmp"));
        QCOMPARE(kv1({"info", trip}).status, 0);
        const QString programWork = QFileInfo(KV1_EXECUTABLE).dir().filePath("MyProjects");
        const bool workThere = QFileInfo::exists(programWork);
        QCOMPARE(kv1({"copy", trip, copy, "--cell", "32"}).status, 0);
        QCOMPARE(QFileInfo::exists(programWork), workThere);
        QCOMPARE(ReadAll(copy), file.replace("sea-0018\r\n1", "sea-0018\r\n0"));
        const QImage picture(folder + "copy_Data/sea-0018.bmp");
        QVERIFY(picture.size() == QSize(32, 32) && Near(picture.pixelColor(3, 3), kTopLeft));

        r = kv1({"--help"});
        QVERIFY(r.status == 0 && r.out.contains("kv1 copy PROJECT.kv1 NEW.kv1 [--cell N]") &&
                r.out.contains("info"));
        for (const QStringList& wrong : {QStringList{},
                                         {"info"},
                                         {"copy", "a.kv1", "b.kv1", "--cell", "0"},
                                         {"copy", "a.kv1", "b.kv1", "--size", "9"},
                                         {"export"}}) {
            r = kv1(wrong);
            QVERIFY(r.status == 2 && r.err.startsWith("kv1: ") && r.err.contains("Usage: kv1 info"));
        }
        r = kv1({"info", "/nowhere/at/all.kv1"});
        QCOMPARE(QString::number(r.status) + r.err, "1kv1: Path not found: /nowhere/at/all.kv1\n");
    }

    void exportWritesPagesAndPictures() {
        QTemporaryDir dir;
        const QString folder = dir.path() + "/", trip = folder + "trip.kv1", web = folder + "web/";
        QVERIFY(WriteAll(trip, projectFile("8\r\n2\r\n2\r\nThe end\r\n65280\r\n65280\r\nCoast <b>\r\n", 8,
                                           {{1, "sea-0001\r\n0\r\n0\r\nFirst\r\nHello\r\nToUse\r\n"},
                                            {6, "sea-0006\r\n0\r\n0\r\nToUse\r\nSix\r\nsix.htm\r\n"}})));
        QVERIFY(QDir().mkpath(folder + "trip_Data") && QDir().mkpath(web));
        QVERIFY(WriteBmp(QuadrantPicture(40, 40), folder + "trip_Data/sea-0001.bmp"));
        QVERIFY(WriteBmp(QuadrantPicture(60, 30), folder + "trip_Data/sea-0006.bmp"));

        QCOMPARE(kv1({"export", trip, web + "story.htm", "--cell", "48", "--no-numbers"}).status, 0);
        QCOMPARE(QDir(web).entryList(QDir::Files, QDir::Name),
                 (QStringList{"sea-001.JPG", "sea-006.JPG", "story_001.htm", "story_002.htm"}));
        const QImage jpeg(web + "sea-006.JPG");
        QVERIFY(jpeg.size() == QSize(48, 48) && Near(jpeg.pixelColor(3, 3), kTopLeft));

        // Page 2 is what the generator makes of the project as Kelvrin opens it.
        Project project;
        ReadProject(project, trip, folder, "trip");
        for (int id = 101; id <= 130; ++id)
            project.HtmlWords[id - 100] = LoadResString(id);
        HtmlExportOptions options;
        options.Structure[kNumberPanes] = false;
        WebpageState state;
        state.PageCount = 2;
        state.CurrentPage = 1;
        MakeWebpage(project, options, "story", state);
        state.CurrentPage = 2;
        QCOMPARE(ReadAll(web + "story_002.htm"),
                 ToAnsi(MakeWebpage(project, options, "story", state) + "\r\n"));
        QVERIFY(ReadAll(web + "story_001.htm").contains("<a href=\"story_002.htm\">Next</a>"));

        // Auto-create off writes page 1 only; pictures are still converted.
        QVERIFY(QDir(web).removeRecursively() && QDir().mkpath(web));
        QCOMPARE(kv1({"export", trip, web + "one.htm", "--first-page-only", "--grid", "3"}).status, 0);
        QCOMPARE(QDir(web).entryList(QDir::Files, QDir::Name),
                 (QStringList{"one_001.htm", "sea-001.JPG", "sea-006.JPG"}));

        // A project that cannot be opened completely exports nothing.
        QVERIFY(QFile::remove(folder + "trip_Data/sea-0006.bmp"));
        const Run r = kv1({"export", trip, web + "two.htm"});
        QVERIFY(r.status == 1 && r.err.startsWith("kv1: 1 picture missing") &&
                !QFileInfo::exists(web + "two_001.htm"));
        QCOMPARE(kv1({"export", trip, web + "noext"}).status, 2);
    }
};

QTEST_GUILESS_MAIN(TestKv1)
#include "test_kv1.moc"
