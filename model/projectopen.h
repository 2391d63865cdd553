#pragma once

#include "model/project.h"

#include <functional>

#include <QString>

// Opening a project as the Open Project command does, less what it does to the main window. The
// window runs ReadProject, refills its lists, then RebuildPaneImages at its cell size; kv1 does
// the same at a cell size of its own.

// Resets every pane, the title and the footer, reads the project file, and takes the grid side
// and the board count from it (DialogReply2 elements 3 and 2). Fails only as LoadProjectFile does.
void ReadProject(Project& project, const QString& path, const QString& folder, const QString& name);

// The pane total the project file announced (DialogReply2 element 1).
qint16 AnnouncedPaneTotal(const Project& project);

// Builds the working picture of every pane from 1 to the announced pane total from its copy in
// the picture folder, cellSize pixels square, under a new name. A copy that is missing or is not
// a picture stops it with its RunTimeError (53, 481), as does a pane total past pane 1000 (9).
void RebuildPaneImages(Project& project, float cellSize, const std::function<void(int, int)>& progress = {});
