#pragma once

#include <QString>
#include <QtGlobal>

// The project file reader stores a line into its number after every character it reads, and a
// prefix that does not convert (or overflows) stores nothing. What a numeric line leaves behind
// is therefore the value of its longest prefix that converts: "12a" gives 12, "a12" nothing,
// "40000" into 16 bits gives 4000.
//
// These give that value with a handful of conversions per line instead of one per character, so
// that a hostile line of 100,000 digits costs no more than reading it. The result is the one that
// converting every prefix in turn (TryCInt / TryCLng) would leave. False, and out untouched, when
// no prefix converts.
bool LastConvertingPrefix(const QString& line, qint16& out);
bool LastConvertingPrefix(const QString& line, qint32& out);
