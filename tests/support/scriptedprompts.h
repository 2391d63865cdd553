#pragma once

#include "model/prompts.h"

#include <QList>
#include <QQueue>
#include <QString>

// Prompts whose answers a test writes in advance and whose messages it reads afterwards.
class ScriptedPrompts : public Prompts {
public:
    struct Shown {
        QString text;
        MsgIcon icon;
        QString title;
    };

    QList<Shown> messages;       // every message, in order
    QList<FileRequest> requests; // every file dialog, in order
    QQueue<QString> answers;     // the paths the file dialogs return; empty string = cancel

    void Message(const QString& text, MsgIcon icon, const QString& title) override {
        messages.append({text, icon, title});
    }
    QString AskOpenFile(const FileRequest& request) override { return answer(request); }
    QString AskSaveFile(const FileRequest& request) override { return answer(request); }

private:
    QString answer(const FileRequest& request) {
        requests.append(request);
        return answers.isEmpty() ? QString() : answers.dequeue();
    }
};
