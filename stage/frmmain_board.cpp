#include "stage/frmmain.h"

#include "model/numbers.h"

#include <QPainter>

void frmMain::Toolbar1_ButtonClick(const QString& key) {
    if (key == QLatin1String("Back")) {
        if (Combo_PageView->currentIndex() != 0) SetBoardIndex(Combo_PageView->currentIndex() - 1);
    } else if (key == QLatin1String("Next")) {
        if (Combo_PageView->currentIndex() + 1 < Combo_PageView->count())
            SetBoardIndex(Combo_PageView->currentIndex() + 1);
    }
}

void frmMain::Combo_PageView_Click() {
    if (!project.IsBusy) DrawCurrentBoard();
}

void frmMain::DrawCurrentBoard() {
    CellSize = CInt(StageSize / project.GridSide);
    DrawBoard(CellSize, project.GridSide, 0, true);
    const int board = Combo_PageView->currentIndex();
    ButtonBack->setEnabled(board != 0);
    ButtonNext->setEnabled(board + 1 < Combo_PageView->count());
    List1->setCurrentRow(Mul16(CellsPerBoard(project), board));
    ShowPaneText();
}

void frmMain::DrawBoard(float cellSize, qint16 gridSide, qint16 cell, bool allCells) {
    picStage->setCursor(Qt::WaitCursor);
    picStage->EnsurePictureSize(picStage->width(), picStage->height());
    const int cells = Mul16(gridSide, gridSide);
    const int base = Mul16(Combo_PageView->currentIndex(), cells);
    const int side = CInt(cellSize);
    float x = 0, y = 0;
    int first = 1, last = cells;
    if (!allCells) {
        x = project.Panes(cell).Position[0];
        y = project.Panes(cell).Position[1];
        first = last = cell;
    }
    QPainter painter(&picStage->Picture);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    const int ascent = painter.fontMetrics().ascent();
    for (int k = first; k <= last; ++k) {
        const int p = base + k;
        Pane& pane = project.Panes(p);
        if (pane.ImageFile != kNone) {
            picLoader = QImage(pane.ImageFile);
            if (picLoader.isNull()) {
                picLoader = BlankPicture();
                pane.ImageFile = kNone;
            }
        } else {
            picLoader = BlankPicture();
        }
        const QPoint at(CInt(x), CInt(y));
        if (pane.ImageFile != kNone)
            painter.drawImage(at, picLoader, QRect(0, 0, side, side));
        else
            painter.drawImage(QRect(at, QSize(side, side)), picLoader);
        const QString number = QString::number(p);
        painter.setPen(Qt::black);
        painter.drawText(at.x(), at.y() + ascent, number);
        painter.setPen(Qt::white);
        painter.drawText(at.x() + 1, at.y() - 1 + ascent, number);
        Pane& slot = project.Panes(k);
        slot.Position[0] = static_cast<qint16>(at.x());
        slot.Position[1] = static_cast<qint16>(at.y());
        x += cellSize;
        if (allCells && k % gridSide == 0) {
            x = 0;
            y += cellSize;
        }
    }
    painter.end();
    SnapshotStage();
    picStage->unsetCursor();
}

void frmMain::SnapshotStage() {
    picStage->repaint();
    const int w = picStage->width();
    const int h = picStage->height();
    // The copy is deliberately square, the stage's width on both sides; what lies below the
    // stage's height falls outside the snapshot.
    picLoader = QImage(w, h, QImage::Format_RGB32);
    picLoader.fill(StageView::BackColor());
    QPainter p(&picLoader);
    p.drawImage(QPoint(0, 0), picStage->Picture, QRect(0, 0, w, w));
}

void frmMain::ShowPaneText() {
    const QListWidgetItem* item = List1->currentItem();
    const QString text = item ? item->text() : QString();
    // The first five characters are the number prefix; the cut is a fixed five, also for the
    // six-character prefix of pane 1000.
    Text1->setText(text.mid(5));
    SelectedPane = static_cast<qint16>(List1->currentRow() + 1);
}
