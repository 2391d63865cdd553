// The properties window in its two modes, and the help texts.
#include "dialogs/frmabout.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmoptions.h"
#include "support/mainwindow.h"

#include <QtTest>

class TestDialogs : public QObject {
    Q_OBJECT
private slots:
    void propertiesInBothModes();
    void helpTexts();
};

void TestDialogs::propertiesInBothModes() {
    StartedMain m;
    frmOptions* o = m.w->Options;
    m.project.BoardTitle = QStringLiteral("Storm");
    m.project.GlobalHighlightColor = 16711680;
    QColor lineWhileOpen;
    m.w->ShowModal = [&](QDialog&) {
        QVERIFY(o->Frame1[0]->x() >= 0 && o->Frame1[1]->x() < 0);
        QCOMPARE(o->Combo_MoveHighlight->currentText(), QStringLiteral("Pink"));
        QCOMPARE(o->Text1[3]->text() + o->Text1[2]->text(), QStringLiteral("StormToUse"));
        o->Text1[3]->setText(QStringLiteral("  Night  shoot "));
        o->Text1[2]->setText(QStringLiteral("    "));
        o->Combo_MoveHighlight->setCurrentIndex(0); // "Blue - Light" is red
        o->Text1[0]->setText(QStringLiteral("not stored"));
        o->Button_acceptOrclose[1]->click();
        lineWhileOpen = m.w->picStage->Line1.BorderColor;
    };
    m.w->mnu_BoardOptions->trigger();
    QCOMPARE(m.project.BoardTitle, QStringLiteral("Night  shoot"));
    QCOMPARE(m.project.FooterText, QString("")); // empty, not "ToUse"
    QCOMPARE(m.project.MoveHighlightColor, 255);
    QCOMPARE(lineWhileOpen, QColor(255, 0, 0));
    QCOMPARE(m.project.Panes(1).Label, kToUse);

    m.w->SelectedPane = 3;
    m.w->ShowModal = [&](QDialog&) {
        QVERIFY(o->Frame1[0]->x() < 0 && o->Frame1[1]->x() >= 0);
        QCOMPARE(o->Combo_GridHighlight->currentText(), QStringLiteral("Blue"));
        o->Text1[0]->setText(QStringLiteral("   "));
        o->Text1[1]->setText(QStringLiteral(" www.example.org/a b "));
        o->Combo_GridHighlight->setCurrentIndex(5);
        o->Text1[3]->setText(QStringLiteral("not stored"));
        o->Button_acceptOrclose[1]->click();
    };
    m.w->mnu_Options->trigger();
    QCOMPARE(m.project.Panes(3).Label, QString(""));
    QCOMPARE(m.project.Panes(3).Url, QStringLiteral("www.example.org/a b"));
    QCOMPARE(m.project.GlobalHighlightColor, 65535);
    QCOMPARE(m.project.BoardTitle, QStringLiteral("Night  shoot"));

    // Close, and the close box, store nothing.
    for (bool closeBox : {false, true}) {
        m.w->ShowModal = [&](QDialog& d) {
            o->Text1[3]->setText(QStringLiteral("Changed"));
            o->Combo_MoveHighlight->setCurrentIndex(1);
            closeBox ? d.reject() : o->Button_acceptOrclose[0]->click();
        };
        m.w->mnu_BoardOptions->trigger();
        QCOMPARE(m.project.DialogReply[1], kNone);
        QCOMPARE(m.project.BoardTitle, QStringLiteral("Night  shoot"));
        QCOMPARE(m.project.MoveHighlightColor, 255);
    }
}

void TestDialogs::helpTexts() {
    StartedMain m;
    frmHelp* h = m.w->Help;
    QVERIFY(h->Text1->toPlainText().endsWith(QStringLiteral("using images and words to convey meaning.")));
    const auto show = [h](const QString& topic) {
        h->Combo_HelpTopic->setCurrentText(topic);
        return h->Text1->toPlainText();
    };
    for (const QString& topic : HelpTopicNames())
        QVERIFY2(!show(topic).isEmpty(), qPrintable(topic));
    QCOMPARE(show(QStringLiteral("Back")), QStringLiteral("Navigate one board back. "));
    QCOMPARE(show(QStringLiteral("Back")), QStringLiteral("Navigate one board back. "));
    QCOMPARE(show(QStringLiteral("Scale Panes For")),
             QStringLiteral(
                 "The output makes scaled kelvrin webpages that are centered and suitable for the most "
                 "popular display formats. Formats outside this range will require manual changing of the "
                 "image Height field. In this event, after generating the html code, do the following :\n"
                 "\n1. Uncheck the Auto-create checkbox on the Export tab.\n2. Click the Preview tab. \n"
                 "3. Locate the heading : <!--Images---->. \n4. Change the Height % of all affected "
                 "Images. \n5. ReDo for all Image instances (point 3). \n6. Click the Accept button on "
                 "the Export tab."));
    QCOMPARE(show(QStringLiteral("Auto-Create Html Code")),
             QStringLiteral(
                 "Html code is constructed for every board and pane in a single kelvrin project. In the "
                 "Preview window however only a template is visible.  The final output is a \"best-fit\" "
                 "scaled approximation depending the current desktop setting, from the first board to the "
                 "last. To manually edit the existing code without overwriting on a new preview, do the "
                 "following : \n\n1. Ensure Auto-create checkbox is ticked. \n2. Click Preview tab to "
                 "instance a single project output. \n3. Return to the Export tab and uncheck the "
                 "Auto-create checkbox. \n4. Return to the Preview tab. \n5. Make changes between the "
                 "first instance of Titles and Footers. \n6. Repeat for all boards using cut and paste. "
                 "\n7. Click the Accept button on the Export tab. "));
    QList<QDialog*> shown;
    m.w->ShowModal = [&](QDialog& d) { shown << &d; };
    m.w->mnu_Help->trigger();
    m.w->mnu_About->trigger();
    QCOMPARE(shown, (QList<QDialog*>{h, m.w->About}));
    QCOMPARE(m.w->About->Label1[0]->text(), QStringLiteral("Kelvrin v1.0 - (2002)"));
}

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
