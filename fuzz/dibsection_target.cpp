#include "targets.h"

#include "images/dibsection.h"
#include "images/jpegwriter.h"

#include <QByteArray>
#include <QImage>

int FuzzDibSection(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    cDIBSection dib;
    if (!dib.LoadBmpData(bytes)) {
        FuzzCheck(!dib.hDib() && !dib.DIBSectionBitsPtr() && !dib.hDC(), "a failed load leaves it empty");
        return 0;
    }
    const qint64 w = dib.dib_width(), h = dib.dib_height();
    FuzzCheck(w > 0 && h > 0 && dib.dib_channels() == 3, "a loaded picture is 24-bit and bottom-up");
    FuzzCheck(dib.BytesPerScanLine() % 4 == 0 && dib.BytesPerScanLine() >= 3 * w, "rows are aligned");
    FuzzCheck(qint64(dib.hDib()->size()) == dib.BytesPerScanLine() * h &&
                  dib.Header().biSizeImage == dib.hDib()->size(),
              "the buffer holds every row");
    // What the export does with it, for pictures of a size a pane can have.
    if (w * h > 1024 * 1024) return 0;
    QImage canvas(int(w), int(h), QImage::Format_RGB32);
    dib.PaintPicture(&canvas, 0, 0, -1, -1, 0, 0, RasterOp::SrcCopy);
    // JPEG has no room for a side past 65500 pixels; such a picture is the export's failure to tell.
    QByteArray jpeg;
    const bool encoded = EncodeJPG(dib, jpeg);
    FuzzCheck(encoded == (w <= 65500 && h <= 65500), "a loaded picture encodes when JPEG can hold it");
    FuzzCheck(!encoded || jpeg.startsWith("\xFF\xD8"), "what is encoded is a JPEG");
    return 0;
}
