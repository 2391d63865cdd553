// The Pane and Board menu commands that change pictures: flips, blanking, the shuffle with its
// notice, and the close-up.
#include "dialogs/frmcloseup.h"
#include "dialogs/frmmsgbox.h"
#include "images/paneimage.h"
#include "images/shuffle.h"
#include "model/runtimeerror.h"
#include "support/mainwindow.h"
#include "support/testpictures.h"

#include <QtTest>

class TestPaneCommands : public QObject {
    Q_OBJECT
private slots:
    void flipsOnPixelsAndRebuild();
    void blankForgetsPictureOnly();
    void shuffleDrawsWithoutReplacement();
    void shuffleMovesBoardPicturesOnly();
    void noticeRepliesAndSkipFlag();
    void closeUpShowsSourceFlipped();
};

namespace {
void givePicture(StartedMain& m, int pane, const QImage& image, const QString& stem) {
    const QString path = m.path(stem + QStringLiteral(".bmp"));
    QVERIFY(WriteBmp(image, path));
    m.project.Panes(pane).SourceFile = path;
    m.project.Panes(pane).SourceStem = stem;
    StorePaneImage(m.project, static_cast<qint16>(pane), m.w->CellSize, true);
}
QStringList replies(const Project& project, int n) {
    QStringList list;
    for (int i = 1; i <= n; ++i)
        list << project.DialogReply[i];
    return list;
}
} // namespace

void TestPaneCommands::flipsOnPixelsAndRebuild() {
    StartedMain m;
    givePicture(m, 1, QuadrantPicture(90, 90), QStringLiteral("Quad"));
    const Pane& pane = m.project.Panes(1);
    const int s = qRound(m.w->CellSize);
    m.w->mnu_FlipHorizontally_Click();
    QCOMPARE(pane.FlipHorizontal, qint16(1));
    QVERIFY(Near(QImage(pane.ImageFile).pixelColor(3, 3), kTopRight, 10));
    m.w->mnu_FlipVertically_Click();
    QCOMPARE(pane.FlipVertical, qint16(1));
    const QImage flipped(pane.ImageFile);
    QVERIFY(Near(flipped.pixelColor(3, 3), kBottomRight, 10));

    // Rebuilding from the source with both flags gives the same picture, away from the seams.
    StorePaneImage(m.project, 1, m.w->CellSize, false);
    const QImage rebuilt(pane.ImageFile);
    for (int y = 0; y < s; y += 3)
        for (int x = 0; x < s; x += 3)
            if (qAbs(x - s / 2) > 3 && qAbs(y - s / 2) > 3)
                QVERIFY(Near(rebuilt.pixelColor(x, y), flipped.pixelColor(x, y), 10));

    m.w->mnu_FlipHorizontally_Click(); // back again
    QCOMPARE(pane.FlipHorizontal, qint16(0));
    // A working picture that has gone is a run-time error, before any flag changes.
    QVERIFY(QFile::remove(pane.ImageFile));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, m.w->mnu_FlipVertically_Click());
    QCOMPARE(pane.FlipVertical, qint16(1));
}

void TestPaneCommands::blankForgetsPictureOnly() {
    StartedMain m;
    givePicture(m, 2, SolidPicture(20, 20, Qt::red), QStringLiteral("Red"));
    Pane& pane = m.project.Panes(2);
    pane.Text = QStringLiteral("Opening");
    pane.FlipVertical = 1;
    const QString file = pane.ImageFile;
    m.w->SelectedPane = 2;
    m.w->mnu_MakeBlank_Click();
    QCOMPARE((QStringList{pane.ImageFile, pane.SourceFile, pane.SourceStem}),
             (QStringList{kNone, kNone, kNone}));
    QCOMPARE(pane.FlipVertical, qint16(0));
    QCOMPARE(pane.Text, QStringLiteral("Opening"));
    QVERIFY(QFileInfo::exists(file));
    m.w->SelectedPane = 2; // a blank pane flips nothing
    m.w->mnu_FlipHorizontally_Click();
    QCOMPARE(pane.FlipHorizontal, qint16(0));
}

void TestPaneCommands::shuffleDrawsWithoutReplacement() {
    Project project;
    project.DialogReply.ReDim(4);
    // Always the first cell left gives the board's own order, always the last one the reverse.
    QCOMPARE(ShufflePanes(project, 2, 2, [] { return 0.0; }), qint16(8));
    QCOMPARE(replies(project, 4), (QStringList{"9", "10", "11", "12"}));
    ShufflePanes(project, 2, 2, [] { return 0.9999; });
    QCOMPARE(replies(project, 4), (QStringList{"12", "11", "10", "9"}));
    // The second of four cells, then the first of the three left, ...
    ShufflePanes(project, 2, 0, [] { return 0.3; });
    QCOMPARE(replies(project, 4), (QStringList{"2", "1", "3", "4"}));
}

void TestPaneCommands::shuffleMovesBoardPicturesOnly() {
    StartedMain m;
    m.project.GridSide = 3;
    m.project.BoardCount = 3;
    m.w->ReshapeProject(3, 3, m.w->StageSize, true);
    m.w->SetBoardIndex(2);
    for (int p = 18; p <= 28; ++p) {
        if (p != 27)
            givePicture(m, p, SolidPicture(10, 10, QColor(p * 9, 0, 0)), QStringLiteral("P%1").arg(p));
        m.project.Panes(p).Text = QStringLiteral("Text %1").arg(p);
    }
    m.project.Panes(20).FlipHorizontal = 1;
    const QString first = m.project.Panes(19).ImageFile;
    m.w->ShowModal = [&m](QDialog&) { m.w->MsgBox->OKButton->click(); };
    m.w->ShuffleRandom = [] { return 0.9999; }; // reverses the board
    m.w->mnu_RandomShuffle_Click();
    QCOMPARE(m.project.Panes(19).ImageFile, kNone); // the blank moved too
    QCOMPARE(m.project.Panes(27).ImageFile, first);
    QCOMPARE(m.project.Panes(26).SourceStem, QStringLiteral("P20"));
    QCOMPARE(m.project.Panes(26).FlipHorizontal, qint16(1));
    for (int p = 18; p <= 28; ++p)
        QCOMPARE(m.project.Panes(p).Text, QStringLiteral("Text %1").arg(p));
    QCOMPARE(m.project.Panes(18).SourceStem + m.project.Panes(28).SourceStem, QStringLiteral("P18P28"));

    // With the clock: still every picture of the board exactly once.
    m.w->ShuffleRandom = nullptr;
    QStringList before, after;
    for (int p = 19; p <= 27; ++p)
        before << m.project.Panes(p).ImageFile;
    m.w->mnu_RandomShuffle_Click();
    for (int p = 19; p <= 27; ++p)
        after << m.project.Panes(p).ImageFile;
    QCOMPARE(QSet<QString>(after.begin(), after.end()), QSet<QString>(before.begin(), before.end()));
}

void TestPaneCommands::noticeRepliesAndSkipFlag() {
    StartedMain m;
    givePicture(m, 1, SolidPicture(10, 10, Qt::red), QStringLiteral("A"));
    const QString a = m.project.Panes(1).ImageFile;
    m.w->ShuffleRandom = [] { return 0.9999; };
    frmMsgBox* notice = m.w->MsgBox;
    int shown = 0;
    bool ok = false, tick = true;
    m.w->ShowModal = [&](QDialog&) {
        ++shown;
        notice->Check1->setChecked(tick);
        (ok ? notice->OKButton : notice->CancelButton)->click();
    };
    m.w->mnu_RandomShuffle_Click(); // cancelled with the box ticked
    QCOMPARE(m.project.DialogReply2[1] + m.project.DialogReply2[2], QStringLiteral("cancelcancel"));
    QVERIFY(!notice->Check1->isChecked());
    QCOMPARE(m.project.Panes(1).ImageFile, a);

    ok = true;
    tick = false;
    m.w->mnu_RandomShuffle_Click();
    QCOMPARE(m.project.DialogReply2[1] + m.project.DialogReply2[2], QStringLiteral("okay0"));
    QCOMPARE(m.project.Panes(4).ImageFile, a);
    QCOMPARE(m.w->SkipNotice, qint16(0));
    tick = true;
    m.w->mnu_RandomShuffle_Click();
    QCOMPARE(m.project.DialogReply2[2], QStringLiteral("1"));
    m.w->mnu_RandomShuffle_Click(); // no notice any more this run
    QCOMPARE(shown, 3);
    QCOMPARE(m.project.Panes(4).ImageFile, a);
}

void TestPaneCommands::closeUpShowsSourceFlipped() {
    StartedMain m;
    givePicture(m, 3, QuadrantPicture(160, 40), QStringLiteral("Wide"));
    m.project.Panes(3).FlipHorizontal = 1;
    m.w->SelectedPane = 3;
    const int s = qRound(m.w->StageFullSize);
    bool shown = false;
    m.w->ShowModal = [&](QDialog&) {
        shown = true;
        frmCloseUp* c = m.w->CloseUp;
        QCOMPARE(c->windowTitle(), QStringLiteral("CloseUp : Wide"));
        QCOMPARE(c->Picture1->geometry(), QRect(50, 10, s - 100, s - 100));
        // Squashed into the square, not letter-boxed, and mirrored as the pane is.
        const QImage picture = c->Picture1->pixmap().toImage();
        QCOMPARE(picture.size(), QSize(s - 100, s - 100));
        QVERIFY(Near(picture.pixelColor(5, 5), kTopRight, 10));
        QVERIFY(Near(picture.pixelColor(s - 110, s - 110), kBottomLeft, 10));
        c->Command1->click();
    };
    m.w->mnu_Closeup_Click();
    QVERIFY(shown);
    shown = false;
    m.w->SelectedPane = 2; // a blank pane opens nothing
    m.w->mnu_Closeup_Click();
    QVERIFY(!shown);
}

QTEST_MAIN(TestPaneCommands)
#include "test_panecommands.moc"
