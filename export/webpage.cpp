#include "export/webpage.h"

#include "model/ansi.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString kCrLf = QStringLiteral("\r\n");
const QString kTitlesComment =
    QStringLiteral("<!--Titles---------------------------------------------------------------------->");
const QString kImagesComment =
    QStringLiteral("<!--Images------------------------------------------------------------------->");
const QString kTextsComment =
    QStringLiteral("<!--Texts---------------------------------------------------------------------->");
const QString kFootersComment =
    QStringLiteral("<!--Footers------------------------------------------------------------------->");

// Word table ids.
enum Word {
    kSlash = 101,
    kHtml,
    kHead,
    kTitle,
    kBody,
    kTable,
    kWidth,
    kTr,
    kTd,
    kAlign,
    kCenter,
    kBig,
    kP,
    kNbsp,
    kAlt,
    kA,
    kHref,
    kStrong,
    kHeight,
    kPercent,
    kMeta,
    kName,
    kContent,
    kLt,
    kGt,
    kQuote,
    kEquals,
    kBorder,
    kImg,
    kSrc
};

// Cell width, picture width and picture height (large screens, small screens), per cent, by grid.
struct GridMeasures {
    int cell, width, heightLarge, heightSmall;
};
// The 4 x 4 grid is the only one where the larger screen gets the larger height; kept as it is.
constexpr GridMeasures kMeasures[4] = {
    {50, 49, 86, 98}, {33, 32, 60, 70}, {25, 24, 58, 48}, {20, 19, 34, 38}};

// Appends the pieces of a page, every tag and attribute spelled from the word table.
class PageText {
public:
    explicit PageText(const Project& project) : words_(project.HtmlWords) {}

    PageText& operator<<(const QString& s) {
        text_ += s;
        return *this;
    }
    QString w(int id) const { return words_[static_cast<size_t>(id - 100)]; }
    QString open(int tag) const { return w(kLt) + w(tag) + w(kGt); }
    QString close(int tag) const { return w(kLt) + w(kSlash) + w(tag) + w(kGt); }
    // name="value", no space before it.
    QString attr(int name, const QString& value) const {
        return w(name) + w(kEquals) + w(kQuote) + value + w(kQuote);
    }
    QString percent(const QString& number) const { return number + w(kPercent); }
    // <table border="0"width="100%"> with no space before width, as every page has always had it.
    QString table() const {
        return w(kLt) + w(kTable) + QStringLiteral(" ") + attr(kBorder, QStringLiteral("0")) +
               attr(kWidth, percent(QStringLiteral("100"))) + w(kGt);
    }
    QString tdWidth(const QString& width) const {
        return w(kLt) + w(kTd) + QStringLiteral(" ") + attr(kWidth, percent(width)) + w(kGt);
    }
    QString pCenter() const {
        return w(kLt) + w(kP) + QStringLiteral(" ") + attr(kAlign, w(kCenter)) + w(kGt);
    }
    QString tdCentered() const {
        return w(kLt) + w(kTd) + QStringLiteral(" ") + attr(kWidth, percent(QStringLiteral("100"))) +
               QStringLiteral(" ") + attr(kAlign, w(kCenter)) + w(kGt);
    }
    QString repeat(const QString& s, int n) const { return s.repeated(n); }
    const QString& text() const { return text_; }

private:
    const std::array<QString, 31>& words_;
    QString text_;
};

bool hasUrl(const Pane& pane) {
    return IsSet(pane.Url) && !pane.Url.isEmpty();
}
} // namespace

int PageGridSide(int gridIndex) {
    if (gridIndex < 0 || gridIndex > 3) throw RunTimeError::SubscriptOutOfRange();
    return gridIndex + 2;
}

QString MakeWebpage(const Project& project, const HtmlExportOptions& options, const QString& stem,
                    WebpageState& state) {
    const int g = PageGridSide(options.GridIndex);
    const GridMeasures& m = kMeasures[options.GridIndex];
    const QString cellWidth = Str(m.cell);
    const int height = options.ScaleOption == 0 ? m.heightSmall : m.heightLarge;
    const auto& box = options.Structure;
    PageText t(project);

    // Head.
    t << t.open(kHtml) << kCrLf << t.open(kHead) << kCrLf << t.open(kTitle) << QStringLiteral("Kelvrin")
      << t.close(kTitle) << kCrLf;
    t << t.w(kLt) << t.w(kMeta) << QStringLiteral(" ") << t.attr(kName, QStringLiteral("GENERATOR"))
      << QStringLiteral(" ") << t.attr(kContent, QStringLiteral("Orvane Works Kelvrin v1.0")) << t.w(kGt)
      << kCrLf;
    t << t.close(kHead) << kCrLf << kCrLf << t.open(kBody) << kCrLf << kCrLf;

    // Title block; the cell tag carries a stray "table" and the second paragraph stays open.
    t << t.table() << kCrLf << t.open(kTr) << t.w(kLt) << t.w(kTd) << QStringLiteral(" ") << t.w(kTable)
      << QStringLiteral(" ") << t.attr(kBorder, QStringLiteral("0"))
      << t.attr(kWidth, t.percent(QStringLiteral("100"))) << t.w(kGt) << t.open(kTr) << kCrLf;
    t << t.tdWidth(QStringLiteral("100")) << kCrLf << t.pCenter() << t.repeat(t.open(kBig), 5);
    if (box[kShowTitle] && IsSet(project.BoardTitle)) t << project.BoardTitle;
    t << t.repeat(t.close(kBig), 5) << t.close(kP) << kCrLf << t.pCenter() << t.repeat(t.open(kBig), 5)
      << t.w(kNbsp) << t.repeat(t.close(kBig), 5) << t.close(kTd) << kCrLf << t.close(kTr) << t.close(kTable);

    const QString rowEnd = t.close(kTr) + t.close(kTable) + t.close(kTd) + t.close(kTr) + t.close(kTable);
    for (int r = 1; r <= g; ++r) {
        // Labels; their paragraphs are never closed.
        t << t.table() << kCrLf << kCrLf << kTitlesComment << kCrLf << kCrLf << t.open(kTr);
        for (int c = 1; c <= g; ++c) {
            state.TitleCursor = Add16(state.TitleCursor, 1);
            const Pane& pane = project.Panes(state.TitleCursor);
            t << t.tdWidth(cellWidth) << t.pCenter();
            if (box[kDockLabels] && IsSet(pane.Label)) t << pane.Label;
            t << t.close(kTd) << kCrLf;
        }
        t << rowEnd << kCrLf << t.pCenter() << kCrLf << kCrLf << kImagesComment << kCrLf << kCrLf;

        // Pictures: the line break comes before each picture, so an anchor ends the line before it.
        for (int c = 1; c <= g; ++c) {
            state.ImageCursor = Add16(state.ImageCursor, 1);
            const int k = state.ImageCursor;
            const Pane& pane = project.Panes(k);
            if (hasUrl(pane))
                t << t.w(kLt) << t.w(kA) << QStringLiteral(" ") << t.attr(kHref, pane.Url) << t.w(kGt);
            t << kCrLf;
            t << t.w(kLt) << t.w(kImg) << QStringLiteral(" ")
              << t.attr(kSrc,
                        pane.SourceStem + QStringLiteral("-") + Format(k, "000") + QStringLiteral(".JPG"))
              << QStringLiteral(" ") << t.attr(kWidth, t.percent(Str(m.width))) << QStringLiteral(" ")
              << t.attr(kHeight, t.percent(Str(height)));
            if (box[kAltLabels])
                t << QStringLiteral(" ") << t.attr(kAlt, IsSet(pane.Label) ? pane.Label : QString());
            // The border depends on the box alone, not on whether the pane has a link.
            if (box[kUrlBorders])
                t << t.w(kGt);
            else
                t << QStringLiteral(" ") << t.attr(kBorder, QStringLiteral("0")) << t.w(kGt);
            if (hasUrl(pane)) t << t.close(kA);
        }

        // Texts; the inner table gets no row of its own.
        t << t.close(kP) << kCrLf << kCrLf << kTextsComment << kCrLf << kCrLf << t.table() << kCrLf
          << t.open(kTr) << t.tdCentered() << t.table() << kCrLf;
        for (int c = 1; c <= g; ++c) {
            state.TextCursor = Add16(state.TextCursor, 1);
            const int k = state.TextCursor;
            const Pane& pane = project.Panes(k);
            t << t.tdWidth(cellWidth);
            if (c == 1) t << t.repeat(t.w(kNbsp), 3);
            if (box[kNumberPanes]) {
                t << t.open(kStrong) << Str(k) << QStringLiteral(".") << t.close(kStrong)
                  << QStringLiteral("  ");
                if (IsSet(pane.Text)) t << pane.Text;
            } else {
                // Without numbers the text is written as stored: an unset text shows as "ToUse".
                t << pane.Text;
            }
            t << t.close(kTd) << kCrLf;
        }
        t << rowEnd << kCrLf << t.open(kP) << t.w(kNbsp) << t.close(kP);
    }

    // Navigation: a forward link only.
    t << t.pCenter();
    if (state.CurrentPage != state.PageCount)
        t << t.w(kLt) << t.w(kA) << QStringLiteral(" ")
          << t.attr(kHref, stem + QStringLiteral("_") + Format(Add16(state.CurrentPage, 1), "000") +
                               QStringLiteral(".htm"))
          << t.w(kGt) << QStringLiteral("Next") << t.close(kA);
    t << t.close(kP);

    // Footer.
    t << t.open(kP) << t.w(kNbsp) << t.close(kP) << kCrLf << kCrLf << kFootersComment << kCrLf << kCrLf
      << t.table() << kCrLf << t.open(kTr) << t.tdCentered();
    if (box[kShowFooter] && IsSet(project.FooterText)) t << project.FooterText;
    t << t.close(kTd) << t.close(kTr) << kCrLf << t.close(kTable) << kCrLf << t.close(kBody) << kCrLf
      << t.close(kHtml) << kCrLf;
    return t.text();
}

QString WebpagePath(const QString& folder, const QString& stem, int page) {
    return folder + stem + QStringLiteral("_") + Format(page, "000") + QStringLiteral(".htm");
}

void WritePage(const QString& folder, const QString& stem, int page, const QString& text) {
    const QString path = WebpagePath(folder, stem, page);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        if (!QFileInfo(path).absoluteDir().exists()) throw RunTimeError::PathNotFound(path);
        throw RunTimeError::PathFileAccess(path);
    }
    const QByteArray bytes = ToAnsi(text + kCrLf);
    if (file.write(bytes) != bytes.size() || !file.flush()) throw RunTimeError::PathFileAccess(path);
}
