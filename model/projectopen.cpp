#include "model/projectopen.h"

#include "images/panebatch.h"
#include "model/numbers.h"
#include "model/projectfile.h"
#include "model/runtimeerror.h"

void ReadProject(Project& project, const QString& path, const QString& folder, const QString& name) {
    ResetPanes(project);
    project.BoardTitle = kToUse;
    project.FooterText = kToUse;
    LoadProjectFile(project, path, folder, name);
    project.GridSide = CInt(project.DialogReply2[3]);
    project.BoardCount = CInt(project.DialogReply2[2]);
}

qint16 AnnouncedPaneTotal(const Project& project) {
    return CInt(project.DialogReply2[1]);
}

void RebuildPaneImages(Project& project, float cellSize, const std::function<void(int, int)>& progress) {
    const qint16 total = AnnouncedPaneTotal(project);
    StorePaneImages(project, 1, qMin<int>(total, kMaxPane), cellSize, true, progress);
    // A file that announces more panes than the pool holds runs into its end.
    if (total > kMaxPane) throw RunTimeError::SubscriptOutOfRange();
}
