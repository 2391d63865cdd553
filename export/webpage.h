#pragma once

#include "model/project.h"

#include <QString>
#include <QtGlobal>
#include <array>

// The options of an HTML export, as the export window shows them.
struct HtmlExportOptions {
    int GridIndex = 0;   // pane grid of the pages: 0 to 3 for 2 x 2 to 5 x 5
    int ScaleOption = 1; // "Scale panes for": 0 "640 x 480", 1 "800 x 600, 1024 x 768"
    // The six structure boxes, indexed by StructureBox.
    std::array<bool, 6> Structure{{true, true, true, true, true, true}};
    bool AutoCreate = true; // "Auto-create html code": every page; otherwise page 1 only
};

enum StructureBox {
    kDockLabels = 0, // "Labels dock with panes."
    kAltLabels,      // "Labels show as ALT tag property."
    kNumberPanes,    // "Number every pane."
    kUrlBorders,     // "Show border on panes with URLs."
    kShowTitle,      // "Show board title."
    kShowFooter,     // "Show footer text."
};

// The page being built and the three running pane cursors. The cursors walk the same pane
// indices; each page advances each by g x g, and an export starts them at 0 and never resets them
// between its pages.
struct WebpageState {
    qint16 CurrentPage = 0;
    qint16 PageCount = 0;
    qint16 TitleCursor = 0;
    qint16 ImageCursor = 0;
    qint16 TextCursor = 0;
};

// Panes per side of the pages' grid for a list index (2 to 5); any other index is RunTimeError 9.
int PageGridSide(int gridIndex);

// The complete text of one page (lines end in CR LF): the title block, g rows of label, picture
// and text cells for the next g x g panes, the link to the next page unless CurrentPage is
// PageCount, and the footer. Tags and attributes come from project.HtmlWords. stem names the
// pages for the link. A cursor that runs past pane 1000 is RunTimeError 9.
QString MakeWebpage(const Project& project, const HtmlExportOptions& options, const QString& stem,
                    WebpageState& state);

// <folder><stem>_<page as "000">.htm; folder ends with its separator.
QString WebpagePath(const QString& folder, const QString& stem, int page);

// Writes a page's text and one more CR LF in Windows-1252, replacing any file of that name.
// A file that cannot be written is RunTimeError 76 (missing folder) or 75.
void WritePage(const QString& folder, const QString& stem, int page, const QString& text);
