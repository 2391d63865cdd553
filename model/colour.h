#pragma once

#include <QColor>
#include <QtGlobal>

// Colours are kept as red + 256 x green + 65536 x blue.
inline QColor ColourOf(qint32 value) {
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}
inline qint32 ColourValue(const QColor& c) {
    return c.red() + 256 * c.green() + 65536 * c.blue();
}
