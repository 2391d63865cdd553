#pragma once

#include "model/project.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>

// Pictures given as a list of files (dropped from a file manager) rather than chosen in a dialog.

// Whether a file name is one of the picture kinds the program reads (.bmp, .gif, .jpg, .jpeg,
// .png, in any case). The content decides when the picture is read; this only sorts out what
// cannot be a picture at all.
bool IsPictureName(const QString& fileName);
// Whether a file name is a project file's (.kv1, in any case).
bool IsProjectName(const QString& fileName);

// What a drop of these URLs would do: load pictures, open one project, or nothing at all.
struct DroppedFiles {
    enum Kind { Refused, Pictures, Project } kind = Refused;
    QStringList paths; // the pictures in natural name order, or the one project file
};
// Only local files count. Pictures must come alone, a project file on its own; a mixture, a
// folder or any other file refuses the whole drop.
DroppedFiles SortDroppedFiles(const QList<QUrl>& urls);

// Sorts as people count: "Shot2" before "Shot10", upper and lower case alike; paths are compared
// by their file names first.
QStringList NaturalOrder(QStringList paths);

// Loads the files one a pane from firstPane on, each as the single picture command loads one: the
// pane's stem is the file name less its last four characters, its source the file, no flips, a
// new working picture of cellSize pixels. Stops after pane 1000. A file that cannot be read raises
// its RunTimeError once the panes before it are filled; its pane and those after are untouched.
// Returns the number of panes filled. progress(done, most) follows every pane.
int LoadPictureFiles(Project& project, const QStringList& files, qint16 firstPane, float cellSize,
                     const std::function<void(int, int)>& progress = {});
