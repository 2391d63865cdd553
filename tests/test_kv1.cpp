// The companion tool kv1, run as a user runs it, on a project made here.
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
    process.start(QStringLiteral(KV1_EXECUTABLE), arguments);
    process.waitForFinished(-1);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

class TestKv1 : public QObject {
    Q_OBJECT
private slots:
    void infoCopyAndUsage();
};

void TestKv1::infoCopyAndUsage() {
    QTemporaryDir dir;
    const QString folder = dir.path() + "/", trip = folder + "trip.kv1", copy = folder + "copy.kv1";
    QByteArray file = "18\r\n2\r\n3\r\nToUse\r\n65280\r\n65280\r\nCoast\r\n";
    for (int i = 1; i <= 18; ++i)
        file += (i == 2    ? "sea-0002\r\n0"
                 : i == 18 ? "sea-0018\r\n1"
                           : "none\r\n0") +
                QByteArray("\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n");
    {
        QFile f(trip);
        QVERIFY(f.open(QIODevice::WriteOnly) && f.write(file) == file.size());
    }
    QVERIFY(QDir().mkpath(folder + "trip_Data") &&
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
    QCOMPARE(readAll(copy), file.replace("sea-0018\r\n1", "sea-0018\r\n0"));
    const QImage picture(folder + "copy_Data/sea-0018.bmp");
    QCOMPARE(picture.size(), QSize(32, 32));
    QVERIFY(Near(picture.pixelColor(3, 3), kTopLeft));

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
    QCOMPARE(r.err, QString("kv1: Path not found: /nowhere/at/all.kv1\n"));
    QCOMPARE(r.status, 1);
}

QTEST_GUILESS_MAIN(TestKv1)
#include "test_kv1.moc"
