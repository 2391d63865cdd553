#pragma once

#include "animatic/animatic.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>

// The choices of an animatic before its file is named: frame size, a pane's time, frame rate,
// captions and blank panes. Accept or Cancel.
class frmAnimatic : public QDialog {
    Q_OBJECT
public:
    explicit frmAnimatic(QWidget* parent = nullptr);

    QComboBox* Combo_Size;
    QDoubleSpinBox* Spin_Seconds;
    QComboBox* Combo_Fps;
    QCheckBox* Check_Captions;
    QCheckBox* Check_Blanks;

    AnimaticOptions Options() const;
};
