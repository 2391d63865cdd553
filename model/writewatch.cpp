#include "model/writewatch.h"

#include <mutex>

namespace {
// Pictures can be committed from worker threads; the watcher is called under the lock.
std::mutex watcherLock;
FileReplaceWatcher& watcher() {
    static FileReplaceWatcher current;
    return current;
}
} // namespace

void SetFileReplaceWatcher(FileReplaceWatcher next) {
    const std::lock_guard<std::mutex> hold(watcherLock);
    watcher() = std::move(next);
}

void NotifyFileReplace(const QString& path) {
    const std::lock_guard<std::mutex> hold(watcherLock);
    if (watcher()) watcher()(path);
}
