// Bad input from the disk: pictures that are empty, cut short, damaged or of an absurd size,
// hand-edited project files, folders that cannot be written, a disk that fills up while saving, and
// kv1's answer to each. Whatever comes in, the program goes on or ends in its run-time error.
#include "dialogs/frmhtml.h"
#include "export/htmlexport.h"
#include "flows/projectsave.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "model/runtimeerror.h"
#include "support/check.h"
#include "support/mainwindow.h"
#include "support/testpictures.h"

#include <QProcess>
#include <QtTest>
#include <csignal>
#include <sys/resource.h>

namespace {
// A picture of the kind its extension names (jpg, gif, bmp, png) and a damage: "empty", "cut" (its
// first 60 %), "damaged" (its signature, then rubbish) or "huge" (60000 x 60000 pixels announced;
// 65500 x 65500, the most there is, for a JPEG; none for a PNG). "whole" leaves it as it is.
QByteArray picture(const QString& ext, const QString& damage, const QString& scratch) {
    const QImage image = QuadrantPicture(40, 30);
    if (!(ext == "jpg"   ? WriteJpeg(image, scratch)
          : ext == "gif" ? WriteGif(image, scratch)
          : ext == "png" ? WritePng(image, scratch)
                         : WriteBmp(image, scratch)))
        qFatal("cannot write %s", qPrintable(scratch));
    QByteArray bytes = ReadAll(scratch);
    const auto put = [&bytes](std::initializer_list<qsizetype> at, int value, bool bigEndian) {
        for (qsizetype i : at) {
            bytes[i + (bigEndian ? 1 : 0)] = char(value & 0xFF);
            bytes[i + (bigEndian ? 0 : 1)] = char(value >> 8);
        }
    };
    if (damage == "empty") return {};
    if (damage == "cut") return bytes.left(bytes.size() * 6 / 10);
    if (damage == "damaged")
        return bytes.left(ext == "gif" ? 6 : ext == "png" ? 8 : 4) + QByteArray(300, 'Z');
    const qsizetype sof = bytes.indexOf("\xFF\xC0"),
                    descriptor = bytes.indexOf(QByteArrayLiteral(","), 13 + 768);
    if (damage == "huge" && ext == "jpg") put({sof + 5, sof + 7}, 65500, true);
    if (damage == "huge" && ext == "gif") put({6, 8, descriptor + 5, descriptor + 7}, 60000, false);
    if (damage == "huge" && ext == "bmp") bytes = bytes.left(54), put({18, 22}, 60000, false);
    return bytes;
}
const char* const kDamages[] = {"empty", "cut", "damaged", "huge"};

QByteArray header(int paneTotal, int boards, int grid) {
    return QByteArray::number(paneTotal) + "\r\n" + QByteArray::number(boards) + "\r\n" +
           QByteArray::number(grid) + "\r\nToUse\r\n65280\r\n65280\r\nToUse\r\n";
}
QByteArray record(const QByteArray& name, const QByteArray& text = "ToUse") {
    return name + "\r\n0\r\n0\r\nToUse\r\n" + text + "\r\nToUse\r\n";
}

struct Run {
    int status;
    bool crashed;
    QString err;
};
Run kv1(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(KV1_EXECUTABLE), arguments);
    process.waitForFinished(-1);
    return {process.exitCode(), process.exitStatus() != QProcess::NormalExit, process.readAllStandardError()};
}

// A user at work on whatever the window holds: a drag across the board and the next board. The
// run-time error that stopped it, or 0.
int walkTheBoards(frmMain& w) {
    return ErrorNumberOf([&w] {
        const int far = int(w.StageSize) - 8;
        w.picStage_MouseDown(Qt::LeftButton, {}, 8, 8);
        w.picStage_MouseMove(Qt::LeftButton, {}, far, far);
        w.picStage_MouseUp(Qt::LeftButton, {}, far, far);
        w.Toolbar1_ButtonClick(QStringLiteral("Next"));
    });
}

// Writes past this many bytes fail as on a full disk, for as long as the object lives.
struct FullDisk {
    rlimit old{};
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &old);
        rlimit limit{bytes, old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &old); }
};
} // namespace

class TestBadInput : public QObject {
    Q_OBJECT
private slots:
    void brokenPictures();
    void handEditedProjectFiles();
    void foldersThatCannotBeWritten();
    void saveOntoAFullDisk();
};

void TestBadInput::brokenPictures() {
    StartedMain m;
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    for (const QString ext : {"jpg", "gif", "bmp", "png"})
        for (const QString damage : kDamages) {
            if (ext == "png" && damage == "huge") continue; // the other three decoders are bounded alike
            // Alone: the run-time error, with the pane already pointing at the file and no
            // working picture made of it.
            const QString path = m.path(damage + "2." + ext), good = m.path(damage + "1." + ext);
            QVERIFY(WriteAll(path, picture(ext, damage, m.path("scratch." + ext))));
            QVERIFY(WriteAll(good, picture(ext, "whole", m.path("scratch." + ext))));
            m.prompts.answers << path;
            m.w->SelectedPane = 2;
            const int loadError = ErrorNumberOf([&] { m.w->mnu_LoadPicture_Click(); });
            QCOMPARE(Joined(path, loadError, m.project.Panes(2).SourceFile, m.project.Panes(2).ImageFile,
                            QDir(m.project.WorkFolder).entryList({"*-0002.BMP"}).size()),
                     Joined(path, 481, path, path, 0));

            // Second of a sequence: the import halts there with its count, the pane at the halt
            // keeping what it had.
            m.prompts.answers << good;
            m.w->SelectedPane = 1;
            m.w->mnu_MassImage_Click();
            QCOMPARE(Joined(path, m.prompts.messages.last().text, m.project.Panes(2).SourceFile),
                     Joined(path, "I found only 1 compatible image.", path));
        }
    // No announced size takes more memory than one picture may have (kMaxPictureBytes).
    getrusage(RUSAGE_SELF, &after);
    QVERIFY(after.ru_maxrss - before.ru_maxrss < 600 * 1024);
}

void TestBadInput::handEditedProjectFiles() {
    QByteArray manyLines = header(4, 1, 2) + QByteArray("none\r\n").repeated(100000 - 7);
    QByteArray nonAnsi = header(4, 1, 2).replace("ToUse\r\n65280", "\x80\x81\x9f \xe9\xff\r\n65280");
    for (int i = 1; i <= 4; ++i)
        nonAnsi += record("none", "caf\xe9 \x8d\x90\x9d " + QByteArray::number(i));
    const QByteArray withPicture = header(4, 1, 2) + record("sky-0001") + record("none").repeated(3);
    struct Row {
        const char* what;
        QByteArray file;
        int error;             // the run-time error that opening it ends in, or 0
        const char* picture{}; // the damage of the picture in its picture folder
    };
    const Row rows[] = {
        {"100,000 lines", manyLines, 0},
        {"a header of zeros", QByteArray("0\r\n").repeated(7), 11},
        {"grid side 9", header(81, 1, 9) + record("none", "nine").repeated(81), 0},
        {"grid side -2", header(4, 1, -2), 380},
        {"grid side 200", header(4, 1, 200), 6},
        {"no boards", header(4, 0, 2), 9},
        {"200 boards", header(800, 200, 2), 0},
        {"non-ANSI bytes", nonAnsi, 0},
        {"a picture cut short", withPicture, 481, "cut"},
    };
    for (const Row& row : rows) {
        StartedMain m;
        QVERIFY(WriteAll(m.path("hand.kv1"), row.file) && QDir().mkpath(m.path("hand_Data")) &&
                QDir().mkpath(m.path("web")));
        if (row.picture)
            QVERIFY(WriteAll(m.path("hand_Data/sky-0001.bmp"),
                             picture("bmp", row.picture, m.path("scratch.bmp"))));
        m.prompts.answers << m.path("hand.kv1");
        QCOMPARE(row.what + Str(ErrorNumberOf([&] { m.w->OpenProject(); })), row.what + Str(row.error));
        QVERIFY(m.prompts.messages.isEmpty()); // no message of its own

        // kv1 answers in one line and copies or exports only what Kelvrin opens (info does not
        // read the pictures).
        for (const QStringList& command : {QStringList{"info"}, QStringList{"copy", m.path("copy.kv1")},
                                           QStringList{"export", m.path("web/page.htm")}}) {
            const Run r = kv1(QStringList{command[0], m.path("hand.kv1")} + command.mid(1));
            const bool fails = row.error && !(command[0] == "info" && row.picture);
            QVERIFY2(!r.crashed && r.status == int(fails) &&
                         (!fails || (r.err.startsWith("kv1: ") && r.err.count('\n') == 1)),
                     qPrintable(row.what + (" " + command[0]) + ": " + r.err));
        }
        QCOMPARE(QFileInfo::exists(m.path("copy.kv1")) && QFileInfo::exists(m.path("web/page_001.htm")),
                 !row.error);
        if (row.error) continue;
        if (row.file == nonAnsi) { // read and written in the same code page: saved again, the same file
            m.prompts.answers << m.path("again.kv1");
            m.w->SaveProject();
            QCOMPARE(ReadAll(m.path("again.kv1")), nonAnsi);
        }
        QCOMPARE(row.what + Str(walkTheBoards(*m.w)), row.what + Str(0));
    }
}

void TestBadInput::foldersThatCannotBeWritten() {
    StartedMain m;
    const QString plain = m.path("plain.txt"); // a file, so nothing can be made below it
    QVERIFY(WriteAll(plain, "text") && WriteAll(m.path("q_Data"), "taken"));
    const auto save = [&m](const QString& path) {
        m.prompts.answers << path;
        return ErrorNumberOf([&m] { m.w->SaveProject(); });
    };
    // Before a picture is copied nothing is trapped; afterwards a project file that cannot be
    // written is left out without a word.
    QCOMPARE(save(plain + "/p.kv1"), 76);
    QCOMPARE(save(m.path("q.kv1")), 75);
    QVERIFY(WriteJpeg(QuadrantPicture(30, 30), m.path("sky.jpg")) && QDir().mkpath(m.path("r.kv1")));
    m.prompts.answers << m.path("sky.jpg");
    m.w->SelectedPane = 1;
    m.w->mnu_LoadPicture_Click();
    QCOMPARE(save(m.path("r.kv1")), 0);
    QVERIFY(QFileInfo::exists(m.path("r_Data/sky-0001.bmp")) && !QFileInfo::exists(m.path("q.kv1")));

    // Pages that cannot be written: the export window says so and stays open for another path. A
    // page name without ".htm" loses its last four characters all the same: "story" gives "s".
    bool stayedOpen = false;
    m.w->ShowModal = [&](QDialog&) {
        for (const QString& answer : {plain + "/web.htm", m.path("story")}) {
            m.prompts.answers << answer;
            m.w->HTML->Command1_Click();
            m.w->HTML->Button_acceptOrclose_Click(1);
            stayedOpen = stayedOpen || m.w->HTML->Button_acceptOrclose[1]->isEnabled();
        }
    };
    m.w->mnu_ExportHTML_Click();
    QVERIFY(stayedOpen && m.prompts.messages.size() == 1);
    QCOMPARE(m.prompts.messages[0].text + m.prompts.messages[0].title, kSystemFailed + kHtmlOutputTitle);
    QVERIFY(QFileInfo::exists(m.path("s_001.htm")) && QFileInfo::exists(m.path("sky-001.JPG")));
}

void TestBadInput::saveOntoAFullDisk() {
    QTemporaryDir dir;
    const QString folder = dir.path() + "/", file = folder + "trip.kv1",
                  copy = folder + "trip_Data/sky-0001.bmp";
    Project p;
    Pane& pane = p.Panes(1);
    pane.SourceStem = "sky";
    pane.ImageFile = folder + "sky-0001.BMP";
    QVERIFY(WriteBmp(SolidPicture(8, 8, Qt::red), pane.ImageFile));
    SaveProjectFile(p, "trip", file, folder, 4, 1, 2);
    const QByteArray fileBefore = ReadAll(file), pictureBefore = ReadAll(copy);

    // A larger picture and longer texts onto a disk that fills up after 1 KiB: the failures are
    // trapped once a copy was tried, and what was there stays whole.
    QVERIFY(WriteBmp(SolidPicture(64, 64, Qt::blue), pane.ImageFile));
    for (int i = 1; i <= 4; ++i)
        p.Panes(i).Text = QString(600, QLatin1Char('x'));
    const auto saveOnFullDisk = [&] {
        const FullDisk full(1024);
        return ErrorNumberOf([&] { SaveProjectFile(p, "trip", file, folder, 4, 1, 2); });
    };
    QCOMPARE(saveOnFullDisk(), 0);
    QVERIFY(ReadAll(file) == fileBefore && ReadAll(copy) == pictureBefore);
    pane.ImageFile = kNone; // no picture, nothing trapped: the save's run-time error
    QCOMPARE(saveOnFullDisk(), 75);
    QVERIFY(ReadAll(file) == fileBefore);
    QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), (QStringList{"sky-0001.BMP", "trip.kv1"}));
    QCOMPARE(QDir(folder + "trip_Data").entryList(QDir::Files | QDir::Hidden), QStringList{"sky-0001.bmp"});

    // When it fits, the new file takes the old one's place, with the permissions of any new file.
    SaveProjectFile(p, "trip", file, folder, 4, 1, 2);
    QFile plain(folder + "plain");
    QVERIFY(ReadAll(file) == ProjectFileBytes(p, 4, 1, 2) && plain.open(QIODevice::WriteOnly));
    QCOMPARE(QFileInfo(file).permissions(), plain.permissions());
}

QTEST_MAIN(TestBadInput)

#include "test_badinput.moc"
