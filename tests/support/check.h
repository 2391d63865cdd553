#pragma once

#include "model/project.h"
#include "model/runtimeerror.h"

#include <QColor>
#include <QFile>
#include <QRect>
#include <QStringList>
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

// Several values as one text, joined by "|", so that one comparison checks them all and a failure
// still shows every value.
inline QString AsText(const QString& s) {
    return s;
}
inline QString AsText(const char* s) {
    return QString::fromUtf8(s);
}
inline QString AsText(const QByteArray& s) {
    return QString::fromLatin1(s);
}
template <typename T, std::enable_if_t<std::is_arithmetic_v<T>, int> = 0> QString AsText(T v) {
    return QString::number(v);
}
inline QString AsText(const QSize& s) {
    return QStringLiteral("%1x%2").arg(s.width()).arg(s.height());
}
inline QString AsText(const QPoint& p) {
    return QStringLiteral("(%1,%2)").arg(p.x()).arg(p.y());
}
inline QString AsText(const QRect& r) {
    return AsText(r.topLeft()) + AsText(r.size());
}
inline QString AsText(const QColor& c) {
    return c.name();
}
template <typename... T> QString Joined(const T&... values) {
    return QStringList{AsText(values)...}.join(QLatin1Char('|'));
}

// Every field of a pane record, the cell table (Position) last.
inline QString PaneFields(const Pane& p) {
    return Joined(p.Text, p.Label, p.Url, p.FlipHorizontal, p.FlipVertical, p.ImageFile, p.SourceFile,
                  p.SourceStem, p.Position[0], p.Position[1]);
}
