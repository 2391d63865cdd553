#include "flows/projectopen.h"

#include "images/panebatch.h"
#include "images/paneimage.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QFile>
#include <QFileInfo>

namespace {
bool folderOfExists(const QString& path) {
    return QFileInfo(QFileInfo(path).absolutePath()).isDir();
}

QByteArray readWholeFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo::exists(path)) {
        if (!folderOfExists(path)) throw RunTimeError::PathNotFound(path);
        throw RunTimeError::FileNotFound(path);
    }
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) throw RunTimeError::PathFileAccess(path);
    return file.readAll();
}
} // namespace

void LoadProjectFile(Project& project, const QString& path, const QString& folder, const QString& name) {
    project.DialogReply2.ReDim(3);
    const ProjectFileHeader header = ParseProjectFile(project, readWholeFile(path));

    project.DialogReply2[1] = Str(header.paneTotal);
    project.DialogReply2[2] = Str(header.boardCount);
    project.DialogReply2[3] = Str(header.gridSide);

    const QString pictures = PictureFolder(folder, name);
    for (int i = 1; i <= qMin<int>(header.paneTotal, kMaxPane); ++i) {
        Pane& pane = project.Panes(i);
        if (pane.SourceStem == kNone) {
            pane.ImageFile = kNone;
            pane.SourceFile = kNone;
        } else {
            // The working picture under the image store's own name for it, so that the path names
            // the very file that rebuilding the pane makes.
            pane.ImageFile = PaneImageName(project, i);
            pane.SourceFile =
                pictures + QLatin1Char('/') + ProjectPictureName(pane.SourceStem, i) + QStringLiteral(".bmp");
        }
    }
}

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
