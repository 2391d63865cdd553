#pragma once

#include "export/webpage.h"
#include "model/project.h"
#include "model/prompts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <array>

// "Html Export": the path, the options and the preview of the exported pages. It answers the main
// window through project.DialogReply: item 1 the chosen page file ("none" when nothing is to be
// converted), 2 its folder, 3 the page stem; items 4 (boards) and 5 (grid side) are set by the
// main window before it opens. Accept writes the pages; the main window converts the pictures.
class frmHTML : public QDialog {
    Q_OBJECT
public:
    frmHTML(Project& project, Prompts& prompts, QWidget* parent = nullptr);

    Project& project;
    Prompts& prompts;

    QTabWidget* SSTab1; // tab 0 "Export", tab 1 "preview"
    QPushButton* Command1;
    QLineEdit* Text1;
    QGroupBox* Frame2;
    std::array<QRadioButton*, 2> Option1;
    QGroupBox* Frame1;
    std::array<QCheckBox*, 6> Check1;
    QLabel* Label1;
    QComboBox* Combo_GridSize;
    QCheckBox* Check2;
    std::array<QPushButton*, 2> Button_acceptOrclose; // 0 "Close", 1 "Accept"
    QPlainTextEdit* html_code;

    // The file name that the window's save dialog offers next. Saving a project sets it to
    // "Untitled.kv1" (a quirk that is kept), but the path button always sets "Untitled.htm" before
    // it asks, so that name is never offered here. After a choice it holds the chosen path.
    QString DialogFileName;

    // CurrentPage, PageCount and the three pane cursors; they outlive each showing of the window.
    WebpageState State;

    // The options as the controls show them now.
    HtmlExportOptions Options() const;

    void Command1_Click();
    void Button_acceptOrclose_Click(int index);
    void SSTab1_Click(int tab);
    // Builds the page State describes into html_code.
    void MakeWebpage();

protected:
    // The window's close box and Escape close it as the Close button does.
    void reject() override;

private:
    void describe();
    void resetAndClose(int result);
    QString lastFolder_; // where the path button's dialog starts after a first choice
};
