#pragma once

#include "model/project.h"

#include <QFont>
#include <QList>
#include <QPageSize>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <functional>

class QTextDocument;
// Contact sheets: the project's panes on paper pages, each picture with its number and texts under
// it, the title at the top and the footer and "Page n of m" at the bottom of every page. This file
// decides what goes where; sheetpainter.h draws it.
//
// Every measure of a sheet is in sheet units, a tenth of a point (720 to the inch), whatever the
// device: fonts are sized in units too, so that a page wraps its texts the same on a printer, in a
// PDF and in a preview.
constexpr double kSheetUnitsPerInch = 720.0;

struct SheetOptions {
    int perPage = 0; // panes per page: 1, 2, 3, 4, 6, 9 or 12; 0 a board per page
    bool landscape = false;
    QPageSize::PageSizeId paper = QPageSize::A4;
    bool texts = true; // each pane's text under its picture
    bool labels = false;
    bool urls = false; // as links in a PDF
    bool numbers = true;
    int dpi = 300; // the pictures' resolution on paper
};

// Letter where the locale measures in inches, A4 elsewhere.
QPageSize::PageSizeId LocaleSheetPaper();

// The choices of panes per page, in the order they are offered.
inline const QList<int> kSheetPerPageChoices = {0, 1, 2, 3, 4, 6, 9, 12};

// Columns and rows of a page: the board's grid for a board per page, else the rows are the long side.
QSize SheetGrid(const Project& project, const SheetOptions& options);

struct SheetCell {
    int pane = 0;   // the pane's index, which is also its number
    QRectF picture; // the box the picture is fitted into, at its top left corner
    QRectF caption; // number, label, text and URL: its lowest place, right under the box
};

struct SheetPage {
    int board = 0;          // the board on this page when a page shows a board, else 0
    bool continued = false; // a board's rows that did not fit on its first page
    QList<SheetCell> cells;
};

struct SheetLayout {
    QSizeF page;   // the printable area, in units; (0, 0) is its top left corner
    QRectF header; // title on the left, what the page shows on the right
    QRectF body;
    QRectF footer; // footer text on the left, "Page n of m" on the right
    QList<SheetPage> pages;
    int cellCount() const;
};

// The height in units that pane's caption takes at a width, for the options' blocks.
using CaptionHeight = std::function<double(int pane, double width)>;

// Places every pane from 1 to the project's pane total. Rows are as high as the grid makes them;
// a row whose caption needs more room than the grid leaves under a picture shrinks its pictures,
// down to half their height, and past that grows, pushing the rows after it on (to the next page
// when they no longer fit). Nothing is ever cut. Without captionHeight the sheet's fonts measure.
SheetLayout LayOutSheet(const Project& project, const SheetOptions& options, QSizeF page,
                        const CaptionHeight& captionHeight = {});

// A caption is made of blocks, each wrapped to the width (a long word breaks anywhere).
struct CaptionBlock {
    enum Kind { Number, Label, Text, Url };
    Kind kind;
    QString text;
};
QList<CaptionBlock> CaptionBlocks(const Project& project, int pane, const SheetOptions& options);

// The sheet's fonts (DejaVu, which covers Windows-1252 and far beyond), sized in units.
enum class SheetFontRole { Title, HeaderInfo, Number, Label, Text, Url, Footer, Notice };
QFont SheetFont(SheetFontRole role);
QFont CaptionFont(CaptionBlock::Kind kind);

// Height of one block wrapped to width, and of a whole caption, in units.
double BlockHeight(const CaptionBlock& block, double width);
double MeasureCaption(const QList<CaptionBlock>& blocks, double width);
// A URL's block is a text document holding the link, which a PDF keeps as a link.
void SetUpUrlDocument(QTextDocument& document, const QString& url, double width);
constexpr double kCaptionBlockGap = 12; // between the blocks of a caption
constexpr double kCaptionTop = 40;      // between a picture and its caption

// "Board 2", "Board 2, continued" or "Panes 13 to 24": what the page shows, for its header.
QString SheetPageSubject(const SheetPage& page);
