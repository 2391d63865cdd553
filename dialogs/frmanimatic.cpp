#include "dialogs/frmanimatic.h"

#include <QDialogButtonBox>
#include <QFormLayout>

namespace {
const QSize kSizes[] = {{1920, 1080}, {1280, 720}, {854, 480}, {640, 360}};
const int kRates[] = {24, 25, 30, 12};
} // namespace

frmAnimatic::frmAnimatic(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAnimatic"));
    setWindowTitle(QStringLiteral("Export As Animatic"));
    auto* form = new QFormLayout(this);

    Combo_Size = new QComboBox(this);
    for (const QSize& size : kSizes)
        Combo_Size->addItem(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()));
    form->addRow(QStringLiteral("Frame size"), Combo_Size);

    Spin_Seconds = new QDoubleSpinBox(this);
    Spin_Seconds->setRange(0.5, 60);
    Spin_Seconds->setSingleStep(0.5);
    Spin_Seconds->setDecimals(1);
    Spin_Seconds->setValue(2);
    Spin_Seconds->setSuffix(QStringLiteral(" s"));
    form->addRow(QStringLiteral("Each pane"), Spin_Seconds);

    Combo_Fps = new QComboBox(this);
    for (int rate : kRates)
        Combo_Fps->addItem(QString::number(rate));
    form->addRow(QStringLiteral("Frames a second"), Combo_Fps);

    Check_Captions = new QCheckBox(QStringLiteral("Texts as captions"), this);
    Check_Blanks = new QCheckBox(QStringLiteral("Include blank panes"), this);
    form->addRow(Check_Captions);
    form->addRow(Check_Blanks);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

AnimaticOptions frmAnimatic::Options() const {
    AnimaticOptions options;
    options.size = kSizes[qMax(0, Combo_Size->currentIndex())];
    options.seconds = Spin_Seconds->value();
    options.fps = kRates[qMax(0, Combo_Fps->currentIndex())];
    options.captions = Check_Captions->isChecked();
    options.includeBlanks = Check_Blanks->isChecked();
    return options;
}
