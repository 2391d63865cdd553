#include "export/contactsheet.h"

#include <QFontDatabase>
#include <QLocale>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>
#include <cmath>

namespace {
constexpr double kHeaderHeight = 230;
constexpr double kFooterHeight = 170;
constexpr double kBandGap = 90; // between the header or footer rule and the panes
constexpr double kGutterX = 130;
constexpr double kGutterY = 150;
constexpr double kShrinkLimit = 0.5; // how far a long caption may shrink its row's pictures

const QString kFamily = QStringLiteral("DejaVu Sans");

// Fontconfig normally knows DejaVu; where it does not, the files of fonts-dejavu-core are added.
void ensureFamily() {
    static const bool loaded = [] {
        if (QFontDatabase::hasFamily(kFamily)) return true;
        for (const char* file : {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "DejaVuSans-Oblique.ttf"})
            QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/fonts/truetype/dejavu/") +
                                              QString::fromLatin1(file));
        return true;
    }();
    Q_UNUSED(loaded);
}

QTextOption wrapping() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

// A text's line breaks as the layout's own.
QString layoutText(QString text) {
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    text.replace(QLatin1Char('\r'), QChar::LineSeparator);
    return text;
}
} // namespace

int SheetLayout::cellCount() const {
    int n = 0;
    for (const SheetPage& page : pages)
        n += static_cast<int>(page.cells.size());
    return n;
}

QFont SheetFont(SheetFontRole role) {
    ensureFamily();
    QFont font(kFamily);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::ForceOutline);
    // Any letter spacing turns ligatures off, so that a search in the PDF finds "fi" as two letters.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);
    struct Face {
        int size;
        bool bold, italic;
    };
    // By role: title, header info, number, label, text, URL, footer, notice.
    static const Face faces[] = {{150, true, false}, {85, false, false}, {78, true, false},
                                 {76, false, true},  {82, false, false}, {70, false, false},
                                 {76, false, false}, {76, false, false}};
    const Face& face = faces[static_cast<int>(role)];
    font.setBold(face.bold);
    font.setItalic(face.italic);
    font.setPixelSize(face.size);
    return font;
}

QFont CaptionFont(CaptionBlock::Kind kind) {
    static const SheetFontRole roles[] = {SheetFontRole::Number, SheetFontRole::Label, SheetFontRole::Text,
                                          SheetFontRole::Url};
    return SheetFont(roles[kind]);
}

QList<CaptionBlock> CaptionBlocks(const Project& project, int pane, const SheetOptions& options) {
    const Pane& p = project.Panes(pane);
    QList<CaptionBlock> blocks;
    if (options.numbers) blocks.append({CaptionBlock::Number, QString::number(pane)});
    if (options.labels && IsSet(p.Label) && !p.Label.isEmpty()) blocks.append({CaptionBlock::Label, p.Label});
    if (options.texts && IsSet(p.Text) && !p.Text.isEmpty()) blocks.append({CaptionBlock::Text, p.Text});
    if (options.urls && IsSet(p.Url) && !p.Url.isEmpty()) blocks.append({CaptionBlock::Url, p.Url});
    return blocks;
}

double BlockHeight(const CaptionBlock& block, double width) {
    const QFont font = CaptionFont(block.kind);
    if (block.kind == CaptionBlock::Url) {
        // Links are drawn by a text document (it makes them clickable), so it measures them too.
        QTextDocument document;
        SetUpUrlDocument(document, block.text, width);
        return document.size().height();
    }
    QTextLayout layout(layoutText(block.text), font);
    layout.setTextOption(wrapping());
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        height += line.height();
    }
    layout.endLayout();
    return height;
}

void SetUpUrlDocument(QTextDocument& document, const QString& url, double width) {
    document.setDocumentMargin(0);
    document.setDefaultFont(CaptionFont(CaptionBlock::Url));
    document.setDefaultTextOption(wrapping());
    document.setDefaultStyleSheet(QStringLiteral("a { color: #1f4e8c; text-decoration: none; }"));
    document.setHtml(QStringLiteral("<a href=\"%1\">%1</a>").arg(url.toHtmlEscaped()));
    document.setTextWidth(width);
}

double MeasureCaption(const QList<CaptionBlock>& blocks, double width) {
    double height = 0;
    for (const CaptionBlock& block : blocks)
        height += (height > 0 ? kCaptionBlockGap : 0) + BlockHeight(block, width);
    return height;
}

QPageSize::PageSizeId LocaleSheetPaper() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                              : QPageSize::A4;
}

QSize SheetGrid(const Project& project, const SheetOptions& options) {
    if (options.perPage <= 0) return {project.GridSide, project.GridSide};
    // Columns and rows on a portrait page, in the choices' order; a choice not offered gets one.
    static const QSize grids[] = {{1, 1}, {1, 2}, {1, 3}, {2, 2}, {2, 3}, {3, 3}, {3, 4}};
    const int choice = qMax(1, int(kSheetPerPageChoices.indexOf(options.perPage)));
    const QSize portrait = grids[choice - 1];
    return options.landscape ? portrait.transposed() : portrait;
}

QString SheetPageSubject(const SheetPage& page) {
    if (page.board > 0)
        return page.continued ? QStringLiteral("Board %1, continued").arg(page.board)
                              : QStringLiteral("Board %1").arg(page.board);
    if (page.cells.isEmpty()) return QString();
    const int first = page.cells.first().pane, last = page.cells.last().pane;
    return first == last ? QStringLiteral("Pane %1").arg(first)
                         : QStringLiteral("Panes %1 to %2").arg(first).arg(last);
}

SheetLayout LayOutSheet(const Project& project, const SheetOptions& options, QSizeF page,
                        const CaptionHeight& captionHeight) {
    const CaptionHeight measure =
        captionHeight ? captionHeight : [&project, &options](int pane, double width) {
            return MeasureCaption(CaptionBlocks(project, pane, options), width);
        };
    SheetLayout layout;
    layout.page = page;
    layout.header = QRectF(0, 0, page.width(), kHeaderHeight);
    layout.footer = QRectF(0, page.height() - kFooterHeight, page.width(), kFooterHeight);
    layout.body = QRectF(0, kHeaderHeight + kBandGap, page.width(),
                         page.height() - kHeaderHeight - kFooterHeight - 2 * kBandGap);
    const QRectF body = layout.body;

    const QSize grid = SheetGrid(project, options);
    const int columns = grid.width(), rows = grid.height();
    const double columnWidth = (body.width() - (columns - 1) * kGutterX) / columns;
    const double rowHeight = (body.height() - (rows - 1) * kGutterY) / rows;

    // Room kept under every picture for a caption of usual length: the number, a line of label,
    // two lines of text and a line of URL, as chosen.
    const auto lineOf = [](CaptionBlock::Kind kind) {
        return BlockHeight({kind, QStringLiteral("Xg")}, 1e6);
    };
    double reserve = 0;
    const auto keep = [&reserve](double h) { reserve += (reserve > 0 ? kCaptionBlockGap : 0) + h; };
    if (options.numbers) keep(lineOf(CaptionBlock::Number));
    if (options.labels) keep(lineOf(CaptionBlock::Label));
    if (options.texts) keep(2 * lineOf(CaptionBlock::Text));
    if (options.urls) keep(lineOf(CaptionBlock::Url));
    const double usualPicture = qMax(rowHeight - kCaptionTop - reserve, rowHeight * 0.3);
    const double smallestPicture = usualPicture * kShrinkLimit;

    const int total = qMin<int>(PaneTotal(project), kMaxPane);
    const int run = options.perPage > 0 ? total : columns * rows; // panes before a forced new page
    SheetPage* current = nullptr;
    double y = 0;
    int rowsOnPage = 0;
    const auto newPage = [&](int board, bool continued) {
        layout.pages.append(SheetPage{board, continued, {}});
        current = &layout.pages.last();
        y = body.top();
        rowsOnPage = 0;
    };
    for (int first = 1; first <= total; first += columns) {
        const int last = qMin(total, first + columns - 1);
        const int board = options.perPage > 0 ? 0 : (first - 1) / run + 1;
        double caption = 0;
        QList<double> captions;
        for (int pane = first; pane <= last; ++pane) {
            captions.append(measure(pane, columnWidth));
            caption = qMax(caption, captions.last());
        }
        double picture = qMin(usualPicture, rowHeight - kCaptionTop - caption);
        picture = qMax(picture, smallestPicture);
        // A caption longer than a whole page leaves its pictures what is left, down to nothing.
        if (picture + kCaptionTop + caption > body.height())
            picture = qMax(0.0, body.height() - kCaptionTop - caption);
        const double height = qMax(rowHeight, picture + kCaptionTop + caption);

        const bool boardStarts = options.perPage <= 0 && (first - 1) % run == 0;
        if (!current || boardStarts) {
            newPage(board, false);
        } else if (rowsOnPage == rows || y + height > body.bottom() + 0.5) {
            newPage(board, board > 0);
        }
        for (int pane = first; pane <= last; ++pane) {
            const double x = body.left() + (pane - first) * (columnWidth + kGutterX);
            const double below = y + picture + kCaptionTop;
            current->cells.append(SheetCell{pane, QRectF(x, y, columnWidth, picture),
                                            QRectF(x, below, columnWidth, captions[pane - first])});
        }
        y += height + kGutterY;
        ++rowsOnPage;
    }
    if (layout.pages.isEmpty()) layout.pages.append(SheetPage{});
    return layout;
}
