#pragma once

#include <QString>

class QLineEdit;

// The most characters a user may type into a box. Only typing is held to it: a text that the
// program puts into the box is shown whole, however long, so that showing a text and storing it
// back never cuts it. A user's edit may make the text neither longer than the limit nor, when it
// is already longer, longer than it was; a paste is cut to the room left.
void LimitTyping(QLineEdit* box, int maxLength);

// The text an edit from before to after leaves under that rule, and where the cursor then stands.
struct LimitedEdit {
    QString text;
    int cursor = 0;
};
LimitedEdit LimitEdit(const QString& before, const QString& after, int maxLength);
