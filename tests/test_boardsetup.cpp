// Board setup: the board count box's rules, accepting and closing, and what a new shape keeps.
#include "dialogs/frmaddnew.h"
#include "images/paneimage.h"
#include "model/boardsetup.h"
#include "support/mainwindow.h"
#include "support/testpictures.h"

#include <QtTest>

class TestBoardSetup : public QObject {
    Q_OBJECT
private slots:
    void typingAndStepping();
    void acceptingClampsAndClosingChangesNothing();
    void keepAndDiscardAcrossShrinkAndRegrow();
};

namespace {
// Change Project with the grid entry and the typed count; button 1 accepts, 0 closes, -1 is the close box.
void changeProject(StartedMain& m, int grid, const QString& count, bool keep, int button = 1) {
    frmAddNew* d = m.w->AddNew;
    m.w->ShowModal = [=](QDialog&) {
        d->Combo_MatrixSize->setCurrentIndex(grid);
        d->Text_BoardAmount->setText(count);
        d->Option1[keep ? 1 : 0]->setChecked(true);
        if (button < 0)
            d->reject();
        else
            d->Button_acceptOrclose[button]->click();
    };
    m.w->mnu_ChangeProject->trigger();
}
} // namespace

void TestBoardSetup::typingAndStepping() {
    StartedMain m;
    frmAddNew* d = m.w->AddNew;
    d->Combo_MatrixSize->setCurrentIndex(2);
    QCOMPARE(d->Label1->text(), QStringLiteral("Max 62 boards x 16 panes = 992 panes"));
    const QList<QPair<QString, QString>> typed{{"", "062"},   {" 1 2 ", "12"}, {"x5", "062"},
                                               {"99", "062"}, {"0", "0"},      {"5abc", "5abc"}};
    for (const auto& [text, shown] : typed) {
        d->Text_BoardAmount->setText(text);
        QCOMPARE(d->Text_BoardAmount->text(), shown);
        QCOMPARE(d->Text_BoardAmount->selectedText(), shown == QLatin1String("062") ? shown : QString());
    }
    d->Text_BoardAmount->setText(QStringLiteral("2"));
    d->UpDownDown->click();
    d->UpDownDown->click();
    QCOMPARE(d->Text_BoardAmount->text(), QStringLiteral("001"));
    QCOMPARE(d->Text_BoardAmount->selectedText(), QStringLiteral("001"));
    d->Text_BoardAmount->setText(QStringLiteral("61"));
    d->UpDownUp->click();
    d->UpDownUp->click();
    QCOMPARE(d->Text_BoardAmount->text(), QStringLiteral("062"));
    QCOMPARE(AcceptedBoardAmount(QString(), 62), qint16(1)); // an empty box, which typing never leaves
}

void TestBoardSetup::acceptingClampsAndClosingChangesNothing() {
    StartedMain m;
    changeProject(m, 2, QStringLiteral("0"), true);
    QCOMPARE(m.project.GridSide, qint16(4));
    QCOMPARE(m.project.BoardCount, qint16(1));
    changeProject(m, 2, QStringLiteral("150"), true);
    QCOMPARE(m.project.BoardCount, qint16(62));
    QCOMPARE(m.w->Combo_PageView->itemText(61), QStringLiteral("Board 62"));
    QCOMPARE(m.w->List1->count(), 992);
    QCOMPARE(m.w->List1->item(991)->text(), QStringLiteral("992. ToUse"));

    for (int button : {0, -1}) {
        changeProject(m, 0, QStringLiteral("3"), false, button);
        QCOMPARE(m.project.DialogReply[1], kNone);
        QCOMPARE(m.project.GridSide, qint16(4));
        QCOMPARE(m.project.BoardCount, qint16(62));
        QCOMPARE(m.w->List1->count(), 992);
    }
}

void TestBoardSetup::keepAndDiscardAcrossShrinkAndRegrow() {
    StartedMain m;
    const QString source = m.path(QStringLiteral("Sky.bmp"));
    QVERIFY(WriteBmp(QuadrantPicture(50, 50), source));
    changeProject(m, 0, QStringLiteral("10"), true);
    for (int p : {5, 40}) {
        m.project.Panes(p).SourceFile = source;
        m.project.Panes(p).SourceStem = QStringLiteral("Sky");
        StorePaneImage(m.project, static_cast<qint16>(p), m.w->CellSize, true);
    }
    m.project.Panes(40).Text = QStringLiteral("Last shot");
    const QString last = m.project.Panes(40).ImageFile;

    changeProject(m, 0, QStringLiteral("5"), true);
    QCOMPARE(m.w->List1->count(), 20);
    changeProject(m, 0, QStringLiteral("10"), true);
    QCOMPARE(m.project.Panes(40).ImageFile, last);
    QCOMPARE(m.w->List1->item(39)->text(), QStringLiteral("040. Last shot"));
    // A new grid keeps panes by index, rebuilt at the new cell size.
    changeProject(m, 1, QStringLiteral("10"), true);
    QVERIFY(qAbs(m.w->CellSize - m.w->StageSize / 3) <= 0.5);
    QCOMPARE(QImage(m.project.Panes(5).ImageFile).width(), qRound(m.w->CellSize));

    changeProject(m, 1, QStringLiteral("10"), false);
    for (int p : {0, 5, 40, 1000})
        QCOMPARE(m.project.Panes(p).SourceStem, kNone);
    QVERIFY(QFileInfo::exists(last));
    QCOMPARE(m.w->List1->item(39)->text(), QStringLiteral("040. ToUse"));
    // The text stayed in the record and comes back with the next rebuild from the records.
    changeProject(m, 1, QStringLiteral("10"), true);
    QCOMPARE(m.w->List1->item(39)->text(), QStringLiteral("040. Last shot"));
}

QTEST_MAIN(TestBoardSetup)
#include "test_boardsetup.moc"
