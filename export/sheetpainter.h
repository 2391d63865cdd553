#pragma once

#include "export/contactsheet.h"

#include <QImage>
#include <QList>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <functional>

// Drawing contact sheets laid out by LayOutSheet, on any paged device (a printer, a PDF writer)
// or on a picture for a preview.

// The page of a sheet: the paper and orientation of the options, with margins of 12 mm.
QPageLayout SheetPageLayout(const SheetOptions& options);
// The printable area of a page layout in sheet units.
QSizeF SheetPageSize(const QPageLayout& pageLayout);

// A pane's picture made ready for its box: at most the box's size at the options' resolution.
struct SheetPicture {
    QImage image;         // null for a blank pane and for a picture that cannot be read
    bool missing = false; // a picture that cannot be read
};
// Safe to call from several threads at once.
SheetPicture PrepareSheetPicture(const Pane& pane, QSizeF box, int dpi);

// Painting on a painter whose coordinates are sheet units (the caller scales it to the device):
// the page's title, subject, footer and "Page n of m", and one cell.
void PaintSheetFrame(QPainter& painter, const Project& project, const SheetLayout& layout, int page);
void PaintSheetCell(QPainter& painter, const Project& project, const SheetOptions& options,
                    const SheetCell& cell, const SheetPicture& picture);

// done, total; false to stop.
using SheetProgress = std::function<bool(int, int)>;

struct SheetResult {
    bool complete = false; // false when cancelled or failed
    QString error;         // why it failed, empty when it did not or was cancelled
    QList<int> missing;    // panes whose picture could not be read, drawn as "picture missing"
};

// Paints every page of the layout on the device, which must already have the layout's page.
// Pictures are prepared on every core while the pages are painted in order, one page at a time.
SheetResult PaintSheet(QPagedPaintDevice& device, const Project& project, const SheetOptions& options,
                       const SheetLayout& layout, const SheetProgress& progress = {});

// The whole sheet as a PDF file. It is written under a temporary name beside the file and takes
// the file's name only once complete: a failure or a cancel leaves no file behind.
SheetResult WriteSheetPdf(const QString& path, const Project& project, const SheetOptions& options,
                          const SheetProgress& progress = {});

// Page `page` (0-based) of the sheet as a picture `width` pixels wide, white paper with its margins.
QImage PreviewSheetPage(const Project& project, const SheetOptions& options, int width, int page = 0);
