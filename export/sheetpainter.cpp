#include "export/sheetpainter.h"

#include "images/outputpicture.h"
#include "images/panebatch.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>
#include <QTextLayout>
#include <cmath>

namespace {
const QColor kInk(0x1a, 0x1a, 0x1a);
const QColor kGrey(0x5a, 0x5a, 0x5a);
const QColor kRule(0x8c, 0x8c, 0x8c);
const QColor kFrame(0xb4, 0xb4, 0xb4);
const QColor kFaint(0xc8, 0xc8, 0xc8);
constexpr double kHairline = 4; // 0.4 pt

// One line of text in a box, shrunk (to 60%) rather than run past its width; vertically centred.
void drawLine(QPainter& painter, QFont font, const QString& text, const QRectF& box, Qt::Alignment align) {
    const double wide = QFontMetricsF(font).horizontalAdvance(text);
    if (wide > box.width() && wide > 0)
        font.setPixelSize(qMax(1, int(font.pixelSize() * qMax(0.6, box.width() / wide))));
    painter.setFont(font);
    painter.drawText(box, int(align | Qt::AlignVCenter), text);
}

void drawBlock(QPainter& painter, const CaptionBlock& block, QPointF at, double width) {
    if (block.kind == CaptionBlock::Url) {
        QTextDocument document;
        SetUpUrlDocument(document, block.text, width);
        painter.save();
        painter.translate(at);
        document.drawContents(&painter);
        painter.restore();
        return;
    }
    QString text = block.text;
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    text.replace(QLatin1Char('\r'), QChar::LineSeparator);
    QTextLayout layout(text, CaptionFont(block.kind));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    double y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += line.height();
    }
    layout.endLayout();
    painter.setPen(block.kind == CaptionBlock::Label ? kGrey : kInk);
    layout.draw(&painter, at);
}

// The whole picture inside the box, as large as fits, in the box's top left corner: it lines up
// with its caption, which follows right under it.
QRectF fitted(QSizeF picture, const QRectF& box) {
    const QSizeF size = picture.scaled(box.size(), Qt::KeepAspectRatio);
    return QRectF(box.topLeft(), size);
}

QSize pixelsOf(QSizeF box, int dpi) {
    return QSize(qMax(1, int(std::ceil(box.width() / kSheetUnitsPerInch * dpi))),
                 qMax(1, int(std::ceil(box.height() / kSheetUnitsPerInch * dpi))));
}
} // namespace

QPageLayout SheetPageLayout(const SheetOptions& options) {
    return QPageLayout(QPageSize(options.paper),
                       options.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter);
}

QSizeF SheetPageSize(const QPageLayout& pageLayout) {
    return pageLayout.paintRect(QPageLayout::Point).size() * (kSheetUnitsPerInch / 72.0);
}

SheetPicture PrepareSheetPicture(const Pane& pane, QSizeF box, int dpi) {
    const QSize pixels = pixelsOf(box, dpi);
    OutputPicture picture = LoadOutputPictureToFit(pane, pixels);
    SheetPicture out;
    out.missing = picture.missing;
    if (picture.image.isNull()) return out;
    // Pictures are kept at most at the sheet's resolution: a printer's own (often 1200 dpi) would
    // make huge files for no visible gain.
    const QSize size = picture.image.size();
    out.image = size.width() > pixels.width() || size.height() > pixels.height()
                    ? picture.image.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                    : picture.image;
    return out;
}

void PaintSheetFrame(QPainter& painter, const Project& project, const SheetLayout& layout, int page) {
    painter.save();
    const QRectF header = layout.header, footer = layout.footer;
    const QString subject = SheetPageSubject(layout.pages.value(page));
    const QFont info = SheetFont(SheetFontRole::HeaderInfo);
    const double subjectWidth = QFontMetricsF(info).horizontalAdvance(subject);
    painter.setPen(kGrey);
    drawLine(painter, info, subject, header, Qt::AlignRight);
    if (IsSet(project.BoardTitle)) {
        painter.setPen(kInk);
        drawLine(painter, SheetFont(SheetFontRole::Title), project.BoardTitle,
                 header.adjusted(0, 0, -(subjectWidth + 200), 0), Qt::AlignLeft);
    }
    painter.setPen(QPen(kRule, kHairline * 1.5));
    painter.drawLine(QPointF(header.left(), header.bottom()), QPointF(header.right(), header.bottom()));
    painter.setPen(QPen(kRule, kHairline));
    painter.drawLine(QPointF(footer.left(), footer.top()), QPointF(footer.right(), footer.top()));

    const QFont small = SheetFont(SheetFontRole::Footer);
    const QString pageText = QStringLiteral("Page %1 of %2").arg(page + 1).arg(layout.pages.size());
    const double pageWidth = QFontMetricsF(small).horizontalAdvance(pageText);
    const QRectF band = footer.adjusted(0, 30, 0, 0);
    painter.setPen(kGrey);
    drawLine(painter, small, pageText, band, Qt::AlignRight);
    if (IsSet(project.FooterText)) {
        painter.setPen(kInk);
        drawLine(painter, small, project.FooterText, band.adjusted(0, 0, -(pageWidth + 200), 0),
                 Qt::AlignLeft);
    }
    painter.restore();
}

void PaintSheetCell(QPainter& painter, const Project& project, const SheetOptions& options,
                    const SheetCell& cell, const SheetPicture& picture) {
    painter.save();
    // A picture without one is a frame of 4:3.
    const QRectF box =
        fitted(picture.image.isNull() ? QSizeF(4, 3) : QSizeF(picture.image.size()), cell.picture);
    if (!picture.image.isNull()) {
        painter.drawImage(box, picture.image);
        painter.setPen(QPen(kFrame, kHairline));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box);
    } else if (box.height() > 0) {
        // A blank pane is an empty frame with its number; a picture that cannot be read says so.
        painter.setPen(QPen(picture.missing ? kRule : kFaint, kHairline * 2,
                            picture.missing ? Qt::SolidLine : Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box);
        QFont big = SheetFont(SheetFontRole::Title);
        big.setPixelSize(qMax(1, int(qMin(box.height() * 0.28, 360.0))));
        painter.setPen(picture.missing ? kGrey : kFaint);
        QRectF numberBox = box;
        if (picture.missing) numberBox.setBottom(box.center().y() + big.pixelSize() * 0.2);
        drawLine(painter, big, QString::number(cell.pane), numberBox.adjusted(20, 0, -20, 0),
                 Qt::AlignHCenter);
        if (picture.missing) {
            const QFont notice = SheetFont(SheetFontRole::Notice);
            const QRectF below(box.left() + 20, box.center().y() + big.pixelSize() * 0.25, box.width() - 40,
                               notice.pixelSize() * 1.6);
            drawLine(painter, notice, QStringLiteral("picture missing"), below, Qt::AlignHCenter);
        }
    }
    // The caption follows the picture; the layout keeps room for it down to the box's bottom.
    double y = qMin(cell.caption.top(), box.bottom() + kCaptionTop);
    for (const CaptionBlock& block : CaptionBlocks(project, cell.pane, options)) {
        drawBlock(painter, block, QPointF(cell.caption.left(), y), cell.caption.width());
        y += BlockHeight(block, cell.caption.width()) + kCaptionBlockGap;
    }
    painter.restore();
}

SheetResult PaintSheet(QPagedPaintDevice& device, const Project& project, const SheetOptions& options,
                       const SheetLayout& layout, const SheetProgress& progress) {
    SheetResult result;
    QPainter painter;
    if (!painter.begin(&device)) {
        result.error = QStringLiteral("the page could not be started");
        return result;
    }
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    painter.scale(device.logicalDpiX() / kSheetUnitsPerInch, device.logicalDpiY() / kSheetUnitsPerInch);

    struct Job {
        int page;
        const SheetCell* cell;
    };
    std::vector<Job> jobs;
    for (int p = 0; p < layout.pages.size(); ++p)
        for (const SheetCell& cell : layout.pages[p].cells)
            jobs.push_back({p, &cell});
    const int count = static_cast<int>(jobs.size());
    int painted = -1; // the page being painted
    const auto startPage = [&](int page) {
        while (painted < page) {
            if (painted >= 0) device.newPage();
            PaintSheetFrame(painter, project, layout, ++painted);
        }
    };
    bool go = true;
    RenderInOrder<SheetPicture>(
        count,
        [&](int i) {
            const SheetCell& cell = *jobs[static_cast<size_t>(i)].cell;
            return PrepareSheetPicture(project.Panes(cell.pane), cell.picture.size(), options.dpi);
        },
        [&](int i, SheetPicture& picture) {
            const Job& job = jobs[static_cast<size_t>(i)];
            startPage(job.page);
            PaintSheetCell(painter, project, options, *job.cell, picture);
            if (picture.missing) result.missing << job.cell->pane;
            picture.image = QImage(); // the page keeps its own copy
            go = !progress || progress(i + 1, count);
            return go;
        });
    if (go) startPage(static_cast<int>(layout.pages.size()) - 1);
    painter.end();
    result.complete = go;
    return result;
}

SheetResult WriteSheetPdf(const QString& path, const Project& project, const SheetOptions& options,
                          const SheetProgress& progress) {
    SheetResult result;
    QSaveFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::WriteOnly)) {
        result.error =
            QStringLiteral("%1 cannot be written: %2")
                .arg(path, QFileInfo(path).isDir() ? QStringLiteral("it is a folder") : file.errorString());
        return result;
    }
    {
        QPdfWriter writer(&file);
        writer.setPageLayout(SheetPageLayout(options));
        writer.setCreator(QStringLiteral("Kelvrin"));
        writer.setTitle(IsSet(project.BoardTitle) ? project.BoardTitle : QFileInfo(path).completeBaseName());
        const SheetLayout layout = LayOutSheet(project, options, SheetPageSize(writer.pageLayout()));
        result = PaintSheet(writer, project, options, layout, progress);
    }
    if (!result.complete) return result; // the temporary file goes with `file`
    if (!file.commit()) {
        result.complete = false;
        result.error = QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString());
    }
    return result;
}

QImage PreviewSheetPage(const Project& project, const SheetOptions& options, int width, int page) {
    const QPageLayout pageLayout = SheetPageLayout(options);
    const QRectF full = pageLayout.fullRect(QPageLayout::Point);
    const QRectF paint = pageLayout.paintRect(QPageLayout::Point);
    const double scale = width / full.width(); // pixels per point
    QImage image(width, qRound(full.height() * scale), QImage::Format_RGB32);
    image.fill(Qt::white);
    const SheetLayout layout = LayOutSheet(project, options, SheetPageSize(pageLayout));
    if (page < 0 || page >= layout.pages.size()) return image;
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::TextAntialiasing);
    painter.translate(paint.left() * scale, paint.top() * scale);
    painter.scale(scale * 72 / kSheetUnitsPerInch, scale * 72 / kSheetUnitsPerInch);
    PaintSheetFrame(painter, project, layout, page);
    const int dpi = qMax(24, qRound(scale * 72));
    for (const SheetCell& cell : layout.pages[page].cells)
        PaintSheetCell(painter, project, options, cell,
                       PrepareSheetPicture(project.Panes(cell.pane), cell.picture.size(), dpi));
    return image;
}
