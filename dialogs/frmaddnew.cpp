#include "dialogs/frmaddnew.h"

#include <QVBoxLayout>

frmAddNew::frmAddNew(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAddNew"));
    setWindowTitle(QStringLiteral("Board Setup"));
    Combo_MatrixSize = new QComboBox(this);
    Combo_MatrixSize->setObjectName(QStringLiteral("Combo_MatrixSize"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Combo_MatrixSize);
}
