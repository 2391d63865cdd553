#include "dialogs/frmhtml.h"

#include <QVBoxLayout>

frmHTML::frmHTML(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmHTML"));
    setWindowTitle(QStringLiteral("Html Export"));
    auto* layout = new QVBoxLayout(this);
    Combo_GridSize = new QComboBox(this);
    Combo_GridSize->setObjectName(QStringLiteral("Combo_GridSize"));
    layout->addWidget(Combo_GridSize);
    const char* captions[6] = {"Labels dock with panes.", "Labels show as ALT tag property.", "Number every pane.",
                               "Show border on panes with URLs.", "Show board title.", "Show footer text."};
    for (int i = 0; i < 6; ++i) {
        Check1[i] = new QCheckBox(QString::fromLatin1(captions[i]), this);
        Check1[i]->setChecked(true);
        layout->addWidget(Check1[i]);
    }
    Check2 = new QCheckBox(QStringLiteral("Auto-create html code"), this);
    layout->addWidget(Check2);
}
