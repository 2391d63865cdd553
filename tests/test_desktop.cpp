// Kelvrin among the other programs of the desktop: pictures and projects dropped from a file
// manager, a project named on the command line, and the File menu's recent projects.
#include "flows/picturefiles.h"
#include "model/recentprojects.h"
#include "support/mainwindow.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

namespace {
// Files dragged from another program over a point of a widget of the window, and let go there when
// drop is set, as the window system sends them: to the widget itself when it takes drops of its
// own, otherwise to the window. Whether the drag (or the drop) was taken; the work a drop starts
// is done before this returns.
bool drag(frmMain& w, QWidget* over, const QStringList& paths, QPoint at, bool drop = false) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << (path.contains("://") ? QUrl(path) : QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QWidget* target = over->acceptDrops() ? over : static_cast<QWidget*>(&w);
    const QPoint point = over->mapTo(target, at);
    QDragEnterEvent enter(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    if (!drop) return enter.isAccepted();
    QDropEvent letGo(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &letGo);
    QCoreApplication::processEvents();
    return letGo.isAccepted();
}

// A picture of one colour in the format its name tells.
QString picture(const StartedMain& m, const QString& name, const QColor& colour) {
    if (!SolidPicture(30, 30, colour).save(m.path(name))) qFatal("cannot write %s", qPrintable(name));
    return m.path(name);
}

// Saves the window's project under name through Save Project As; its path.
QString saveAs(StartedMain& m, const QString& name) {
    m.prompts.answers.enqueue(m.path(name));
    m.w->SaveProject();
    return m.path(name);
}

QStringList recentEntries(const frmMain& w, bool enabledOnly = false) {
    QStringList entries;
    for (QAction* a : w.mnu_OpenRecent->actions())
        if (!a->isSeparator() && a != w.mnu_ClearRecent && (!enabledOnly || a->isEnabled()))
            entries << a->data().toString();
    return entries;
}
} // namespace

class TestDesktop : public QObject {
    Q_OBJECT
private slots:
    void picturesLandInNaturalOrder() {
        StartedMain m;
        const QString ten = picture(m, "Shot10.png", Qt::blue), one = picture(m, "shot1.bmp", Qt::red),
                      two = picture(m, "Shot2.jpg", Qt::green);
        const QPoint cell2 = m.centre(2);
        QVERIFY(drag(*m.w, m.w->picStage, {ten, one, two}, cell2, true));
        const std::tuple<int, QString, QColor> expected[] = {
            {2, "shot1", Qt::red}, {3, "Shot2", Qt::green}, {4, "Shot10", Qt::blue}};
        for (const auto& [pane, stem, colour] : expected) {
            QCOMPARE(m.project.Panes(pane).SourceStem, stem);
            // On the stage, redrawn.
            const QColor shown = m.w->picStage->Picture.pixelColor(m.centre(pane));
            QVERIFY2(Near(shown, colour, 8), qPrintable(stem + " shows " + shown.name()));
        }
        QCOMPARE(m.project.Panes(1).SourceFile, QString(kNone));
    }

    void picturesStopAtPane1000() {
        StartedMain m;
        m.project.GridSide = 5;
        m.project.BoardCount = 40;
        m.w->ReshapeProject(5, 40, m.w->StageSize, true);
        m.w->SetBoardIndex(39);
        const QStringList files = {picture(m, "a1.jpg", Qt::red), picture(m, "a2.jpg", Qt::green),
                                   picture(m, "a3.jpg", Qt::blue)};
        QVERIFY(drag(*m.w, m.w->picStage, files, m.centre(24), true)); // pane 999
        QCOMPARE(m.project.Panes(999).SourceFile, files[0]);
        QCOMPARE(m.project.Panes(1000).SourceFile, files[1]);

        // A file that is no picture stops the drop where it stands, and says so; the program goes on.
        const QString broken = m.path("a2.bmp");
        QVERIFY(WriteAll(broken, "BM not a picture"));
        QVERIFY(drag(*m.w, m.w->picStage, {files[0], broken, files[2]}, m.centre(1), true)); // pane 976
        QCOMPARE(m.project.Panes(976).SourceFile, files[0]);
        QCOMPARE(m.project.Panes(977).SourceFile, QString(kNone));
        QCOMPARE(m.project.Panes(978).SourceFile, QString(kNone));
        QCOMPARE(m.prompts.messages.size(), 1);
        QCOMPARE(m.prompts.messages[0].title, QString("Kelvrin : Import"));
        QVERIFY2(m.prompts.messages[0].text.contains("a2.bmp"), qPrintable(m.prompts.messages[0].text));
    }

    void othersAreRefused() {
        StartedMain m;
        const QString jpg = picture(m, "p1.jpg", Qt::red), kv1 = m.path("trip.kv1");
        QVERIFY(WriteAll(m.path("notes.txt"), "text") && WriteAll(kv1, "4\r\n1\r\n2\r\n"));
        const struct {
            const char* what;
            QStringList files;
            QWidget* over;
        } refused[] = {
            {"a text file", {m.path("notes.txt")}, m.w->picStage},
            {"a picture with a project", {jpg, kv1}, m.w->picStage},
            {"a picture on the text row", {jpg}, m.w->Text1},
        };
        for (const auto& r : refused) {
            QVERIFY2(!drag(*m.w, r.over, r.files, QPoint(4, 4)), r.what);
            QVERIFY2(!drag(*m.w, r.over, r.files, QPoint(4, 4), true), r.what);
        }
        QCOMPARE(m.project.Panes(1).SourceFile, QString(kNone));
        // A project is taken anywhere on the window, the text row included.
        QVERIFY(drag(*m.w, m.w->Text1, {kv1}, QPoint(4, 4)));
    }

    void projectsFromTheDesktop() {
        StartedMain saved;
        saved.give(1, SolidPicture(20, 20, Qt::red), "sky");
        saved.project.Panes(3).Text = "third";
        const QString trip = saveAs(saved, "trip.kv1");

        // Dropped on the window, and named on the command line, relative to the current folder.
        StartedMain dropped, named;
        QVERIFY(drag(*dropped.w, dropped.w->List1, {trip}, QPoint(4, 4), true));
        const QString current = QDir::currentPath();
        QDir::setCurrent(saved.dir.path());
        named.w->OpenProjectFromCommandLine("trip.kv1");
        QDir::setCurrent(current);
        for (StartedMain* m : {&dropped, &named}) {
            QCOMPARE(m->project.Panes(1).SourceStem, "sky");
            QCOMPARE(m->w->List1->item(2)->text(), "003. third");
            QCOMPARE(m->prompts.messages.size(), 0);
        }

        // A project that cannot be opened, or only in part, is reported as Open Project reports it;
        // the program goes on with an empty project and takes pictures as before.
        QVERIFY(QDir(saved.path("trip_Data")).removeRecursively());
        for (const QString& broken : {saved.path("gone.kv1"), trip}) {
            named.prompts.messages.clear();
            named.w->OpenProjectFromCommandLine(broken);
            QCOMPARE(named.prompts.messages.size(), 1);
            QCOMPARE(named.prompts.messages[0].text.section('\n', 0, 0), "Run-time error '53':");
            QCOMPARE(ItemsOf(named.w->List1),
                     QStringList({"001. ToUse", "002. ToUse", "003. ToUse", "004. ToUse"}));
        }
    }

    void recentProjects() {
        QStringList list;
        for (int i = 1; i <= 9; ++i)
            list = WithRecentProject(list, QString("/p%1.kv1").arg(i));
        QCOMPARE(list.size(), kMaxRecentProjects);
        QCOMPARE(list.first(), "/p9.kv1");

        StartedMain m;
        QVERIFY(!m.w->mnu_ClearRecent->isEnabled());
        // Saved and opened projects, most recent first and each once, in the file that outlives the window.
        const QString a = saveAs(m, "a.kv1"), b = saveAs(m, "b.kv1");
        m.prompts.answers.enqueue(a);
        m.w->OpenProject();
        QCOMPARE(recentEntries(*m.w), QStringList({a, b}));
        QCOMPARE(ReadRecentProjects(m.w->RecentSettingsFile), QStringList({a, b}));

        // A project that has gone is listed, but disabled, when the menu opens.
        QVERIFY(QFile::remove(b));
        emit m.w->mnu_OpenRecent->aboutToShow();
        QCOMPARE(recentEntries(*m.w, true), QStringList({a}));
        QCOMPARE(recentEntries(*m.w), QStringList({a, b}));

        // Choosing an entry opens it through Open Project.
        m.project.Panes(1).Text = "changed";
        m.w->mnu_OpenRecent->actions().first()->trigger();
        QCOMPARE(m.project.Panes(1).Text, QString(kToUse));
        m.w->mnu_ClearRecent->trigger();
        QCOMPARE(ReadRecentProjects(m.w->RecentSettingsFile), QStringList());
    }
};

QTEST_MAIN(TestDesktop)
#include "test_desktop.moc"
