#pragma once

#include "model/project.h"

#include <QString>

// Saving an opened project under a new name as Save Project As does, and checking what reached
// the disk: saving ignores its failures once pictures are being copied, so a copy can come out
// without its file or without some pictures.
struct ProjectCopy {
    QString path;          // the new project file
    QString pictureFolder; // its picture folder
    qint16 paneTotal = 0;  // the grid's panes times the boards, as the save counts them
    int pictures = 0;      // panes with a working picture, each copied into the picture folder
    bool fileWritten = false;
    int lostPictures = 0; // pictures that did not reach the picture folder
};

// target is an absolute path ending in ".kv1". Failures before the first picture is copied are
// SaveProjectFile's RunTimeErrors.
ProjectCopy CopyProject(Project& project, const QString& target);
