#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <array>

// "About": the program's icon, the product line and two credit lines.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    QLabel* Image1;
    std::array<QLabel*, 3> Label1; // 0 the product title and version, 1 and 2 credits
    QPushButton* Command1;         // "Okay"
};
