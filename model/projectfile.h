#pragma once

#include "model/project.h"

#include <QString>

// The project file (".kv1") and its picture folder "<name>_Data" beside it: the format. Reading
// a file into the model and saving the model with its pictures are flows/projectopen.h and
// flows/projectsave.h.
//
// The file is Windows-1252 text, every line ended by CR LF: 7 header lines (pane total, board
// count, grid side, footer, global highlight colour, move highlight colour, title), then 6 lines
// per pane from 1 to the pane total (picture name "<stem>-<index as 0000>" or "none", the two
// flip flags, label, text, URL). An empty value is written as "ToUse", so no line is ever empty.
// The picture folder holds "<stem>-<index as 0000>.bmp", a copy of each pane's working picture.

// The answer of a project file dialog in reply: element 1 the chosen path ("none" when chosen is
// empty, that is cancelled), element 2 its folder ending in "/", element 3 the project name, the
// file name less its last four characters (empty when the name has four or fewer).
void SetPathReply(ReplyList& reply, const QString& chosen);

// "<stem>-<index as 0000>": how a pane's picture is named in the file and, with ".bmp", in the
// picture folder.
QString ProjectPictureName(const QString& stem, int index);

// "<folder><name>_Data": folder ends in "/" as the dialogs give it.
QString PictureFolder(const QString& folder, const QString& name);

// The bytes of the project file that SaveProjectFile writes: panes 1 to the pane total, at most
// to pane 1000.
QByteArray ProjectFileBytes(const Project& project, qint16 paneTotal, qint16 boardCount, qint16 gridSide);

// The header of a project file as the reader leaves it; 0 where a line stored nothing.
struct ProjectFileHeader {
    qint16 paneTotal = 0;
    qint16 boardCount = 0;
    qint16 gridSide = 0;
};

// What LoadProjectFile makes of a file's bytes, before the picture paths: the header, and the
// values of the title, the footer, the colours and the panes stored into the model as
// LoadProjectFile (flows/projectopen.h) describes. Never fails, whatever the bytes.
ProjectFileHeader ParseProjectFile(Project& project, const QByteArray& bytes);
