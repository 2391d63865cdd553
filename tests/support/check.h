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
template <typename... T> QString Joined(const T&... values) {
    return QStringList{AsText(values)...}.join(QLatin1Char('|'));
}

// Every field of a pane record, the cell table (Position) last.
inline QString PaneFields(const Pane& p) {
    return Joined(p.Text, p.Label, p.Url, p.FlipHorizontal, p.FlipVertical, p.ImageFile, p.SourceFile,
                  p.SourceStem, p.Position[0], p.Position[1]);
}
