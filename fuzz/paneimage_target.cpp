#include "targets.h"

#include "images/bmpfile.h"
#include "images/dibsection.h"
#include "images/paneimage.h"
#include "images/picture.h"
#include "model/runtimeerror.h"

#include <QByteArray>
#include <QImage>

int FuzzPaneImage(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    const int side = 1 + data[0] % 96;
    // Flags 0 and 1 as the flips set them, and 2, which draws nothing.
    const int flipH = data[1] % 3, flipV = data[1] / 3 % 3;
    const bool fullSize = data[1] / 9 % 2;
    const QByteArray source(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2));
    QByteArray bmp;
    try {
        if (fullSize) {
            const QImage picture = DecodePicture(source, QSize(1 << 30, 1 << 30), QStringLiteral("fuzz"));
            FuzzCheck(!picture.isNull(), "a decoded picture has pixels");
            bmp = EncodeBmp24(RenderPaneSquare(picture, side, flipH, flipV));
        } else {
            bmp = RenderPaneBmpOf(source, QStringLiteral("fuzz"), side, flipH, flipV);
        }
    } catch (const RunTimeError& error) {
        FuzzCheck(error.number() == 481, "a picture that cannot be read is an invalid picture");
        return 0;
    }
    const qint64 stride = (3 * side + 3) & ~3;
    FuzzCheck(bmp.size() == 54 + stride * side && bmp.startsWith("BM"), "the working picture is the square");
    cDIBSection dib;
    FuzzCheck(dib.LoadBmpData(bmp) && dib.dib_width() == side && dib.dib_height() == side,
              "the working picture reads back");
    return 0;
}
