#include "stage/frmmain.h"

// Names and descriptions that assistive technologies read for the main window's controls. The
// visible captions stay as they are: a control with a caption keeps it as its name.
void frmMain::describeControls() {
    picStage->Describe = [this] { return SelectedPaneDescription(); };
    picSideBar->setAccessibleName(QStringLiteral("Side panel"));
    Toolbar1->setAccessibleName(QStringLiteral("Board navigation"));
    Combo_PageView->setAccessibleName(QStringLiteral("Board chooser"));
    Combo_PageView->setAccessibleDescription(
        QStringLiteral("The board shown on the stage. Page Up and Page Down step through the boards."));
    List1->setAccessibleName(QStringLiteral("Pane list"));
    List1->setAccessibleDescription(
        QStringLiteral("Every pane of the project, numbered, with its text. Choosing a pane shows its "
                       "board and its text; the Menu key opens Swap Item, Remove Item and Clear All."));
    Text1->setAccessibleName(QStringLiteral("Pane text"));
    Text1->setAccessibleDescription(
        QStringLiteral("The selected pane's text, at most 256 characters. Enter or the swap button writes "
                       "it into the pane."));
    cmdButton->setAccessibleDescription(QStringLiteral("Writes the pane text into the selected pane."));
}
