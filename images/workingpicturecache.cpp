#include "images/workingpicturecache.h"

#include <QFile>
#include <ctime>
#include <sys/stat.h>

namespace {
qint64 nanoseconds(const timespec& t) {
    return qint64(t.tv_sec) * 1000000000 + t.tv_nsec;
}
} // namespace

bool WorkingPictureCache::stampOf(const QString& path, Stamp& stamp) {
    struct stat s {};
    if (::stat(QFile::encodeName(path).constData(), &s) != 0 || !S_ISREG(s.st_mode)) return false;
    stamp = {s.st_dev, s.st_ino, s.st_size, nanoseconds(s.st_mtim), nanoseconds(s.st_ctim)};
    return true;
}

QImage WorkingPictureCache::Load(const QString& path) {
    // The clock is read before the stat: a write after this moment gets a later change time.
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    Stamp stamp;
    if (!stampOf(path, stamp)) {
        entries_.remove(path);
        ++reads_;
        return QImage(path);
    }
    const auto found = entries_.find(path);
    if (found != entries_.end() && found->stamp == stamp) {
        found->board = board_;
        return found->picture;
    }
    ++reads_;
    const QImage picture(path);
    if (picture.isNull() || stamp.changed >= nanoseconds(now) - settleNs_)
        entries_.remove(path);
    else
        entries_.insert(path, {stamp, picture, board_});
    return picture;
}

void WorkingPictureCache::DropUnused() {
    for (auto it = entries_.begin(); it != entries_.end();)
        it = it->board == board_ ? std::next(it) : entries_.erase(it);
}
