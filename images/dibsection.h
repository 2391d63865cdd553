#pragma once

#include <QImage>
#include <QString>
#include <QtGlobal>
#include <memory>
#include <vector>

class Prompts;
class QPaintDevice;

// The header of a device-independent bitmap, in the field order and widths of the public BMP
// layout (40 bytes). A positive height means rows stored bottom-up.
struct BitmapInfoHeader {
    quint32 biSize = 40;
    qint32 biWidth = 0;
    qint32 biHeight = 0;
    quint16 biPlanes = 0;
    quint16 biBitCount = 0;
    quint32 biCompression = 0;
    quint32 biSizeImage = 0;
    qint32 biXPelsPerMeter = 0;
    qint32 biYPelsPerMeter = 0;
    quint32 biClrUsed = 0;
    quint32 biClrImportant = 0;
};

// Raster operations of a block copy, by their classic codes.
enum class RasterOp : quint32 {
    SrcCopy = 0x00CC0020,
    SrcPaint = 0x00EE0086,   // source OR destination
    SrcAnd = 0x008800C6,     // source AND destination
    SrcInvert = 0x00660046,  // source XOR destination
    NotSrcCopy = 0x00330008, // inverted source
};

// An owned 24-bit (or 32-bit) pixel buffer: rows of BytesPerScanLine bytes, 4-byte aligned,
// bottom row first, each pixel blue, green, red (and one unused byte at 32 bits). It is what the
// HTML export loads a pane's working picture into and what the JPEG writer reads.
//
// Two states: empty (no buffer, header zero but biSize 40) and holding a picture (after Create or
// Load returned true). Create and Load empty the object first; destruction empties it.
//
// The drawing surface (hDC) is a QImage laid over the buffer as it lies in memory, so its row 0
// is the bottom row of the picture. PaintPicture turns blocks upright when it copies them out.
class cDIBSection {
public:
    // The pixel store of a section, owned by the object that made it.
    using DibHandle = std::unique_ptr<std::vector<uchar>>;

    cDIBSection() = default;
    ~cDIBSection();
    cDIBSection(const cDIBSection&) = delete;
    cDIBSection& operator=(const cDIBSection&) = delete;

    // Fills the header for lWidth x lHeight at 24 bits (lChannels 3) or 32 bits (any other
    // value) and makes a zeroed pixel store for it into hDib; the bits address goes to
    // DIBSectionBitsPtr. An image size beyond 32 bits is RunTimeError 6. False when no store
    // could be made. lhDC is the surface the section is made for; a memory buffer needs nothing
    // from it.
    bool CreateDIB(QPaintDevice* lhDC, qint32 lWidth, qint32 lHeight, qint32 lChannels, DibHandle& hDib);
    // Empties the object, then makes a blank picture of that size with its drawing surface.
    bool Create(qint32 lWidth, qint32 lHeight, qint32 lChannels);
    // Empties the object, then reads a BMP file of any depth (1, 4, 8, 16, 24, 32 bits) into a
    // 24-bit buffer of the same width and height. A file that is not a readable BMP (whatever its
    // name), or one cut short, shows "Could not load bmp." through prompts, when given, and
    // returns false.
    bool Load(const QString& Name, Prompts* prompts);
    // Load on the bytes of a BMP file, without a message.
    bool LoadBmpData(const QByteArray& data);

    qint32 BytesPerScanLine() const;
    qint32 dib_width() const { return bitmapInfo_.biWidth; }
    qint32 dib_height() const { return bitmapInfo_.biHeight; }
    qint32 dib_channels() const { return bitmapInfo_.biBitCount / 8; }

    // Copies a block of the picture (top-left lSrcLeft, lSrcTop in picture coordinates) onto a
    // destination surface. A negative width or height stands for the picture's own.
    void PaintPicture(QPaintDevice* lhDC, qint32 lDestLeft = 0, qint32 lDestTop = 0, qint32 lDestWidth = -1,
                      qint32 lDestHeight = -1, qint32 lSrcLeft = 0, qint32 lSrcTop = 0,
                      RasterOp eRop = RasterOp::SrcCopy) const;

    QImage* hDC() const { return memoryDC_.get(); }
    const std::vector<uchar>* hDib() const { return dibHandle_.get(); }
    uchar* DIBSectionBitsPtr() const { return bitsPointer_; }

    // Frees the buffer and the surface and clears the header (biSize stays 40). Harmless on an
    // empty object.
    void CleanUp();

    const BitmapInfoHeader& Header() const { return bitmapInfo_; }

private:
    bool makeSurface();
    bool loadFrom(const QByteArray& data, Prompts* prompts);
    void selectSection();

    DibHandle dibHandle_;
    std::unique_ptr<QImage> memoryDC_;
    uchar* bitsPointer_ = nullptr;
    BitmapInfoHeader bitmapInfo_;
};
