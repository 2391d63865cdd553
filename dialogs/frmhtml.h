#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <array>

// "Html Export": the path, the options and the preview of the exported pages.
class frmHTML : public QDialog {
    Q_OBJECT
public:
    explicit frmHTML(QWidget* parent = nullptr);

    QComboBox* Combo_GridSize;
    std::array<QCheckBox*, 6> Check1;
    QCheckBox* Check2;
    // The file name that the window's save dialog offers next. Saving a project sets it to
    // "Untitled.kv1" (a quirk that is kept); the path button sets its own initial name.
    QString DialogFileName;
};
