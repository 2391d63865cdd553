#include "model/workfolder.h"

#include "model/runtimeerror.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <limits>

QString WorkFolderIn(const QString& programFolder) {
    return programFolder + QStringLiteral("/MyProjects");
}

namespace {
bool canWriteIn(const QString& folder) {
    if (!QFileInfo(folder).isDir()) return false;
    QTemporaryFile probe(folder + QStringLiteral("/.kelvrin-XXXXXX"));
    return probe.open();
}
} // namespace

namespace {
// Folders of installed programs are never written, even by a user who could.
bool isSystemFolder(const QString& folder) {
    const QString f = QDir::cleanPath(folder) + QLatin1Char('/');
    return f.startsWith(QLatin1String("/usr/")) || f.startsWith(QLatin1String("/opt/"));
}
} // namespace

QString ChooseWorkFolder(const QString& programFolder) {
    const QString beside = WorkFolderIn(programFolder);
    // The folder and its lock file both need the program folder to be writable.
    if (!isSystemFolder(programFolder) && canWriteIn(programFolder) &&
        (!QFileInfo(beside).isDir() || canWriteIn(beside)))
        return beside;
    QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    if (cache.isEmpty()) cache = QDir::homePath() + QStringLiteral("/.cache");
    return cache + QStringLiteral("/kelvrin/MyProjects");
}

void EnsureWorkFolder(const QString& path) {
    if (QFileInfo(path).isDir()) return;
    if (!QDir().mkpath(path)) throw RunTimeError::PathFileAccess(path);
}

void DeleteWorkFolder(const QString& path) {
    QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) return;
    // Read-only files and folders are made writable first so that nothing stays behind.
    QDirIterator it(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString entry = it.next();
        if (!it.fileInfo().isSymLink())
            QFile::setPermissions(entry, QFile::permissions(entry) | QFile::WriteOwner | QFile::ReadOwner |
                                             QFile::ExeOwner);
    }
    if (!QDir(path).removeRecursively()) throw RunTimeError::PathFileAccess(path);
}

WorkFolderClaim::WorkFolderClaim(const QString& programFolder) {
    const QString first = ChooseWorkFolder(programFolder);
    for (int n = 1; n <= 99; ++n) {
        const QString candidate = n == 1 ? first : first + QStringLiteral("-%1").arg(n);
        if (!QDir().mkpath(candidate)) continue;
        // The lock lies beside the folder, so that deleting the folder at the end leaves the
        // lock for its owner to release.
        auto lock = std::make_unique<QLockFile>(candidate + QStringLiteral(".lock"));
        // A lock whose program is gone is stale and is taken over; a running program's lock is
        // never taken over for its age.
        lock->setStaleLockTime(std::numeric_limits<int>::max());
        if (lock->tryLock(0)) {
            path_ = candidate;
            lock_ = std::move(lock);
            return;
        }
    }
    throw RunTimeError::PathFileAccess(first);
}

WorkFolderClaim::~WorkFolderClaim() = default;
