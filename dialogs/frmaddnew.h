#pragma once

#include "model/project.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <array>

// "Board Setup": the grid of every board and the number of boards. Accepting answers the board
// count as text in DialogReply(1), closing answers "none".
class frmAddNew : public QDialog {
    Q_OBJECT
public:
    explicit frmAddNew(Project& project, QWidget* parent = nullptr);

    QGroupBox* FrameStructure; // "Structure :"
    QComboBox* Combo_MatrixSize;
    QLineEdit* Text_BoardAmount;
    QWidget* UpDownControl; // the two step buttons
    QToolButton* UpDownUp;
    QToolButton* UpDownDown;
    QGroupBox* FrameProperties;                       // "Properties :"
    std::array<QRadioButton*, 2> Option1;             // 0 "Discard all items", 1 "Keep existing"
    QLabel* Label1;                                   // the most boards of the chosen grid
    std::array<QPushButton*, 2> Button_acceptOrclose; // 0 "Close", 1 "Accept"
    qint16 MaxBoards = kMaxBoards;                    // for the chosen grid

    void Combo_MatrixSize_Click();
    void Text_BoardAmount_Change();
    void UpDownControl_DownClick();
    void UpDownControl_UpClick();
    // Index 0 closes, any other accepts.
    void Button_acceptOrclose_Click(int index);
    // The close box and Escape are the Close button.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void selectAmount();
    void describe();
    Project& project_;
};
