#include "stage/frmmain.h"

int frmMain::TrackHover(int, int, float, qint16) { return 0; }

void frmMain::DrawDragLine(qint16, float, int, int, qint16) {}

void frmMain::picStage_MouseDown(Qt::MouseButton, Qt::KeyboardModifiers, int, int) {}

void frmMain::picStage_MouseMove(Qt::MouseButtons, Qt::KeyboardModifiers, int, int) {}

void frmMain::picStage_MouseUp(Qt::MouseButton, Qt::KeyboardModifiers, int, int) {}
