// The modal windows: board setup with its count box and what a new shape keeps, the properties
// window in its two modes, the help texts, and Escape and Tab in every window.
#include "dialogs/frmabout.h"
#include "dialogs/frmaddnew.h"
#include "dialogs/frmcloseup.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmhtml.h"
#include "dialogs/frmmsgbox.h"
#include "dialogs/frmoptions.h"
#include "support/mainwindow.h"

namespace {
// Change Project with the grid entry and the typed count; button 1 accepts, 0 closes, -1 is the close box.
void changeProject(StartedMain& m, int grid, const QString& count, bool keep, int button = 1) {
    frmAddNew* d = m.w->AddNew;
    m.w->ShowModal = [=](QDialog&) {
        d->Combo_MatrixSize->setCurrentIndex(grid);
        d->Text_BoardAmount->setText(count);
        d->Option1[keep ? 1 : 0]->setChecked(true);
        button < 0 ? d->reject() : d->Button_acceptOrclose[button]->click();
    };
    m.w->mnu_ChangeProject->trigger();
}
} // namespace

class TestDialogs : public QObject {
    Q_OBJECT
private slots:
    void boardCountTypingAndStepping() {
        StartedMain m;
        frmAddNew* d = m.w->AddNew;
        d->Combo_MatrixSize->setCurrentIndex(2);
        QCOMPARE(d->Label1->text(), "Max 62 boards x 16 panes = 992 panes");
        // Typed | shown | selected: a refused entry shows the maximum, selected.
        for (const QString row : {"|062|062", " 1 2 |12|", "x5|062|062", "99|062|062", "0|0|", "5abc|5abc|",
                                  "1e3|062|062", "1e1|1e1|", "62.5|062|062"}) {
            d->Text_BoardAmount->setText(row.section('|', 0, 0));
            QCOMPARE(Joined(row.section('|', 0, 0), d->Text_BoardAmount->text(),
                            d->Text_BoardAmount->selectedText()),
                     row);
        }
        // Start | steps (d, u: the buttons; D, U: the arrow keys) | shown. Steps stop at 62 and 1, and
        // start from the whole text's number; stepping down to 1 leaves it selected.
        for (const QString row : {"61|uu|062", "1e1|d|009", "005|UUD|006", "2|dd|001"}) {
            d->Text_BoardAmount->setText(row.section('|', 0, 0));
            for (const QChar step : row.section('|', 1, 1)) {
                if (step == 'd' || step == 'u')
                    (step == 'd' ? d->UpDownDown : d->UpDownUp)->click();
                else
                    QTest::keyClick(d->Text_BoardAmount, step == 'U' ? Qt::Key_Up : Qt::Key_Down);
            }
            QCOMPARE(Joined(row.section('|', 0, 0), row.section('|', 1, 1), d->Text_BoardAmount->text()),
                     row);
        }
        QCOMPARE(d->Text_BoardAmount->selectedText(), "001");
    }

    void acceptCloseKeepAndDiscard() {
        StartedMain m;
        // Accepting converts the whole text, halves to even; a text that is no number gives one board.
        const std::pair<const char*, int> accepted[] = {{"1e1", 10}, {"1.5", 2}, {"2.5", 2}, {"7abc", 1}};
        for (auto [typed, boards] : accepted) {
            changeProject(m, 0, typed, true);
            QVERIFY2(m.project.BoardCount == boards, typed);
        }

        changeProject(m, 2, "0", true);
        QCOMPARE(Joined(m.project.GridSide, m.project.BoardCount), "4|1");
        changeProject(m, 2, "150", true);
        QCOMPARE(Joined(m.project.BoardCount, m.w->Combo_PageView->itemText(61), m.w->List1->count(),
                        m.w->List1->item(991)->text()),
                 "62|Board 62|992|992. ToUse");
        for (int button : {0, -1}) { // Close and the close box change nothing
            changeProject(m, 0, "3", false, button);
            QCOMPARE(Joined(m.project.DialogReply[1], m.project.GridSide, m.project.BoardCount,
                            m.w->List1->count()),
                     "none|4|62|992");
        }

        changeProject(m, 0, "10", true);
        for (int p : {5, 40, 1000}) // pane 1000 too, though far past this project
            m.give(p, QuadrantPicture(50, 50), "Sky");
        m.project.Panes(40).Text = "Last shot";
        const QString last = m.project.Panes(40).ImageFile;
        changeProject(m, 0, "5", true);
        changeProject(m, 0, "10", true);
        QCOMPARE(m.project.Panes(40).ImageFile + m.w->List1->item(39)->text(), last + "040. Last shot");
        changeProject(m, 1, "10", false);
        for (int p : {0, 5, 40, 1000})
            QCOMPARE(m.project.Panes(p).SourceStem, kNone);
        QVERIFY(QFileInfo::exists(last));
        QCOMPARE(m.w->List1->item(39)->text(), "040. ToUse");
        // The text stayed in the record and comes back with the next rebuild from the records.
        changeProject(m, 1, "10", true);
        QCOMPARE(m.w->List1->item(39)->text(), "040. Last shot");
    }

    void propertiesInBothModes() {
        StartedMain m;
        frmOptions* o = m.w->Options;
        m.project.BoardTitle = "Storm";
        m.project.GlobalHighlightColor = 16711680;
        QColor lineWhileOpen;
        m.w->ShowModal = [&](QDialog&) {
            QVERIFY(o->Frame1[0]->x() >= 0 && o->Frame1[1]->x() < 0);
            QCOMPARE(o->Combo_MoveHighlight->currentText() + o->Text1[3]->text() + o->Text1[2]->text(),
                     "PinkStormToUse");
            o->Text1[3]->setText("  Night  shoot ");
            o->Text1[2]->setText("    ");
            o->Combo_MoveHighlight->setCurrentIndex(0); // "Blue - Light" is red
            o->Text1[0]->setText("not stored");
            o->Button_acceptOrclose[1]->click();
            lineWhileOpen = m.w->picStage->Line1.BorderColor;
        };
        m.w->mnu_BoardOptions->trigger();
        // The footer is left empty, not "ToUse".
        QCOMPARE(Joined(m.project.BoardTitle, m.project.FooterText, m.project.MoveHighlightColor,
                        lineWhileOpen, m.project.Panes(1).Label),
                 "Night  shoot||255|#ff0000|ToUse");

        m.w->SelectedPane = 3;
        m.w->ShowModal = [&](QDialog&) {
            QVERIFY(o->Frame1[0]->x() < 0 && o->Frame1[1]->x() >= 0);
            QCOMPARE(o->Combo_GridHighlight->currentText(), "Blue");
            o->Text1[0]->setText("   ");
            o->Text1[1]->setText(" www.example.org/a b ");
            o->Combo_GridHighlight->setCurrentIndex(5);
            o->Text1[3]->setText("not stored");
            o->Button_acceptOrclose[1]->click();
        };
        m.w->mnu_Options->trigger();
        QCOMPARE(Joined(m.project.Panes(3).Label, m.project.Panes(3).Url, m.project.GlobalHighlightColor,
                        m.project.BoardTitle),
                 "|www.example.org/a b|65535|Night  shoot");

        // Texts longer than their boxes allow, as a project file may bring, are shown and stored
        // back whole; only typing is held to the limits.
        const QString label(150, 'L'), url(1200, 'u'), title(120, 'T'), footer(300, 'F');
        m.project.Panes(3).Label = label, m.project.Panes(3).Url = url;
        m.project.BoardTitle = title, m.project.FooterText = footer;
        m.w->ShowModal = [&](QDialog&) { o->Button_acceptOrclose[1]->click(); };
        m.w->mnu_Options->trigger();
        m.w->mnu_BoardOptions->trigger();
        QCOMPARE(Joined(m.project.Panes(3).Label, m.project.Panes(3).Url, m.project.BoardTitle,
                        m.project.FooterText),
                 Joined(label, url, title, footer));
        const int limits[4] = {99, 999, 256, 99};
        for (int i = 0; i < 4; ++i) {
            QLineEdit* box = o->Text1[i];
            box->setText(QString(limits[i] - 1, 'x'));
            box->setCursorPosition(0);
            QTest::keyClicks(box, "abc"); // typing stops at the limit, where the cursor is
            QCOMPARE(box->text(), "a" + QString(limits[i] - 1, 'x'));
        }
    }

    void helpTexts() {
        StartedMain m;
        frmHelp* h = m.w->Help;
        QVERIFY(h->Text1->toPlainText().endsWith("using images and words to convey meaning."));
        const auto show = [h](const QString& topic) {
            h->Combo_HelpTopic->setCurrentText(topic);
            return h->Text1->toPlainText();
        };
        for (const QString& topic : HelpTopicNames())
            QVERIFY2(!show(topic).isEmpty(), qPrintable(topic));
        QCOMPARE(show("Back"), "Navigate one board back. ");
        QCOMPARE(
            show("Scale Panes For"),
            "The output makes scaled kelvrin webpages that are centered and suitable for the most popular "
            "display formats. Formats outside this range will require manual changing of the image Height "
            "field. In this event, after generating the html code, do the following :\n\n1. Uncheck the "
            "Auto-create checkbox on the Export tab.\n2. Click the Preview tab. \n3. Locate the heading : "
            "<!--Images---->. \n4. Change the Height % of all affected Images. \n5. ReDo for all Image "
            "instances (point 3). \n6. Click the Accept button on the Export tab.");
        QList<QDialog*> shown;
        m.w->ShowModal = [&](QDialog& d) { shown << &d; };
        m.w->mnu_Help->trigger();
        m.w->mnu_About->trigger();
        QCOMPARE(shown, (QList<QDialog*>{h, m.w->About}));
        QCOMPARE(m.w->About->Label1[0]->text(), "Kelvrin v1.0 - (2002)");
    }

    void escapeAndTabInDialogs() {
        StartedMain m;
        // Escape answers as Close or Cancel does, and closes the others.
        m.project.DialogReply.ReDim(5);
        m.project.DialogReply2.ReDim(2);
        frmMain& w = *m.w;
        const QList<QDialog*> dialogs = {w.AddNew, w.Options, w.HTML, w.MsgBox, w.Help, w.About, w.CloseUp};
        for (QDialog* d : dialogs) {
            m.project.DialogReply[1] = m.project.DialogReply2[1] = "unanswered";
            w.MsgBox->Check1->setChecked(true);
            d->show();
            QTest::keyClick(d, Qt::Key_Escape);
            QVERIFY(!d->isVisible());
            if (d == w.MsgBox)
                QVERIFY(m.project.DialogReply2[1] == "cancel" && !w.MsgBox->Check1->isChecked());
            else if (dialogs.indexOf(d) < 3)
                QCOMPARE(m.project.DialogReply[1], kNone);
        }

        // The properties window tabs top to bottom through the group in view.
        frmOptions* o = w.Options;
        o->PlaceFrames(true);
        o->show();
        QVERIFY(QTest::qWaitForWindowActive(o));
        o->Text1[3]->setFocus();
        for (QWidget* next : QList<QWidget*>{o->Text1[2], o->Combo_MoveHighlight, o->Button_acceptOrclose[0],
                                             o->Button_acceptOrclose[1], o->Text1[3]}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
        o->hide();
    }
};

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
