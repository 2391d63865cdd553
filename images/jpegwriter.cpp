#include "images/jpegwriter.h"

#include "images/dibsection.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <turbojpeg.h>

namespace {
struct Compressor {
    tjhandle handle = tjInitCompress();
    unsigned char* jpeg = nullptr;
    ~Compressor() {
        if (jpeg) tjFree(jpeg);
        if (handle) tjDestroy(handle);
    }
};
} // namespace

bool SaveJPG(cDIBSection& dib, const QString& fileName) {
    return WriteJPG(dib, fileName);
}

bool EncodeJPG(cDIBSection& dib, QByteArray& out) {
    Compressor encoder;
    if (!encoder.handle) return false;
    const qint32 width = dib.dib_width();
    const qint32 height = dib.dib_height();
    const unsigned char* bits = dib.DIBSectionBitsPtr();
    const qint32 pitch = dib.BytesPerScanLine();
    const qint32 padBytes = CLng(static_cast<double>(pitch) - 3.0 * width);
    // A 24-bit row is 3 x width bytes plus padBytes; a 32-bit section carries one unused byte per pixel.
    const int format = dib.dib_channels() == 3 ? TJPF_BGR : TJPF_BGRX;
    if (!bits || width <= 0 || height <= 0 || (format == TJPF_BGR && (padBytes < 0 || padBytes > 3)))
        return false;
    unsigned long size = 0;
    if (tjCompress2(encoder.handle, bits, width, pitch, height, format, &encoder.jpeg, &size, TJSAMP_420,
                    kJpegQuality, TJFLAG_BOTTOMUP) != 0)
        return false;
    out = QByteArray(reinterpret_cast<const char*>(encoder.jpeg), static_cast<qsizetype>(size));
    return true;
}

void WriteJpegFile(const QByteArray& jpeg, const QString& fileName) {
    QFile file(fileName);
    // Read-write keeps an existing file's bytes: only the start is overwritten.
    if (!file.open(QIODevice::ReadWrite)) {
        if (!QFileInfo(fileName).absoluteDir().exists()) throw RunTimeError::PathNotFound(fileName);
        throw RunTimeError::PathFileAccess(fileName);
    }
    if (file.write(jpeg) != jpeg.size() || !file.flush()) throw RunTimeError::PathFileAccess(fileName);
}

bool WriteJPG(cDIBSection& dib, const QString& fileName) {
    QByteArray jpeg;
    if (!EncodeJPG(dib, jpeg)) return false;
    WriteJpegFile(jpeg, fileName);
    return true;
}
