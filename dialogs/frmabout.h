#pragma once

#include <QDialog>

// "About": the product line and credits.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);
};
