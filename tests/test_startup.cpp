// Start-up and shut-down of the main window as a user meets them, the working folders of programs
// side by side, and the run-time error that ends the program.
#include "dialogs/frmaddnew.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmhtml.h"
#include "dialogs/frmoptions.h"
#include "export/htmlwords.h"
#include "model/workfolder.h"
#include "stage/application.h"
#include "support/mainwindow.h"

#include <QMenuBar>

namespace {
// An object whose event handler fails the way an untrapped file error does.
class Failing : public QObject {
public:
    bool event(QEvent* e) override {
        if (e->type() == QEvent::User) throw RunTimeError::FileNotFound("/nowhere/trip.kv1");
        return QObject::event(e);
    }
};
// The items of a combo box with the colour value each stands for.
QString coloursOf(const QComboBox* combo) {
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i) + "=" + combo->itemData(i).toString();
    return items.join(", ") + " (" + combo->currentText() + ")";
}
QString captionsOf(const QList<QAction*>& actions) {
    QStringList captions;
    for (QAction* a : actions)
        captions << (a->isSeparator() ? "-" : a->text().remove('&'));
    return captions.join(", ");
}
} // namespace

class TestStartup : public QObject {
    Q_OBJECT
private slots:
    void firstStartShowsDefaultProject() {
        StartedMain m;
        frmMain* w = m.w.get();
        QCOMPARE(w->windowTitle(), "Kelvrin 1 : 2002 Edition - [Orvane Works]");
        QCOMPARE(ItemsOf(w->Combo_PageView), QStringList{"Board 01"});
        QCOMPARE(ItemsOf(w->List1), (QStringList{"001. ToUse", "002. ToUse", "003. ToUse", "004. ToUse"}));
        QCOMPARE(Joined(m.project.GridSide, m.project.BoardCount, m.project.GlobalHighlightColor,
                        m.project.MoveHighlightColor, m.project.Panes(1000).SourceStem, m.project.IsBusy),
                 "2|1|65280|65280|none|0");
        QVERIFY(QFileInfo(m.project.WorkFolder).isDir() && QDir(m.project.WorkFolder).isEmpty());
        // One board: neither Back nor Next leads anywhere; the first pane is selected with its text.
        QCOMPARE(Joined(w->ButtonBack->isEnabled(), w->ButtonNext->isEnabled(), w->ButtonBack->toolTip(),
                        w->ButtonNext->toolTip(), w->SelectedPane, w->Text1->text(), w->cmdButton->text()),
                 "0|0|Navigate last Board|Navigate next Board|1|ToUse|swap");
        QVERIFY(m.prompts.messages.isEmpty());

        // The fixed lists of every window. The move highlight names do not match their colours, on purpose.
        const QStringList grids{"2 x 2", "3 x 3", "4 x 4", "5 x 5"};
        QCOMPARE(ItemsOf(w->AddNew->Combo_MatrixSize), grids);
        QCOMPARE(ItemsOf(w->HTML->Combo_GridSize), grids);
        QVERIFY(w->AddNew->Combo_MatrixSize->currentIndex() == 0 &&
                w->HTML->Combo_GridSize->currentIndex() == 0 && w->HTML->Check2->isChecked());
        QCOMPARE(coloursOf(w->Options->Combo_MoveHighlight),
                 "Blue - Light=255, Blue - Dark=65535, Yellow=16711680, Pink=65280 (Pink)");
        QCOMPARE(coloursOf(w->Options->Combo_GridHighlight),
                 "Black=0, White=16777215, Red=255, Green=65280, Blue=16711680, Yellow=65535 (Green)");
        const QStringList topics = ItemsOf(w->Help->Combo_HelpTopic);
        QCOMPARE(Joined(topics.size(), topics.first(), topics[18], topics.last(),
                        w->Help->Combo_HelpTopic->currentIndex()),
                 "46|About|Labels Show As ALT Tag Property|URL|0");
        QVERIFY(m.project.HtmlWords[0].isEmpty()); // the word table, whose words the page test pins
        for (int i = 1; i <= 30; ++i)
            QCOMPARE(m.project.HtmlWords[i], LoadResString(100 + i));
    }

    void menusHoldEveryCommand() {
        StartedMain m;
        QStringList menus;
        for (QAction* a : m.w->menuBar()->actions())
            menus << a->text().remove('&') + ": " + captionsOf(a->menu()->actions());
        menus << "(pane list) " + captionsOf(m.w->mnu_EditList->actions());
        QCOMPARE(menus,
                 QStringList({"File: Open Project, Save Project As, Change Project, -, Export As Html, -, "
                              "Open Recent, -, Exit",
                              "Board: Change Project, Properties, -, Image Shuffle",
                              "Pane: Picture ..., Mass Image Import ..., -, Flip Horizontally, Flip "
                              "Vertically, Make as Blank, -, CloseUp, Properties",
                              "Help: Help, About", "(pane list) Swap Item, -, Remove Item, -, Clear All"}));
        // Nothing is selected on the stage yet: the picture commands wait for a pane with a picture.
        QVERIFY(!m.w->mnu_FlipHorizontally->isEnabled() && !m.w->mnu_Closeup->isEnabled());
    }

    void shutDownRemovesWorkFolder() {
        for (bool byMenu : {false, true}) {
            StartedMain m;
            QFile picture(m.project.WorkFolder + "/Unsaved-0001.BMP");
            QVERIFY(picture.open(QIODevice::WriteOnly) && picture.write("BM") == 2);
            picture.close();
            picture.setPermissions(QFile::ReadOwner); // read-only files go too
            m.w->show();
            byMenu ? m.w->mnu_Exit->trigger() : void(m.w->close());
            QVERIFY(!QFileInfo::exists(m.project.WorkFolder) && m.prompts.messages.isEmpty());
        }
        // A folder left over from before is used as it is.
        StartedMain m(false);
        const QString stale = m.project.WorkFolder + "/Old-0002.BMP";
        QVERIFY(QDir().mkpath(m.project.WorkFolder) && WriteAll(stale, {}));
        m.start();
        QVERIFY(QFileInfo::exists(stale) && m.w->List1->count() == 4 && m.prompts.messages.isEmpty());
    }

    void runTimeErrorIsReportedAndEnds() {
        auto* app = qobject_cast<KelvrinApplication*>(QCoreApplication::instance());
        QVERIFY(app);
        ScriptedPrompts prompts;
        QList<int> exits;
        app->SetPrompts(&prompts);
        app->SetExitHandler([&exits](int code) { exits << code; });
        Failing failing;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&failing, &event);
        app->SetPrompts(nullptr);
        QCOMPARE(exits, QList<int>{1});
        QCOMPARE(prompts.messages.size(), 1);
        QCOMPARE(Joined(prompts.messages[0].title, prompts.messages[0].text),
                 "Kelvrin|Run-time error '53':\n\nFile not found: /nowhere/trip.kv1");
    }

    void programsSideBySideKeepTheirOwnFolders() {
        QTemporaryDir dir;
        const QString program = dir.path();
        auto first = std::make_unique<WorkFolderClaim>(program);
        QCOMPARE(first->path(), program + "/MyProjects");
        QCOMPARE(WorkFolderClaim(program).path(), program + "/MyProjects-2");
        first.reset();
        QCOMPARE(WorkFolderClaim(program).path(), program + "/MyProjects");

        // A folder left by a program that crashed is taken over with its pictures.
        QVERIFY(WriteAll(program + "/MyProjects.lock",
                         "2147480000\nkelvrin\n" + QSysInfo::machineHostName().toUtf8() + "\n"));
        QVERIFY(WriteAll(program + "/MyProjects/Old-0001.BMP", {}));
        QCOMPARE(WorkFolderClaim(program).path(), program + "/MyProjects");
        QVERIFY(QFileInfo::exists(program + "/MyProjects/Old-0001.BMP"));

        // A program folder that cannot be written (here: not a folder at all) sends the pictures to
        // the user's cache folder.
        qputenv("XDG_CACHE_HOME", dir.filePath("cache").toUtf8());
        const WorkFolderClaim installed(dir.filePath("MyProjects/Old-0001.BMP"));
        QCOMPARE(installed.path(), dir.filePath("cache/kelvrin/MyProjects"));
        QVERIFY(QFileInfo(installed.path()).isDir());
    }
};

int main(int argc, char** argv) {
    KelvrinApplication app(argc, argv);
    TestStartup test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_startup.moc"
