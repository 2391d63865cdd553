#pragma once

#include <QString>
#include <functional>

// The undo history has to keep what a working picture held before a command replaces it. Writers
// of working pictures tell the watcher first; without a watcher nothing happens.
using FileReplaceWatcher = std::function<void(const QString& path)>;

// Installs the watcher, or removes it when empty.
void SetFileReplaceWatcher(FileReplaceWatcher watcher);
// Called by a writer just before it replaces (or creates) the file at path.
void NotifyFileReplace(const QString& path);
