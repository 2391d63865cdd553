// The Pane and Board menu commands that change pictures: the single load, the mass import of a
// numbered sequence with the count it reports, flips, blanking, the shuffle with its notice, and
// the close-up.
#include "dialogs/frmcloseup.h"
#include "dialogs/frmmsgbox.h"
#include "images/sequence.h"
#include "images/shuffle.h"
#include "model/numbers.h"
#include "support/mainwindow.h"

namespace {
QString jpeg(const StartedMain& m, const QString& name, const QColor& colour = Qt::red) {
    const QString path = m.path(name);
    if (!WriteJpeg(SolidPicture(40, 30, colour), path)) qFatal("cannot write %s", qPrintable(path));
    return path;
}
QString lastMessage(const StartedMain& m) {
    return m.prompts.messages.isEmpty() ? QString() : m.prompts.messages.last().text;
}
const QString kTruncation = " compatible images.\nTruncation where current project specifies.";
} // namespace

class TestPaneCommands : public QObject {
    Q_OBJECT
private slots:
    void sequenceNames() {
        // The chosen name; then the result, leading zeros, number, prefix, and the name of the tenth
        // file after the first.
        for (const char* row :
             {"Vanto01.bmp Success 1 1 Vanto Vanto11", "Vanto1.gif Success 0 1 Vanto Vanto11",
              // The zero before a two-digit number goes into the prefix: after Vanto099 comes Vanto0100.
              "Vanto010.jpg Success 1 10 Vanto0 Vanto020", "Vanto090.jpg Success 1 90 Vanto0 Vanto0100",
              "7.gif Success 0 7  17", "01.bmp Success 1 1  11", "Vanto.jpg error 0 0  ",
              "Vanto0.jpg error 0 0  ", "Image000.jpg error 0 0  ",
              // A letter after the first digit, or no stem at all, is read like a cancel: no result.
              "Vanto2a.jpg  0 0  ", "a.jp  0 0  "}) {
            const QString title = QString(row).section(' ', 0, 0);
            const ImageSequence s = AnalyseSequence("/pics/" + title, title);
            const QString tenth =
                s.Result == "Success" ? s.Prefix + SequenceNumberText(s.Number + 10, s.Zeros) : "";
            QCOMPARE(Joined(title, s.Result, s.Zeros, s.Number, s.Prefix, tenth),
                     Values(QString(row).replace(' ', '|')));
        }
    }

    void importStopsAtGapAndRestoresThatPane() {
        StartedMain m;
        const QString first = jpeg(m, "Vanto05.jpg");
        jpeg(m, "Vanto06.JPG", Qt::blue); // found although its extension differs in case
        jpeg(m, "Vanto08.jpg");
        const QString old = m.path("Old-0003.BMP");
        QVERIFY(WriteBmp(SolidPicture(20, 20, Qt::gray), old));
        Pane& third = m.project.Panes(3);
        third.SourceStem = "Old";
        third.ImageFile = old;
        third.FlipHorizontal = 1;
        m.prompts.answers.enqueue(first);
        m.w->mnu_MassImage_Click();

        QCOMPARE(m.prompts.requests[0].title, "Mass Image Import ...");
        QCOMPARE(DialogFilters(m.prompts.requests[0].filter),
                 QStringList({"Formats (*.Bmp *.Gif *.Jpg)", "All pictures (*.Bmp *.Gif *.Jpg *.Png)"}));
        const Pane& second = m.project.Panes(2);
        QCOMPARE(Joined(second.SourceStem, second.SourceFile, second.ImageFile),
                 Joined("Vanto", m.path("Vanto06.JPG"), m.project.WorkFolder + "/Vanto-0002.BMP"));
        // The pane where the import stopped gets its picture back; its flip was cleared before the missing
        // file was tried.
        QCOMPARE(Joined(third.SourceStem, third.ImageFile, third.SourceFile, third.FlipHorizontal),
                 Joined("Old", old, "none", 0));
        QCOMPARE(m.prompts.messages.size(), 1);
        QCOMPARE(Joined(m.prompts.messages[0].title, m.prompts.messages[0].text),
                 Joined("Kelvrin : Import", "I found 2" + kTruncation));
    }

    void countMessageAndRefusedNames() {
        StartedMain m;
        const QString only = jpeg(m, "Solo1.jpg");
        // From pane 3 the message is chosen by the pane reached, the count by the panes filled.
        m.w->SelectedPane = 3;
        m.prompts.answers.enqueue(only);
        m.w->mnu_MassImage_Click();
        QCOMPARE(m.project.Panes(3).SourceFile, only);
        QCOMPARE(lastMessage(m), "I found 1" + kTruncation);

        QVERIFY(WriteAll(m.path("Bad1.jpg"), "not a picture"));
        for (const QString& chosen : {m.path("Bad1.jpg"), jpeg(m, "Vanto.jpg")}) {
            m.prompts.answers.enqueue(chosen);
            m.w->mnu_MassImage_Click();
            QCOMPARE(lastMessage(m),
                     "I couldn't find any compatible images.\nChoose images with number patterns such "
                     "as : \nImage01.bmp, Image1.gif, Image214.jpg");
            QCOMPARE(m.project.Panes(3).SourceFile, only);
        }
        // A digit followed by a letter, and a cancelled dialog, are silent.
        m.prompts.messages.clear();
        m.prompts.answers.enqueue(jpeg(m, "Vanto2a.jpg"));
        m.w->mnu_MassImage_Click();
        m.w->mnu_MassImage_Click();
        QVERIFY(m.prompts.messages.isEmpty());
        QCOMPARE(m.prompts.requests.last().folder, m.dir.path()); // opens where the last file was chosen

        // Far beyond the one-board project: the import goes on and stops after pane 1000, silently.
        for (const char* name : {"Seq001.jpg", "Seq002.jpg", "Seq003.jpg"})
            jpeg(m, name);
        m.w->SelectedPane = 999;
        m.prompts.answers.enqueue(m.path("Seq001.jpg"));
        m.w->mnu_MassImage_Click();
        QCOMPARE(m.project.Panes(999).SourceFile, m.path("Seq001.jpg"));
        QVERIFY(QFileInfo::exists(m.project.WorkFolder + "/Seq-1000.BMP") && m.prompts.messages.isEmpty());
    }

    void singlePicture() {
        StartedMain m;
        const QString path = m.path("Photo7.gif");
        QVERIFY(WriteGif(QuadrantPicture(60, 60), path));
        const Pane& pane = m.project.Panes(1);
        m.prompts.answers.enqueue(path);
        m.w->mnu_LoadPicture_Click();
        m.w->mnu_LoadPicture_Click(); // cancelled: nothing changes
        QCOMPARE(Joined(m.prompts.requests[0].title, pane.SourceStem, pane.SourceFile,
                        QImage(pane.ImageFile).width()),
                 Joined("Load Picture ...", "Photo7", path, qRound(m.w->CellSize)));
    }

    void flipsBlankAndCloseUp() {
        StartedMain m;
        m.give(1, QuadrantPicture(90, 90), "Quad");
        const Pane& pane = m.project.Panes(1);
        m.w->mnu_FlipHorizontally_Click();
        QCOMPARE(QuadrantsOf(QImage(pane.ImageFile), 10), "TR TL BR BL");
        m.w->mnu_FlipVertically_Click();
        QCOMPARE(QuadrantsOf(QImage(pane.ImageFile), 10), "BR BL TR TL");
        m.w->mnu_FlipHorizontally_Click(); // back again
        QCOMPARE(pane.FlipHorizontal, qint16(0));

        // The close-up: the source squashed into the square, not letter-boxed, and mirrored as the pane is.
        m.give(3, QuadrantPicture(160, 40), "Wide");
        m.project.Panes(3).FlipHorizontal = 1;
        m.w->SelectedPane = 3;
        const int side = qRound(m.w->StageFullSize) - 100;
        int shown = 0;
        m.w->ShowModal = [&](QDialog&) {
            ++shown;
            frmCloseUp* c = m.w->CloseUp;
            const QImage picture = c->Picture1->pixmap().toImage();
            QCOMPARE(
                Joined(c->windowTitle(), c->Picture1->geometry(), picture.size(), QuadrantsOf(picture, 10)),
                Joined("CloseUp : Wide", QRect(50, 10, side, side), QSize(side, side), "TR TL BR BL"));
            c->Command1->click();
        };
        m.w->mnu_Closeup_Click();
        m.w->SelectedPane = 2; // a blank pane opens nothing
        m.w->mnu_Closeup_Click();
        QCOMPARE(shown, 1);

        // Blank forgets the picture, not the text nor the file; a blank pane flips nothing.
        Pane& third = m.project.Panes(3);
        third.Text = "Opening";
        const QString file = third.ImageFile;
        m.w->SelectedPane = 3;
        m.w->mnu_MakeBlank_Click();
        QCOMPARE(PaneFields(third), Joined("Opening", "ToUse", "ToUse", 0, 0, "none", "none", "none",
                                           third.Position[0], third.Position[1]));
        QVERIFY(QFileInfo::exists(file));
        m.w->mnu_FlipHorizontally_Click();
        QCOMPARE(third.FlipHorizontal, qint16(0));
        // A working picture that has gone is a run-time error, before any flag changes.
        m.w->SelectedPane = 1;
        QVERIFY(QFile::remove(pane.ImageFile));
        QCOMPARE(ErrorNumberOf([&] { m.w->mnu_FlipVertically_Click(); }), 53);
        QCOMPARE(pane.FlipVertical, qint16(1));
    }

    void shuffleDrawsWithoutReplacement() {
        Project project;
        project.DialogReply.ReDim(4);
        const auto replies = [&] {
            return Joined(project.DialogReply[1], project.DialogReply[2], project.DialogReply[3],
                          project.DialogReply[4]);
        };
        // Always the first cell left gives the board's own order, always the last one the reverse.
        QCOMPARE(ShufflePanes(project, 2, 2, [] { return 0.0; }), qint16(8));
        QCOMPARE(replies(), "9|10|11|12");
        ShufflePanes(project, 2, 2, [] { return 0.9999; });
        QCOMPARE(replies(), "12|11|10|9");
    }

    void shuffleWithItsNotice() {
        StartedMain m;
        Project& p = m.project;
        p.GridSide = 3, p.BoardCount = 3;
        m.w->ReshapeProject(3, 3, m.w->StageSize, true);
        m.w->SetBoardIndex(2);
        for (int i = 18; i <= 28; ++i) {
            if (i != 27) m.give(i, SolidPicture(10, 10, QColor(i * 9, 0, 0)), QString("P%1").arg(i));
            p.Panes(i).Text = QString("Text %1").arg(i);
        }
        p.Panes(20).FlipHorizontal = 1;
        const QString first = p.Panes(19).ImageFile;
        m.w->ShuffleRandom = [] { return 0.9999; }; // reverses the board
        frmMsgBox* notice = m.w->MsgBox;
        int shown = 0;
        bool ok = false, tick = true;
        m.w->ShowModal = [&](QDialog&) {
            ++shown;
            notice->Check1->setChecked(tick);
            (ok ? notice->OKButton : notice->CancelButton)->click();
        };
        m.w->mnu_RandomShuffle_Click(); // cancelled with the box ticked: nothing moves, the box is cleared
        QCOMPARE(
            Joined(p.DialogReply2[1], p.DialogReply2[2], notice->Check1->isChecked(), p.Panes(19).ImageFile),
            Joined("cancel", "cancel", false, first));
        ok = true, tick = false;
        m.w->mnu_RandomShuffle_Click();
        QCOMPARE(Joined(p.DialogReply2[1], p.DialogReply2[2], m.w->SkipNotice), "okay|0|0");
        // The blank moved too; pictures outside the board and every text stay.
        QCOMPARE(Joined(p.Panes(19).ImageFile, p.Panes(27).ImageFile, p.Panes(26).SourceStem,
                        p.Panes(26).FlipHorizontal, p.Panes(18).SourceStem, p.Panes(28).SourceStem),
                 Joined("none", first, "P20", 1, "P18", "P28"));
        for (int i = 18; i <= 28; ++i)
            QCOMPARE(p.Panes(i).Text, QString("Text %1").arg(i));
        tick = true;
        m.w->mnu_RandomShuffle_Click();
        QCOMPARE(p.DialogReply2[2] + p.Panes(19).ImageFile, "1" + first);
        m.w->mnu_RandomShuffle_Click(); // no notice any more this run
        QCOMPARE(Joined(shown, p.Panes(27).ImageFile), Joined(3, first));
    }
};

QTEST_MAIN(TestPaneCommands)
#include "test_panecommands.moc"
