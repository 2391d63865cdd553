#pragma once

#include "export/htmlexport.h"
#include "model/project.h"

#include <QString>
#include <QStringList>
#include <functional>

// A whole HTML export of an opened project without a window: the words of the pages, the pages
// as the export window's Accept writes them, then the pane pictures as the main window converts
// them afterwards.
struct ProjectExport {
    QStringList pages;    // written, in order
    QStringList pictures; // written, in pane order
    bool done = false;    // every picture converted
    QString failure;      // otherwise the first message of the conversion
};

// Page failures are ExportWebpages' RunTimeErrors; a picture conversion that stops
// leaves done false.
// progress(pane, last) sees each pane before its picture is converted.
ProjectExport ExportProject(Project& project, const HtmlExportOptions& options, const ExportTarget& target,
                            const std::function<void(int pane, int last)>& progress = {});
