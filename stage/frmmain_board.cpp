#include "stage/frmmain.h"

#include "dialogs/frmslideshow.h"
#include "model/colour.h"
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
    if (allCells) BoardPictures.BeginBoard();
    for (int k = first; k <= last; ++k) {
        const int p = base + k;
        Pane& pane = project.Panes(p);
        if (pane.ImageFile != kNone) {
            picLoader = BoardPictures.Load(pane.ImageFile);
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
    if (allCells) BoardPictures.DropUnused();
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
    picStage->NotifyDescriptionChanged();
}

QString frmMain::HoverLabel(const QString& label, float cellSize) {
    if (!IsSet(label)) return {};
    const double room = cellSize / 9.0;
    return label.size() > room ? label.left(CInt(room)) + QStringLiteral("...") : label;
}

int frmMain::TrackHover(int x, int y, float cellSize, qint16 gridSide) {
    const int cells = Mul16(gridSide, gridSide);
    const int base = Mul16(Combo_PageView->currentIndex(), cells);
    const int side = CInt(cellSize);
    int hovered = 0;
    for (int k = 1; k <= cells && !hovered; ++k) {
        const Pane& slot = project.Panes(k);
        if (QRect(slot.Position[0], slot.Position[1], side, side).contains(x, y)) hovered = k;
    }
    // The snapshot wipes the previous highlight; the panes themselves are never repainted here.
    if (!picLoader.isNull()) picStage->Picture = picLoader;
    if (!hovered) {
        picStage->update();
        return 0;
    }
    const Pane& slot = project.Panes(hovered);
    const int pane = base + hovered;
    QPainter painter(&picStage->Picture);
    painter.setPen(
        QPen(ColourOf(project.GlobalHighlightColor), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    // A frame two pixels wide, two pixels inside the cell's edges.
    const int left = slot.Position[0] + 2, top = slot.Position[1] + 2;
    const int right = slot.Position[0] + side - 3, bottom = slot.Position[1] + side - 3;
    painter.drawLine(left, top, right, top);
    painter.drawLine(right, top, right, bottom);
    painter.drawLine(right, bottom, left, bottom);
    painter.drawLine(left, bottom, left, top);

    const QString label = HoverLabel(project.Panes(pane).Label, cellSize);
    if (!label.isEmpty()) {
        const QFontMetrics metrics = painter.fontMetrics();
        const int baseline = bottom - 4 - metrics.descent();
        painter.setPen(Qt::black);
        painter.drawText(left + 4, baseline, label);
        painter.setPen(Qt::white);
        painter.drawText(left + 5, baseline - 1, label);
    }
    painter.end();
    picStage->update();
    return pane;
}

void frmMain::DrawDragLine(qint16 selectedPane, float cellSize, int x, int y, qint16 gridSide) {
    const int cells = Mul16(gridSide, gridSide);
    const int k = selectedPane - Mul16(Combo_PageView->currentIndex(), cells);
    // A drag that did not start on a pane of this board has no cell to start from.
    if (k < 1 || k > cells) return;
    const Pane& slot = project.Panes(k);
    StageView::LineShape line = picStage->Line1;
    line.X1 = CInt(slot.Position[0] + cellSize / 2);
    line.Y1 = CInt(slot.Position[1] + cellSize / 2);
    line.X2 = x;
    line.Y2 = y;
    picStage->SetLine(line);
}

void frmMain::mnu_Slideshow_Click() {
    frmSlideshow show(project, SelectedPane > 0 ? SelectedPane : 1, this);
    ShowModal(show);
    // Back on the stage where the slideshow stopped.
    ChoosePane(show.CurrentPane());
}
