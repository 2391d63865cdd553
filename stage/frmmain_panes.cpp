#include "stage/frmmain.h"

void frmMain::mnu_ChangeProject_Click() {}
void frmMain::mnu_BoardOptions_Click() {}
void frmMain::mnu_RandomShuffle_Click() {}
void frmMain::mnu_LoadPicture_Click() {}
void frmMain::mnu_MassImage_Click() {}
void frmMain::mnu_FlipHorizontally_Click() {}
void frmMain::mnu_FlipVertically_Click() {}
void frmMain::mnu_MakeBlank_Click() {}
void frmMain::mnu_Closeup_Click() {}
void frmMain::mnu_Options_Click() {}
void frmMain::mnu_Help_Click() {}
void frmMain::mnu_About_Click() {}
