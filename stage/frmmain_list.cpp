#include "stage/frmmain.h"

#include "flows/reshape.h"
#include "model/numbers.h"
#include "stage/progress.h"

namespace {
// The pane list item: the number as "000", ". ", the text.
QString itemText(int pane, const QString& text) {
    return Format(pane, "000") + QStringLiteral(". ") + text;
}

} // namespace

void frmMain::RefillPaneList(int total, bool withTexts) {
    QStringList items;
    for (int n = 1; n <= total; ++n)
        items << itemText(n, withTexts ? project.Panes(n).Text : kToUse);
    List1->clear();
    List1->addItems(items);
}

void frmMain::RefillBoardChooser(int boardCount) {
    QStringList boards;
    for (int b = 1; b <= boardCount; ++b)
        boards << QStringLiteral("Board ") + Format(b, "00");
    Combo_PageView->clear();
    Combo_PageView->addItems(boards);
    SetBoardIndex(0);
}

qint16 frmMain::FillLists(qint16 gridSide, qint16 boardCount, float stageSize, bool reset) {
    const qint16 cellSize = CInt(stageSize / gridSide);
    {
        // Without a reset the pictures are rebuilt at the new size; with one they are forgotten,
        // while texts, labels and URLs stay in the records (the list shows them again when it is
        // next rebuilt from the records).
        ProgressWindow progress(this, project, QStringLiteral("Re-scaling pane pictures ..."));
        ReshapePanes(project, cellSize, reset, progress.Callback());
    }
    RefillPaneList(Mul16(Mul16(gridSide, gridSide), boardCount), !reset);
    RefillBoardChooser(boardCount);
    return cellSize;
}

void frmMain::List1_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers, int x, int y) {
    if (button != Qt::LeftButton) {
        ShowPopup(*mnu_EditList, List1->viewport()->mapToGlobal(QPoint(x, y)));
        return;
    }
    const int item = List1->currentRow();
    if (item < 0) return;
    const int board = item / CellsPerBoard(project);
    // Showing another board moves the list to that board's first pane; the clicked pane is
    // what the user asked for, so it stays selected and its text is shown.
    if (board != Combo_PageView->currentIndex()) SetBoardIndex(board);
    List1->setCurrentRow(item);
    ShowPaneText();
    if (!Text1->text().isEmpty()) {
        mnu_Swap->setEnabled(true);
        mnu_Remove->setEnabled(true);
        cmdButton->setEnabled(true);
    }
}

void frmMain::SwapItemText() {
    if (Text1->text().isEmpty()) return;
    const int item = List1->currentRow();
    if (item < 0) return;
    const QString text = TrimBlanks(Text1->text());
    List1->item(item)->setText(itemText(item + 1, text));
    project.Panes(item + 1).Text = text;
    picStage->NotifyDescriptionChanged();
}

void frmMain::ResetItemText(bool all, int index) {
    if (!all) {
        if (index < 0 || index >= List1->count()) return;
        List1->item(index)->setText(itemText(index + 1, kToUse));
        project.Panes(index + 1).Text = kToUse;
        return;
    }
    // "Clear All" resets records 0 to total - 1, one below the panes the items show: the last
    // pane keeps its text although its item reads "ToUse". The command has always done this.
    const int total = PaneTotal(project);
    List1->clear();
    for (int i = 0; i < total; ++i) {
        List1->addItem(itemText(i + 1, kToUse));
        project.Panes(i).Text = kToUse;
    }
}

void frmMain::Text1_Change() {
    cmdButton->setEnabled(!Text1->text().isEmpty());
}

void frmMain::mnu_Swap_Click() {
    SwapItemText();
}
void frmMain::mnu_Remove_Click() {
    ResetItemText(false, List1->currentRow());
}
void frmMain::mnu_ClearAll_Click() {
    ResetItemText(true, List1->currentRow());
}
