// File > Export As Html as a user meets it: the export window scripted through ShowModal, the
// pages and pictures it leaves behind, and its failures.
#include "dialogs/frmhtml.h"
#include "export/htmlexport.h"
#include "images/paneimage.h"
#include "model/ansi.h"
#include "stage/frmmain.h"
#include "support/scriptedprompts.h"
#include "support/testpictures.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestHtmlExport : public QObject {
    Q_OBJECT
private slots:
    void init();
    void exportWritesPagesAndPictures();
    void closeOrNoPathWritesNothing();
    void autoCreateOffKeepsPreviewWritesPageOne();
    void failuresAreReported();

private:
    // Shows the export window through the main window, with script run inside it.
    void exportWith(const std::function<void(frmHTML&)>& script);
    QString web(const QString& name = {}) const { return dir_->filePath(u"web/"_s + name); }
    bool pageIsFresh(int n, int count) const;
    std::unique_ptr<QTemporaryDir> dir_;
    Project project_;
    ScriptedPrompts prompts_;
    std::unique_ptr<frmMain> main_;
};

void TestHtmlExport::init() {
    dir_ = std::make_unique<QTemporaryDir>();
    project_ = Project();
    project_.ProgramFolder = dir_->path();
    project_.WorkFolder = dir_->filePath(u"MyProjects"_s);
    prompts_ = ScriptedPrompts();
    main_ = std::make_unique<frmMain>(project_, prompts_);
    main_->WorkArea = [] { return QRect(0, 0, 1024, 740); };
    main_->Form_Load();
    // Three 2 x 2 boards; panes 1 and 6 have pictures, pane 2 only a link.
    project_.BoardCount = 3;
    const QString source = dir_->filePath(u"q.bmp"_s);
    QVERIFY(WriteBmp(QuadrantPicture(80, 80), source));
    for (int i : {1, 6}) {
        project_.Panes(i).SourceFile = source;
        project_.Panes(i).SourceStem = u"Vanto%1"_s.arg(i, 2, 10, QLatin1Char('0'));
        StorePaneImage(project_, static_cast<qint16>(i), 64.0f, true);
    }
    project_.Panes(2).Url = u"b.htm"_s;
    QVERIFY(QDir().mkpath(web()));
    prompts_.answers << web(u"trip.htm"_s);
}

void TestHtmlExport::exportWith(const std::function<void(frmHTML&)>& script) {
    main_->ShowModal = [&](QDialog& d) { script(static_cast<frmHTML&>(d)); };
    main_->mnu_ExportHTML_Click();
}

// Whether page n of count on 3 x 3 pages is on disk as the generator builds it afresh.
bool TestHtmlExport::pageIsFresh(int n, int count) const {
    QFile f(web(u"trip_%1.htm"_s.arg(n, 3, 10, QLatin1Char('0'))));
    const qint16 cursor = qint16(9 * (n - 1));
    WebpageState s{qint16(n), qint16(count), cursor, cursor, cursor};
    const QByteArray fresh =
        ToAnsi(MakeWebpage(project_, {1, 1, {{true, true, true, true, true, true}}, true}, u"trip"_s, s));
    return f.open(QIODevice::ReadOnly) && f.readAll() == fresh + "\r\n";
}

void TestHtmlExport::exportWritesPagesAndPictures() {
    exportWith([&](frmHTML& h) {
        QCOMPARE(h.Text1->text(), u"C:\\none"_s);
        QVERIFY(!h.Button_acceptOrclose[1]->isEnabled());
        h.Combo_GridSize->setCurrentIndex(1);
        h.Command1->click();
        QCOMPARE(h.Text1->text(), web(u"trip.htm"_s));
        h.Button_acceptOrclose[1]->click();
        QCOMPARE(h.Text1->text(), u"C:\\none"_s);
        QVERIFY(!h.Button_acceptOrclose[1]->isEnabled());
    });
    const FileRequest& r = prompts_.requests.value(0);
    QCOMPARE(QStringList({r.title, r.filter, r.fileName}),
             QStringList({u"Save Project (as html) ..."_s, u"htm (*.htm)|*.htm"_s, u"Untitled.htm"_s}));
    // 12 panes on 3 x 3 pages: two pages; a JPEG for each pane with a picture, upright.
    QStringList files = QDir(web()).entryList(QDir::Files);
    files.sort();
    QCOMPARE(files,
             (QStringList{u"Vanto01-001.JPG"_s, u"Vanto06-006.JPG"_s, u"trip_001.htm"_s, u"trip_002.htm"_s}));
    QVERIFY(pageIsFresh(1, 2));
    QVERIFY(pageIsFresh(2, 2));
    const QImage jpeg(web(u"Vanto06-006.JPG"_s));
    QCOMPARE(jpeg.size(), QSize(64, 64));
    QVERIFY(Near(jpeg.pixelColor(8, 8), kTopLeft) && Near(jpeg.pixelColor(56, 56), kBottomRight));
    QVERIFY(prompts_.messages.isEmpty());
}

void TestHtmlExport::closeOrNoPathWritesNothing() {
    exportWith([](frmHTML& h) { h.Button_acceptOrclose_Click(1); });
    QCOMPARE(project_.DialogReply[1], kNone);
    exportWith([](frmHTML& h) {
        h.Command1->click();
        h.Button_acceptOrclose[0]->click();
    });
    QCOMPARE(project_.DialogReply[1], kNone);
    QVERIFY(QDir(web()).isEmpty());
    QVERIFY(main_->tmpPic.isNull()); // no picture went through the canvas
}

void TestHtmlExport::autoCreateOffKeepsPreviewWritesPageOne() {
    exportWith([&](frmHTML& h) {
        h.Combo_GridSize->setCurrentIndex(1);
        h.html_code->setPlainText(u"hand edit"_s);
        h.Check2->setChecked(false);
        h.SSTab1->setCurrentIndex(1);
        QCOMPARE(h.html_code->toPlainText(), u"hand edit"_s);
        h.SSTab1->setCurrentIndex(0);
        h.Check2->setChecked(true);
        h.SSTab1->setCurrentIndex(1); // rebuilt: the first panes, no Next link before an Accept
        QVERIFY(h.html_code->toPlainText().contains(u"<img src=\"Vanto06-006.JPG\""_s));
        QVERIFY(!h.html_code->toPlainText().contains(u"Next"_s));
        h.Check2->setChecked(false);
        h.html_code->setPlainText(u"edited"_s);
        h.Command1->click();
        h.Button_acceptOrclose[1]->click();
    });
    QVERIFY(pageIsFresh(1, 2));
    QVERIFY(!QFile::exists(web(u"trip_002.htm"_s)));
    QVERIFY(QFile::exists(web(u"Vanto06-006.JPG"_s)));
}

void TestHtmlExport::failuresAreReported() {
    // A picture that cannot be written: a folder stands where the JPEG should go.
    QVERIFY(QDir().mkpath(web(u"Vanto01-001.JPG"_s)));
    exportWith([](frmHTML& h) {
        h.Command1->click();
        h.Button_acceptOrclose[1]->click();
    });
    QCOMPARE(prompts_.messages.size(), 1);
    QCOMPARE(prompts_.messages[0].text, kImageSaveFailed);
    QCOMPARE(prompts_.messages[0].title, u"KV1 : Html Output"_s);
    QVERIFY(!QFile::exists(web(u"Vanto06-006.JPG"_s)));

    // Pages into a folder that does not exist: reported, and the window stays with its path.
    prompts_.answers << dir_->filePath(u"gone/trip.htm"_s);
    exportWith([&](frmHTML& h) {
        h.Command1->click();
        h.Button_acceptOrclose[1]->click();
        QCOMPARE(prompts_.messages.value(1).text, kSystemFailed);
        QCOMPARE(h.Text1->text(), dir_->filePath(u"gone/trip.htm"_s));
        h.Button_acceptOrclose[0]->click();
    });
    QCOMPARE(prompts_.messages.size(), 2);
}

QTEST_MAIN(TestHtmlExport)
#include "test_htmlexport.moc"
