#include "stage/frmmain.h"

void frmMain::mnu_OpenProject_Click() {}
void frmMain::mnu_SaveAs_Click() {}
