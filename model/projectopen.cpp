#include "model/projectopen.h"

#include "images/paneimage.h"
#include "model/numbers.h"
#include "model/projectfile.h"

void ReadProject(Project& project, const QString& path, const QString& folder, const QString& name) {
    ResetPanes(project);
    project.BoardTitle = kToUse;
    project.FooterText = kToUse;
    LoadProjectFile(project, path, folder, name);
    project.GridSide = CInt(project.DialogReply2[3]);
    project.BoardCount = CInt(project.DialogReply2[2]);
}

qint16 AnnouncedPaneTotal(const Project& project) { return CInt(project.DialogReply2[1]); }

void RebuildPaneImages(Project& project, float cellSize) {
    const qint16 total = AnnouncedPaneTotal(project);
    for (int i = 1; i <= total; ++i)
        StorePaneImage(project, static_cast<qint16>(i), cellSize, true);
}
