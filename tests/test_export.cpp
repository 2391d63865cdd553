// The HTML export: the page generator byte for byte, its options, the cursors across pages and the
// page count; then File > Export As Html as a user meets it, with the export window scripted
// through ShowModal, the pages and pictures it leaves behind, and its failures.
#include "dialogs/frmhtml.h"
#include "export/htmlexport.h"
#include "export/htmlwords.h"
#include "model/ansi.h"
#include "support/mainwindow.h"

namespace {
// The worked example: a 2 x 2 board titled Trip, footer End, two panes filled.
Project exampleProject() {
    Project p;
    for (int i = 101; i <= 130; ++i)
        p.HtmlWords[static_cast<size_t>(i - 100)] = LoadResString(i);
    p.BoardTitle = "Trip", p.FooterText = "End";
    p.Panes(1).Label = "Start", p.Panes(1).Text = "Hello", p.Panes(1).SourceStem = "Vanto01";
    p.Panes(2).Text = "Bye", p.Panes(2).Url = "b.htm", p.Panes(2).SourceStem = "Vanto02";
    return p;
}
QString page(const Project& p, const HtmlExportOptions& options = {}) {
    WebpageState state{1, 1, 0, 0, 0};
    return MakeWebpage(p, options, "trip", state);
}
// The text with every edits[2i] replaced by edits[2i + 1].
QString edited(QString text, const QStringList& edits) {
    for (int i = 0; i + 1 < edits.size(); i += 2)
        text.replace(edits[i], edits[i + 1]);
    return text;
}
} // namespace

class TestExport : public QObject {
    Q_OBJECT
    std::unique_ptr<StartedMain> m_;
    QString web(const QString& name = {}) const { return m_->path("web/" + name); }
    // Shows the export window through the main window, with script run inside it.
    void exportWith(const std::function<void(frmHTML&)>& script) {
        m_->w->ShowModal = [&](QDialog& d) { script(static_cast<frmHTML&>(d)); };
        m_->w->mnu_ExportHTML_Click();
    }
    // Whether page n of count on 3 x 3 pages is on disk as the generator builds it afresh.
    bool pageIsFresh(int n, int count) const {
        const qint16 cursor = qint16(9 * (n - 1));
        WebpageState s{qint16(n), qint16(count), cursor, cursor, cursor};
        return ReadAll(web(QString("trip_%1.htm").arg(n, 3, 10, QLatin1Char('0')))) ==
               ToAnsi(MakeWebpage(m_->project, HtmlExportOptions{1}, "trip", s)) + "\r\n";
    }

private slots:
    void init() {
        // Three 2 x 2 boards; panes 1 and 6 have pictures, pane 2 only a link.
        m_ = std::make_unique<StartedMain>();
        m_->project.BoardCount = 3;
        QVERIFY(WriteBmp(QuadrantPicture(80, 80), m_->path("q.bmp")));
        for (int i : {1, 6}) {
            m_->project.Panes(i).SourceFile = m_->path("q.bmp");
            m_->project.Panes(i).SourceStem = QString("Vanto%1").arg(i, 2, 10, QLatin1Char('0'));
            StorePaneImage(m_->project, qint16(i), 64.0f, true);
        }
        m_->project.Panes(2).Url = "b.htm";
        QVERIFY(QDir().mkpath(web()));
        m_->prompts.answers << web("trip.htm");
    }

    void workedExampleByteForByte() {
        const QString row1 = R"(
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
<p>&nbsp;</p>)";
        const QString row2 =
            edited(row1, {"Start</td>", "</td>", "Vanto01-001", "none-003", "Vanto02-002", "none-004",
                          "alt=\"Start\"><a href=\"b.htm\">", "alt=\"\">", "</a></p>", "</p>",
                          "1.</strong>  Hello", "3.</strong>  ", "2.</strong>  Bye", "4.</strong>  "});
        const QString expected = edited(R"(<html>
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
)" + row1 + "<table border=\"0\"width=\"100%\">\n" +
                                            row2 + R"(<p align="center"></p><p>&nbsp;</p>

<!--Footers------------------------------------------------------------------->

<table border="0"width="100%">
<tr><td width="100%" align="center">End</td></tr>
</table>
</body>
</html>
)",
                                        {"\n", "\r\n"});
        QCOMPARE(page(exampleProject()), expected);

        // The file: Windows-1252, one more CR LF, replacing a longer file of the same name.
        QVERIFY(WriteAll(web("trip_001.htm"), QByteArray(20000, 'x')));
        WritePage(web(), "trip", 1, expected + "\u00e9\u20ac");
        QCOMPARE(ReadAll(web("trip_001.htm")), ToAnsi(expected) + "\xe9\x80\r\n");
    }

    void gridsScalesStructureAndContent() {
        Project p = exampleProject();
        const int heights[4][2] = {{98, 86}, {70, 60}, {48, 58}, {38, 34}}, widths[4] = {49, 32, 24, 19};
        for (int grid = 0; grid < 4; ++grid)
            for (int scale = 0; scale < 2; ++scale) {
                const QString text = page(p, {grid, scale});
                const int n = (grid + 2) * (grid + 2);
                const QString size =
                    QString("width=\"%1%\" height=\"%2%\"").arg(widths[grid]).arg(heights[grid][scale]);
                QCOMPARE(text.count(size), n);
            }

        // Each structure box off, against the page with all of them; without numbers an unset text
        // shows as the placeholder, and the border goes by its box alone, linked picture or not.
        const QString all = page(p);
        const QStringList edits[6] = {
            {"\">Start</td>", "\"></td>"},
            {" alt=\"Start\"", "", " alt=\"\"", ""},
            {"<strong>1.</strong>  ", "", "<strong>2.</strong>  ", "", "<strong>3.</strong>  ", kToUse,
             "<strong>4.</strong>  ", kToUse},
            {"alt=\"Start\">", "alt=\"Start\" border=\"0\">", "alt=\"\">", "alt=\"\" border=\"0\">"},
            {"<big>Trip</big>", "<big></big>"},
            {"\">End</td>", "\"></td>"}};
        for (int box = 0; box < 6; ++box) {
            HtmlExportOptions o;
            o.Structure[static_cast<size_t>(box)] = false;
            QCOMPARE(page(p, o), edited(all, edits[box]));
        }

        // Empty link: no anchor; link without a picture: the anchor all the same; markup as it stands.
        p.Panes(2).Url.clear();
        p.Panes(3).Url = "x.htm?a=1&b";
        p.Panes(4).Label = "<i>\"4\" & 5</i>", p.Panes(4).Text = "a<b>c</b>";
        p.BoardTitle = "Tom & Jerry <3", p.FooterText = kToUse;
        QCOMPARE(page(p),
                 edited(all, {"<a href=\"b.htm\">", "", "\"></a></p>", "\"></p>",
                              "\r\n<img src=\"none-003.JPG\" width=\"49%\" height=\"86%\" alt=\"\">",
                              "<a href=\"x.htm?a=1&b\">\r\n<img src=\"none-003.JPG\" width=\"49%\" "
                              "height=\"86%\" alt=\"\"></a>",
                              "004.JPG\" width=\"49%\" height=\"86%\" alt=\"\"",
                              "004.JPG\" width=\"49%\" height=\"86%\" alt=\"<i>\"4\" & 5</i>\"",
                              "center\"></td>\r\n<td width=\"50%\"><p align=\"center\"></td>",
                              "center\"></td>\r\n<td width=\"50%\"><p align=\"center\"><i>\"4\" & 5</i></td>",
                              "4.</strong>  </td>", "4.</strong>  a<b>c</b></td>", "Trip", "Tom & Jerry <3",
                              ">End<", "><"}));
    }

    void cursorsCarryOverAndPagesLink() {
        // Boards, grid side, page grid index and the pages they need; some fill their pages exactly.
        for (auto [boards, side, grid, pages] :
             {std::array{3, 2, 1, 2}, {2, 2, 0, 2}, {1, 3, 1, 1}, {4, 2, 2, 1}, {1, 2, 3, 1}, {62, 4, 3, 40}})
            QCOMPARE(WebpageCount(qint16(boards), qint16(side), grid), qint16(pages));

        // 3 boards of 2 x 2 on 3 x 3 pages: panes 1 to 9, then 10 to 18 in all three sections.
        Project p = exampleProject();
        p.Panes(10).Label = "Ten", p.Panes(10).SourceStem = "Vanto10";
        WebpageState state;
        const QStringList pages = ExportWebpages(p, HtmlExportOptions{1}, 3, 2, web(), "trip", state);
        QVERIFY(
            ReadAll(pages.value(0)).contains("<p align=\"center\"><a href=\"trip_002.htm\">Next</a></p>"));
        const QByteArray second = ReadAll(pages.value(1));
        for (const char* part :
             {"<p>&nbsp;</p><p align=\"center\"></p>", "<tr><td width=\"33%\"><p align=\"center\">Ten</td>",
              "-->\r\n\r\n\r\n<img src=\"Vanto10-010.JPG\"", "&nbsp;&nbsp;&nbsp;<strong>10.</strong>  </td>"})
            QVERIFY2(second.contains(part), part);
        QCOMPARE(Joined(state.TitleCursor, state.ImageCursor, state.TextCursor), "18|18|18");

        // Pane 1000 on the last page of 5 x 5 pages; one page more runs past the pool.
        p.Panes(1000).SourceStem = "Vanto05";
        state = {40, 40, 975, 975, 975};
        const QString last = MakeWebpage(p, HtmlExportOptions{3}, "s", state);
        QVERIFY(last.contains("<img src=\"Vanto05-1000.JPG\"") && last.contains("<strong>1000.</strong>"));
        QCOMPARE(ErrorNumberOf([&] { MakeWebpage(p, {}, "s", state); }), 9);
    }

    void exportWritesPagesAndPictures() {
        exportWith([&](frmHTML& h) {
            h.Combo_GridSize->setCurrentIndex(1);
            h.Command1->click();
            h.Button_acceptOrclose[1]->click();
            QVERIFY(h.Text1->text() == "C:\\none" && !h.Button_acceptOrclose[1]->isEnabled());
        });
        const FileRequest& r = m_->prompts.requests.value(0);
        QCOMPARE(Joined(r.title, r.filter, r.fileName),
                 Joined("Save Project (as html) ...", "htm (*.htm)|*.htm", "Untitled.htm"));
        // 12 panes on 3 x 3 pages: two pages; a JPEG for each pane with a picture, upright.
        QCOMPARE(QDir(web()).entryList(QDir::Files, QDir::Name),
                 (QStringList{"Vanto01-001.JPG", "Vanto06-006.JPG", "trip_001.htm", "trip_002.htm"}));
        QVERIFY(pageIsFresh(1, 2) && pageIsFresh(2, 2));
        const QImage jpeg(web("Vanto06-006.JPG"));
        QCOMPARE(Joined(jpeg.size(), QuadrantsOf(jpeg)), "64x64|TL TR BL BR");
    }

    void closeOrNoPathOrAutoCreateOff() {
        exportWith([](frmHTML& h) { h.Button_acceptOrclose_Click(1); });
        QCOMPARE(m_->project.DialogReply[1], kNone);
        exportWith([](frmHTML& h) {
            h.Command1->click();
            h.Button_acceptOrclose[0]->click();
        });
        QCOMPARE(m_->project.DialogReply[1], kNone);
        QVERIFY(QDir(web()).isEmpty() && m_->w->tmpPic.isNull()); // no picture went through the canvas

        // Auto-create off keeps a hand-edited preview, and Accept then writes page 1 only.
        m_->prompts.answers << web("trip.htm");
        exportWith([&](frmHTML& h) {
            h.Combo_GridSize->setCurrentIndex(1);
            h.html_code->setPlainText("hand edit");
            h.Check2->setChecked(false);
            h.SSTab1->setCurrentIndex(1);
            QCOMPARE(h.html_code->toPlainText(), "hand edit");
            h.Command1->click();
            h.Button_acceptOrclose[1]->click();
        });
        QVERIFY(pageIsFresh(1, 2) && !QFile::exists(web("trip_002.htm")) &&
                QFile::exists(web("Vanto06-006.JPG")));
    }

    void failuresAreReported() {
        // A picture that cannot be written: a folder stands where the JPEG should go.
        QVERIFY(QDir().mkpath(web("Vanto01-001.JPG")));
        exportWith([](frmHTML& h) {
            h.Command1->click();
            h.Button_acceptOrclose[1]->click();
        });
        QCOMPARE(Joined(m_->prompts.messages.value(0).text, m_->prompts.messages.value(0).title),
                 "I encountered an error saving an image in the html file.|KV1 : Html Output");
        QVERIFY(!QFile::exists(web("Vanto06-006.JPG")));
    }
};

QTEST_MAIN(TestExport)
#include "test_export.moc"
