// Start-up and shut-down of the main window as a user meets them, and the run-time error that
// ends the program.
#include "dialogs/frmaddnew.h"
#include "dialogs/frmhelp.h"
#include "dialogs/frmhtml.h"
#include "dialogs/frmoptions.h"
#include "model/runtimeerror.h"
#include "model/workfolder.h"
#include "stage/application.h"
#include "stage/frmmain.h"
#include "support/scriptedprompts.h"

#include <QMenuBar>
#include <QTemporaryDir>
#include <QtTest>

namespace {
QStringList itemsOf(const QComboBox* combo) {
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}
QStringList itemsOf(const QListWidget* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->item(i)->text();
    return items;
}

// An object whose event handler fails the way an untrapped file error does.
class Failing : public QObject {
public:
    bool event(QEvent* e) override {
        if (e->type() == QEvent::User) throw RunTimeError::FileNotFound(QStringLiteral("/nowhere/trip.kv1"));
        return QObject::event(e);
    }
};
} // namespace

class TestStartup : public QObject {
    Q_OBJECT
private slots:
    void init();
    void firstStartShowsDefaultProject();
    void fixedListsAreFilled();
    void menusHoldEveryCommand();
    void shutDownRemovesWorkFolder();
    void leftOverWorkFolderIsReused();
    void runTimeErrorIsReportedAndEnds();
    void programsSideBySideKeepTheirOwnFolders();

private:
    std::unique_ptr<frmMain> start();
    std::unique_ptr<QTemporaryDir> dir_;
    Project project_;
    ScriptedPrompts prompts_;
};

void TestStartup::init() {
    dir_ = std::make_unique<QTemporaryDir>();
    project_ = Project();
    project_.ProgramFolder = dir_->path();
    project_.WorkFolder = dir_->filePath(QStringLiteral("MyProjects"));
    prompts_ = ScriptedPrompts();
}

std::unique_ptr<frmMain> TestStartup::start() {
    auto w = std::make_unique<frmMain>(project_, prompts_);
    w->WorkArea = [] { return QRect(0, 0, 1024, 740); };
    w->Form_Load();
    return w;
}

void TestStartup::firstStartShowsDefaultProject() {
    auto w = start();
    QCOMPARE(w->windowTitle(), QStringLiteral("Kelvrin 1 : 2002 Edition - [Orvane Works]"));
    QCOMPARE(itemsOf(w->Combo_PageView), QStringList{QStringLiteral("Board 01")});
    QCOMPARE(w->Combo_PageView->currentIndex(), 0);
    QCOMPARE(itemsOf(w->List1), (QStringList{QStringLiteral("001. ToUse"), QStringLiteral("002. ToUse"),
                                             QStringLiteral("003. ToUse"), QStringLiteral("004. ToUse")}));
    QCOMPARE(project_.GridSide, qint16(2));
    QCOMPARE(project_.BoardCount, qint16(1));
    QCOMPARE(project_.GlobalHighlightColor, 65280);
    QCOMPARE(project_.MoveHighlightColor, 65280);
    QCOMPARE(project_.Panes(1000).SourceStem, kNone);
    QVERIFY(!project_.IsBusy);
    QVERIFY(QFileInfo(project_.WorkFolder).isDir());
    QVERIFY(QDir(project_.WorkFolder).isEmpty());
    // One board: neither Back nor Next leads anywhere; the first pane is selected with its text.
    QVERIFY(!w->ButtonBack->isEnabled());
    QVERIFY(!w->ButtonNext->isEnabled());
    QCOMPARE(w->ButtonBack->toolTip(), QStringLiteral("Navigate last Board"));
    QCOMPARE(w->ButtonNext->toolTip(), QStringLiteral("Navigate next Board"));
    QCOMPARE(w->SelectedPane, qint16(1));
    QCOMPARE(w->Text1->text(), QStringLiteral("ToUse"));
    QCOMPARE(w->cmdButton->text(), QStringLiteral("swap"));
    QVERIFY(prompts_.messages.isEmpty());
}

void TestStartup::fixedListsAreFilled() {
    auto w = start();
    const QStringList grids{QStringLiteral("2 x 2"), QStringLiteral("3 x 3"), QStringLiteral("4 x 4"),
                            QStringLiteral("5 x 5")};
    QCOMPARE(itemsOf(w->AddNew->Combo_MatrixSize), grids);
    QCOMPARE(w->AddNew->Combo_MatrixSize->currentIndex(), 0);
    QCOMPARE(itemsOf(w->HTML->Combo_GridSize), grids);
    QCOMPARE(w->HTML->Combo_GridSize->currentIndex(), 0);
    QVERIFY(w->HTML->Check2->isChecked());

    // The move highlight names do not match their colours, on purpose.
    const QComboBox* move = w->Options->Combo_MoveHighlight;
    QCOMPARE(itemsOf(move), (QStringList{QStringLiteral("Blue - Light"), QStringLiteral("Blue - Dark"),
                                         QStringLiteral("Yellow"), QStringLiteral("Pink")}));
    const QList<int> moveValues{255, 65535, 16711680, 65280};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(move->itemData(i).toInt(), moveValues[i]);
    QCOMPARE(move->currentIndex(), 3);

    const QComboBox* grid = w->Options->Combo_GridHighlight;
    QCOMPARE(itemsOf(grid),
             (QStringList{QStringLiteral("Black"), QStringLiteral("White"), QStringLiteral("Red"),
                          QStringLiteral("Green"), QStringLiteral("Blue"), QStringLiteral("Yellow")}));
    const QList<int> gridValues{0, 16777215, 255, 65280, 16711680, 65535};
    for (int i = 0; i < 6; ++i)
        QCOMPARE(grid->itemData(i).toInt(), gridValues[i]);
    QCOMPARE(grid->currentIndex(), 3);

    const QStringList topics = itemsOf(w->Help->Combo_HelpTopic);
    QCOMPARE(topics.size(), 46);
    QCOMPARE(topics.first(), QStringLiteral("About"));
    QCOMPARE(topics[18], QStringLiteral("Labels Show As ALT Tag Property"));
    QCOMPARE(topics.last(), QStringLiteral("URL"));
    QCOMPARE(w->Help->Combo_HelpTopic->currentIndex(), 0);

    QCOMPARE(project_.HtmlWords[1], QStringLiteral("/"));
    QCOMPARE(project_.HtmlWords[14], QStringLiteral("&nbsp;"));
    QCOMPARE(project_.HtmlWords[24], QStringLiteral("<"));
    QCOMPARE(project_.HtmlWords[26], QStringLiteral("\""));
    QCOMPARE(project_.HtmlWords[30], QStringLiteral("src"));
    QVERIFY(project_.HtmlWords[0].isEmpty());
}

void TestStartup::menusHoldEveryCommand() {
    auto w = start();
    const QList<QPair<const char*, const char*>> commands{{"mnu_OpenProject", "Open Project"},
                                                          {"mnu_SaveAs", "Save Project As"},
                                                          {"mnu_ChangeProject", "Change Project"},
                                                          {"mnu_ExportHTML", "Export As Html"},
                                                          {"mnu_Exit", "Exit"},
                                                          {"mnu_BoardChangeProject", "Change Project"},
                                                          {"mnu_BoardOptions", "Properties"},
                                                          {"mnu_RandomShuffle", "Image Shuffle"},
                                                          {"mnu_LoadPicture", "Picture ..."},
                                                          {"mnu_MassImage", "Mass Image Import ..."},
                                                          {"mnu_FlipHorizontally", "Flip Horizontally"},
                                                          {"mnu_FlipVertically", "Flip Vertically"},
                                                          {"mnu_MakeBlank", "Make as Blank"},
                                                          {"mnu_Closeup", "CloseUp"},
                                                          {"mnu_Options", "Properties"},
                                                          {"mnu_Help", "Help"},
                                                          {"mnu_About", "About"},
                                                          {"mnu_Swap", "Swap Item"},
                                                          {"mnu_Remove", "Remove Item"},
                                                          {"mnu_ClearAll", "Clear All"}};
    for (const auto& c : commands) {
        auto* action = w->findChild<QAction*>(QString::fromLatin1(c.first));
        QVERIFY2(action, c.first);
        QCOMPARE(action->text().remove(QLatin1Char('&')), QString::fromLatin1(c.second));
    }
    QStringList bar;
    for (QAction* a : w->menuBar()->actions())
        bar << a->text().remove(QLatin1Char('&'));
    QCOMPARE(bar, (QStringList{QStringLiteral("File"), QStringLiteral("Board"), QStringLiteral("Pane"),
                               QStringLiteral("Help")}));
    QVERIFY(!bar.contains(QStringLiteral("Edit List")));
    // Nothing is selected on the stage yet: the picture commands wait for a pane with a picture.
    QVERIFY(!w->mnu_FlipHorizontally->isEnabled());
    QVERIFY(!w->mnu_Closeup->isEnabled());
}

void TestStartup::shutDownRemovesWorkFolder() {
    for (bool byMenu : {false, true}) {
        init();
        auto w = start();
        QFile picture(project_.WorkFolder + QStringLiteral("/Unsaved-0001.BMP"));
        QVERIFY(picture.open(QIODevice::WriteOnly));
        picture.write("BM");
        picture.close();
        picture.setPermissions(QFile::ReadOwner); // read-only files go too
        w->show();
        if (byMenu)
            w->mnu_Exit->trigger();
        else
            w->close();
        QVERIFY(!QFileInfo::exists(project_.WorkFolder));
        QVERIFY(prompts_.messages.isEmpty());
    }
}

void TestStartup::leftOverWorkFolderIsReused() {
    QVERIFY(QDir().mkpath(project_.WorkFolder));
    QFile stale(project_.WorkFolder + QStringLiteral("/Old-0002.BMP"));
    QVERIFY(stale.open(QIODevice::WriteOnly));
    stale.close();
    auto w = start();
    QVERIFY(QFileInfo::exists(stale.fileName()));
    QCOMPARE(w->List1->count(), 4);
    QVERIFY(prompts_.messages.isEmpty());
}

void TestStartup::runTimeErrorIsReportedAndEnds() {
    auto* app = qobject_cast<KelvrinApplication*>(QCoreApplication::instance());
    QVERIFY(app);
    QList<int> exits;
    app->SetPrompts(&prompts_);
    app->SetExitHandler([&exits](int code) { exits << code; });
    Failing failing;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&failing, &event);
    QCOMPARE(exits, QList<int>{1});
    QCOMPARE(prompts_.messages.size(), 1);
    QCOMPARE(prompts_.messages[0].title, QStringLiteral("Kelvrin"));
    QCOMPARE(prompts_.messages[0].text,
             QStringLiteral("Run-time error '53':\n\nFile not found: /nowhere/trip.kv1"));
    app->SetPrompts(nullptr);
}

void TestStartup::programsSideBySideKeepTheirOwnFolders() {
    const QString program = dir_->path();
    auto first = std::make_unique<WorkFolderClaim>(program);
    QCOMPARE(first->path(), program + QStringLiteral("/MyProjects"));
    {
        const WorkFolderClaim second(program);
        QCOMPARE(second.path(), program + QStringLiteral("/MyProjects-2"));
    }
    first.reset();
    QCOMPARE(WorkFolderClaim(program).path(), program + QStringLiteral("/MyProjects"));

    // A folder left by a program that crashed is taken over with its pictures.
    QFile lock(program + QStringLiteral("/MyProjects.lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("2147480000\nkelvrin\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    lock.close();
    QFile stale(program + QStringLiteral("/MyProjects/Old-0001.BMP"));
    QVERIFY(stale.open(QIODevice::WriteOnly));
    stale.close();
    const WorkFolderClaim again(program);
    QCOMPARE(again.path(), program + QStringLiteral("/MyProjects"));
    QVERIFY(stale.exists());

    // A program folder that cannot be written (here: not a folder at all) sends the pictures to
    // the user's cache folder.
    qputenv("XDG_CACHE_HOME", dir_->filePath(QStringLiteral("cache")).toUtf8());
    const WorkFolderClaim installed(dir_->filePath(QStringLiteral("MyProjects/Old-0001.BMP")));
    QCOMPARE(installed.path(), dir_->filePath(QStringLiteral("cache/kelvrin/MyProjects")));
    QVERIFY(QFileInfo(installed.path()).isDir());
}

int main(int argc, char** argv) {
    KelvrinApplication app(argc, argv);
    TestStartup test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_startup.moc"
