#include "stage/frmmain.h"

#include "model/numbers.h"

#include <QMenuBar>
#include <QUndoStack>

QAction* frmMain::addStep(QMenu* menu, const char* name, const QString& caption, void (frmMain::*handler)()) {
    auto* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    // "Undo Mass Image Import": the caption without the dots that promise a dialog.
    QString step = caption;
    if (step.endsWith(QLatin1String(" ..."))) step.chop(4);
    connect(action, &QAction::triggered, this,
            [this, handler, step] { History.Record(step, [this, handler] { (this->*handler)(); }); });
    return action;
}

void frmMain::buildEditMenu() {
    mnu_Edit = menuBar()->addMenu(QStringLiteral("Edit"));
    mnu_Edit->setObjectName(QStringLiteral("mnu_Edit"));
    mnu_Undo = mnu_Edit->addAction(QStringLiteral("Undo"));
    mnu_Undo->setObjectName(QStringLiteral("mnu_Undo"));
    mnu_Undo->setShortcut(QKeySequence::Undo);
    mnu_Redo = mnu_Edit->addAction(QStringLiteral("Redo"));
    mnu_Redo->setObjectName(QStringLiteral("mnu_Redo"));
    mnu_Redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    connect(mnu_Undo, &QAction::triggered, this, [this] { History.Undo(); });
    connect(mnu_Redo, &QAction::triggered, this, [this] { History.Redo(); });

    QUndoStack& stack = History.Stack();
    const auto follow = [this, &stack] {
        mnu_Undo->setEnabled(stack.canUndo());
        mnu_Undo->setText(stack.canUndo() ? QStringLiteral("Undo ") + stack.undoText()
                                          : QStringLiteral("Undo"));
        mnu_Redo->setEnabled(stack.canRedo());
        mnu_Redo->setText(stack.canRedo() ? QStringLiteral("Redo ") + stack.redoText()
                                          : QStringLiteral("Redo"));
    };
    connect(&stack, &QUndoStack::indexChanged, this, follow);
    connect(&stack, &QUndoStack::canUndoChanged, this, follow);
    connect(&stack, &QUndoStack::canRedoChanged, this, follow);
    follow();

    History.CaptureShown = [this] { return shownState(); };
    History.Show = [this](const ShownState& state) { showState(state); };
}

ShownState frmMain::shownState() const {
    ShownState s;
    s.BoardItems = Combo_PageView->count();
    s.Board = Combo_PageView->currentIndex();
    s.BoardDrawn = !picStage->Picture.isNull();
    s.BackEnabled = ButtonBack->isEnabled();
    s.NextEnabled = ButtonNext->isEnabled();
    s.PaneItems.reserve(List1->count());
    for (int i = 0; i < List1->count(); ++i)
        s.PaneItems << List1->item(i)->text();
    s.ListRow = List1->currentRow();
    s.SelectedPane = SelectedPane;
    s.EditText = Text1->text();
    s.DragLineColour = picStage->Line1.BorderColor.rgb();
    return s;
}

void frmMain::showState(const ShownState& s) {
    project.IsBusy = true;
    if (Combo_PageView->count() != s.BoardItems) {
        QStringList boards;
        for (int b = 1; b <= s.BoardItems; ++b)
            boards << QStringLiteral("Board ") + Format(b, "00");
        Combo_PageView->clear();
        Combo_PageView->addItems(boards);
    }
    bool sameItems = List1->count() == s.PaneItems.size();
    for (int i = 0; sameItems && i < List1->count(); ++i)
        sameItems = List1->item(i)->text() == s.PaneItems[i];
    if (!sameItems) {
        List1->clear();
        List1->addItems(s.PaneItems);
    }
    Combo_PageView->setCurrentIndex(s.Board);
    project.IsBusy = false;
    picStage->ClearPicture();
    if (s.BoardDrawn) {
        DrawCurrentBoard();
    } else {
        ButtonBack->setEnabled(s.BackEnabled);
        ButtonNext->setEnabled(s.NextEnabled);
    }
    List1->setCurrentRow(s.ListRow);
    Text1->setText(s.EditText);
    SelectedPane = s.SelectedPane;
    picStage->Line1.BorderColor = QColor::fromRgb(s.DragLineColour);
    enablePaneCommands();
    picStage->NotifyDescriptionChanged();
}
