#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <optional>

// Copies of working pictures kept for undo and redo, in a folder of their own inside the working
// folder (so they go when it goes). A copy is kept once however many steps share it, found by
// its content's hash, and its file is removed when the last step holding it is dropped. Copies
// are never hard links: the writers of working pictures rewrite files in place.
class PictureStore;

struct StoredPicture {
    ~StoredPicture();
    PictureStore* store = nullptr;
    QByteArray hash;
    QString file;
    qint64 size = 0;
};
// A kept picture; null stands for "there was no file".
using PictureRef = std::shared_ptr<const StoredPicture>;

class PictureStore {
public:
    explicit PictureStore(std::function<QString()> folder);
    ~PictureStore();
    PictureStore(const PictureStore&) = delete;
    PictureStore& operator=(const PictureStore&) = delete;

    // What the file at path holds now: a kept copy, null when there is no file, nothing when it
    // exists but cannot be read or kept.
    std::optional<PictureRef> Keep(const QString& path);
    // Puts a kept picture back at path, or removes the file for null. A copy that cannot be read
    // or written leaves no file, so that the pane shows blank. Never fails.
    void PutBack(const PictureRef& picture, const QString& path);
    // The bytes of all copies kept.
    qint64 Bytes() const { return bytes_; }
    // Removes the folder when nothing is kept (also what a crashed run left in it).
    void RemoveUnused();

private:
    friend struct StoredPicture;
    void forget(const StoredPicture& picture);
    std::function<QString()> folder_;
    std::map<QByteArray, std::weak_ptr<const StoredPicture>> kept_;
    qint64 bytes_ = 0;
    bool folderChecked_ = false;
};
