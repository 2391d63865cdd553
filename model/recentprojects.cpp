#include "model/recentprojects.h"

#include <QSettings>
#include <QStandardPaths>

namespace {
const QString kKey = QStringLiteral("RecentProjects/files");
} // namespace

QString RecentProjectsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/kelvrin/recent.conf");
}

QStringList WithRecentProject(QStringList recent, const QString& path) {
    recent.removeAll(path);
    recent.prepend(path);
    while (recent.size() > kMaxRecentProjects)
        recent.removeLast();
    return recent;
}

QStringList ReadRecentProjects(const QString& settingsFile) {
    const QSettings settings(settingsFile, QSettings::IniFormat);
    QStringList recent;
    for (const QString& path : settings.value(kKey).toStringList())
        if (!path.trimmed().isEmpty() && !recent.contains(path) && recent.size() < kMaxRecentProjects)
            recent << path;
    return recent;
}

void WriteRecentProjects(const QString& settingsFile, const QStringList& recent) {
    QSettings settings(settingsFile, QSettings::IniFormat);
    settings.setValue(kKey, recent);
}
