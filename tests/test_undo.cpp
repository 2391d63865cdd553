// Undo and redo: random sessions of the commands that change a project undone to the start and
// redone to the end (records, settings, the lists and the working pictures' bytes); the history's
// bounds and its kept pictures; and what a user sees: the Edit menu and Ctrl+Z after a drag.
#include "dialogs/frmaddnew.h"
#include "dialogs/frmoptions.h"
#include "images/bmpfile.h"
#include "model/numbers.h"
#include "support/mainwindow.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QUndoStack>
#include <map>

namespace {
// Everything undo must put back, by name: every record but its cell table, the settings, the
// lists and every file of the working folder.
// Files by the hash of their bytes.
using ProjectImage = std::map<QString, QString>;

ProjectImage imageOf(const StartedMain& m) {
    ProjectImage s;
    const Project& p = m.project;
    for (int i = 0; i <= kMaxPane; ++i) {
        const Pane& r = p.Panes(i);
        s[QStringLiteral("pane %1").arg(i)] = Joined(r.Text, r.Label, r.Url, r.FlipHorizontal, r.FlipVertical,
                                                     r.ImageFile, r.SourceFile, r.SourceStem)
                                                  .texts.join('|');
    }
    s["settings"] = Joined(p.GridSide, p.BoardCount, p.BoardTitle, p.FooterText, p.GlobalHighlightColor,
                           p.MoveHighlightColor)
                        .texts.join('|');
    const QStringList items = ItemsOf(m.w->List1);
    for (int i = 0; i < items.size(); ++i)
        s[QStringLiteral("list item %1").arg(i)] = items[i];
    s["boards"] = ItemsOf(m.w->Combo_PageView).join(',');
    const QDir work(p.WorkFolder);
    for (const QString& name : work.entryList(QDir::Files))
        s["file " + name] = QCryptographicHash::hash(ReadAll(work.filePath(name)), QCryptographicHash::Md5).toHex();
    return s;
}

// "" when the two are the same, else the first value that differs.
QString difference(const ProjectImage& want, const ProjectImage& got) {
    ProjectImage all = want;
    all.insert(got.begin(), got.end());
    for (const auto& [name, unused] : all) {
        const QString a = want.count(name) ? "'" + want.at(name) + "'" : "nothing";
        const QString b = got.count(name) ? "'" + got.at(name) + "'" : "nothing";
        if (a != b) return QStringLiteral("%1: want %2, got %3").arg(name, a, b);
    }
    return {};
}

// A drag with the mouse from one point of the stage to another.
void dragPane(StartedMain& m, QPoint from, QPoint to) {
    m.move(from);
    QTest::mousePress(m.w->picStage, Qt::LeftButton, {}, from);
    m.move(to, Qt::LeftButton);
    QTest::mouseRelease(m.w->picStage, Qt::LeftButton, {}, to);
}

// A user at work: random commands through the menus, buttons, mouse, keyboard and file drops,
// every dialog answered at random.
struct Session {
    StartedMain& m;
    QRandomGenerator random;
    QStringList sources;
    int bound(int n) { return int(random.bounded(n)); }

    Session(StartedMain& main, quint32 seed) : m(main), random(seed) {
        frmMain* w = m.w.get();
        for (int i = 1; i <= 4; ++i) {
            sources << m.path(QStringLiteral("Seq%1.bmp").arg(i));
            WriteBmp(QuadrantPicture(20 + 3 * i, 16 + i), sources.last());
        }
        w->SkipNotice = -1;
        w->ShuffleRandom = [this] { return random.generateDouble(); };
        w->ShowModal = [this, w](QDialog& d) {
            const bool accept = bound(5) > 0;
            if (&d == w->AddNew) {
                w->AddNew->Combo_MatrixSize->setCurrentIndex(bound(4));
                w->AddNew->Text_BoardAmount->setText(Str(1 + bound(3)));
                w->AddNew->Option1[bound(3) == 0 ? 0 : 1]->setChecked(true);
                w->AddNew->Button_acceptOrclose[accept]->click();
            } else if (&d == w->Options) {
                for (QLineEdit* text : w->Options->Text1)
                    text->setText(QStringLiteral("t%1").arg(bound(50)));
                w->Options->Combo_GridHighlight->setCurrentIndex(bound(6));
                w->Options->Combo_MoveHighlight->setCurrentIndex(bound(4));
                w->Options->Button_acceptOrclose[accept]->click();
            }
        };
    }

    void selectPane() {
        frmMain* w = m.w.get();
        w->SelectedPane = qint16(PaneOfCell(m.project, w->Combo_PageView->currentIndex() + 1,
                                            1 + bound(CellsPerBoard(m.project))));
    }

    void command() {
        frmMain* w = m.w.get();
        const int cells = CellsPerBoard(m.project);
        selectPane();
        w->List1->setCurrentRow(bound(w->List1->count()));
        switch (bound(9)) {
        case 0: // a drag between two panes of the board
            dragPane(m, m.centre(1 + bound(cells)), m.centre(1 + bound(cells)));
            break;
        case 1:
            m.prompts.answers.enqueue(bound(6) ? sources[bound(sources.size())] : QString());
            w->mnu_LoadPicture->trigger();
            break;
        case 2:
            m.prompts.answers.enqueue(sources[bound(4)]);
            w->mnu_MassImage->trigger();
            break;
        case 3: // a text typed into the edit row and swapped in
            w->Text1->setText(QStringLiteral(" text %1 ").arg(bound(100)));
            w->cmdButton->click();
            break;
        default: {
            QAction* const menus[] = {w->mnu_FlipHorizontally, w->mnu_FlipVertically, w->mnu_MakeBlank,
                                      w->mnu_RandomShuffle,    w->mnu_Remove,         w->mnu_ClearAll,
                                      w->mnu_Options,          w->mnu_BoardOptions,   w->mnu_Remove,
                                      w->mnu_ChangeProject,    w->mnu_BoardChangeProject};
            QAction* menu = menus[bound(std::size(menus))];
            menu->setEnabled(true);
            menu->trigger();
        }
        }
    }
};
} // namespace

class TestUndo : public QObject {
    Q_OBJECT
private slots:
    void randomSessionsUndoToStartAndRedoToEnd_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed : {1u, 7u, 2026u, 31337u})
            QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
    }
    void randomSessionsUndoToStartAndRedoToEnd() {
        QFETCH(quint32, seed);
        StartedMain m;
        m.w->History.SetLimits(1000, qint64(1) << 32);
        Session session(m, seed);
        // A start that is not empty: pictures, texts and a second board.
        m.project.BoardCount = 2;
        m.w->FillLists(2, 2, m.w->StageSize, true);
        for (int pane = 1; pane <= 3; ++pane)
            m.give(pane, QuadrantPicture(30, 30 + pane), QStringLiteral("Start%1").arg(pane));
        m.project.Panes(2).Text = "two";
        m.w->RefillPaneList(8, true);
        m.w->DrawCurrentBoard();
        const ProjectImage start = imageOf(m);

        for (int i = 0; i < 250; ++i)
            session.command();
        const ProjectImage end = imageOf(m);
        QUndoStack& stack = m.w->History.Stack();
        QVERIFY2(stack.count() > 100, qPrintable(QStringLiteral("only %1 steps").arg(stack.count())));

        while (stack.canUndo())
            m.w->mnu_Undo->trigger();
        QCOMPARE(difference(start, imageOf(m)), QString());
        while (stack.canRedo())
            m.w->mnu_Redo->trigger();
        QCOMPARE(difference(end, imageOf(m)), QString());
    }

    void boundsAndKeptPictures() {
        QTemporaryDir dir;
        Project p;
        p.WorkFolder = dir.filePath("work");
        QDir().mkpath(p.WorkFolder);
        const QString file = p.WorkFolder + "/a-0001.BMP", store = p.WorkFolder + "/Undo";
        UndoHistory h(p, 3, 2500);
        QUndoStack& stack = h.Stack();

        // A step that changes nothing is none; one that raises leaves none and keeps nothing.
        h.Record("Nothing", [] {});
        QVERIFY_THROWS_EXCEPTION(RunTimeError, h.Record("Fails", [&] {
            WriteFileBytes(QByteArray(100, 'x'), file);
            throw RunTimeError::PathFileAccess(file);
        }));
        QCOMPARE(stack.count(), 0);
        QCOMPARE(h.StoredPictureBytes(), 0);
        QFile::remove(file);

        // Pictures: the file created, then rewritten twice with 1000 bytes; the copies are kept
        // once each, and the oldest step goes when they pass 2500 bytes.
        h.Clear();
        QVERIFY(!QFileInfo::exists(store));
        int n = 0;
        for (char fill : {'1', '2', '1'})
            h.Record(QString("write %1").arg(++n), [&] { WriteFileBytes(QByteArray(1000, fill), file); });
        QCOMPARE(h.StoredPictureBytes(), 2000);
        // The fourth drops the first by count; its new copy passes the bytes and the two
        // steps after the first go too.
        h.Record("write 4", [&] { WriteFileBytes(QByteArray(1000, '3'), file); });
        QCOMPARE(h.StoredPictureBytes(), 2000);
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.text(0), "write 4");
        QCOMPARE(QDir(store).entryList(QDir::Files).size(), 2);
        h.Undo();
        QCOMPARE(ReadAll(file), QByteArray(1000, '1'));

        // A kept copy that vanished: the working picture goes (the pane shows blank), records
        // and the history go on.
        h.Redo();
        h.Record("write 5", [&] {
            WriteFileBytes(QByteArray(1000, '4'), file);
            p.Panes(1).ImageFile = file;
        });
        QVERIFY(QDir(store).removeRecursively());
        h.Undo();
        QCOMPARE(QFileInfo::exists(file), false);
        QCOMPARE(p.Panes(1).ImageFile, kNone);
        h.Redo();
        QCOMPARE(p.Panes(1).ImageFile, file);
    }

    void ctrlZAfterDragAndTheEditMenu() {
        StartedMain m;
        frmMain* w = m.w.get();
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w));
        m.give(1, SolidPicture(40, 40, Qt::red), "Red");
        m.give(2, SolidPicture(40, 40, Qt::blue), "Blue");
        w->DrawCurrentBoard();
        const QPoint one = m.centre(1), two = m.centre(2);
        const auto colours = [&] {
            return std::pair(w->picStage->Picture.pixelColor(one), w->picStage->Picture.pixelColor(two));
        };
        const auto menus = [&] {
            return QStringList{w->mnu_Undo->text(), QString::number(w->mnu_Undo->isEnabled()),
                               w->mnu_Redo->text(), QString::number(w->mnu_Redo->isEnabled())};
        };
        const auto red = std::pair(QColor(Qt::red), QColor(Qt::blue));
        const auto swapped = std::pair(QColor(Qt::blue), QColor(Qt::red));
        QCOMPARE(colours(), red);

        dragPane(m, one, two);
        QCOMPARE(colours(), swapped);
        QCOMPARE(menus(), (QStringList{"Undo Exchange Panes", "1", "Redo", "0"}));

        w->picStage->setFocus();
        QTest::keyClick(w->picStage, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(colours(), red);
        QCOMPARE(menus(), (QStringList{"Undo", "0", "Redo Exchange Panes", "1"}));
        QTest::keyClick(w->picStage, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(colours(), swapped);

        // The edit row and the selection come back with the step.
        w->List1->setCurrentRow(2);
        w->Text1->setText("Three");
        w->cmdButton->click();
        QCOMPARE(w->mnu_Undo->text(), "Undo Swap Item");
        w->List1->setCurrentRow(0);
        w->mnu_Undo->trigger();
        QCOMPARE(w->List1->item(2)->text(), "003. ToUse");
        QCOMPARE(w->List1->currentRow(), 2);
        QCOMPARE(w->Text1->text(), "Three");
        QCOMPARE(w->mnu_Redo->text(), "Redo Swap Item");

        // Saving keeps the history; opening a project ends it.
        m.prompts.answers.enqueue(m.path("trip.kv1"));
        w->mnu_SaveAs->trigger();
        QVERIFY(w->mnu_Undo->isEnabled());
        m.prompts.answers.enqueue(m.path("trip.kv1"));
        w->mnu_OpenProject->trigger();
        QCOMPARE(menus(), (QStringList{"Undo", "0", "Redo", "0"}));
    }
};

QTEST_MAIN(TestUndo)
#include "test_undo.moc"
