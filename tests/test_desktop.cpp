// The program without a mouse: the board and the pane list by keyboard, what assistive
// technologies read of the board, and Escape in the dialogs.
#include "dialogs/frmabout.h"
#include "dialogs/frmaddnew.h"
#include "dialogs/frmcloseup.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmhtml.h"
#include "dialogs/frmmsgbox.h"
#include "dialogs/frmoptions.h"
#include "images/paneimage.h"
#include "support/mainwindow.h"
#include "support/testpictures.h"

#include <QAccessible>
#include <QtTest>

namespace {
void givePicture(StartedMain& m, int pane, const QString& text) {
    const QString path = m.path(QStringLiteral("p%1.bmp").arg(pane));
    QVERIFY(WriteBmp(SolidPicture(40, 40, Qt::red), path));
    Pane& p = m.project.Panes(pane);
    p.SourceFile = p.ImageFile = path;
    p.SourceStem = QStringLiteral("p%1").arg(pane);
    p.Text = text;
    StorePaneImage(m.project, static_cast<qint16>(pane), m.w->CellSize, true);
}
} // namespace

class TestDesktop : public QObject {
    Q_OBJECT
private slots:
    void boardByKeyboard();
    void paneListByKeyboard();
    void escapeAndTabInDialogs();
};

void TestDesktop::boardByKeyboard() {
    StartedMain m;
    givePicture(m, 1, QStringLiteral("Dawn"));
    m.project.Panes(1).Label = QStringLiteral("Start");
    m.w->DrawCurrentBoard();
    QList<QPoint> popups;
    m.w->ShowPopup = [&](QMenu& menu, const QPoint& at) {
        if (&menu == m.w->mnu_Panes) popups.append(at);
    };
    StageView* stage = m.w->picStage;
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(stage);
    QCOMPARE(board->text(QAccessible::Name) + QStringLiteral(": ") + board->text(QAccessible::Description),
             QStringLiteral("Board: Pane 1 of board 1: picture p1, label Start, text Dawn"));

    // Arrows select as a click does: list, Pane menu; the edit row stays as it was.
    m.w->Text1->setText(QStringLiteral("typed"));
    QTest::keyClick(stage, Qt::Key_Right);
    QCOMPARE(m.w->List1->currentRow(), 1);
    QVERIFY(!m.w->mnu_FlipHorizontally->isEnabled());
    QCOMPARE(m.w->Text1->text(), QStringLiteral("typed"));
    QCOMPARE(board->text(QAccessible::Description),
             QStringLiteral("Pane 2 of board 1: no picture, no label, no text"));
    QTest::keyClick(stage, Qt::Key_Down);
    QTest::keyClick(stage, Qt::Key_Down); // the board's edge holds
    QCOMPARE(m.w->SelectedPane, qint16(4));

    // Ctrl+arrow carries the pane, exchanging as a drop does, and it stays selected.
    QTest::keyClick(stage, Qt::Key_Home);
    QTest::keyClick(stage, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(m.w->SelectedPane, qint16(3));
    QCOMPARE(m.project.Panes(1).SourceStem + m.w->List1->item(2)->text(),
             kNone + QStringLiteral("003. Dawn"));
    QVERIFY(m.w->mnu_Closeup->isEnabled());

    // Shift+F10 and the Menu key are a right click on the selected pane's centre.
    QTest::keyClick(stage, Qt::Key_F10, Qt::ShiftModifier);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0), Qt::NoModifier);
    QApplication::sendEvent(stage, &menuKey);
    const QPoint centre = stage->mapToGlobal(QPoint(m.project.Panes(3).Position[0] + int(m.w->CellSize) / 2,
                                                    m.project.Panes(3).Position[1] + int(m.w->CellSize) / 2));
    QCOMPARE(popups, QList<QPoint>({centre, centre}));
    QVERIFY(!m.w->DragActive);
}

void TestDesktop::paneListByKeyboard() {
    StartedMain m;
    m.w->ReshapeProject(2, 2, m.w->StageSize, false);
    m.project.BoardCount = 2;
    m.project.Panes(5).Text = QStringLiteral("Second board");
    m.w->List1->item(4)->setText(QStringLiteral("005. Second board"));
    QList<QMenu*> popups;
    m.w->ShowPopup = [&](QMenu& menu, const QPoint&) { popups.append(&menu); };

    m.w->List1->setCurrentRow(3);
    QTest::keyClick(m.w->List1, Qt::Key_Down);
    QCOMPARE(m.w->Combo_PageView->currentIndex() * 10 + m.w->List1->currentRow(), 14);
    QCOMPARE(m.w->SelectedPane, qint16(5));
    QCOMPARE(m.w->Text1->text(), QStringLiteral("Second board"));
    QTest::keyClick(m.w->List1, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(popups, QList<QMenu*>{m.w->mnu_EditList});

    // Enter in the edit row is the swap button.
    m.w->Text1->setText(QStringLiteral("  Rewritten "));
    QTest::keyClick(m.w->Text1, Qt::Key_Return);
    QCOMPARE(m.project.Panes(5).Text, QStringLiteral("Rewritten"));
}

void TestDesktop::escapeAndTabInDialogs() {
    StartedMain m;
    // Escape answers as Close or Cancel does, and closes the others.
    m.project.DialogReply.ReDim(5);
    m.project.DialogReply2.ReDim(2);
    frmMain& w = *m.w;
    const QList<QDialog*> dialogs = {w.AddNew, w.Options, w.HTML, w.MsgBox, w.Help, w.About, w.CloseUp};
    for (QDialog* d : dialogs) {
        m.project.DialogReply[1] = m.project.DialogReply2[1] = QStringLiteral("unanswered");
        w.MsgBox->Check1->setChecked(true);
        d->show();
        QTest::keyClick(d, Qt::Key_Escape);
        QVERIFY(!d->isVisible());
        if (d == w.MsgBox) {
            QCOMPARE(m.project.DialogReply2[1], QStringLiteral("cancel"));
            QVERIFY(!w.MsgBox->Check1->isChecked());
        } else if (dialogs.indexOf(d) < 3) {
            QCOMPARE(m.project.DialogReply[1], kNone);
        }
    }

    // The properties window tabs top to bottom through the group in view.
    frmOptions* o = w.Options;
    o->PlaceFrames(true);
    o->show();
    QVERIFY(QTest::qWaitForWindowActive(o));
    o->Text1[3]->setFocus();
    const QList<QWidget*> expected = {o->Text1[2], o->Combo_MoveHighlight, o->Button_acceptOrclose[0],
                                      o->Button_acceptOrclose[1], o->Text1[3]};
    for (QWidget* next : expected) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
    o->hide();

    // Up and Down in the number of boards step it.
    w.AddNew->Text_BoardAmount->setText(QStringLiteral("005"));
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(w.AddNew->Text_BoardAmount, key);
    QCOMPARE(w.AddNew->Text_BoardAmount->text(), QStringLiteral("006"));
}

QTEST_MAIN(TestDesktop)
#include "test_desktop.moc"
