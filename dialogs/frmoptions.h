#pragma once

#include <QComboBox>
#include <QDialog>

// "Options :": the board's title, footer and move highlight, or the selected pane's label, URL
// and the global highlight.
class frmOptions : public QDialog {
    Q_OBJECT
public:
    explicit frmOptions(QWidget* parent = nullptr);

    QComboBox* Combo_MoveHighlight;
    QComboBox* Combo_GridHighlight;
};
