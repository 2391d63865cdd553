#include "stage/frmmain.h"

#include "model/numbers.h"

#include <QShortcut>

void frmMain::addKeyboardAccess() {
    // Mnemonics let the menus be opened from the keyboard (Alt+F and so on); the captions read
    // as before.
    mnu_File->setTitle(QStringLiteral("&File"));
    mnu_Edit->setTitle(QStringLiteral("&Edit"));
    mnu_Board->setTitle(QStringLiteral("&Board"));
    mnu_Panes->setTitle(QStringLiteral("&Pane"));
    mnu_HelpMenu->setTitle(QStringLiteral("&Help"));

    mnu_OpenProject->setShortcut(QKeySequence::Open);
    mnu_SaveAs->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    mnu_ExportHTML->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    mnu_Print->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
    mnu_Exit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    mnu_Help->setShortcut(QKeySequence::HelpContents);
    mnu_Slideshow->setShortcut(QKeySequence(Qt::Key_F5));

    // Back and Next live on the toolbar, not in a menu.
    auto* back = new QShortcut(QKeySequence(Qt::Key_PageUp), this);
    connect(back, &QShortcut::activated, this, [this] { Toolbar1_ButtonClick(QStringLiteral("Back")); });
    auto* next = new QShortcut(QKeySequence(Qt::Key_PageDown), this);
    connect(next, &QShortcut::activated, this, [this] { Toolbar1_ButtonClick(QStringLiteral("Next")); });

    // Ctrl with an arrow drops the pane on its neighbour: a step, as the drop by mouse is.
    connect(picStage, &StageView::KeyDown, this, [this](int key, Qt::KeyboardModifiers shift) {
        History.Record(QStringLiteral("Exchange Panes"), [&] { picStage_KeyDown(key, shift); });
    });
    connect(picStage, &StageView::MenuKey, this, &frmMain::picStage_MenuKey);
    connect(picStage, &StageView::KeyboardFocusIn, this, &frmMain::picStage_KeyboardFocusIn);
    // Enter in the edit row is the swap button.
    connect(Text1, &QLineEdit::returnPressed, this, [this] {
        if (cmdButton->isEnabled()) cmdButton->click();
    });

    // Tab goes through the window as it reads: the board, then the side panel top to bottom.
    QWidget* order[] = {picStage, ButtonBack, ButtonNext, Combo_PageView, List1, Text1, cmdButton};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    for (QToolButton* b : {ButtonBack, ButtonNext})
        b->setFocusPolicy(Qt::TabFocus);
}

int frmMain::selectedCell() const {
    const int cells = CellsPerBoard(project);
    const int cell = SelectedPane - Combo_PageView->currentIndex() * cells;
    return cell >= 1 && cell <= cells ? cell : 0;
}

QPoint frmMain::cellCentre(int cell) const {
    const Pane& slot = project.Panes(cell);
    return QPoint(CInt(slot.Position[0] + CellSize / 2), CInt(slot.Position[1] + CellSize / 2));
}

void frmMain::clickCell(int cell, Qt::KeyboardModifiers shift) {
    const QPoint at = cellCentre(cell);
    picStage_MouseMove(Qt::NoButton, shift, at.x(), at.y());
    picStage_MouseDown(Qt::LeftButton, shift, at.x(), at.y());
    picStage_MouseUp(Qt::LeftButton, shift, at.x(), at.y());
}

void frmMain::picStage_KeyDown(int key, Qt::KeyboardModifiers shift) {
    if (project.IsBusy) return;
    const int side = project.GridSide;
    const int cell = selectedCell() ? selectedCell() : 1;
    int row = (cell - 1) / side, column = (cell - 1) % side;
    switch (key) {
    case Qt::Key_Left:
        --column;
        break;
    case Qt::Key_Right:
        ++column;
        break;
    case Qt::Key_Up:
        --row;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    case Qt::Key_Home:
        row = column = 0;
        break;
    case Qt::Key_End:
        row = column = side - 1;
        break;
    default:
        return;
    }
    row = qBound(0, row, side - 1);
    column = qBound(0, column, side - 1);
    const int target = row * side + column + 1;
    const bool arrow = key != Qt::Key_Home && key != Qt::Key_End;
    if ((shift & Qt::ControlModifier) && arrow && target != cell) {
        // A drag from the selected cell's centre to the neighbour's, released there: the drop
        // exchanges the two panes and redraws the board.
        const QPoint from = cellCentre(cell), to = cellCentre(target);
        picStage_MouseMove(Qt::NoButton, Qt::NoModifier, from.x(), from.y());
        picStage_MouseDown(Qt::LeftButton, Qt::NoModifier, from.x(), from.y());
        picStage_MouseMove(Qt::LeftButton, Qt::NoModifier, to.x(), to.y());
        picStage_MouseUp(Qt::LeftButton, Qt::NoModifier, to.x(), to.y());
    }
    // The moved pane stays selected, so that it can be carried on.
    clickCell(target, Qt::NoModifier);
}

void frmMain::picStage_MenuKey() {
    if (project.IsBusy) return;
    const int cell = selectedCell() ? selectedCell() : 1;
    const QPoint at = cellCentre(cell);
    picStage_MouseMove(Qt::NoButton, Qt::NoModifier, at.x(), at.y());
    picStage_MouseDown(Qt::RightButton, Qt::NoModifier, at.x(), at.y());
}

void frmMain::picStage_KeyboardFocusIn() {
    if (project.IsBusy || DragActive) return;
    const QPoint at = cellCentre(selectedCell() ? selectedCell() : 1);
    picStage_MouseMove(Qt::NoButton, Qt::NoModifier, at.x(), at.y());
}

QString frmMain::SelectedPaneDescription() const {
    const int cells = CellsPerBoard(project);
    if (SelectedPane < 1 || SelectedPane > kMaxPane || cells < 1) return QStringLiteral("No pane selected");
    const Pane& pane = project.Panes(SelectedPane);
    const QString picture =
        pane.ImageFile != kNone ? QStringLiteral("picture ") + pane.SourceStem : QStringLiteral("no picture");
    const QString label =
        IsSet(pane.Label) ? QStringLiteral("label ") + pane.Label : QStringLiteral("no label");
    const QString text = IsSet(pane.Text) ? QStringLiteral("text ") + pane.Text : QStringLiteral("no text");
    return QStringLiteral("Pane %1 of board %2: %3, %4, %5")
        .arg(SelectedPane)
        .arg((SelectedPane - 1) / cells + 1)
        .arg(picture, label, text);
}
