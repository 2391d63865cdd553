#include "images/jpegdecode.h"

#include <turbojpeg.h>

namespace {
struct Decompressor {
    tjhandle handle = tjInitDecompress();
    ~Decompressor() {
        if (handle) tjDestroy(handle);
    }
};
} // namespace

JpegScale ChooseJpegScale(QSize full, QSize atLeast) {
    int count = 0;
    const tjscalingfactor* factors = tjGetScalingFactors(&count);
    JpegScale best{1, 1, full};
    for (int i = 0; factors && i < count; ++i) {
        const tjscalingfactor f = factors[i];
        if (f.num > f.denom) continue; // never enlarge while decoding
        const QSize s(TJSCALED(full.width(), f), TJSCALED(full.height(), f));
        if (s.width() >= atLeast.width() && s.height() >= atLeast.height() &&
            qint64(s.width()) * s.height() < qint64(best.size.width()) * best.size.height())
            best = {f.num, f.denom, s};
    }
    return best;
}

JpegDecodeResult DecodeJpeg(const QByteArray& data, QSize atLeast, QImage& out, qint64 maxBytes) {
    if (data.size() < 4 || static_cast<unsigned char>(data[0]) != 0xFF ||
        static_cast<unsigned char>(data[1]) != 0xD8)
        return JpegDecodeResult::NotJpeg;
    Decompressor d;
    if (!d.handle) return JpegDecodeResult::NotJpeg;
    const auto* bytes = reinterpret_cast<const unsigned char*>(data.constData());
    const auto size = static_cast<unsigned long>(data.size());
    int width = 0, height = 0, subsampling = 0, colourspace = 0;
    if (tjDecompressHeader3(d.handle, bytes, size, &width, &height, &subsampling, &colourspace) != 0)
        return JpegDecodeResult::Unreadable;
    // CMYK pictures are left to the general reader, which converts them.
    if (colourspace == TJCS_CMYK || colourspace == TJCS_YCCK) return JpegDecodeResult::NotJpeg;
    const JpegScale scale = ChooseJpegScale(QSize(width, height), atLeast);
    if (scale.size.isEmpty() || qint64(scale.size.width()) * scale.size.height() * 4 > maxBytes)
        return JpegDecodeResult::Unreadable;
    QImage image(scale.size, QImage::Format_RGB32);
    if (image.isNull()) return JpegDecodeResult::Unreadable;
    // Format_RGB32 keeps a pixel as the bytes blue, green, red, padding on a little-endian
    // machine, which is the decoder's BGRX.
    const int format = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? TJPF_BGRX : TJPF_XRGB;
    if (tjDecompress2(d.handle, bytes, size, image.bits(), scale.size.width(),
                      static_cast<int>(image.bytesPerLine()), scale.size.height(), format, 0) != 0) {
        // Damage the decoder could work around is accepted; a picture whose data ends before its
        // last row ("Premature end of JPEG file", "... premature end of data segment") is not.
        if (tjGetErrorCode(d.handle) != TJERR_WARNING ||
            QByteArray(tjGetErrorStr2(d.handle)).toLower().contains("premature end"))
            return JpegDecodeResult::Unreadable;
    }
    out = image;
    return JpegDecodeResult::Decoded;
}
