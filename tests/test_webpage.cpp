// The exported pages: the generator byte for byte, its options, the cursors across pages, the
// page files and the page count.
#include "export/htmlexport.h"
#include "export/htmlwords.h"
#include "model/ansi.h"
#include "model/runtimeerror.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {
// The worked example: a 2 x 2 board titled Trip, footer End, two panes filled.
Project exampleProject() {
    Project p;
    for (int i = 101; i <= 130; ++i)
        p.HtmlWords[static_cast<size_t>(i - 100)] = LoadResString(i);
    p.BoardTitle = u"Trip"_s, p.FooterText = u"End"_s;
    p.Panes(1).Label = u"Start"_s, p.Panes(1).Text = u"Hello"_s, p.Panes(1).SourceStem = u"Vanto01"_s;
    p.Panes(2).Text = u"Bye"_s, p.Panes(2).Url = u"b.htm"_s, p.Panes(2).SourceStem = u"Vanto02"_s;
    return p;
}

QString page(const Project& p, const HtmlExportOptions& options = {}) {
    WebpageState state{1, 1, 0, 0, 0};
    return MakeWebpage(p, options, u"trip"_s, state);
}

// The text with every edits[2i] replaced by edits[2i + 1].
QString edited(QString text, const QStringList& edits) {
    for (int i = 0; i + 1 < edits.size(); i += 2)
        text.replace(edits[i], edits[i + 1]);
    return text;
}

QString readPage(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? FromAnsi(f.readAll()) : QString();
}
} // namespace

class TestWebpage : public QObject {
    Q_OBJECT
private slots:
    void workedExampleByteForByte();
    void gridsScalesStructureAndContent();
    void cursorsCarryOverAndPagesLink();
};

void TestWebpage::workedExampleByteForByte() {
    const QString row1 = uR"(
<!--Titles---------------------------------------------------------------------->

<tr><td width="50%"><p align="center">Start</td>
<td width="50%"><p align="center"></td>
</tr></table></td></tr></table>
<p align="center">

<!--Images------------------------------------------------------------------->


<img src="Vanto01-001.JPG" width="49%" height="86%" alt="Start"><a href="b.htm">
<img src="Vanto02-002.JPG" width="49%" height="86%" alt=""></a></p>

<!--Texts---------------------------------------------------------------------->

<table border="0"width="100%">
<tr><td width="100%" align="center"><table border="0"width="100%">
<td width="50%">&nbsp;&nbsp;&nbsp;<strong>1.</strong>  Hello</td>
<td width="50%"><strong>2.</strong>  Bye</td>
</tr></table></td></tr></table>
<p>&nbsp;</p>)"_s;
    const QString row2 = edited(row1, {u"Start</td>"_s, u"</td>"_s, u"Vanto01-001"_s, u"none-003"_s,
                                       u"Vanto02-002"_s, u"none-004"_s, u"alt=\"Start\"><a href=\"b.htm\">"_s,
                                       u"alt=\"\">"_s, u"</a></p>"_s, u"</p>"_s, u"1.</strong>  Hello"_s,
                                       u"3.</strong>  "_s, u"2.</strong>  Bye"_s, u"4.</strong>  "_s});
    const QString expected = edited(uR"(<html>
<head>
<title>Kelvrin</title>
<meta name="GENERATOR" content="Orvane Works Kelvrin v1.0">
</head>

<body>

<table border="0"width="100%">
<tr><td table border="0"width="100%"><tr>
<td width="100%">
<p align="center"><big><big><big><big><big>Trip</big></big></big></big></big></p>
<p align="center"><big><big><big><big><big>&nbsp;</big></big></big></big></big></td>
</tr></table><table border="0"width="100%">
)"_s + row1 + u"<table border=\"0\"width=\"100%\">\n"_s +
                                        row2 + uR"(<p align="center"></p><p>&nbsp;</p>

<!--Footers------------------------------------------------------------------->

<table border="0"width="100%">
<tr><td width="100%" align="center">End</td></tr>
</table>
</body>
</html>
)"_s,
                                    {u"\n"_s, u"\r\n"_s});
    QCOMPARE(page(exampleProject()), expected);

    // The file: Windows-1252, one more CR LF, replacing a longer file of the same name.
    QTemporaryDir dir;
    QFile old(dir.filePath(u"trip_001.htm"_s));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write(QByteArray(20000, 'x')) == 20000);
    old.close();
    WritePage(dir.path() + u"/"_s, u"trip"_s, 1, expected + u"\u00e9\u20ac"_s);
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), ToAnsi(expected) + "\xe9\x80\r\n");
}

void TestWebpage::gridsScalesStructureAndContent() {
    Project p = exampleProject();
    const int heights[4][2] = {{98, 86}, {70, 60}, {48, 58}, {38, 34}}, widths[4] = {49, 32, 24, 19};
    for (int grid = 0; grid < 4; ++grid)
        for (int scale = 0; scale < 2; ++scale) {
            const QString text = page(p, {grid, scale, {{true, true, true, true, true, true}}, true});
            const int n = (grid + 2) * (grid + 2), size[2] = {widths[grid], heights[grid][scale]};
            QCOMPARE(text.count(u"width=\"%1%\" height=\"%2%\""_s.arg(size[0]).arg(size[1])), n);
            QCOMPARE(text.count(u"<td width=\"%1%\">"_s.arg(100 / (grid + 2))), 2 * n);
            QVERIFY(text.contains(u"<strong>%1.</strong>"_s.arg(n)) && !text.contains(u"%1.<"_s.arg(n + 1)));
        }

    // Each structure box off, against the page with all of them; without numbers an unset text
    // shows as the placeholder, and the border goes by its box alone, linked picture or not.
    const QString all = page(p);
    const QStringList edits[6] = {
        {u"\">Start</td>"_s, u"\"></td>"_s},
        {u" alt=\"Start\""_s, u""_s, u" alt=\"\""_s, u""_s},
        {u"<strong>1.</strong>  "_s, u""_s, u"<strong>2.</strong>  "_s, u""_s, u"<strong>3.</strong>  "_s,
         kToUse, u"<strong>4.</strong>  "_s, kToUse},
        {u"alt=\"Start\">"_s, u"alt=\"Start\" border=\"0\">"_s, u"alt=\"\">"_s, u"alt=\"\" border=\"0\">"_s},
        {u"<big>Trip</big>"_s, u"<big></big>"_s},
        {u"\">End</td>"_s, u"\"></td>"_s}};
    for (int box = 0; box < 6; ++box) {
        HtmlExportOptions o;
        o.Structure[static_cast<size_t>(box)] = false;
        QCOMPARE(page(p, o), edited(all, edits[box]));
    }

    // Empty link: no anchor; link without a picture: the anchor all the same; markup as it stands.
    p.Panes(2).Url.clear();
    p.Panes(3).Url = u"x.htm?a=1&b"_s;
    p.Panes(4).Label = u"<i>\"4\" & 5</i>"_s, p.Panes(4).Text = u"a<b>c</b>"_s;
    p.BoardTitle = u"Tom & Jerry <3"_s, p.FooterText = kToUse;
    QCOMPARE(page(p),
             edited(all, {u"<a href=\"b.htm\">"_s, u""_s, u"\"></a></p>"_s, u"\"></p>"_s,
                          u"\r\n<img src=\"none-003.JPG\" width=\"49%\" height=\"86%\" alt=\"\">"_s,
                          u"<a href=\"x.htm?a=1&b\">\r\n<img src=\"none-003.JPG\" width=\"49%\" "
                          "height=\"86%\" alt=\"\"></a>"_s,
                          u"004.JPG\" width=\"49%\" height=\"86%\" alt=\"\""_s,
                          u"004.JPG\" width=\"49%\" height=\"86%\" alt=\"<i>\"4\" & 5</i>\""_s,
                          u"center\"></td>\r\n<td width=\"50%\"><p align=\"center\"></td>"_s,
                          u"center\"></td>\r\n<td width=\"50%\"><p align=\"center\"><i>\"4\" & 5</i></td>"_s,
                          u"4.</strong>  </td>"_s, u"4.</strong>  a<b>c</b></td>"_s, u"Trip"_s,
                          u"Tom & Jerry <3"_s, u">End<"_s, u"><"_s}));
}

void TestWebpage::cursorsCarryOverAndPagesLink() {
    // Boards, grid side, page grid index and the pages they need; some fill their pages exactly.
    for (auto [boards, side, grid, pages] :
         {std::array{3, 2, 1, 2}, {2, 2, 0, 2}, {1, 3, 1, 1}, {4, 2, 2, 1}, {1, 2, 3, 1}, {62, 4, 3, 40}})
        QCOMPARE(WebpageCount(qint16(boards), qint16(side), grid), qint16(pages));

    // 3 boards of 2 x 2 on 3 x 3 pages: panes 1 to 9, then 10 to 18 in all three sections.
    Project p = exampleProject();
    p.Panes(10).Label = u"Ten"_s, p.Panes(10).SourceStem = u"Vanto10"_s;
    QTemporaryDir dir;
    const QString folder = dir.path() + u"/"_s;
    WebpageState state;
    const QStringList pages = ExportWebpages(p, {1, 1, {{true, true, true, true, true, true}}, true}, 3, 2,
                                             folder, u"trip"_s, state);
    QCOMPARE(pages, (QStringList{folder + u"trip_001.htm"_s, folder + u"trip_002.htm"_s}));
    QVERIFY(readPage(pages[0]).contains(u"<p align=\"center\"><a href=\"trip_002.htm\">Next</a></p>"_s));
    const QString second = readPage(pages[1]);
    QVERIFY(second.contains(u"<p>&nbsp;</p><p align=\"center\"></p>"_s));
    QVERIFY(second.contains(u"<tr><td width=\"33%\"><p align=\"center\">Ten</td>"_s));
    QVERIFY(second.contains(u"-->\r\n\r\n\r\n<img src=\"Vanto10-010.JPG\""_s));
    QVERIFY(second.contains(u"&nbsp;&nbsp;&nbsp;<strong>10.</strong>  </td>"_s));
    QCOMPARE((std::array{state.TitleCursor, state.ImageCursor, state.TextCursor}),
             (std::array<qint16, 3>{18, 18, 18}));

    // Pane 1000 on the last page of 5 x 5 pages; one page more runs past the pool.
    p.Panes(1000).SourceStem = u"Vanto05"_s;
    state = {40, 40, 975, 975, 975};
    const QString last = MakeWebpage(p, {3, 1, {{true, true, true, true, true, true}}, true}, u"s"_s, state);
    QVERIFY(last.contains(u"<img src=\"Vanto05-1000.JPG\""_s) && last.contains(u"<strong>1000.</strong>"_s));
    int number = 0;
    try {
        MakeWebpage(p, {}, u"s"_s, state);
    } catch (const RunTimeError& e) {
        number = e.number();
    }
    QCOMPARE(number, 9);
}

QTEST_GUILESS_MAIN(TestWebpage)
#include "test_webpage.moc"
