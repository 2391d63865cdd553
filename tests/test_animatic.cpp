// Playing the panes: kv1's videos read back with ffprobe and ffmpeg, the slideshow's keys, and
// the stage after a slideshow or an animatic export from the menu.
#include "animatic/animatic.h"
#include "dialogs/frmanimatic.h"
#include "dialogs/frmslideshow.h"
#include "support/mainwindow.h"
#include "support/runprocess.h"

namespace {
// The decoded frame count and the length in seconds, to a tenth, that ffprobe reads from a
// video or GIF.
Values lengthOf(const QString& path) {
    const Run r = run("ffprobe", {"-v", "error", "-count_frames", "-select_streams", "v:0", "-show_entries",
                                  "stream=nb_read_frames:format=duration", "-of", "default=nw=1", path});
    int frames = -1;
    double seconds = -1;
    for (const QString& line : r.out.split('\n')) {
        if (line.startsWith("nb_read_frames=")) frames = line.mid(15).toInt();
        if (line.startsWith("duration=")) seconds = qRound(line.mid(9).toDouble() * 10) / 10.0;
    }
    return NAMED_VALUES(frames, seconds);
}
// A 2 x 2 project file of one board: red, blank, green, and a blue picture missing from the
// picture folder. Pane 1 has a text.
QString writeProject(const QString& folder) {
    const QString file = folder + "/reel.kv1";
    QByteArray text = "4\r\n1\r\n2\r\nToUse\r\n65280\r\n65280\r\nReel\r\n";
    text += "r-0001\r\n0\r\n0\r\nToUse\r\nOpening\r\nToUse\r\n";
    text += "none\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n";
    text += "g-0003\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n";
    text += "b-0004\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n";
    if (!WriteAll(file, text) || !QDir().mkpath(folder + "/reel_Data")) return {};
    WriteBmp(SolidPicture(160, 90, QColor(255, 0, 0)), folder + "/reel_Data/r-0001.bmp");
    WriteBmp(SolidPicture(160, 90, QColor(0, 255, 0)), folder + "/reel_Data/g-0003.bmp");
    return file;
}

// A 2 x 2 project of the boards given, every pane with a solid picture of its own but the blanks.
Project solidProject(const QString& folder, int boards, const QList<int>& blanks) {
    Project project;
    project.GridSide = 2, project.BoardCount = qint16(boards);
    for (int i = 1; i <= 4 * boards; ++i) {
        if (blanks.contains(i)) continue;
        const QString path = QString("%1/p%2.bmp").arg(folder).arg(i);
        WriteBmp(SolidPicture(80, 60, QColor(i * 25, 255 - i * 25, 0)), path);
        project.Panes(i).SourceFile = project.Panes(i).ImageFile = path;
    }
    return project;
}

} // namespace

class TestAnimatic : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString project;

private slots:
    void initTestCase() {
        project = writeProject(dir.path());
    }

    // Rounding counts from the start: 1.3 s at 5 frames a second is 7, 6 and 7 frames, not 3 x 7.
    void lengthOfVideoAndGif_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("expected");
        QTest::newRow("mp4 defaults") << "a.mp4" << QStringList{} << "144|6";
        QTest::newRow("mp4 1.3 s at 5") << "c.mp4" << QStringList{"--seconds", "1.3", "--fps", "5"} << "20|4";
        QTest::newRow("gif 0.25 s with blanks")
            << "f.gif" << QStringList{"--seconds", "0.25", "--include-blanks"} << "4|1";
        QTest::newRow("webm 1 s at 8") << "g.webm" << QStringList{"--seconds", "1", "--fps", "8"} << "24|3";
    }
    void lengthOfVideoAndGif() {
        QFETCH(QString, name);
        QFETCH(QStringList, options);
        QFETCH(QString, expected);
        const QString out = dir.filePath(name);
        const Run r =
            run(KV1_EXECUTABLE, QStringList{"animatic", project, out, "--size", "128x72"} + options);
        QCOMPARE(r.status, 0);
        QVERIFY2(r.err.contains("kv1: 1 picture missing"), qPrintable(r.err));
        QCOMPARE(lengthOf(out), expected);
    }

    // The middle of each pane's time shows that pane: red, black for the blank, green, and the
    // dark frame of "picture missing".
    void colourInTheMiddleOfAPane() {
        for (const QString name : {"colours.mp4", "colours.gif"}) {
            const QString out = dir.filePath(name);
            QCOMPARE(run(KV1_EXECUTABLE,
                         {"animatic", project, out, "--size", "160x90", "--fps", "10", "--include-blanks"})
                         .status,
                     0);
            const QList<QColor> colours = {QColor(255, 0, 0), QColor(0, 0, 0), QColor(0, 255, 0),
                                           QColor(48, 48, 48)};
            for (int pane = 1; pane <= 4; ++pane) {
                // A GIF's picture starts before the moment and lasts past it, so the pictures are
                // first repeated at a fixed rate.
                const QString png = dir.filePath(QString("%1-%2.png").arg(name).arg(pane));
                run("ffmpeg", {"-v", "error", "-y", "-i", out, "-vf", "fps=10", "-ss",
                               QString::number(2 * pane - 1), "-frames:v", "1", png});
                const QImage frame(png);
                QCOMPARE(frame.size(), QSize(160, 90));
                // Above the middle, where "picture missing" has no letters.
                const QColor seen = frame.pixelColor(50, 25);
                QVERIFY2(Near(seen, colours[pane - 1], 24),
                         qPrintable(QString("%1: pane %2 is %3").arg(name).arg(pane).arg(seen.name())));
            }
        }
    }

    // A wrong command line is 2, a failure 1; neither leaves a file behind, nor does a cancel.
    void badInputWritesNothing() {
        QTemporaryDir out;
        const QString none = QDir(dir.path()).filePath("none.kv1");
        QVERIFY(WriteAll(none, "4\r\n1\r\n2\r\nToUse\r\n65280\r\n65280\r\nToUse\r\n" +
                                   QByteArray("none\r\n0\r\n0\r\nToUse\r\nToUse\r\nToUse\r\n").repeated(4)));
        const struct {
            QStringList arguments;
            int status;
            const char* says;
        } cases[] = {
            {{project, out.filePath("x.avi")}, 2, "must end in .mp4, .webm or .gif"},
            {{project, out.filePath("x.mp4"), "--size", "65x64"}, 2, "even"},
            {{project, out.filePath("x.mp4"), "--size", "62x62"}, 2, "from 64 to 4096"},
            {{project, out.filePath("x.mp4"), "--seconds", "0"}, 2, "0.1 to 600"},
            {{project, out.filePath("x.mp4"), "--seconds", "0.5", "--fps", "1"}, 2, "at least one frame"},
            {{project, out.filePath("x.mp4"), "--fps", "61"}, 2, "1 to 60"},
            {{project, out.filePath("no/x.mp4")}, 1, "no such folder"},
            {{none, out.filePath("x.mp4")}, 1, "no pane with a picture"},
        };
        for (const auto& c : cases) {
            const Run r = run(KV1_EXECUTABLE, QStringList{"animatic"} + c.arguments);
            QVERIFY2(r.status == c.status && r.err.contains(c.says),
                     qPrintable(c.arguments.join(' ') + " gave " + QString::number(r.status) + ": " + r.err));
        }
        QCOMPARE(QDir(out.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList());

        const Project p = solidProject(out.path(), 1, {});
        QDir().mkpath(out.filePath("sub"));
        AnimaticOptions options;
        options.size = QSize(64, 64);
        int told = 0;
        const AnimaticResult cancelled =
            WriteAnimatic(p, options, out.filePath("sub/c.mp4"), [&](int done, int total) {
                told = done * 10 + total;
                return false;
            });
        QCOMPARE(Joined(cancelled.done, cancelled.cancelled, told), "0|1|14");
        // A folder in the file's place: the encoder's failure comes back, and no temporary file stays.
        QDir().mkpath(out.filePath("sub/d.gif"));
        const AnimaticResult failed = WriteAnimatic(p, options, out.filePath("sub/d.gif"));
        QVERIFY2(!failed.done && failed.error.contains("d.gif"), qPrintable(failed.error));
        QCOMPARE(QDir(out.filePath("sub")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{"d.gif"});
    }

    // Two boards of 2 x 2 with blank panes 3, 6 and 8. The state after the keys is the pane,
    // playing, the interval and whether blanks are shown.
    void slideshowKeys_data() {
        QTest::addColumn<int>("start");
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QString>("state");
        const int R = Qt::Key_Right, L = Qt::Key_Left;
        QTest::newRow("right skips a blank") << 2 << QList<int>{R} << "4|0|2000|0";
        QTest::newRow("space, page down") << 1 << QList<int>{Qt::Key_Space, Qt::Key_PageDown} << "4|0|2000|0";
        QTest::newRow("left, page up") << 7 << QList<int>{L, Qt::Key_PageUp} << "4|0|2000|0";
        QTest::newRow("end") << 2 << QList<int>{Qt::Key_End} << "7|0|2000|0";
        QTest::newRow("home") << 5 << QList<int>{Qt::Key_Home} << "1|0|2000|0";
        QTest::newRow("the last holds") << 7 << QList<int>{R, R} << "7|0|2000|0";
        QTest::newRow("after the last picture") << 8 << QList<int>{} << "7|0|2000|0";
        QTest::newRow("B shows blanks") << 2 << QList<int>{Qt::Key_B, R} << "3|0|2000|1";
        QTest::newRow("P plays, + slows")
            << 1 << QList<int>{Qt::Key_P, Qt::Key_Plus, Qt::Key_Plus} << "1|1|3000|0";
        QTest::newRow("- stops at half a second") << 1 << QList<int>(4, Qt::Key_Minus) << "1|0|500|0";
    }
    void slideshowKeys() {
        QFETCH(int, start);
        QFETCH(QList<int>, keys);
        QFETCH(QString, state);
        QTemporaryDir pictures;
        const Project p = solidProject(pictures.path(), 2, {3, 6, 8});
        frmSlideshow show(p, start);
        for (int key : keys)
            QTest::keyClick(&show, Qt::Key(key));
        QCOMPARE(Joined(show.CurrentPane(), show.Playing(), show.Interval(), show.ShowsBlanks()), state);
    }

    // A slide carries its pane's caption only when it has a text, and where it stands.
    void slideTexts() {
        QTemporaryDir pictures;
        Project p = solidProject(pictures.path(), 1, {2});
        p.Panes(3).Text = "Third";
        frmSlideshow show(p, 1);
        const Slide slide = show.SlideOf(3);
        QCOMPARE(Joined(slide.caption, slide.corner), "Third|pane 3 of 4");
        QCOMPARE(show.SlideOf(4).caption, QString());
    }

    // The menu's export: the options window, the file's name, the video; a name of no known kind
    // is refused with a message.
    void stageAfterTheSlideshow() {
        StartedMain m;
        Project& p = m.project;
        p.GridSide = 3, p.BoardCount = 2;
        m.w->ReshapeProject(3, 2, m.w->StageSize, true);
        for (int i = 1; i <= 16; ++i) {
            m.give(i, SolidPicture(30, 20, QColor(i * 15, 0, 0)), QString("P%1").arg(i));
            p.Panes(i).Text = QString("Text %1").arg(i);
        }
        m.w->RefillPaneList(18, true);
        m.w->ChoosePane(2);
        int started = 0;
        m.w->ShowModal = [&](QDialog& d) {
            auto* show = qobject_cast<frmSlideshow*>(&d);
            QVERIFY(show && show->windowState().testFlag(Qt::WindowFullScreen));
            started = show->CurrentPane();
            for (Qt::Key key : {Qt::Key_End, Qt::Key_Left, Qt::Key_Escape})
                QTest::keyClick(show, key);
        };
        m.w->mnu_Slideshow->trigger();
        QCOMPARE(Joined(started, m.w->Combo_PageView->currentIndex()), "2|1");
        QCOMPARE(Joined(m.w->List1->currentRow(), m.w->Text1->text(), m.w->SelectedPane), "14|Text 15|15");
        QVERIFY(m.w->cmdButton->isEnabled());
    }

    void exportFromTheMenu() {
        StartedMain m;
        for (int i = 1; i <= 3; ++i)
            m.give(i, SolidPicture(30, 20, QColor(0, 0, i * 80)), QString("P%1").arg(i));
        m.w->ShowModal = [](QDialog& d) {
            auto* choices = qobject_cast<frmAnimatic*>(&d);
            QVERIFY(choices);
            choices->Combo_Size->setCurrentIndex(3);
            choices->Spin_Seconds->setValue(0.5);
            choices->Combo_Fps->setCurrentIndex(3);
            choices->accept();
        };
        m.prompts.answers << m.path("film.mp4") << m.path("film.avi");
        m.w->mnu_ExportAnimatic->trigger();
        QCOMPARE(m.prompts.requests.value(0).filter,
                 "MP4 video (*.mp4)|*.mp4|WebM video (*.webm)|*.webm|Animated GIF (*.gif)|*.gif");
        QCOMPARE(lengthOf(m.path("film.mp4")), "18|1.5");
        m.w->mnu_ExportAnimatic->trigger();
        QCOMPARE(Joined(m.prompts.messages.size(), m.prompts.messages.value(0).text),
                 "1|An animatic's name ends in .mp4, .webm or .gif.");
    }
};

QTEST_MAIN(TestAnimatic)
#include "test_animatic.moc"
