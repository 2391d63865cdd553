#pragma once

#include "export/contactsheet.h"
#include "model/project.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>

// "Contact Sheet": the choices for printing the project or writing it as a PDF, with the first page
// as it will come out beside them. The window lives as long as the main window, so its choices
// stay for the session.
class frmSheet : public QDialog {
    Q_OBJECT
public:
    frmSheet(const Project& project, QWidget* parent = nullptr);

    QComboBox* Combo_PerPage; // item 0 a board per page, then 1, 2, 3, 4, 6, 9 and 12 panes
    QComboBox* Combo_Paper;   // the default paper first when it is neither A4 nor Letter
    QRadioButton* Option_Portrait;
    QRadioButton* Option_Landscape;
    QCheckBox* Check_Texts;
    QCheckBox* Check_Labels;
    QCheckBox* Check_Urls;
    QCheckBox* Check_Numbers;
    QLabel* Preview;
    QDialogButtonBox* Buttons;

    // Before showing: the caption of the button that goes on ("Print ...", "Export ...") and the
    // paper offered when the user has not chosen one yet (the printer's or the locale's).
    void Prepare(const QString& goCaption, QPageSize::PageSizeId defaultPaper);
    SheetOptions Options() const;
    // Draws the first page for the current choices.
    void UpdatePreview();

protected:
    void showEvent(QShowEvent* event) override;

private:
    const Project& project_;
    bool paperChosen_ = false;
};
