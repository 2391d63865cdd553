#pragma once

#include "model/prompts.h"

#include <QPointer>
#include <QWidget>

// The desktop's message boxes and file dialogs. The file dialogs are Qt's own, the same on every
// desktop, so that their filters, titles and start folders behave alike everywhere.
class QtPrompts : public Prompts {
public:
    void setParent(QWidget* parent) { parent_ = parent; }

    void Message(const QString& text, MsgIcon icon, const QString& title) override;
    QString AskOpenFile(const FileRequest& request) override;
    QString AskSaveFile(const FileRequest& request) override;

private:
    QString ask(const FileRequest& request, bool save);
    QPointer<QWidget> parent_;
};
