#include "model/filecopy.h"

#include <QFile>
#include <QFileInfo>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
struct Descriptor {
    int fd = -1;
    ~Descriptor() {
        if (fd >= 0) ::close(fd);
    }
};

// Copies size bytes of in to the start of out inside the kernel; false when this kernel or file
// system pair cannot, before anything was written, so that the caller can copy by hand.
bool copyInKernel(int in, int out, off_t size, bool& unsupported) {
    unsupported = false;
    off_t done = 0;
    while (done < size) {
        const ssize_t n = ::copy_file_range(in, nullptr, out, nullptr, static_cast<size_t>(size - done), 0);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            unsupported = done == 0 && (errno == ENOSYS || errno == EXDEV || errno == EINVAL ||
                                        errno == EOPNOTSUPP || errno == EBADF);
            return false;
        }
        if (n == 0) return false; // the source ended early
        done += n;
    }
    return true;
}

bool copyByHand(int in, int out, off_t size) {
    char buffer[1 << 16];
    for (off_t done = 0;;) {
        const ssize_t n = ::read(in, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) return done == size;
        done += n;
        for (ssize_t put = 0; put < n;) {
            const ssize_t w = ::write(out, buffer + put, static_cast<size_t>(n - put));
            if (w < 0 && errno == EINTR) continue;
            if (w <= 0) return false;
            put += w;
        }
    }
}

// The file system last found unable to share bytes between files: asking each time costs a call
// per file on file systems that never can.
std::atomic<dev_t> noClones{0};

bool copyInto(int in, const struct stat& source, int out) {
    if (source.st_dev != noClones.load(std::memory_order_relaxed)) {
        if (::ioctl(out, FICLONE, in) == 0) return true;
        if (errno == EOPNOTSUPP || errno == EINVAL || errno == ENOTTY)
            noClones.store(source.st_dev, std::memory_order_relaxed);
    }
    bool unsupported = false;
    if (copyInKernel(in, out, source.st_size, unsupported)) return true;
    if (!unsupported) return false;
    return ::lseek(in, 0, SEEK_SET) == 0 && ::lseek(out, 0, SEEK_SET) == 0 && ::ftruncate(out, 0) == 0 &&
           copyByHand(in, out, source.st_size);
}
} // namespace

bool CopyFileReplacing(const QString& from, const QString& to) {
    Descriptor in;
    in.fd = ::open(QFile::encodeName(from).constData(), O_RDONLY | O_CLOEXEC);
    struct stat source {};
    if (in.fd < 0 || ::fstat(in.fd, &source) != 0 || !S_ISREG(source.st_mode)) return false;
    const QFileInfo target(to);
    const QByteArray name = QFile::encodeName(to);
    QByteArray part = QFile::encodeName(target.absolutePath() + QStringLiteral("/.") + target.fileName()) +
                      QByteArrayLiteral(".XXXXXX");
    // A named file and a rename: an unnamed O_TMPFILE linked in once complete costs more on ext4.
    Descriptor out;
    out.fd = ::mkostemp(part.data(), O_CLOEXEC);
    if (out.fd < 0) return false;
    // Each way of copying goes on until the source's full length is in place, or fails.
    bool done = copyInto(in.fd, source, out.fd) && ::fchmod(out.fd, source.st_mode & 07777) == 0;
    done = ::close(out.fd) == 0 && done;
    out.fd = -1;
    if (done && ::rename(part.constData(), name.constData()) == 0) return true;
    ::unlink(part.constData());
    return false;
}
