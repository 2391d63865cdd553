#include "kv1project.h"

#include "flows/projectopen.h"
#include "kv1tool.h"
#include "model/numbers.h"
#include "model/projectfile.h"

#include <QCoreApplication>
#include <QFileInfo>

ToolProject::ToolProject(const QString& file) : project_(std::make_unique<Project>()) {
    if (!work_.isValid())
        throw ToolFailure(QStringLiteral("cannot make a working folder: ") + work_.errorString());
    project_->ProgramFolder = QCoreApplication::applicationDirPath();
    project_->WorkFolder = work_.path();
    ReplyList reply;
    SetPathReply(reply, QFileInfo(file).absoluteFilePath());
    path = reply[1];
    folder = reply[2];
    name = reply[3];
    ReadProject(*project_, path, folder, name);
}

qint16 ToolProject::paneTotal() const {
    return AnnouncedPaneTotal(*project_);
}

QString ToolProject::pictureFolder() const {
    return PictureFolder(folder, name);
}

QList<int> ToolProject::missingPictures() const {
    QList<int> missing;
    for (int i = 1; i <= qMin<int>(paneTotal(), kMaxPane); ++i) {
        const Pane& pane = project_->Panes(i);
        if (pane.SourceFile != kNone && !QFileInfo(pane.SourceFile).isFile()) missing << i;
    }
    return missing;
}

QString ToolProject::describeMissing(const QList<int>& panes) const {
    constexpr int kNamed = 5;
    QStringList names;
    for (int i = 0; i < panes.size() && i < kNamed; ++i)
        names << QFileInfo(project_->Panes(panes[i]).SourceFile).fileName();
    if (panes.size() > kNamed) names << QStringLiteral("and %1 more").arg(panes.size() - kNamed);
    return QStringLiteral("%1 %2 missing from %3: %4")
        .arg(panes.size())
        .arg(panes.size() == 1 ? QStringLiteral("picture") : QStringLiteral("pictures"), pictureFolder(),
             names.join(QStringLiteral(", ")));
}

QString ToolProject::whyKelvrinCannotOpen() const {
    const Project& p = *project_;
    if (p.GridSide <= 0) return QStringLiteral("its grid side is %1").arg(p.GridSide);
    if (p.BoardCount <= 0) return QStringLiteral("it has %1 boards").arg(p.BoardCount);
    const qint64 panes = qint64(p.GridSide) * p.GridSide * p.BoardCount;
    if (panes > kMaxPane || paneTotal() > kMaxPane)
        return QStringLiteral("its panes run past pane %1").arg(kMaxPane);
    return QString();
}

void ToolProject::rebuild(float cellSize) {
    RebuildPaneImages(*project_, cellSize);
}

void ToolProject::requireOpenable() const {
    const QString why = whyKelvrinCannotOpen();
    if (!why.isEmpty()) throw ToolFailure(QStringLiteral("Kelvrin cannot open %1: %2").arg(path, why));
}

void ToolProject::rebuildCompletely(float cellSize) {
    requireOpenable();
    const QList<int> missing = missingPictures();
    if (!missing.isEmpty()) throw ToolFailure(describeMissing(missing));
    rebuild(cellSize);
}
