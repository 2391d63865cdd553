#pragma once

#include <QDialog>

// "CloseUp : <stem>": the selected pane's source picture, enlarged.
class frmCloseUp : public QDialog {
    Q_OBJECT
public:
    explicit frmCloseUp(QWidget* parent = nullptr);
};
