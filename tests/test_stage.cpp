// The stage as a user meets it: layout from the work area, painted boards, hover and drag,
// navigation between boards and the pane list.
#include "images/paneimage.h"
#include "model/numbers.h"
#include "stage/frmmain.h"
#include "stage/stagelayout.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
QStringList itemsOf(const QComboBox* combo) {
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

void sendMouse(QWidget* w, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, w->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &event);
}

const QColor kSilver(192, 192, 192), kWhite(255, 255, 255);
} // namespace

class TestStage : public QObject {
    Q_OBJECT
private slots:
    void init();
    void layoutFromWorkArea();
    void resizeErrorWhenTallerThanWide();
    void blankBoardShowsCheckerboardsAndNumbers();
    void picturesAndLostWorkingFiles();
    void hoverOutlineAndLabel();
    void navigationBetweenBoards();
    void keyboardShortcuts();
    void paneListEditsTexts();
    void paneListClicks();
    void dragExchangesPanes();
    void clicksWithoutDrag();

private:
    void shape(int grid, int boards);
    void givePicture(int pane, const QColor& colour, const QString& stem);
    QColor stagePixel(int x, int y) const { return w_->picStage->Picture.pixelColor(x, y); }
    QPoint cellCentre(int k) const {
        const Pane& slot = project_.Panes(k);
        return {slot.Position[0] + int(w_->CellSize) / 2, slot.Position[1] + int(w_->CellSize) / 2};
    }

    std::unique_ptr<QTemporaryDir> dir_;
    Project project_;
    ScriptedPrompts prompts_;
    std::unique_ptr<frmMain> w_;
    QList<QPair<QMenu*, QPoint>> popups_;
};

void TestStage::init() {
    w_.reset();
    dir_ = std::make_unique<QTemporaryDir>();
    project_ = Project();
    project_.ProgramFolder = dir_->path();
    project_.WorkFolder = dir_->filePath(QStringLiteral("MyProjects"));
    prompts_ = ScriptedPrompts();
    popups_.clear();
    w_ = std::make_unique<frmMain>(project_, prompts_);
    w_->WorkArea = [] { return QRect(0, 0, 1024, 740); };
    w_->ShowPopup = [this](QMenu& menu, const QPoint& at) { popups_.append({&menu, at}); };
    w_->Form_Load();
}

void TestStage::shape(int grid, int boards) {
    project_.GridSide = static_cast<qint16>(grid);
    project_.BoardCount = static_cast<qint16>(boards);
    w_->FillLists(project_.GridSide, project_.BoardCount, w_->StageSize, true);
}

void TestStage::givePicture(int pane, const QColor& colour, const QString& stem) {
    const QString path = dir_->filePath(stem + QStringLiteral(".bmp"));
    QVERIFY(WriteBmp(SolidPicture(40, 40, colour), path));
    Pane& p = project_.Panes(pane);
    p.SourceFile = path;
    p.SourceStem = stem;
    StorePaneImage(project_, static_cast<qint16>(pane), CInt(w_->StageSize / project_.GridSide), true);
}

void TestStage::layoutFromWorkArea() {
    const StageGeometry g = ComputeStageLayout(1024, 740);
    QCOMPARE(g.failedStep, 0);
    QCOMPARE(g.picStage, QRect(0, 0, 1024, 694));
    QCOMPARE(g.picSideBar, QRect(697, 3, 324, 692));
    QCOMPARE(g.Toolbar1.left(), 6);
    QCOMPARE(g.Toolbar1.width(), 312);
    QCOMPARE(g.comboLeftTwips, 990);
    QCOMPARE(g.comboWidthTwips, 3600);

    // On a 3 x 3 project the pictures are re-scaled to 694 / 3 = 231 while the board is drawn
    // with cells of 679 / 3 = 226: the two cells differ on purpose.
    shape(3, 2);
    givePicture(1, Qt::red, QStringLiteral("Red"));
    w_->ArrangeMainWindow();
    QCOMPARE(w_->LastWorkAreaWidth, qint16(1024));
    QCOMPARE(w_->StageFullSize, 694.0f);
    QCOMPARE(w_->StageSize, 679.0f);
    QCOMPARE(w_->CellSize, 226.0f);
    QCOMPARE(QImage(project_.Panes(1).ImageFile).size(), QSize(231, 231));
    QCOMPARE(w_->picSideBar->geometry(), QRect(697, 3, 324, 692));
    QCOMPARE(w_->Combo_PageView->width(), 240);
    QCOMPARE(w_->picStage->size(), QSize(1024, 694));

    // The same desktop width again: no layout, no re-scale.
    QFile::remove(project_.Panes(1).ImageFile);
    w_->ArrangeMainWindow();
    QVERIFY(!QFileInfo::exists(project_.Panes(1).ImageFile));
    QVERIFY(prompts_.messages.isEmpty());
}

void TestStage::resizeErrorWhenTallerThanWide() {
    w_->WorkArea = [] { return QRect(0, 0, 600, 800); };
    w_->ArrangeMainWindow();
    w_->ArrangeMainWindow();
    QCOMPARE(prompts_.messages.size(), 1);
    QCOMPARE(prompts_.messages[0].title, QStringLiteral("Kelvrin : Resize Error"));
    QCOMPARE(prompts_.messages[0].text,
             QStringLiteral("I experienced an error whilst trying to resize; Please reset Kelvrin."));
    QCOMPARE(prompts_.messages[0].icon, MsgIcon::Exclamation);
    QCOMPARE(w_->LastWorkAreaWidth, qint16(600));
    // The stage itself was already placed when the side bar failed.
    QCOMPARE(w_->picStage->size(), QSize(600, 754));
    // While the program is busy a resize is not even looked at.
    w_->WorkArea = [] { return QRect(0, 0, 900, 700); };
    project_.IsBusy = true;
    w_->ArrangeMainWindow();
    QCOMPARE(w_->LastWorkAreaWidth, qint16(600));
}

void TestStage::blankBoardShowsCheckerboardsAndNumbers() {
    shape(3, 2);
    w_->SetBoardIndex(1);
    const int cell = 226;
    for (int k = 1; k <= 9; ++k) {
        const int x = (k - 1) % 3 * cell, y = (k - 1) / 3 * cell;
        QCOMPARE(project_.Panes(k).Position[0], qint16(x));
        QCOMPARE(project_.Panes(k).Position[1], qint16(y));
        // The 32-pixel checkerboard stretched to the cell: eight squares a side.
        QCOMPARE(stagePixel(x + 40, y + 40), kSilver);
        QCOMPARE(stagePixel(x + 70, y + 40), kWhite);
        QCOMPARE(stagePixel(x + 40, y + 70), kWhite);
        // The pane number, black under white, sits in the top-left corner and nowhere else.
        int black = 0, blackElsewhere = 0;
        for (int yy = y; yy < y + cell; ++yy)
            for (int xx = x; xx < x + cell; ++xx)
                if (stagePixel(xx, yy).lightness() < 64)
                    (xx < x + 30 && yy < y + 20 ? black : blackElsewhere)++;
        QVERIFY2(black > 5, qPrintable(QString::number(k)));
        QCOMPARE(blackElsewhere, 0);
    }
    // Board 2 shows panes 10 to 18: the numbers are wider than board 1's single digits.
    auto numberWidth = [this](int x0) {
        int right = x0;
        for (int xx = x0; xx < x0 + 30; ++xx)
            for (int yy = 0; yy < 20; ++yy)
                if (stagePixel(xx, yy).lightness() < 64) right = qMax(right, xx);
        return right - x0;
    };
    const int twoDigits = numberWidth(0);
    w_->SetBoardIndex(0);
    QVERIFY(numberWidth(0) < twoDigits);
}

void TestStage::picturesAndLostWorkingFiles() {
    shape(3, 2);
    givePicture(10, Qt::red, QStringLiteral("Red"));
    givePicture(11, Qt::blue, QStringLiteral("Blue"));
    QVERIFY(QFile::remove(project_.Panes(11).ImageFile));
    w_->SetBoardIndex(1);
    QCOMPARE(stagePixel(113, 113), QColor(Qt::red));
    QCOMPARE(stagePixel(225, 225), QColor(Qt::red));
    QCOMPARE(stagePixel(226 + 40, 40), kSilver); // pane 11 lost its working picture: blank
    QCOMPARE(project_.Panes(11).ImageFile, kNone);
    QCOMPARE(project_.Panes(10).ImageFile.endsWith(QLatin1String("Red-0010.BMP")), true);
    // Selecting the lost pane leaves the picture commands disabled; the red one enables them.
    w_->HoverPane = 11;
    w_->picStage_MouseDown(Qt::LeftButton, {}, 300, 100);
    QVERIFY(!w_->mnu_FlipHorizontally->isEnabled());
    QVERIFY(!w_->mnu_MakeBlank->isEnabled());
    w_->HoverPane = 10;
    w_->picStage_MouseDown(Qt::LeftButton, {}, 100, 100);
    QVERIFY(w_->mnu_FlipVertically->isEnabled());
    QVERIFY(w_->mnu_Closeup->isEnabled());
}

void TestStage::hoverOutlineAndLabel() {
    shape(3, 1);
    project_.GlobalHighlightColor = 255; // red
    project_.Panes(5).Label = QStringLiteral("A label that is far too long for the cell");
    const QImage painted = w_->picStage->Picture;
    const QPoint centre = cellCentre(5);
    sendMouse(w_->picStage, QEvent::MouseMove, centre, Qt::NoButton, Qt::NoButton);
    QCOMPARE(w_->HoverPane, 5);
    const int x = project_.Panes(5).Position[0], y = project_.Panes(5).Position[1];
    QCOMPARE(stagePixel(x + 2, y + 100), QColor(Qt::red));
    QCOMPARE(stagePixel(x + 100, y + 2), QColor(Qt::red));
    QCOMPARE(stagePixel(x + 223, y + 100), QColor(Qt::red));
    QCOMPARE(stagePixel(x + 100, y + 223), QColor(Qt::red));
    QCOMPARE(stagePixel(x + 100, y + 100), painted.pixelColor(x + 100, y + 100)); // inside untouched
    QCOMPARE(stagePixel(x, y + 100), painted.pixelColor(x, y + 100));             // the cell's edge too
    // Moving on wipes the outline from the snapshot; the panes are not drawn again.
    sendMouse(w_->picStage, QEvent::MouseMove, cellCentre(1), Qt::NoButton, Qt::NoButton);
    QCOMPARE(w_->HoverPane, 1);
    QCOMPARE(stagePixel(x + 2, y + 100), painted.pixelColor(x + 2, y + 100));
    // Off the board: no pane, no outline.
    sendMouse(w_->picStage, QEvent::MouseMove, QPoint(690, 100), Qt::NoButton, Qt::NoButton);
    QCOMPARE(w_->HoverPane, 0);
    QCOMPARE(w_->picStage->Picture, w_->picLoader);

    QCOMPARE(frmMain::HoverLabel(QStringLiteral("A label that is far too long for the cell"), 226.0f),
             QStringLiteral("A label that is far too l..."));
    QCOMPARE(frmMain::HoverLabel(QStringLiteral("Twenty-five characters ok"), 226.0f),
             QStringLiteral("Twenty-five characters ok"));
    QCOMPARE(frmMain::HoverLabel(kToUse, 226.0f), QString());
}

void TestStage::navigationBetweenBoards() {
    shape(3, 5);
    w_->SetBoardIndex(2);
    QCOMPARE(w_->List1->currentRow(), 18);
    QCOMPARE(w_->SelectedPane, qint16(19));
    QVERIFY(w_->ButtonBack->isEnabled());
    QVERIFY(w_->ButtonNext->isEnabled());
    w_->ButtonBack->click();
    QCOMPARE(w_->Combo_PageView->currentIndex(), 1);
    QCOMPARE(w_->SelectedPane, qint16(10));
    w_->SetBoardIndex(4);
    QVERIFY(!w_->ButtonNext->isEnabled());
    w_->Toolbar1_ButtonClick(QStringLiteral("Next"));
    QCOMPARE(w_->Combo_PageView->currentIndex(), 4);

    // While the program is busy, choosing a board changes the chooser only.
    const QImage before = w_->picStage->Picture;
    project_.IsBusy = true;
    w_->Combo_PageView->setCurrentIndex(0);
    w_->Combo_PageView_Click();
    QCOMPARE(w_->picStage->Picture, before);
    QCOMPARE(w_->List1->currentRow(), 36);
    project_.IsBusy = false;

    shape(2, 100);
    const QStringList boards = itemsOf(w_->Combo_PageView);
    QCOMPARE(boards.size(), 100);
    QCOMPARE(boards.first(), QStringLiteral("Board 01"));
    QCOMPARE(boards.last(), QStringLiteral("Board 100"));

    // The edit row drops a fixed five characters, so pane 1000's text keeps a leading blank.
    shape(5, 40);
    project_.Panes(1000).Text = QStringLiteral("Last");
    w_->FillLists(5, 40, w_->StageSize, false);
    w_->List1->setCurrentRow(999);
    w_->List1_MouseDown(Qt::LeftButton, {}, 5, 5);
    QCOMPARE(w_->Text1->text(), QStringLiteral(" Last"));
    QCOMPARE(w_->Combo_PageView->currentIndex(), 39);
}

void TestStage::keyboardShortcuts() {
    shape(2, 3);
    w_->show();
    w_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(w_.get()));
    QTest::keyClick(w_.get(), Qt::Key_PageDown);
    QTest::keyClick(w_.get(), Qt::Key_PageDown);
    QCOMPARE(w_->Combo_PageView->currentIndex(), 2);
    QTest::keyClick(w_.get(), Qt::Key_PageUp);
    QCOMPARE(w_->Combo_PageView->currentIndex(), 1);
    QCOMPARE(w_->mnu_OpenProject->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
    QCOMPARE(w_->mnu_SaveAs->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    QCOMPARE(w_->mnu_ExportHTML->shortcut(), QKeySequence(QStringLiteral("Ctrl+E")));
    QCOMPARE(w_->mnu_Exit->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    QCOMPARE(w_->mnu_Help->shortcut(), QKeySequence(Qt::Key_F1));
    w_->hide();
}

void TestStage::paneListEditsTexts() {
    shape(2, 2);
    w_->List1->setCurrentRow(4);
    w_->Text1->setText(QStringLiteral("  Shot 4  "));
    QVERIFY(w_->cmdButton->isEnabled());
    w_->cmdButton->click();
    QCOMPARE(w_->List1->item(4)->text(), QStringLiteral("005. Shot 4"));
    QCOMPARE(project_.Panes(5).Text, QStringLiteral("Shot 4"));
    // An empty edit row is never written into a pane.
    w_->Text1->clear();
    QVERIFY(!w_->cmdButton->isEnabled());
    w_->SwapItemText();
    QCOMPARE(project_.Panes(5).Text, QStringLiteral("Shot 4"));

    w_->List1->setCurrentRow(4);
    w_->mnu_Remove_Click();
    QCOMPARE(w_->List1->item(4)->text(), QStringLiteral("005. ToUse"));
    QCOMPARE(project_.Panes(5).Text, kToUse);

    // "Clear All" resets the records one below the items: pane 8 keeps its text.
    for (int i = 0; i <= 8; ++i)
        project_.Panes(i).Text = QStringLiteral("T%1").arg(i);
    w_->mnu_ClearAll_Click();
    QCOMPARE(w_->List1->count(), 8);
    for (int i = 0; i < 8; ++i)
        QCOMPARE(w_->List1->item(i)->text(), Format(i + 1, "000") + QStringLiteral(". ToUse"));
    for (int i = 0; i <= 7; ++i)
        QCOMPARE(project_.Panes(i).Text, kToUse);
    QCOMPARE(project_.Panes(8).Text, QStringLiteral("T8"));
}

void TestStage::paneListClicks() {
    shape(2, 3);
    project_.Panes(7).Text = QStringLiteral("Seven");
    w_->FillLists(2, 3, w_->StageSize, false);
    QVERIFY(!w_->mnu_Swap->isEnabled());
    // A left click on pane 7 shows board 2 and keeps pane 7 selected with its text.
    const QRect seven = w_->List1->visualItemRect(w_->List1->item(6));
    QTest::mouseClick(w_->List1->viewport(), Qt::LeftButton, {}, seven.center());
    QCOMPARE(w_->Combo_PageView->currentIndex(), 1);
    QCOMPARE(w_->List1->currentRow(), 6);
    QCOMPARE(w_->SelectedPane, qint16(7));
    QCOMPARE(w_->Text1->text(), QStringLiteral("Seven"));
    QVERIFY(w_->mnu_Swap->isEnabled());
    QVERIFY(w_->mnu_Remove->isEnabled());
    // A right click opens Edit List and changes neither board nor selection.
    const QRect two = w_->List1->visualItemRect(w_->List1->item(1));
    QTest::mouseClick(w_->List1->viewport(), Qt::RightButton, {}, two.center());
    QCOMPARE(popups_.size(), 1);
    QCOMPARE(popups_[0].first, w_->mnu_EditList);
    QCOMPARE(w_->Combo_PageView->currentIndex(), 1);
    QCOMPARE(w_->List1->currentRow(), 6);
}

void TestStage::dragExchangesPanes() {
    shape(3, 2);
    givePicture(3, Qt::red, QStringLiteral("Red"));
    givePicture(7, Qt::blue, QStringLiteral("Blue"));
    auto fill = [this](int pane, const QString& tag, qint16 flip) {
        Pane& p = project_.Panes(pane);
        p.Text = tag + QStringLiteral(" text");
        p.Label = tag + QStringLiteral(" label");
        p.Url = tag + QStringLiteral(".htm");
        p.FlipHorizontal = flip;
    };
    fill(3, QStringLiteral("Three"), 1);
    fill(7, QStringLiteral("Seven"), 0);
    w_->FillLists(3, 2, w_->StageSize, false);
    const Pane three = project_.Panes(3), seven = project_.Panes(7);

    QWidget* stage = w_->picStage;
    sendMouse(stage, QEvent::MouseMove, cellCentre(3), Qt::NoButton, Qt::NoButton);
    QTest::mousePress(stage, Qt::LeftButton, {}, cellCentre(3));
    QVERIFY(w_->DragActive);
    sendMouse(stage, QEvent::MouseMove, cellCentre(7) + QPoint(20, 10), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(stage->cursor().shape(), Qt::SizeAllCursor);
    QVERIFY(w_->picStage->Line1.Visible);
    QCOMPARE(QPoint(w_->picStage->Line1.X1, w_->picStage->Line1.Y1), cellCentre(3));
    QCOMPARE(QPoint(w_->picStage->Line1.X2, w_->picStage->Line1.Y2), cellCentre(7) + QPoint(20, 10));
    QCOMPARE(w_->picStage->Line1.BorderColor, QColor(0, 255, 0));
    QTest::mouseRelease(stage, Qt::LeftButton, {}, cellCentre(7) + QPoint(20, 10));

    const Pane& now3 = project_.Panes(3);
    const Pane& now7 = project_.Panes(7);
    for (auto [a, b] : {std::pair{&now3, &seven}, std::pair{&now7, &three}}) {
        QCOMPARE(a->ImageFile, b->ImageFile);
        QCOMPARE(a->SourceFile, b->SourceFile);
        QCOMPARE(a->SourceStem, b->SourceStem);
        QCOMPARE(a->FlipHorizontal, b->FlipHorizontal);
        QCOMPARE(a->Text, b->Text);
        QCOMPARE(a->Label, b->Label);
        QCOMPARE(a->Url, b->Url);
    }
    QCOMPARE(w_->List1->item(2)->text(), QStringLiteral("003. Seven text"));
    QCOMPARE(w_->List1->item(6)->text(), QStringLiteral("007. Three text"));
    QVERIFY(!w_->DragActive);
    QVERIFY(!w_->picStage->Line1.Visible);
    QVERIFY(stage->cursor().shape() != Qt::SizeAllCursor);
    QCOMPARE(stagePixel(cellCentre(3).x(), cellCentre(3).y()), QColor(Qt::blue));
    QCOMPARE(stagePixel(cellCentre(7).x(), cellCentre(7).y()), QColor(Qt::red));

    // Dropping a pane onto itself changes nothing.
    sendMouse(stage, QEvent::MouseMove, cellCentre(3), Qt::NoButton, Qt::NoButton);
    QTest::mousePress(stage, Qt::LeftButton, {}, cellCentre(3));
    sendMouse(stage, QEvent::MouseMove, cellCentre(3) + QPoint(5, 5), Qt::NoButton, Qt::LeftButton);
    QTest::mouseRelease(stage, Qt::LeftButton, {}, cellCentre(3) + QPoint(5, 5));
    QCOMPARE(project_.Panes(3).Text, QStringLiteral("Seven text"));
    QCOMPARE(project_.Panes(3).ImageFile, seven.ImageFile);

    // A mouse-up while the program is busy is ignored altogether.
    sendMouse(stage, QEvent::MouseMove, cellCentre(3), Qt::NoButton, Qt::NoButton);
    QTest::mousePress(stage, Qt::LeftButton, {}, cellCentre(3));
    sendMouse(stage, QEvent::MouseMove, cellCentre(7), Qt::NoButton, Qt::LeftButton);
    project_.IsBusy = true;
    QTest::mouseRelease(stage, Qt::LeftButton, {}, cellCentre(7));
    QVERIFY(w_->DragActive);
    QVERIFY(w_->picStage->Line1.Visible);
    QCOMPARE(project_.Panes(3).Text, QStringLiteral("Seven text"));
}

void TestStage::clicksWithoutDrag() {
    shape(3, 1);
    givePicture(4, Qt::red, QStringLiteral("Red"));
    w_->DrawCurrentBoard();
    project_.Panes(4).Text = QStringLiteral("Four");
    QWidget* stage = w_->picStage;
    sendMouse(stage, QEvent::MouseMove, cellCentre(4), Qt::NoButton, Qt::NoButton);
    QTest::mouseClick(stage, Qt::LeftButton, {}, cellCentre(4));
    QCOMPARE(w_->SelectedPane, qint16(4));
    QCOMPARE(w_->List1->currentRow(), 3);
    QVERIFY(w_->mnu_FlipHorizontally->isEnabled());
    QCOMPARE(project_.Panes(4).Text, QStringLiteral("Four"));
    QVERIFY(popups_.isEmpty());

    // The right button selects the pane and opens the Pane menu, on press and on release.
    sendMouse(stage, QEvent::MouseMove, cellCentre(2), Qt::NoButton, Qt::NoButton);
    QTest::mouseClick(stage, Qt::RightButton, {}, cellCentre(2));
    QCOMPARE(w_->SelectedPane, qint16(2));
    QVERIFY(!w_->DragActive);
    QVERIFY(!w_->mnu_FlipHorizontally->isEnabled());
    QCOMPARE(popups_.size(), 2);
    QCOMPARE(popups_[0].first, w_->mnu_Panes);
    QCOMPARE(popups_[0].second, stage->mapToGlobal(cellCentre(2)));
}

QTEST_MAIN(TestStage)
#include "test_stage.moc"
