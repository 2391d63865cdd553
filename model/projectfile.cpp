#include "model/projectfile.h"

#include "images/paneimage.h"
#include "model/ansi.h"
#include "model/linevalue.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtConcurrent/QtConcurrentMap>
#include <filesystem>
#include <system_error>

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

// Copies over an existing file; a copy that fails is left out without a word.
void copyReplacing(const QString& from, const QString& to) {
    std::error_code ignored;
    std::filesystem::copy_file(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(),
                               std::filesystem::copy_options::overwrite_existing, ignored);
}

QString projectText(const Project& project, int paneTotal, qint16 boardCount, qint16 gridSide,
                    bool& pastLastPane) {
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
    pastLastPane = paneTotal > kMaxPane;
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

struct Header {
    qint16 paneTotal = 0;
    qint16 boardCount = 0;
    qint16 gridSide = 0;
};

// What the last store of a line leaves in its target.
void store(Project& project, Header& header, const ReadPosition& at, const QString& value) {
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

    bool pastLastPane = false;
    const QByteArray bytes = ToAnsi(projectText(project, paneTotal, boardCount, gridSide, pastLastPane));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        if (trapping) return;
        if (!folderOfExists(path)) throw RunTimeError::PathNotFound(path);
        throw RunTimeError::PathFileAccess(path);
    }
    const bool written = file.write(bytes) == bytes.size();
    file.close();
    if (trapping) return;
    if (!written) throw RunTimeError::PathFileAccess(path);
    // A pane total past the pool: the records up to pane 1000 are written, pane 1001 faults.
    if (pastLastPane) throw RunTimeError::SubscriptOutOfRange();
}

void LoadProjectFile(Project& project, const QString& path, const QString& folder, const QString& name) {
    project.DialogReply2.ReDim(3);
    const QByteArray bytes = readWholeFile(path);

    // From here on nothing fails: what does not convert or does not fit is not stored.
    Header header;
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
