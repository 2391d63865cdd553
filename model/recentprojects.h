#pragma once

#include <QString>
#include <QStringList>

// The projects opened or saved last, most recent first, kept between runs in a settings file of
// the user's configuration folder.

constexpr int kMaxRecentProjects = 8;

// $XDG_CONFIG_HOME/kelvrin/recent.conf (under Qt's test folder when its test mode is on).
QString RecentProjectsFile();

// The list with path put first: an earlier place of the same path goes, and the list keeps at
// most kMaxRecentProjects entries.
QStringList WithRecentProject(QStringList recent, const QString& path);

// The list kept in settingsFile; empty when there is none. Blank entries are left out and the
// list is cut to kMaxRecentProjects, whatever an edited file holds.
QStringList ReadRecentProjects(const QString& settingsFile);
void WriteRecentProjects(const QString& settingsFile, const QStringList& recent);
