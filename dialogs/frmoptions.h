#pragma once

#include "model/project.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <functional>

// "Options :": the board's title, footer and move highlight, or the selected pane's label, URL
// and the global highlight. One group is in view at a time; the other frame sits at a negative
// horizontal position, and that position is what tells accepting which group to store.
class frmOptions : public QDialog {
    Q_OBJECT
public:
    explicit frmOptions(Project& project, QWidget* parent = nullptr);

    std::array<QGroupBox*, 2> Frame1; // 0 "Board :", 1 "Panes :"
    // 0 label, 1 URL (pane group); 2 footer text, 3 title (board group).
    std::array<QLineEdit*, 4> Text1;
    QComboBox* Combo_MoveHighlight;
    QComboBox* Combo_GridHighlight;
    std::array<QPushButton*, 2> Button_acceptOrclose; // 0 "Close", 1 "Accept"

    // Told the move highlight colour when the board group is accepted, before the window closes:
    // the owner of the drag line recolours it then, and at no other time.
    std::function<void(qint32 colour)> MoveHighlightAccepted;

    // Puts one group in view and moves the other out of it.
    void PlaceFrames(bool boardMode);
    // Index 0 closes, any other stores the group in view for the pane in DialogReply(1).
    void Button_acceptOrclose_Click(int index);
    // The close box and Escape are the Close button.
    void reject() override;

private:
    void describe();
    Project& project_;
};
