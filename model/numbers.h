#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

// Number formatting and conversion as the whole program does it: 16-bit and 32-bit integers that
// fault on overflow instead of wrapping, rounding to nearest with halves to even, and zero-padded
// numbers such as Format(7, "000") = "007".

// Formats value with at least as many digits as the pattern has zeros ("00", "000", "0000").
QString Format(qint64 value, const char* zeroPattern);

// Rounds to the nearest whole number; a half goes to the even neighbour (2.5 -> 2, 3.5 -> 4).
double RoundHalfEven(double value);

// Conversions to the 16-bit and 32-bit integer types, rounding halves to even. A result out of
// range raises RunTimeError 6 (Overflow).
qint16 CInt(double value);
qint32 CLng(double value);

// Checked 16-bit arithmetic for the values the model keeps in 16 bits.
qint16 Add16(qint32 a, qint32 b);
qint16 Mul16(qint32 a, qint32 b);

// Reads a number written as text: blanks around it, an optional sign, digits with an optional
// decimal point and exponent (E or D), or a hexadecimal (&H) or octal (&O) literal. Nothing
// else converts. Hexadecimal and octal literals of up to 16 bits are read as signed 16-bit values,
// as the program has always read them.
std::optional<double> ParseNumber(const QString& text);

// Text to integer: RunTimeError 13 (Type mismatch) when the text is not a number,
// RunTimeError 6 when it does not fit.
qint16 CInt(const QString& text);
qint32 CLng(const QString& text);

// The same without raising: false (and out untouched) when the text does not convert.
bool TryCInt(const QString& text, qint16& out);
bool TryCLng(const QString& text, qint32& out);

// The number as plain decimal text, the form in which numbers are written to files and lists.
QString Str(qint64 value);
