// The stage as a user meets it: layout from the work area, painted boards, hover and drag,
// navigation between boards, the pane list, the keyboard and what assistive technologies read.
#include "images/bmpfile.h"
#include "model/numbers.h"
#include "stage/stagelayout.h"
#include "support/mainwindow.h"

#include <QAccessible>

class TestStage : public QObject {
    Q_OBJECT
    std::unique_ptr<StartedMain> m_;
    frmMain* w_ = nullptr;
    Project& project() { return m_->project; }
    void shape(int grid, int boards) {
        project().GridSide = qint16(grid), project().BoardCount = qint16(boards);
        w_->FillLists(project().GridSide, project().BoardCount, w_->StageSize, true);
    }
    void give(int pane, const QColor& colour, const QString& stem) {
        m_->give(pane, SolidPicture(40, 40, colour), stem);
    }
    QColor stagePixel(QPoint at) const { return w_->picStage->Picture.pixelColor(at); }
    // The stage's colours at some points, each named by its point.
    Values pixels(std::initializer_list<QPoint> points) const {
        Values colours;
        for (QPoint at : points) {
            colours.texts << stagePixel(at).name();
            colours.names << AsText(at);
        }
        return colours;
    }
    // Board shown, pane list row, selected pane and the edit row.
    Values selection() const {
        return NAMED_VALUES(w_->Combo_PageView->currentIndex(), w_->List1->currentRow(), w_->SelectedPane,
                            w_->Text1->text());
    }
    QPoint centre(int k) const { return m_->centre(k); }
    // A square picture written to path with the given modification time.
    static bool writeDated(const QString& path, int side, const QColor& colour, const QDateTime& time) {
        QFile file(path);
        return WriteAll(path, EncodeBmp24(SolidPicture(side, side, colour))) &&
               file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime);
    }
    // Presses at one cell's centre and releases at another point, the pointer moving as a user's.
    void drag(QPoint from, QPoint to, bool busyOnRelease = false) {
        m_->move(from);
        QTest::mousePress(w_->picStage, Qt::LeftButton, {}, from);
        m_->move(to, Qt::LeftButton);
        project().IsBusy = busyOnRelease;
        QTest::mouseRelease(w_->picStage, Qt::LeftButton, {}, to);
    }

private slots:
    void init() {
        m_ = std::make_unique<StartedMain>();
        w_ = m_->w.get();
    }

    void layoutFromWorkArea() {
        // On a 3 x 3 project the pictures are re-scaled to 694 / 3 = 231 while the board is drawn
        // with cells of 679 / 3 = 226: the two cells differ on purpose.
        shape(3, 2);
        give(1, Qt::red, "Red");
        w_->ArrangeMainWindow();
        QCOMPARE(Joined(w_->LastWorkAreaWidth, w_->StageFullSize, w_->StageSize, w_->CellSize,
                        QImage(project().Panes(1).ImageFile).size(), w_->picStage->geometry(),
                        w_->picSideBar->geometry(), w_->Toolbar1->x(), w_->Toolbar1->width(),
                        w_->Combo_PageView->x(), w_->Combo_PageView->width()),
                 "1024|694|679|226|231x231|(0,0)1024x694|(697,3)324x692|6|312|66|240");
    }

    void resizeErrorWhenTallerThanWide() {
        w_->WorkArea = [] { return QRect(0, 0, 600, 800); };
        w_->ArrangeMainWindow();
        w_->ArrangeMainWindow();
        QCOMPARE(m_->prompts.messages.size(), 1);
        const auto& shown = m_->prompts.messages[0];
        QCOMPARE(Joined(shown.title, shown.text, shown.icon == MsgIcon::Exclamation),
                 "Kelvrin : Resize Error|I experienced an error whilst trying to resize; Please reset Kelvrin.|1");
        // The stage itself was already placed when the side bar failed.
        QCOMPARE(w_->picStage->size(), QSize(600, 754));
    }

    void blankBoardShowsCheckerboardsAndNumbers() {
        shape(3, 2);
        w_->SetBoardIndex(1);
        const auto dark = [this](QRect r) { // black pixels in a rectangle of the stage
            int n = 0;
            for (int y = r.top(); y <= r.bottom(); ++y)
                for (int x = r.left(); x <= r.right(); ++x)
                    n += stagePixel({x, y}).lightness() < 64;
            return n;
        };
        for (int k = 1; k <= 9; ++k) {
            const QPoint at((k - 1) % 3 * 226, (k - 1) / 3 * 226);
            // The 32-pixel checkerboard stretched to the cell: eight squares a side.
            QCOMPARE(pixels({at + QPoint(40, 40), at + QPoint(70, 40), at + QPoint(40, 70)}),
                     "#c0c0c0|#ffffff|#ffffff");
            // The pane number, black under white, sits in the top-left corner and nowhere else.
            const int number = dark(QRect(at, QSize(30, 20)));
            QVERIFY2(number > 5 && dark(QRect(at, QSize(226, 226))) == number,
                     qPrintable(QString::number(k)));
        }
    }

    void clicksSelectAndLostWorkingFiles() {
        shape(3, 2);
        give(10, Qt::red, "Red");
        give(11, Qt::blue, "Blue");
        QVERIFY(QFile::remove(project().Panes(11).ImageFile));
        w_->SetBoardIndex(1);
        // Pane 11 lost its working picture: blank.
        QCOMPARE(pixels({{113, 113}, {225, 225}, {226 + 40, 40}}), "#ff0000|#ff0000|#c0c0c0");
        QVERIFY(project().Panes(11).ImageFile == kNone &&
                project().Panes(10).ImageFile.endsWith("Red-0010.BMP"));
        // A click on the red pane selects it and enables the picture commands; its text stays.
        project().Panes(10).Text = "Ten";
        m_->move(centre(1));
        QTest::mouseClick(w_->picStage, Qt::LeftButton, {}, centre(1));
        QCOMPARE(Joined(w_->SelectedPane, w_->List1->currentRow(), project().Panes(10).Text, m_->popups.size(),
                        w_->mnu_FlipHorizontally->isEnabled(), w_->mnu_MakeBlank->isEnabled()),
                 "10|9|Ten|0|1|1");
    }

    void boardPicturesReadAgainOnlyWhenTheirFilesChange() {
        shape(3, 2);
        give(1, Qt::red, "Red");
        give(2, Qt::blue, "Blue");
        const WorkingPictureCache& cache = w_->BoardPictures;
        // Files taken as settled at once: redraws, hovers and clicks read nothing.
        w_->BoardPictures = WorkingPictureCache(0);
        w_->DrawCurrentBoard();
        m_->move(centre(2));
        QTest::mouseClick(w_->picStage, Qt::LeftButton, {}, centre(2));
        w_->DrawCurrentBoard();
        QCOMPARE(Joined(cache.Reads(), cache.Held()), "2|2");

        // Rewritten in place from outside, same size and inode: the new modification time tells.
        const QString one = project().Panes(1).ImageFile, two = project().Panes(2).ImageFile;
        const QDateTime before = QFileInfo(two).lastModified();
        const int side = QImage(one).width();
        QVERIFY(writeDated(one, side, Qt::green, before.addSecs(-60)));
        // Put back by a rename, as an undo may, with the modification time of the file it replaces.
        const QString kept = m_->path("kept.bmp");
        QVERIFY(writeDated(kept, side, Qt::cyan, before));
        QVERIFY(QFile::remove(two) && QFile::rename(kept, two));
        w_->DrawCurrentBoard();
        QCOMPARE(pixels({centre(1), centre(2)}), "#00ff00|#00ffff");
        QCOMPARE(cache.Reads(), 4);
    }

    void hoverOutlineAndLabel() {
        shape(3, 1);
        project().GlobalHighlightColor = 255; // red
        project().Panes(5).Label = "A label that is far too long for the cell";
        const QImage painted = w_->picStage->Picture;
        m_->move(centre(5));
        QCOMPARE(w_->HoverPane, 5);
        const QPoint at(project().Panes(5).Position[0], project().Panes(5).Position[1]);
        QCOMPARE(
            pixels({at + QPoint(2, 100), at + QPoint(100, 2), at + QPoint(223, 100), at + QPoint(100, 223)}),
            "#ff0000|#ff0000|#ff0000|#ff0000");
        // Moving on wipes the outline from the snapshot; the panes are not drawn again.
        m_->move(centre(1));
        QCOMPARE(Joined(w_->HoverPane, stagePixel(at + QPoint(2, 100))), Joined(1, painted.pixelColor(at + QPoint(2, 100))));
        QCOMPARE(Joined(frmMain::HoverLabel(project().Panes(5).Label, 226.0f),
                        frmMain::HoverLabel("Twenty-five characters ok", 226.0f), frmMain::HoverLabel(kToUse, 226.0f)),
                 "A label that is far too l...|Twenty-five characters ok|");
    }

    void navigationBetweenBoards() {
        shape(3, 5);
        w_->SetBoardIndex(2);
        QCOMPARE(selection(), "2|18|19|ToUse");
        QVERIFY(w_->ButtonBack->isEnabled() && w_->ButtonNext->isEnabled());
        w_->ButtonBack->click();
        QCOMPARE(selection(), "1|9|10|ToUse");
        w_->SetBoardIndex(4);
        QVERIFY(!w_->ButtonNext->isEnabled());
        w_->Toolbar1_ButtonClick("Next");
        QCOMPARE(w_->Combo_PageView->currentIndex(), 4);
        // Page Up and Page Down on the window step through the boards.
        w_->show();
        w_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w_));
        QTest::keyClick(w_, Qt::Key_PageUp);
        QTest::keyClick(w_, Qt::Key_PageUp);
        QTest::keyClick(w_, Qt::Key_PageDown);
        QCOMPARE(w_->Combo_PageView->currentIndex(), 3);
        w_->hide();

        shape(2, 100);
        const QStringList boards = ItemsOf(w_->Combo_PageView);
        QCOMPARE(Joined(boards.size(), boards.first(), boards.last()), "100|Board 01|Board 100");

        // The edit row drops a fixed five characters, so pane 1000's text keeps a leading blank.
        shape(5, 40);
        project().Panes(1000).Text = "Last";
        w_->FillLists(5, 40, w_->StageSize, false);
        w_->List1->setCurrentRow(999);
        w_->List1_MouseDown(Qt::LeftButton, {}, 5, 5);
        QCOMPARE(selection(), "39|999|1000| Last");
    }

    void paneList() {
        shape(2, 3);
        project().Panes(7).Text = "Seven";
        w_->FillLists(2, 3, w_->StageSize, false);
        // A left click on pane 7 shows board 2 and keeps pane 7 selected with its text.
        QTest::mouseClick(w_->List1->viewport(), Qt::LeftButton, {},
                          w_->List1->visualItemRect(w_->List1->item(6)).center());
        QCOMPARE(selection(), "1|6|7|Seven");

        // Swap writes the edit row, trimmed, into pane and list; an empty row never.
        w_->Text1->setText("  Shot 7  ");
        w_->cmdButton->click();
        QCOMPARE(Joined(w_->List1->item(6)->text(), project().Panes(7).Text), "007. Shot 7|Shot 7");
        w_->Text1->clear();
        w_->SwapItemText();
        QCOMPARE(Joined(w_->cmdButton->isEnabled(), project().Panes(7).Text), "0|Shot 7");
        // A text longer than the edit row allows is shown and swapped back whole; typing stops at 256.
        const QString longText(300, 'w');
        project().Panes(7).Text = longText;
        w_->FillLists(2, 3, w_->StageSize, false);
        w_->List1->setCurrentRow(6);
        w_->List1_MouseDown(Qt::LeftButton, {}, 5, 5);
        QTest::keyClicks(w_->Text1, "x");
        QCOMPARE(w_->Text1->text(), longText);
        QTest::keyClick(w_->Text1, Qt::Key_Return); // Enter in the edit row is the swap button
        QCOMPARE(project().Panes(7).Text, longText);
        w_->Text1->clear();
        QTest::keyClicks(w_->Text1, QString(260, 'y'));
        QCOMPARE(w_->Text1->text().size(), 256);
        w_->mnu_Remove_Click();
        QCOMPARE(Joined(w_->List1->item(6)->text(), project().Panes(7).Text), "007. ToUse|ToUse");

        // "Clear All" resets the records one below the items: pane 12 keeps its text.
        for (int i = 0; i <= 12; ++i)
            project().Panes(i).Text = QString("T%1").arg(i);
        w_->mnu_ClearAll_Click();
        QCOMPARE(Joined(w_->List1->count(), w_->List1->item(0)->text(), w_->List1->item(11)->text(),
                        project().Panes(0).Text, project().Panes(11).Text, project().Panes(12).Text),
                 "12|001. ToUse|012. ToUse|ToUse|ToUse|T12");
    }

    void dragExchangesPanes() {
        // The line keeps its colour until the board's properties are accepted, whatever the
        // project (an opened one, say) holds.
        project().MoveHighlightColor = 255;
        shape(3, 2);
        give(3, Qt::red, "Red");
        give(7, Qt::blue, "Blue");
        for (auto [pane, tag] : {std::pair{3, "Three"}, {7, "Seven"}}) {
            Pane& p = project().Panes(pane);
            p.Text = tag + QString(" text"), p.Label = tag + QString(" label"), p.Url = tag + QString(".htm");
            p.FlipHorizontal = pane == 3;
        }
        w_->FillLists(3, 2, w_->StageSize, false);
        // Everything of a pane but the cell table, which stays with the cell.
        const auto content = [this](int pane) { return PaneFields(project().Panes(pane)).first(8); };
        const Values three = content(3), seven = content(7);

        QWidget* stage = w_->picStage;
        const QPoint to = centre(7) + QPoint(20, 10);
        m_->move(centre(3));
        QTest::mousePress(stage, Qt::LeftButton, {}, centre(3));
        m_->move(to, Qt::LeftButton);
        const StageView::LineShape& line = w_->picStage->Line1;
        QCOMPARE(Joined(w_->DragActive, stage->cursor().shape() == Qt::SizeAllCursor, line.Visible,
                        QPoint(line.X1, line.Y1), QPoint(line.X2, line.Y2), line.BorderColor),
                 Joined(true, true, true, centre(3), to, QColor(0, 255, 0)));
        QTest::mouseRelease(stage, Qt::LeftButton, {}, to);

        QCOMPARE(content(3), seven);
        QCOMPARE(content(7), three);
        QCOMPARE(Joined(w_->List1->item(2)->text(), w_->List1->item(6)->text()),
                 "003. Seven text|007. Three text");
        QVERIFY(!w_->DragActive && !line.Visible && stage->cursor().shape() != Qt::SizeAllCursor);
        QCOMPARE(pixels({centre(3), centre(7)}), "#0000ff|#ff0000");

        // A mouse-up while the program is busy is ignored altogether.
        drag(centre(3), centre(7), true);
        QVERIFY(w_->DragActive && line.Visible);
        QCOMPARE(project().Panes(3).Text, "Seven text");
    }

    void boardByKeyboard() {
        give(1, Qt::red, "p1");
        project().Panes(1).Text = "Dawn";
        project().Panes(1).Label = "Start";
        w_->DrawCurrentBoard();
        StageView* stage = w_->picStage;
        QAccessibleInterface* board = QAccessible::queryAccessibleInterface(stage);
        QCOMPARE(board->text(QAccessible::Name) + ": " + board->text(QAccessible::Description),
                 "Board: Pane 1 of board 1: picture p1, label Start, text Dawn");

        // Arrows select as a click does: list, Pane menu; the edit row stays as it was.
        w_->Text1->setText("typed");
        QTest::keyClick(stage, Qt::Key_Right);
        QCOMPARE(Joined(w_->List1->currentRow(), w_->mnu_FlipHorizontally->isEnabled(), w_->Text1->text(),
                        board->text(QAccessible::Description)),
                 "1|0|typed|Pane 2 of board 1: no picture, no label, no text");
        QTest::keyClick(stage, Qt::Key_Down);
        QTest::keyClick(stage, Qt::Key_Down); // the board's edge holds
        QCOMPARE(w_->SelectedPane, qint16(4));

        // Ctrl+arrow carries the pane, exchanging as a drop does, and it stays selected.
        QTest::keyClick(stage, Qt::Key_Home);
        QTest::keyClick(stage, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(Joined(w_->SelectedPane, project().Panes(1).SourceStem, w_->List1->item(2)->text(),
                        w_->mnu_Closeup->isEnabled()),
                 "3|none|003. Dawn|1");

        // Shift+F10 and the Menu key are a right click on the selected pane's centre.
        QTest::keyClick(stage, Qt::Key_F10, Qt::ShiftModifier);
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0), Qt::NoModifier);
        QApplication::sendEvent(stage, &menuKey);
        const QPair<QMenu*, QPoint> popup{w_->mnu_Panes, stage->mapToGlobal(centre(3))};
        QCOMPARE(m_->popups, (QList<QPair<QMenu*, QPoint>>{popup, popup}));
        QVERIFY(!w_->DragActive);
    }
};

QTEST_MAIN(TestStage)
#include "test_stage.moc"
