#pragma once

#include "model/project.h"
#include "model/runtimeerror.h"

#include <QColor>
#include <QFile>
#include <QRect>
#include <QStringList>
#include <QTest>
#include <type_traits>

// The number of the run-time error that f raises, or 0 when it raises none.
template <typename F> int ErrorNumberOf(F&& f) {
    try {
        f();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}

// A whole file, or empty when it cannot be read.
inline QByteArray ReadAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
inline bool WriteAll(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

// Several values checked by one comparison. A failure names each value that differs, by its
// position and by the expression that gave it, rather than showing two long texts to tell apart:
//
//     QCOMPARE(Joined(w.width(), w.height()), "600|754");
//       value 2 of 2 (w.height()) is "760", expected "754"
//
// The expected side is another Joined or one text with the values joined by "|".
template <typename T> QString AsText(const T& v) {
    if constexpr (std::is_arithmetic_v<T>)
        return QString::number(v);
    else if constexpr (std::is_same_v<T, QSize>)
        return QStringLiteral("%1x%2").arg(v.width()).arg(v.height());
    else if constexpr (std::is_same_v<T, QPoint>)
        return QStringLiteral("(%1,%2)").arg(v.x()).arg(v.y());
    else if constexpr (std::is_same_v<T, QRect>)
        return AsText(v.topLeft()) + AsText(v.size());
    else if constexpr (std::is_same_v<T, QColor>)
        return v.name();
    else
        return QString(v);
}

struct Values {
    QStringList texts;
    QStringList names; // what each value is; empty when unknown

    Values() = default;
    Values(const QString& joined) : texts(joined.split(QLatin1Char('|'))) {}
    Values(const char* joined) : Values(QString::fromUtf8(joined)) {}
    bool operator==(const Values& o) const { return texts == o.texts; }
    // The first n values.
    Values first(int n) const {
        Values v;
        v.texts = texts.mid(0, n);
        v.names = names.mid(0, n);
        return v;
    }

    // The top-level expressions of a comma-separated argument list: "f(a, b), c" gives
    // {"f(a, b)", "c"}.
    static QStringList SplitArguments(const QString& list) {
        QStringList parts;
        QString part;
        int depth = 0;
        QChar quote;
        for (int i = 0; i < list.size(); ++i) {
            const QChar c = list[i];
            if (!quote.isNull()) {
                if (c == QLatin1Char('\\') && i + 1 < list.size())
                    part += list[i++];
                else if (c == quote)
                    quote = QChar();
            } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
                quote = c;
            } else if (QStringLiteral("([{").contains(c)) {
                ++depth;
            } else if (QStringLiteral(")]}").contains(c)) {
                --depth;
            } else if (c == QLatin1Char(',') && depth == 0) {
                parts << part.trimmed();
                part.clear();
                continue;
            }
            part += c;
        }
        parts << part.trimmed();
        return parts;
    }
};
template <typename... T> Values Joined(const T&... values) {
    Values v;
    v.texts = QStringList{AsText(values)...};
    return v;
}
// Joined, naming each value by its expression: for helpers that return several values.
#define NAMED_VALUES(...) NamedValues(#__VA_ARGS__, __VA_ARGS__)
template <typename... T> Values NamedValues(const char* expressions, const T&... values) {
    Values v = Joined(values...);
    v.names = Values::SplitArguments(QString::fromUtf8(expressions));
    return v;
}

namespace QTest {
template <> inline char* toString(const Values& v) {
    return qstrdup(v.texts.join(QLatin1Char('|')).toUtf8().constData());
}

inline bool qCompare(const Values& actual, const Values& expected, const char* actualText,
                     const char* expectedText, const char* file, int line) {
    if (actual == expected) return compare_helper(true, nullptr, actualText, expectedText, file, line);
    QStringList names = actual.names;
    const QString call = QString::fromUtf8(actualText).trimmed();
    if (names.isEmpty() && call.startsWith(QLatin1String("Joined(")) && call.endsWith(QLatin1Char(')')))
        names = Values::SplitArguments(call.mid(7, call.size() - 8));
    QString report;
    if (actual.texts.size() != expected.texts.size()) {
        report = QStringLiteral("%1 values, expected %2").arg(actual.texts.size()).arg(expected.texts.size());
    } else {
        for (int i = 0; i < actual.texts.size(); ++i) {
            if (actual.texts[i] == expected.texts[i]) continue;
            const QString name = i < names.size() ? QStringLiteral(" (%1)").arg(names[i]) : QString();
            report += QStringLiteral("\n   value %1 of %2%3 is \"%4\", expected \"%5\"")
                          .arg(i + 1)
                          .arg(actual.texts.size())
                          .arg(name, actual.texts[i], expected.texts[i]);
        }
    }
    report = QStringLiteral("Compared values differ: %1\n   Actual   (%2): %3\n   Expected (%4): %5")
                 .arg(report.trimmed(), QString::fromUtf8(actualText), actual.texts.join(QLatin1Char('|')),
                      QString::fromUtf8(expectedText), expected.texts.join(QLatin1Char('|')));
    qFail(report.toUtf8().constData(), file, line);
    return false;
}
inline bool qCompare(const Values& actual, const char* expected, const char* actualText,
                     const char* expectedText, const char* file, int line) {
    return qCompare(actual, Values(expected), actualText, expectedText, file, line);
}
inline bool qCompare(const Values& actual, const QString& expected, const char* actualText,
                     const char* expectedText, const char* file, int line) {
    return qCompare(actual, Values(expected), actualText, expectedText, file, line);
}
} // namespace QTest

// Every field of a pane record, the cell table (Position) last.
inline Values PaneFields(const Pane& p) {
    return NAMED_VALUES(p.Text, p.Label, p.Url, p.FlipHorizontal, p.FlipVertical, p.ImageFile, p.SourceFile,
                        p.SourceStem, p.Position[0], p.Position[1]);
}
