#include "dialogs/typinglimit.h"

#include <QLineEdit>
#include <memory>

LimitedEdit LimitEdit(const QString& before, const QString& after, int maxLength) {
    const int most = qMax(maxLength, static_cast<int>(before.size()));
    if (after.size() <= most) return {after, -1};
    // The edit replaced the part between the common beginning and the common end.
    const int shorter = qMin(before.size(), after.size());
    int head = 0;
    while (head < shorter && before[head] == after[head])
        ++head;
    int tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    const int inserted = after.size() - head - tail;
    const int kept = inserted - (after.size() - most);
    return {after.left(head + kept) + after.right(tail), head + kept};
}

void LimitTyping(QLineEdit* box, int maxLength) {
    // What the box held before the user's edit; textEdited comes before textChanged.
    const auto before = std::make_shared<QString>(box->text());
    QObject::connect(box, &QLineEdit::textChanged, box, [box, before] { *before = box->text(); });
    QObject::connect(box, &QLineEdit::textEdited, box, [box, before, maxLength](const QString& after) {
        const LimitedEdit limited = LimitEdit(*before, after, maxLength);
        if (limited.text == after) return;
        box->setText(limited.text);
        box->setCursorPosition(limited.cursor);
    });
}
