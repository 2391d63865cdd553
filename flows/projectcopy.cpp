#include "flows/projectcopy.h"

#include "flows/projectsave.h"
#include "model/numbers.h"
#include "model/projectfile.h"

#include <QFileInfo>

ProjectCopy CopyProject(Project& project, const QString& target) {
    ReplyList reply;
    SetPathReply(reply, target);
    ProjectCopy copy;
    copy.path = reply[1];
    copy.paneTotal = Mul16(Mul16(project.GridSide, project.GridSide), project.BoardCount);
    SaveProjectFile(project, reply[3], reply[1], reply[2], copy.paneTotal, project.BoardCount,
                    project.GridSide);
    copy.pictureFolder = PictureFolder(reply[2], reply[3]);
    copy.fileWritten = QFileInfo(copy.path).isFile();
    for (int i = 1; i <= kMaxPane; ++i) {
        const Pane& pane = project.Panes(i);
        if (pane.ImageFile == kNone) continue;
        ++copy.pictures;
        const QString file = copy.pictureFolder + QLatin1Char('/') + ProjectPictureName(pane.SourceStem, i) +
                             QStringLiteral(".bmp");
        if (!QFileInfo(file).isFile()) ++copy.lostPictures;
    }
    return copy;
}
