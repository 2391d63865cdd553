#pragma once

#include "model/project.h"

#include <QString>

// The project file (".kv1") and its picture folder "<name>_Data" beside it.
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

// "<folder><name>_Data": folder ends in "/" as the dialogs give it.
QString PictureFolder(const QString& folder, const QString& name);

// Writes the picture folder (created when missing, never emptied) with a copy of the working
// picture of every pane from 1 to 1000 that has one, then the project file at path. Every file is
// written under a temporary name and renamed into place when complete, the project file last, so
// a save that fails half-way never leaves a picture or the project file cut short.
// Until the first picture is copied a failure is a RunTimeError (76 when the folder is missing,
// 75 otherwise); from then on failures are ignored: a picture that cannot be copied is left out,
// and a project file that cannot be written is not written.
void SaveProjectFile(Project& project, const QString& name, const QString& path, const QString& folder,
                     qint16 paneTotal, qint16 boardCount, qint16 gridSide);

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
// values of the title, the footer, the colours and the panes stored into the model as described
// below. Never fails, whatever the bytes.
ProjectFileHeader ParseProjectFile(Project& project, const QByteArray& bytes);

// Reads the project file at path into the model as the character-by-character reader does: each
// line's value is stored after each of its characters, so the last store wins (for numbers, the
// longest prefix that converts; a line that stores nothing leaves the value that was there); only
// a carriage return ends a line, line feeds are skipped; a picture name of fewer than five
// characters leaves SourceStem alone; flip flags are set to 0; lines after the last pane go to the
// panes after it, and lines past pane 1000 are dropped. Then DialogReply2 elements 1 to 3 hold the
// pane total, board count and grid side, and every pane up to the pane total gets its ImageFile
// (its working picture, made when the pane is rebuilt) and SourceFile (the copy in the picture
// folder of folder and name), or "none" for both.
// Only opening the file can fail: RunTimeError 53 (no such file), 76 (no such folder) or 75.
void LoadProjectFile(Project& project, const QString& path, const QString& folder, const QString& name);
