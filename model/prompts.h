#pragma once

#include <QString>

// Everything that asks the user something or tells the user something goes through this one
// interface: the program's windows give it the desktop's dialogs, tests script the answers.

enum class MsgIcon { None, Information, Exclamation, Critical };

struct FileRequest {
    QString title;       // the dialog's caption, for example "Load Project ..."
    QString filter;      // as "Description|patterns", for example "KV1 (*.kv1)|*.kv1"
    int filterIndex = 1; // 1-based
    QString folder;      // start folder; empty for the dialog's own choice
    QString fileName;    // the name the dialog offers first
};

class Prompts {
public:
    virtual ~Prompts() = default;
    // A message with an OK button.
    virtual void Message(const QString& text, MsgIcon icon, const QString& title) = 0;
    // The chosen full path, or an empty string when the user cancelled.
    virtual QString AskOpenFile(const FileRequest& request) = 0;
    virtual QString AskSaveFile(const FileRequest& request) = 0;
};

// Splits the pairs of a "Description|patterns|Description|patterns" filter into the form the
// desktop's dialogs take: "Description (patterns)" per line, keeping the text the user reads.
QStringList DialogFilters(const QString& filter);
