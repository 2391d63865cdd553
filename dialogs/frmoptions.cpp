#include "dialogs/frmoptions.h"

#include <QVBoxLayout>

frmOptions::frmOptions(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options :"));
    Combo_MoveHighlight = new QComboBox(this);
    Combo_MoveHighlight->setObjectName(QStringLiteral("Combo_MoveHighlight"));
    Combo_GridHighlight = new QComboBox(this);
    Combo_GridHighlight->setObjectName(QStringLiteral("Combo_GridHighlight"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Combo_MoveHighlight);
    layout->addWidget(Combo_GridHighlight);
}
