#include "dialogs/frmmsgbox.h"

frmMsgBox::frmMsgBox(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMsgBox"));
    setWindowTitle(QStringLiteral("KV1 : Operation Notice"));
}
