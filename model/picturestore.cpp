#include "model/picturestore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSaveFile>

StoredPicture::~StoredPicture() {
    if (store) store->forget(*this);
}

PictureStore::PictureStore(std::function<QString()> folder) : folder_(std::move(folder)) {}

PictureStore::~PictureStore() {
    // Steps outlive nothing of the store: whatever is still referenced stops pointing here.
    for (auto& [hash, weak] : kept_)
        if (auto picture = weak.lock()) const_cast<StoredPicture&>(*picture).store = nullptr;
}

std::optional<PictureRef> PictureStore::Keep(const QString& path) {
    QFile source(path);
    if (!source.exists()) return PictureRef();
    if (!source.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray bytes = source.readAll();
    if (bytes.size() != source.size()) return std::nullopt;
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    if (auto found = kept_.find(hash); found != kept_.end())
        if (PictureRef picture = found->second.lock()) return picture;

    const QString folder = folder_();
    if (!folderChecked_ || !QDir(folder).exists()) {
        // A crashed run may have left copies that nothing refers to.
        if (kept_.empty()) QDir(folder).removeRecursively();
        if (!QDir().mkpath(folder)) return std::nullopt;
        folderChecked_ = true;
    }
    auto picture = std::make_shared<StoredPicture>();
    picture->hash = hash;
    picture->file = folder + QLatin1Char('/') + QString::fromLatin1(hash);
    picture->size = bytes.size();
    QSaveFile copy(picture->file);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) != bytes.size() || !copy.commit())
        return std::nullopt;
    picture->store = this;
    bytes_ += picture->size;
    kept_[hash] = picture;
    return PictureRef(std::move(picture));
}

void PictureStore::PutBack(const PictureRef& picture, const QString& path) {
    if (!picture) {
        QFile::remove(path);
        return;
    }
    QFile copy(picture->file);
    QByteArray bytes;
    if (copy.open(QIODevice::ReadOnly)) bytes = copy.readAll();
    QSaveFile target(path);
    const bool restored = bytes.size() == picture->size && target.open(QIODevice::WriteOnly) &&
                          target.write(bytes) == bytes.size() && target.commit();
    if (!restored) QFile::remove(path);
}

void PictureStore::forget(const StoredPicture& picture) {
    bytes_ -= picture.size;
    QFile::remove(picture.file);
    if (auto found = kept_.find(picture.hash); found != kept_.end() && found->second.expired())
        kept_.erase(found);
}

void PictureStore::RemoveUnused() {
    if (!kept_.empty()) return;
    QDir(folder_()).removeRecursively();
    folderChecked_ = false;
}
