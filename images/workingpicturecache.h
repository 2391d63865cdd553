#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <sys/types.h>

// The working pictures of the board on the stage, kept in memory so that a redraw, a click or a
// hover does not read the disk again. Nobody has to say when a picture changes: every look-up
// checks the file (one stat) and reads it again unless it is the very file that was read, with
// the same inode, size, modification and change times. Whoever writes a working picture (the
// program itself, an undo, another process) gives the file a new change time.
//
// A change time only shows a write that came after the stamp's clock tick, and a file system may
// keep times in whole seconds, so a picture whose file changed within `settleNs` before it was
// read is not kept: it is read again each time until its file has been still for that long.
class WorkingPictureCache {
public:
    static constexpr qint64 kSettleNs = 2'000'000'000;
    explicit WorkingPictureCache(qint64 settleNs = kSettleNs) : settleNs_(settleNs) {}

    // The picture in the file as QImage(path) reads it; a null picture when it cannot be read.
    QImage Load(const QString& path);

    // Starts a board: pictures not loaded since are dropped by the next DropUnused.
    void BeginBoard() { ++board_; }
    // Forgets every picture not loaded since BeginBoard, so that only one board stays in memory.
    void DropUnused();

    // How many pictures were read from disk, and how many are held.
    qint64 Reads() const { return reads_; }
    int Held() const { return static_cast<int>(entries_.size()); }

private:
    struct Stamp {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        qint64 modified = 0, changed = 0; // nanoseconds since the epoch
        bool operator==(const Stamp& o) const {
            return device == o.device && inode == o.inode && size == o.size && modified == o.modified &&
                   changed == o.changed;
        }
    };
    struct Entry {
        Stamp stamp;
        QImage picture;
        qint64 board = 0;
    };
    static bool stampOf(const QString& path, Stamp& stamp);

    qint64 settleNs_;
    qint64 board_ = 0;
    qint64 reads_ = 0;
    QHash<QString, Entry> entries_;
};
