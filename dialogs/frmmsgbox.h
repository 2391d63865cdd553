#pragma once

#include "model/project.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

// "KV1 : Operation Notice": asks before a pane operation, with an opt-out for the session. It
// answers in DialogReply2, which the caller dimensions to 0..2: "okay" and the check box as "1" or
// "0", or "cancel" twice. The check box keeps its state between showings unless cancelled.
class frmMsgBox : public QDialog {
    Q_OBJECT
public:
    explicit frmMsgBox(Project& project, QWidget* parent = nullptr);

    QLabel* Label1;
    QCheckBox* Check1;
    QPushButton* OKButton;
    QPushButton* CancelButton;

    void OKButton_Click();
    // A cancelled notice never silences later ones: the check box is cleared.
    void CancelButton_Click();
    // The close box and Escape are Cancel.
    void reject() override;

private:
    Project& project_;
};
