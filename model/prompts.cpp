#include "model/prompts.h"

#include <QStringList>

QStringList DialogFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        const QString& text = parts[i];
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // The description already shows its patterns in brackets: the dialog reads them there.
        if (text.contains(QLatin1Char('(')) && text.contains(QLatin1Char(')')))
            out << text;
        else
            out << QStringLiteral("%1 (%2)").arg(text, patterns);
    }
    return out;
}
