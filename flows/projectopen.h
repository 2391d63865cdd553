#pragma once

#include "model/project.h"
#include "model/projectfile.h"

#include <functional>

#include <QString>

// Opening a project as the Open Project command does, less what it does to the main window. The
// window runs ReadProject, refills its lists, then RebuildPaneImages at its cell size; kv1 does
// the same at a cell size of its own.

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

// Resets every pane, the title and the footer, reads the project file, and takes the grid side
// and the board count from it (DialogReply2 elements 3 and 2). Fails only as LoadProjectFile does.
void ReadProject(Project& project, const QString& path, const QString& folder, const QString& name);

// The pane total the project file announced (DialogReply2 element 1).
qint16 AnnouncedPaneTotal(const Project& project);

// Builds the working picture of every pane from 1 to the announced pane total from its copy in
// the picture folder, cellSize pixels square, under a new name. A copy that is missing or is not
// a picture stops it with its RunTimeError (53, 481), as does a pane total past pane 1000 (9).
void RebuildPaneImages(Project& project, float cellSize, const std::function<void(int, int)>& progress = {});
