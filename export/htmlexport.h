#pragma once

#include "export/webpage.h"
#include "model/project.h"

#include <QImage>
#include <QString>
#include <QStringList>
#include <functional>

class Prompts;

// A whole HTML export without any window: the pages that the export window's Accept writes and
// the pane pictures that the main window converts afterwards. Both write into the folder of the
// chosen page file and name the pages after its stem.

// Where an export goes, derived from the chosen .htm path as the export window's path button does.
struct ExportTarget {
    QString Path;   // the chosen file
    QString Folder; // the path less its file name, ending with "/"
    QString Stem;   // the file name less its last four characters (".htm"); empty when it is shorter
};
ExportTarget ExportTargetOf(const QString& path);

// Pages for a project of boardCount boards of gridSide x gridSide panes on pages of the grid
// gridIndex: as many as the panes fill, at least one.
qint16 WebpageCount(qint16 boardCount, qint16 gridSide, int gridIndex);

// The pages of an export: PageCount set, the cursors back to 0, then every page built and written
// (only page 1 when options.AutoCreate is off). eachPage, when given, sees every page's text once
// it is written. Returns the paths written. Any failure is a RunTimeError; the pages written
// before it stay.
QStringList ExportWebpages(const Project& project, const HtmlExportOptions& options, qint16 boardCount,
                           qint16 gridSide, const QString& folder, const QString& stem, WebpageState& state,
                           const std::function<void(const WebpageState&, const QString&)>& eachPage = {});

// <folder><SourceStem>-<index as "000">.JPG, the name the pages give the pane's picture.
QString PanePictureName(const Project& project, const QString& folder, int paneIndex);

// The failure messages of an export, titled kHtmlOutputTitle.
inline const QString kHtmlOutputTitle = QStringLiteral("KV1 : Html Output");
inline const QString kImageSaveFailed =
    QStringLiteral("I encountered an error saving an image in the html file.");
inline const QString kSystemFailed =
    QStringLiteral("I encountered a low-level system error during this operation.");

// Converts the working picture of every pane of the project's boards (1 to gridSide^2 x
// boardCount) that has one to a JPEG beside the pages: loaded into a cDIBSection, encoded as
// SaveJPG does and written; canvas ends holding the last picture, painted from its section.
// Panes without a picture get no file. Stops at
// the first failure, tells it through prompts and returns false: a working picture that is not a
// BMP ("Could not load bmp."), a JPEG that cannot be written (kImageSaveFailed), anything else
// (kSystemFailed). progress, when given, sees each pane index before it is converted.
bool ExportPanePictures(const Project& project, qint16 boardCount, qint16 gridSide, const QString& folder,
                        QImage& canvas, Prompts& prompts, QStringList* written = nullptr,
                        const std::function<void(int pane, int last)>& progress = {});
