#include "stage/frmmain.h"

#include "model/numbers.h"

void frmMain::enablePaneCommands() {
    const bool picture = project.Panes(SelectedPane).ImageFile != kNone;
    for (QAction* command : {mnu_FlipHorizontally, mnu_FlipVertically, mnu_Closeup, mnu_MakeBlank})
        command->setEnabled(picture);
}

void frmMain::picStage_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers, int x, int y) {
    DragActive = true;
    SelectedPane = static_cast<qint16>(HoverPane);
    List1->setCurrentRow(SelectedPane - 1);
    enablePaneCommands();
    picStage->NotifyDescriptionChanged();
    if (button == Qt::RightButton) {
        DragActive = false;
        ShowPopup(*mnu_Panes, picStage->mapToGlobal(QPoint(x, y)));
    }
}

void frmMain::picStage_MouseMove(Qt::MouseButtons, Qt::KeyboardModifiers, int x, int y) {
    if (DragActive) {
        picStage->setCursor(Qt::SizeAllCursor);
        StageView::LineShape line = picStage->Line1;
        line.Visible = true;
        picStage->SetLine(line);
        DrawDragLine(SelectedPane, CellSize, x, y, project.GridSide);
    } else {
        HoverPane = TrackHover(x, y, CellSize, project.GridSide);
    }
}

void frmMain::picStage_MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers, int x, int y) {
    if (project.IsBusy) return;
    DragActive = false;
    const bool moved = picStage->cursor().shape() == Qt::SizeAllCursor;
    if (button == Qt::RightButton) {
        ShowPopup(*mnu_Panes, picStage->mapToGlobal(QPoint(x, y)));
    } else if (SelectedPane > 0 && moved) {
        HoverPane = TrackHover(x, y, CellSize, project.GridSide);
        // A drop outside every pane of the board exchanges nothing.
        if (HoverPane > 0) {
            Pane& source = project.Panes(SelectedPane);
            Pane& target = project.Panes(HoverPane);
            Pane& scratch = project.Panes(0);
            const auto exchange = [&](auto member) {
                scratch.*member = source.*member;
                source.*member = target.*member;
                target.*member = scratch.*member;
            };
            exchange(&Pane::ImageFile);
            exchange(&Pane::SourceFile);
            exchange(&Pane::SourceStem);
            exchange(&Pane::FlipHorizontal);
            exchange(&Pane::FlipVertical);
            exchange(&Pane::Text);
            exchange(&Pane::Label);
            exchange(&Pane::Url);
            for (int pane : {int(SelectedPane), HoverPane})
                if (QListWidgetItem* item = List1->item(pane - 1))
                    item->setText(Format(pane, "000") + QStringLiteral(". ") + project.Panes(pane).Text);
        }
        DrawCurrentBoard();
    }
    picStage->unsetCursor();
    StageView::LineShape line = picStage->Line1;
    line.Visible = false;
    picStage->SetLine(line);
}
