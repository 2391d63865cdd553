#pragma once

#include "model/project.h"

#include <QImage>
#include <QString>

// The pane image store: every pane with a picture has a working BMP in the working folder, a
// square of the cell size with the pane's flips applied, built from the pane's source picture.

// The working picture's name: <work folder>/<SourceStem>-<index as "0000">.BMP
QString PaneImageName(const Project& project, int paneIndex);

// Draws the whole picture stretched into a side x side square. A mirrored draw is one pixel longer
// than the square and starts one pixel outside it, so one edge column (or row) of the source
// falls off: flipH 1 mirrors left to right, flipV 1 top to bottom, both 1 both ways. Flag values
// other than 0 and 1 that do not add up to 0 or 2 draw nothing and leave the square empty.
QImage RenderPaneSquare(const QImage& picture, int side, int flipH, int flipV);

// The square that an empty canvas shows.
QImage EmptySquare(int side);

// The two halves of StorePaneImage, so that pictures can be rendered on other threads and
// committed in order: the working picture's BMP bytes (RunTimeError as LoadPicture), and the
// write of those bytes with the pane's ImageFile set as StorePaneImage sets it.
QByteArray RenderPaneBmp(const QString& sourceFile, int side, int flipH, int flipV);
// RenderPaneBmp on the source file's bytes; sourceFile only names it in the error.
QByteArray RenderPaneBmpOf(const QByteArray& source, const QString& sourceFile, int side, int flipH,
                           int flipV);
void CommitPaneImage(Project& project, qint16 paneIndex, const QByteArray& bmp, bool makeNewName);

// Builds (or rebuilds) the working picture of a pane from its SourceFile at paneSize pixels.
// A pane whose SourceFile is "none" is left alone. With makeNewName the picture is saved under
// PaneImageName and ImageFile is set to it; otherwise it is saved over ImageFile. A source that
// cannot be read or a save that fails raises a RunTimeError, with no file written by a failed
// read and ImageFile unchanged.
qint16 StorePaneImage(Project& project, qint16 paneIndex, float paneSize, bool makeNewName);
