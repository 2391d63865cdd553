#include "dialogs/frmcloseup.h"

frmCloseUp::frmCloseUp(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCloseUp"));
    setWindowTitle(QStringLiteral("CloseUp : "));
}
