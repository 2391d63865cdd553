#include "flows/projectsave.h"

#include "model/filecopy.h"
#include "model/projectfile.h"
#include "model/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtConcurrent/QtConcurrentMap>

namespace {
bool folderOfExists(const QString& path) {
    return QFileInfo(QFileInfo(path).absolutePath()).isDir();
}

void createFolder(const QString& path) {
    if (QDir().mkdir(path)) return;
    if (!folderOfExists(path)) throw RunTimeError::PathNotFound(path);
    throw RunTimeError::PathFileAccess(path);
}

// Replaces a picture of the picture folder with a copy of a working picture, so that a save cut
// short (a full disk) leaves the picture the folder held. A file that cannot be written keeps what
// it holds; a copy that fails is left out without a word.
void copyReplacing(const QString& from, const QString& to) {
    const QFileInfo target(to);
    if (target.exists() && (!target.isFile() || !target.isWritable())) return;
    CopyFileReplacing(from, to);
}
} // namespace

void SaveProjectFile(Project& project, const QString& name, const QString& path, const QString& folder,
                     qint16 paneTotal, qint16 boardCount, qint16 gridSide) {
    const QString pictures = PictureFolder(folder, name);
    if (!QFileInfo(pictures).isDir()) createFolder(pictures);

    // All 1000 records, not only the project's panes: a picture left above the pane total travels too.
    std::vector<std::pair<QString, QString>> copies;
    for (int i = 1; i <= kMaxPane; ++i) {
        const Pane& pane = project.Panes(i);
        if (pane.ImageFile == kNone) continue;
        copies.emplace_back(pane.ImageFile, pictures + QLatin1Char('/') +
                                                ProjectPictureName(pane.SourceStem, i) +
                                                QStringLiteral(".bmp"));
    }
    const bool trapping = !copies.empty();
    // Every copy goes to a file of its own and failures are ignored, so their order does not
    // matter: they run side by side.
    QtConcurrent::blockingMap(copies,
                              [](const std::pair<QString, QString>& c) { copyReplacing(c.first, c.second); });

    // The file is written under a temporary name beside it and takes the place of the old one
    // only once it is complete: a save that fails half-way leaves the previous project as it was.
    // Where no file can be made beside it (a folder closed to new files) it is written in place.
    const QByteArray bytes = ProjectFileBytes(project, paneTotal, boardCount, gridSide);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::WriteOnly)) {
        if (trapping) return;
        if (!folderOfExists(path)) throw RunTimeError::PathNotFound(path);
        throw RunTimeError::PathFileAccess(path);
    }
    file.write(bytes);
    // A disk that fills up can cut the write short without the write saying so: only a file of
    // the full length takes the old one's place.
    if (!file.flush() || file.size() != bytes.size()) file.cancelWriting();
    const bool written = file.commit();
    if (trapping) return;
    if (!written) throw RunTimeError::PathFileAccess(path);
    // A pane total past the pool: the records up to pane 1000 are written, pane 1001 faults.
    if (paneTotal > kMaxPane) throw RunTimeError::SubscriptOutOfRange();
}
