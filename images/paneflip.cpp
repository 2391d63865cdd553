#include "images/paneflip.h"

#include "images/bmpfile.h"
#include "images/paneimage.h"
#include "images/picture.h"
#include "model/numbers.h"

namespace {
qint16 toggled(qint16 flag) {
    return flag == 0 ? 1 : 0;
}
} // namespace

void FlipPaneImage(Project& project, qint16 paneIndex, float cellSize, qint16, qint16, qint16 horizontal) {
    Pane& pane = project.Panes(paneIndex);
    const QImage picture = LoadPicture(pane.ImageFile);
    const int side = CInt(cellSize);
    QImage square;
    if (horizontal == -1) {
        square = RenderPaneSquare(picture, side, 1, 0);
        pane.FlipHorizontal = toggled(pane.FlipHorizontal);
    } else if (horizontal == 0) {
        square = RenderPaneSquare(picture, side, 0, 1);
        pane.FlipVertical = toggled(pane.FlipVertical);
    } else {
        square = EmptySquare(side);
    }
    SaveBmp24(square, pane.ImageFile);
}

void MakePaneBlank(Project& project, qint16 paneIndex) {
    ForgetPicture(project.Panes(paneIndex));
}
