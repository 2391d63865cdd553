#include "model/projectfile.h"

#include "images/paneimage.h"
#include "model/ansi.h"
#include "model/filecopy.h"
#include "model/linevalue.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtConcurrent/QtConcurrentMap>

namespace {
// "<stem>-<index as 0000>": how a pane's picture is named in the file and in the picture folder.
QString pictureName(const QString& stem, int index) {
    return stem + QLatin1Char('-') + Format(index, "0000");
}

bool folderOfExists(const QString& path) { return QFileInfo(QFileInfo(path).absolutePath()).isDir(); }

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

QString projectText(const Project& project, int paneTotal, qint16 boardCount, qint16 gridSide) {
    QString text;
    text.reserve(64 + 48 * qBound(0, paneTotal, kMaxPane));
    const auto put = [&text](const QString& value) {
        text += value.isEmpty() ? kToUse : value;
        text += QLatin1String("\r\n");
    };
    put(Str(paneTotal));
    put(Str(boardCount));
    put(Str(gridSide));
    put(project.FooterText);
    put(Str(project.GlobalHighlightColor));
    put(Str(project.MoveHighlightColor));
    put(project.BoardTitle);
    for (int i = 1; i <= qMin(paneTotal, kMaxPane); ++i) {
        const Pane& pane = project.Panes(i);
        put(pane.SourceStem == kNone ? kNone : pictureName(pane.SourceStem, i));
        put(Str(pane.FlipHorizontal));
        put(Str(pane.FlipVertical));
        put(pane.Label);
        put(pane.Text);
        put(pane.Url);
    }
    return text;
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

// Where the reader stands: header lines 1 to 7, then field 1 to 6 of a pane.
struct ReadPosition {
    int line = 1;
    int field = 0;
    int pane = 1;

    void nextLine() {
        if (++line <= 7) return;
        if (++field > 6) {
            field = 1;
            ++pane;
        }
    }
};

// What the last store of a line leaves in its target.
void store(Project& project, ProjectFileHeader& header, const ReadPosition& at, const QString& value) {
    switch (at.line) {
    case 1: LastConvertingPrefix(value, header.paneTotal); return;
    case 2: LastConvertingPrefix(value, header.boardCount); return;
    case 3: LastConvertingPrefix(value, header.gridSide); return;
    case 4: project.FooterText = value; return;
    case 5: LastConvertingPrefix(value, project.GlobalHighlightColor); return;
    case 6: LastConvertingPrefix(value, project.MoveHighlightColor); return;
    case 7: project.BoardTitle = value; return;
    default: break;
    }
    Pane& pane = project.Panes(at.pane);
    switch (at.field) {
    case 1:
        // The name less "-0000"; a shorter name ("none") cannot lose five characters and stores nothing.
        if (value.size() >= 5) pane.SourceStem = value.left(value.size() - 5);
        break;
    case 2: pane.FlipHorizontal = 0; break;
    case 3: pane.FlipVertical = 0; break;
    case 4: pane.Label = value; break;
    case 5: pane.Text = value; break;
    case 6: pane.Url = value; break;
    default: break;
    }
}
} // namespace

void SetPathReply(ReplyList& reply, const QString& chosen) {
    reply.ReDim(3);
    if (chosen.isEmpty()) {
        reply[1] = kNone;
        return;
    }
    const int slash = static_cast<int>(chosen.lastIndexOf(QLatin1Char('/')));
    const QString file = chosen.mid(slash + 1);
    reply[1] = chosen;
    reply[2] = chosen.left(slash + 1);
    reply[3] = file.size() > 4 ? file.left(file.size() - 4) : QString();
}

QString PictureFolder(const QString& folder, const QString& name) {
    const QString separator =
        folder.isEmpty() || folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/");
    return folder + separator + name + QStringLiteral("_Data");
}

void SaveProjectFile(Project& project, const QString& name, const QString& path, const QString& folder,
                     qint16 paneTotal, qint16 boardCount, qint16 gridSide) {
    const QString pictures = PictureFolder(folder, name);
    if (!QFileInfo(pictures).isDir()) createFolder(pictures);

    // All 1000 records, not only the project's panes: a picture left above the pane total travels too.
    std::vector<std::pair<QString, QString>> copies;
    for (int i = 1; i <= kMaxPane; ++i) {
        const Pane& pane = project.Panes(i);
        if (pane.ImageFile == kNone) continue;
        copies.emplace_back(pane.ImageFile,
                            pictures + QLatin1Char('/') + pictureName(pane.SourceStem, i) + QStringLiteral(".bmp"));
    }
    const bool trapping = !copies.empty();
    // Every copy goes to a file of its own and failures are ignored, so their order does not
    // matter: they run side by side.
    QtConcurrent::blockingMap(copies, [](const std::pair<QString, QString>& c) { copyReplacing(c.first, c.second); });

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

QByteArray ProjectFileBytes(const Project& project, qint16 paneTotal, qint16 boardCount, qint16 gridSide) {
    return ToAnsi(projectText(project, paneTotal, boardCount, gridSide));
}

ProjectFileHeader ParseProjectFile(Project& project, const QByteArray& bytes) {
    // Nothing here fails: what does not convert or does not fit is not stored.
    ProjectFileHeader header;
    ReadPosition at;
    qsizetype start = 0;
    while (at.pane <= kMaxPane) {
        const qsizetype cr = bytes.indexOf('\r', start);
        const qsizetype end = cr < 0 ? bytes.size() : cr;
        QByteArray line = bytes.mid(start, end - start);
        line.replace('\n', QByteArray());
        if (!line.isEmpty()) store(project, header, at, FromAnsi(line));
        if (cr < 0) break;
        at.nextLine();
        start = cr + 1;
    }
    return header;
}

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
                pictures + QLatin1Char('/') + pictureName(pane.SourceStem, i) + QStringLiteral(".bmp");
        }
    }
}
