#include "stage/frmmain.h"

void frmMain::mnu_ExportHTML_Click() {}
