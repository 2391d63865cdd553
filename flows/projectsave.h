#pragma once

#include "model/project.h"

#include <QString>

// Writes the picture folder (created when missing, never emptied) with a copy of the working
// picture of every pane from 1 to 1000 that has one, then the project file at path. Every file is
// written under a temporary name and renamed into place when complete, the project file last, so
// a save that fails half-way never leaves a picture or the project file cut short.
// Until the first picture is copied a failure is a RunTimeError (76 when the folder is missing,
// 75 otherwise); from then on failures are ignored: a picture that cannot be copied is left out,
// and a project file that cannot be written is not written.
void SaveProjectFile(Project& project, const QString& name, const QString& path, const QString& folder,
                     qint16 paneTotal, qint16 boardCount, qint16 gridSide);
