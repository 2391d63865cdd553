#pragma once

#include <QComboBox>
#include <QDialog>

// "Board Setup": the grid of every board and the number of boards.
class frmAddNew : public QDialog {
    Q_OBJECT
public:
    explicit frmAddNew(QWidget* parent = nullptr);

    QComboBox* Combo_MatrixSize;
};
