#include "images/dibsection.h"

#include "images/cutshort.h"
#include "images/picture.h"
#include "model/numbers.h"
#include "model/prompts.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <cstring>
#include <new>

cDIBSection::~cDIBSection() {
    CleanUp();
}

bool cDIBSection::CreateDIB(QPaintDevice*, qint32 lWidth, qint32 lHeight, qint32 lChannels, DibHandle& hDib) {
    bitmapInfo_.biSize = 40;
    bitmapInfo_.biWidth = lWidth;
    bitmapInfo_.biHeight = lHeight;
    bitmapInfo_.biPlanes = 1;
    bitmapInfo_.biBitCount = lChannels == 3 ? 24 : 32;
    bitmapInfo_.biCompression = 0;
    const qint32 size = CLng(static_cast<double>(lHeight) * BytesPerScanLine());
    bitmapInfo_.biSizeImage = static_cast<quint32>(size);
    hDib.reset();
    bitsPointer_ = nullptr;
    // Only bottom-up sections are made: a height (or width) of 0 or less makes nothing.
    if (lWidth <= 0 || lHeight <= 0) return false;
    try {
        hDib = std::make_unique<std::vector<uchar>>(static_cast<size_t>(size), uchar(0));
    } catch (const std::bad_alloc&) {
        return false;
    }
    bitsPointer_ = hDib->data();
    return true;
}

bool cDIBSection::makeSurface() {
    // An empty memory surface holds a one-pixel monochrome picture until a section is selected.
    memoryDC_ = std::make_unique<QImage>(1, 1, QImage::Format_Mono);
    return !memoryDC_->isNull();
}

void cDIBSection::selectSection() {
    const QImage::Format format = bitmapInfo_.biBitCount == 24 ? QImage::Format_BGR888 : QImage::Format_RGB32;
    *memoryDC_ = QImage(bitsPointer_, dib_width(), dib_height(), BytesPerScanLine(), format);
}

bool cDIBSection::Create(qint32 lWidth, qint32 lHeight, qint32 lChannels) {
    CleanUp();
    if (!makeSurface()) return false;
    if (CreateDIB(memoryDC_.get(), lWidth, lHeight, lChannels, dibHandle_)) {
        selectSection();
        if (!memoryDC_->isNull()) return true;
        dibHandle_.reset();
        bitsPointer_ = nullptr;
    }
    memoryDC_.reset();
    return false;
}

bool cDIBSection::Load(const QString& Name, Prompts* prompts) {
    QFile file(Name);
    const bool readable = file.open(QIODevice::ReadOnly) && file.size() <= kMaxPictureBytes;
    return loadFrom(readable ? file.readAll() : QByteArray(), prompts);
}

bool cDIBSection::LoadBmpData(const QByteArray& data) {
    return loadFrom(data, nullptr);
}

namespace {
quint32 le32(const QByteArray& d, int at) {
    return quint32(quint8(d[at])) | quint32(quint8(d[at + 1])) << 8 | quint32(quint8(d[at + 2])) << 16 |
           quint32(quint8(d[at + 3])) << 24;
}
quint16 le16(const QByteArray& d, int at) {
    return quint16(quint8(d[at]) | quint8(d[at + 1]) << 8);
}

// A BMP laid out exactly as the buffer is (24 bits, bottom-up, uncompressed, 4-byte rows), as
// every working picture is: its rows can be taken as they stand. Zero when it is not one.
qint64 plainRowsOffset(const QByteArray& d, qint32& width, qint32& height) {
    if (d.size() < 54 || d[0] != 'B' || d[1] != 'M' || le32(d, 14) != 40 || le16(d, 26) != 1 ||
        le16(d, 28) != 24 || le32(d, 30) != 0)
        return 0;
    width = static_cast<qint32>(le32(d, 18));
    height = static_cast<qint32>(le32(d, 22));
    const qint64 offset = le32(d, 10);
    const qint64 stride = (3 * qint64(width) + 3) & ~qint64(3);
    if (width <= 0 || height <= 0 || width > 65535 || height > 65535 || offset < 54 ||
        offset + stride * height > d.size())
        return 0;
    return offset;
}
} // namespace

bool cDIBSection::loadFrom(const QByteArray& data, Prompts* prompts) {
    CleanUp();
    if (!makeSurface()) return false;
    qint32 plainWidth = 0, plainHeight = 0;
    if (const qint64 offset = plainRowsOffset(data, plainWidth, plainHeight)) {
        if (!CreateDIB(memoryDC_.get(), plainWidth, plainHeight, 3, dibHandle_)) {
            dibHandle_.reset();
            bitsPointer_ = nullptr;
            memoryDC_.reset();
            return false;
        }
        selectSection();
        std::memcpy(bitsPointer_, data.constData() + offset,
                    size_t(BytesPerScanLine()) * size_t(plainHeight));
        return true;
    }
    // The bytes are read as a BMP whatever the file's name says; anything else fails here, and so
    // does a BMP cut short, before its announced size is made.
    QImage loaded;
    if (!BmpCutShort(data)) {
        QBuffer buffer;
        buffer.setData(data);
        QImageReader reader(&buffer, "bmp");
        reader.setAutoTransform(false);
        loaded = reader.read();
    }
    if (loaded.isNull()) {
        memoryDC_.reset();
        if (prompts)
            prompts->Message(QStringLiteral("Could not load bmp."), MsgIcon::Exclamation,
                             QStringLiteral("KV1 : Load Problem"));
        return false;
    }
    const QImage picture = loaded.convertToFormat(QImage::Format_BGR888);
    if (!CreateDIB(memoryDC_.get(), picture.width(), picture.height(), 3, dibHandle_)) {
        dibHandle_.reset();
        bitsPointer_ = nullptr;
        memoryDC_.reset();
        return false;
    }
    selectSection();
    const qint32 stride = BytesPerScanLine();
    const size_t rowBytes = static_cast<size_t>(picture.width()) * 3;
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(bitsPointer_ + static_cast<qsizetype>(picture.height() - 1 - y) * stride,
                    picture.constScanLine(y), rowBytes);
    return true;
}

qint32 cDIBSection::BytesPerScanLine() const {
    return CLng(static_cast<double>(bitmapInfo_.biBitCount / 8) * bitmapInfo_.biWidth + 3) & ~qint32(3);
}

void cDIBSection::PaintPicture(QPaintDevice* lhDC, qint32 lDestLeft, qint32 lDestTop, qint32 lDestWidth,
                               qint32 lDestHeight, qint32 lSrcLeft, qint32 lSrcTop, RasterOp eRop) const {
    if (!lhDC || !dibHandle_ || !memoryDC_) return;
    const int w = lDestWidth < 0 ? dib_width() : lDestWidth;
    const int h = lDestHeight < 0 ? dib_height() : lDestHeight;
    if (w == 0 || h == 0) return;
    // The surface lies bottom row first: the block's rows are counted from the end and turned upright.
    const QImage block = memoryDC_->copy(lSrcLeft, dib_height() - lSrcTop - h, w, h).mirrored(false, true);
    QPainter painter(lhDC);
    if (!painter.isActive()) return;
    switch (eRop) {
    case RasterOp::SrcCopy:
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        break;
    case RasterOp::SrcPaint:
        painter.setCompositionMode(QPainter::RasterOp_SourceOrDestination);
        break;
    case RasterOp::SrcAnd:
        painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
        break;
    case RasterOp::SrcInvert:
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        break;
    case RasterOp::NotSrcCopy:
        painter.setCompositionMode(QPainter::RasterOp_NotSource);
        break;
    }
    painter.drawImage(lDestLeft, lDestTop, block);
}

void cDIBSection::CleanUp() {
    memoryDC_.reset();
    dibHandle_.reset();
    bitsPointer_ = nullptr;
    bitmapInfo_ = BitmapInfoHeader();
}
