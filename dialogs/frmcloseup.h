#pragma once

#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QPushButton>

// "CloseUp : <stem>": the selected pane's source picture, enlarged to a square. The main window
// lays it out for the stage's size and draws the picture (ShowCloseUp).
class frmCloseUp : public QDialog {
    Q_OBJECT
public:
    explicit frmCloseUp(QWidget* parent = nullptr);

    QLabel* Picture1;
    QPushButton* Command1; // "Okay"

    // Window and canvas for a stage of side pixels: the window side x side, the canvas a square of
    // side - 100 centred 10 pixels from the top, the button 20 pixels below it.
    void Arrange(int side);
    void ShowPicture(const QImage& picture);
};
