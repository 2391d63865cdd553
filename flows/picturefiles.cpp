#include "flows/picturefiles.h"

#include "images/panebatch.h"
#include "images/paneimage.h"
#include "model/numbers.h"

#include <QFileInfo>
#include <algorithm>
#include <optional>

bool IsPictureName(const QString& fileName) {
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    return suffix == QLatin1String("bmp") || suffix == QLatin1String("gif") ||
           suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg") ||
           suffix == QLatin1String("png");
}

bool IsProjectName(const QString& fileName) {
    return QFileInfo(fileName).suffix().toLower() == QLatin1String("kv1");
}

DroppedFiles SortDroppedFiles(const QList<QUrl>& urls) {
    DroppedFiles dropped;
    QStringList pictures, projects;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile()) return dropped;
        const QString path = url.toLocalFile();
        if (!QFileInfo(path).isFile()) return dropped;
        if (IsPictureName(path))
            pictures << path;
        else if (IsProjectName(path))
            projects << path;
        else
            return dropped;
    }
    if (projects.isEmpty() && !pictures.isEmpty()) {
        dropped.kind = DroppedFiles::Pictures;
        dropped.paths = NaturalOrder(pictures);
    } else if (pictures.isEmpty() && projects.size() == 1) {
        dropped.kind = DroppedFiles::Project;
        dropped.paths = projects;
    }
    return dropped;
}

namespace {
// Compares runs of digits by their value and everything else without regard to case. Done here
// rather than by QCollator, whose numeric mode depends on how Qt was built.
int naturalCompare(const QString& a, const QString& b) {
    qsizetype i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            const qsizetype si = i, sj = j;
            while (i < a.size() && a[i].isDigit())
                ++i;
            while (j < b.size() && b[j].isDigit())
                ++j;
            // Leading zeros do not count; then the longer number is the larger.
            QStringView x = QStringView(a).mid(si, i - si), y = QStringView(b).mid(sj, j - sj);
            while (x.size() > 1 && x.front() == QLatin1Char('0'))
                x = x.mid(1);
            while (y.size() > 1 && y.front() == QLatin1Char('0'))
                y = y.mid(1);
            if (x.size() != y.size()) return x.size() < y.size() ? -1 : 1;
            if (const int c = x.compare(y)) return c;
            continue;
        }
        const QChar x = a[i].toCaseFolded(), y = b[j].toCaseFolded();
        if (x != y) return x < y ? -1 : 1;
        ++i, ++j;
    }
    if (i < a.size()) return 1;
    if (j < b.size()) return -1;
    return 0;
}
} // namespace

QStringList NaturalOrder(QStringList paths) {
    std::stable_sort(paths.begin(), paths.end(), [](const QString& a, const QString& b) {
        const int byName = naturalCompare(QFileInfo(a).fileName(), QFileInfo(b).fileName());
        if (byName) return byName < 0;
        const int byPath = naturalCompare(a, b);
        return byPath ? byPath < 0 : a < b;
    });
    return paths;
}

int LoadPictureFiles(Project& project, const QStringList& files, qint16 firstPane, float cellSize,
                     const std::function<void(int, int)>& progress) {
    project.Panes(firstPane); // a first pane outside the pool is the bounds fault
    const int side = CInt(cellSize);
    const int count = static_cast<int>(qMin<qsizetype>(files.size(), kMaxPane - firstPane + 1));
    std::optional<RunTimeError> failure;
    int filled = 0;
    // Decoded on every core a few files ahead, filled here in order.
    RenderInOrder<RenderedPane>(
        count,
        [&files, side](int i) { return RenderCatching([&] { return RenderPaneBmp(files[i], side, 0, 0); }); },
        [&](int i, RenderedPane& picture) {
            if (picture.error) {
                failure = picture.error;
                return false;
            }
            const qint16 p = static_cast<qint16>(firstPane + i);
            const QString& file = files[i];
            Pane& pane = project.Panes(p);
            const Pane kept = pane;
            const QString title = QFileInfo(file).fileName();
            pane.SourceStem = title.left(qMax<qsizetype>(0, title.size() - 4));
            pane.FlipHorizontal = 0;
            pane.FlipVertical = 0;
            try {
                CommitPaneImage(project, p, picture.bmp, true);
            } catch (const RunTimeError& error) {
                pane = kept;
                failure = error;
                return false;
            }
            pane.SourceFile = file;
            ++filled;
            if (progress) progress(filled, count);
            return true;
        });
    if (failure) throw *failure;
    return filled;
}
