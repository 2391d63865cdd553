#include "images/cutshort.h"

#include <QtEndian>

namespace {
quint32 le32(const QByteArray& d, qsizetype at) {
    return qFromLittleEndian<quint32>(d.constData() + at);
}
quint16 le16(const QByteArray& d, qsizetype at) {
    return qFromLittleEndian<quint16>(d.constData() + at);
}

// Walks the run-length codes from `at`: false when the data ends before the end-of-bitmap code.
bool rleComplete(const QByteArray& d, qsizetype at, int bitCount) {
    while (at + 2 <= d.size()) {
        const int count = static_cast<uchar>(d[at]), code = static_cast<uchar>(d[at + 1]);
        at += 2;
        if (count > 0) continue; // a run of one value
        if (code == 1) return true;
        if (code == 0) continue; // end of line
        if (code == 2) {         // move by x and y
            at += 2;
            continue;
        }
        // `code` pixels written as they are, padded to a whole word.
        const qsizetype bytes = bitCount == 8 ? code : (code + 1) / 2;
        at += bytes + (bytes & 1);
    }
    return false;
}
} // namespace

bool BmpCutShort(const QByteArray& d) {
    if (d.size() < 26) return true;
    const quint32 offset = le32(d, 10), headerSize = le32(d, 14);
    qint64 width = 0, height = 0;
    int bitCount = 0;
    quint32 compression = 0;
    if (headerSize == 12) { // the old OS/2 header: 16-bit sizes, never compressed
        width = le16(d, 18);
        height = le16(d, 20);
        bitCount = le16(d, 24);
    } else if (headerSize >= 40 && d.size() >= 34) {
        width = static_cast<qint32>(le32(d, 18));
        height = static_cast<qint32>(le32(d, 22));
        bitCount = le16(d, 28);
        compression = le32(d, 30);
    } else {
        return false;
    }
    if (compression == 1 || compression == 2) return !rleComplete(d, offset, compression == 1 ? 8 : 4);
    if (compression != 0 && compression != 3 && compression != 6) return false;
    const qint64 stride = (qAbs(width) * bitCount + 31) / 32 * 4;
    if (stride == 0 || height == 0) return false;
    const qint64 available = qint64(d.size()) - offset;
    return available < 0 || qAbs(height) > available / stride;
}

bool GifCutShort(const QByteArray& d) {
    qsizetype at = 13;
    if (d.size() < at) return true;
    const auto colourTable = [&d](qsizetype flagsAt) {
        const int flags = static_cast<uchar>(d[flagsAt]);
        return flags & 0x80 ? 3 * (2 << (flags & 7)) : 0;
    };
    at += colourTable(10);
    // Sub-blocks, each its length and its bytes, up to an empty one: the position after it, or -1.
    const auto skipBlocks = [&d](qsizetype p) -> qsizetype {
        while (p < d.size()) {
            const int length = static_cast<uchar>(d[p]);
            p += 1 + length;
            if (length == 0) return p;
        }
        return -1;
    };
    while (at < d.size()) {
        const char kind = d[at];
        if (kind == 0x21) { // an extension: its label, then its sub-blocks
            at = skipBlocks(at + 2);
            if (at < 0) return true;
        } else if (kind == 0x2C) { // the first picture: descriptor, colour table, LZW code size, data
            if (at + 10 > d.size()) return true;
            at += 10 + colourTable(at + 9) + 1;
            return skipBlocks(at) < 0;
        } else {
            return false; // the trailer, or something the reader will judge
        }
    }
    return true;
}

bool PngCutShort(const QByteArray& data) {
    qsizetype at = 8; // the signature
    // Each chunk is its length, its type, its data and a check sum.
    while (at + 12 <= data.size()) {
        const qint64 length = qFromBigEndian<quint32>(data.constData() + at);
        const QByteArray type = data.mid(at + 4, 4);
        if (length > data.size() - at - 12) return true;
        if (type == "IEND") return false;
        at += 12 + qsizetype(length);
    }
    return true;
}
