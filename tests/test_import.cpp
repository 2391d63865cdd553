// Picture loading: the numbered sequence read from a chosen name, the mass import with the count it
// reports, and the single load.
#include "images/sequence.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"
#include "support/mainwindow.h"
#include "support/testpictures.h"

#include <QtTest>

class TestImport : public QObject {
    Q_OBJECT
private slots:
    void sequenceNames();
    void importStopsAtGapAndRestoresThatPane();
    void countMessageAndRefusedNames();
    void importReachesPane1000();
    void singlePicture();
};

namespace {
QString jpeg(const StartedMain& m, const QString& name, const QColor& colour = Qt::red) {
    const QString path = m.path(name);
    if (!WriteJpeg(SolidPicture(40, 30, colour), path)) qFatal("cannot write %s", qPrintable(path));
    return path;
}
QString junk(const StartedMain& m, const QString& name) {
    QFile file(m.path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write("not a picture") <= 0) qFatal("cannot write");
    return file.fileName();
}
QString lastMessage(const StartedMain& m) {
    return m.prompts.messages.isEmpty() ? QString() : m.prompts.messages.last().text;
}
const QString kTruncation =
    QStringLiteral(" compatible images.\nTruncation where current project specifies.");
} // namespace

void TestImport::sequenceNames() {
    struct Row {
        const char *title, *result;
        int zeros, number;
        const char *prefix, *tenth; // tenth: the name of the tenth file after the first
    };
    const Row rows[] = {
        {"Vanto01.bmp", "Success", 1, 1, "Vanto", "Vanto11"},
        {"Vanto1.gif", "Success", 0, 1, "Vanto", "Vanto11"},
        {"Vanto213.jpg", "Success", 0, 213, "Vanto", "Vanto223"},
        {"Vanto001.jpg", "Success", 2, 1, "Vanto", "Vanto011"},
        // The zero before a two-digit number goes into the prefix: after Vanto099 comes Vanto0100.
        {"Vanto010.jpg", "Success", 1, 10, "Vanto0", "Vanto020"},
        {"Vanto090.jpg", "Success", 1, 90, "Vanto0", "Vanto0100"},
        {"7.gif", "Success", 0, 7, "", "17"},
        {"01.bmp", "Success", 1, 1, "", "11"},
        {"Vanto.jpg", "error", 0, 0, "", ""},
        {"Vanto0.jpg", "error", 0, 0, "", ""},
        {"Image000.jpg", "error", 0, 0, "", ""},
        // A letter after the first digit, or no stem at all, is read like a cancel: no result.
        {"Vanto2a.jpg", "", 0, 0, "", ""},
        {"a.jp", "", 0, 0, "", ""}};
    for (const Row& r : rows) {
        const QString title = QString::fromLatin1(r.title);
        const ImageSequence s = AnalyseSequence(QStringLiteral("/pics/") + title, title);
        const QString tenth = s.Result == QLatin1String("Success")
                                  ? s.Prefix + SequenceNumberText(s.Number + 10, s.Zeros)
                                  : QString();
        QCOMPARE((QStringList{title, s.Result, Str(s.Zeros), Str(s.Number), s.Prefix, tenth}),
                 (QStringList{title, r.result, Str(r.zeros), Str(r.number), r.prefix, r.tenth}));
        QCOMPARE(s.Folder + s.Extension, QStringLiteral("/pics/") + s.Path.right(4));
    }
}

void TestImport::importStopsAtGapAndRestoresThatPane() {
    StartedMain m;
    const QString first = jpeg(m, QStringLiteral("Vanto05.jpg"));
    jpeg(m, QStringLiteral("Vanto06.JPG"), Qt::blue); // found although its extension differs in case
    jpeg(m, QStringLiteral("Vanto08.jpg"));
    const QString old = m.path(QStringLiteral("Old-0003.BMP"));
    QVERIFY(WriteBmp(SolidPicture(20, 20, Qt::gray), old));
    Pane& third = m.project.Panes(3);
    third.SourceStem = QStringLiteral("Old");
    third.ImageFile = old;
    third.FlipHorizontal = 1;
    m.prompts.answers.enqueue(first);
    m.w->mnu_MassImage_Click();

    QCOMPARE(m.prompts.requests[0].title, QStringLiteral("Mass Image Import ..."));
    QCOMPARE(m.prompts.requests[0].filter, QStringLiteral("Formats (*.Bmp *.Gif *.Jpg)|*.Bmp;*.Gif;*.Jpg"));
    const Pane& second = m.project.Panes(2);
    QCOMPARE(second.SourceStem, QStringLiteral("Vanto"));
    QCOMPARE(second.SourceFile, m.path(QStringLiteral("Vanto06.JPG")));
    QCOMPARE(second.ImageFile, m.project.WorkFolder + QStringLiteral("/Vanto-0002.BMP"));
    QCOMPARE(third.SourceStem, QStringLiteral("Old"));
    QCOMPARE(third.ImageFile, old);
    QCOMPARE(third.SourceFile, kNone);
    QCOMPARE(third.FlipHorizontal, qint16(0)); // cleared before the missing file was tried
    QCOMPARE(lastMessage(m), QStringLiteral("I found 2") + kTruncation);
    QCOMPARE(m.prompts.messages[0].title, QStringLiteral("Kelvrin : Import"));
}

void TestImport::countMessageAndRefusedNames() {
    StartedMain m;
    const QString only = jpeg(m, QStringLiteral("Solo1.jpg"));
    m.prompts.answers.enqueue(only);
    m.w->mnu_MassImage_Click();
    QCOMPARE(lastMessage(m), QStringLiteral("I found only 1 compatible image."));
    // From pane 3 the message is chosen by the pane reached, the count by the panes filled.
    m.w->SelectedPane = 3;
    m.prompts.answers.enqueue(only);
    m.w->mnu_MassImage_Click();
    QCOMPARE(m.project.Panes(3).SourceFile, only);
    QCOMPARE(lastMessage(m), QStringLiteral("I found 1") + kTruncation);

    const QString nothing =
        QStringLiteral("I couldn't find any compatible images.\nChoose images with number patterns "
                       "such as : \nImage01.bmp, Image1.gif, Image214.jpg");
    for (const QString& chosen :
         {junk(m, QStringLiteral("Bad1.jpg")), jpeg(m, QStringLiteral("Vanto.jpg"))}) {
        m.prompts.messages.clear();
        m.prompts.answers.enqueue(chosen);
        m.w->mnu_MassImage_Click();
        QCOMPARE(lastMessage(m), nothing);
        QCOMPARE(m.project.Panes(1).SourceFile, only);
    }
    // A digit followed by a letter, and a cancelled dialog, are silent.
    m.prompts.messages.clear();
    m.prompts.answers.enqueue(jpeg(m, QStringLiteral("Vanto2a.jpg")));
    m.w->mnu_MassImage_Click();
    m.w->mnu_MassImage_Click();
    QVERIFY(m.prompts.messages.isEmpty());
    QCOMPARE(m.prompts.requests.last().folder, m.dir.path()); // opens where the last file was chosen
}

void TestImport::importReachesPane1000() {
    StartedMain m;
    const QString first = jpeg(m, QStringLiteral("Seq001.jpg"));
    for (const char* next : {"Seq002.jpg", "Seq003.jpg"})
        jpeg(m, QString::fromLatin1(next));
    // Far beyond the one-board project: the import goes on and stops after pane 1000, silently.
    m.w->SelectedPane = 999;
    m.prompts.answers.enqueue(first);
    m.w->mnu_MassImage_Click();
    QCOMPARE(m.project.Panes(999).SourceFile, first);
    QVERIFY(QFileInfo::exists(m.project.WorkFolder + QStringLiteral("/Seq-1000.BMP")));
    QVERIFY(m.prompts.messages.isEmpty());
}

void TestImport::singlePicture() {
    StartedMain m;
    const QString path = m.path(QStringLiteral("Photo7.gif"));
    QVERIFY(WriteGif(QuadrantPicture(60, 60), path));
    const Pane& pane = m.project.Panes(1);
    m.prompts.answers.enqueue(path);
    m.w->mnu_LoadPicture_Click();
    m.w->mnu_LoadPicture_Click(); // cancelled: nothing changes
    QCOMPARE(m.prompts.requests[0].title, QStringLiteral("Load Picture ..."));
    QCOMPARE(pane.SourceStem, QStringLiteral("Photo7"));
    QCOMPARE(pane.SourceFile, path);
    QCOMPARE(QImage(pane.ImageFile).width(), qRound(m.w->CellSize));
    // Not trapped: the run-time error goes up to the event loop, the pane already on the file.
    const QString broken = junk(m, QStringLiteral("broken.jpg"));
    m.prompts.answers.enqueue(broken);
    QVERIFY_THROWS_EXCEPTION(RunTimeError, m.w->mnu_LoadPicture_Click());
    QCOMPARE(pane.SourceFile, broken);
    QCOMPARE(pane.SourceStem, QStringLiteral("broken"));
}

QTEST_MAIN(TestImport)
#include "test_import.moc"
