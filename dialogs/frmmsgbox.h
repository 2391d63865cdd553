#pragma once

#include <QDialog>

// "KV1 : Operation Notice": asks before a pane operation, with an opt-out for the session.
class frmMsgBox : public QDialog {
    Q_OBJECT
public:
    explicit frmMsgBox(QWidget* parent = nullptr);
};
