#include "stage/frmmain.h"

qint16 frmMain::FillLists(qint16, qint16, float, bool) { return 0; }

void frmMain::List1_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers, int, int) {}

void frmMain::SwapItemText() {}

void frmMain::ResetItemText(bool, int) {}

void frmMain::Text1_Change() { cmdButton->setEnabled(!Text1->text().isEmpty()); }

void frmMain::mnu_Swap_Click() { SwapItemText(); }
void frmMain::mnu_Remove_Click() { ResetItemText(false, List1->currentRow()); }
void frmMain::mnu_ClearAll_Click() { ResetItemText(true, List1->currentRow()); }
