#include "model/numbers.h"

#include "model/runtimeerror.h"

#include <cmath>
#include <limits>

QString Format(qint64 value, const char* zeroPattern) {
    int width = 0;
    for (const char* p = zeroPattern; *p; ++p)
        if (*p == '0') ++width;
    const QString digits = QString::number(value < 0 ? -static_cast<quint64>(value) : value);
    const QString padded = digits.rightJustified(width, QLatin1Char('0'));
    return value < 0 ? QLatin1Char('-') + padded : padded;
}

double RoundHalfEven(double value) {
    // nearbyint rounds in the current rounding mode, which is to nearest, ties to even.
    return std::nearbyint(value);
}

namespace {
template <typename T> T checkedRound(double value) {
    if (std::isnan(value)) throw RunTimeError::Overflow();
    const double r = RoundHalfEven(value);
    if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
        r > static_cast<double>(std::numeric_limits<T>::max()))
        throw RunTimeError::Overflow();
    return static_cast<T>(r);
}

int digitValue(QChar c, int base) {
    const ushort u = c.unicode();
    int d = -1;
    if (u >= '0' && u <= '9') d = u - '0';
    else if (u >= 'a' && u <= 'f') d = u - 'a' + 10;
    else if (u >= 'A' && u <= 'F') d = u - 'A' + 10;
    return d < base ? d : -1;
}

std::optional<double> parseRadix(const QString& t, int pos, int base) {
    // &H / &O literals: up to 16 bits read as a signed 16-bit value, up to 32 bits as signed 32-bit.
    quint64 v = 0;
    int digits = 0;
    for (; pos < t.size(); ++pos) {
        const int d = digitValue(t[pos], base);
        if (d < 0) break;
        v = v * base + d;
        if (v > 0xFFFFFFFFull) return std::nullopt;
        ++digits;
    }
    if (digits == 0 || pos != t.size()) return std::nullopt;
    if (v <= 0xFFFF) return static_cast<double>(static_cast<qint16>(static_cast<quint16>(v)));
    return static_cast<double>(static_cast<qint32>(static_cast<quint32>(v)));
}
} // namespace

qint16 CInt(double value) { return checkedRound<qint16>(value); }
qint32 CLng(double value) { return checkedRound<qint32>(value); }

qint16 Add16(qint32 a, qint32 b) { return CInt(static_cast<double>(a) + b); }
qint16 Mul16(qint32 a, qint32 b) { return CInt(static_cast<double>(a) * b); }

std::optional<double> ParseNumber(const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return std::nullopt;
    if (t.size() >= 2 && t[0] == QLatin1Char('&')) {
        const QChar k = t[1].toUpper();
        if (k == QLatin1Char('H')) return parseRadix(t, 2, 16);
        if (k == QLatin1Char('O')) return parseRadix(t, 2, 8);
        return std::nullopt;
    }
    int i = 0;
    if (t[i] == QLatin1Char('+') || t[i] == QLatin1Char('-')) ++i;
    int mantissaDigits = 0;
    while (i < t.size() && t[i].isDigit() && t[i].unicode() < 128) ++i, ++mantissaDigits;
    if (i < t.size() && t[i] == QLatin1Char('.')) {
        ++i;
        while (i < t.size() && t[i].unicode() >= '0' && t[i].unicode() <= '9') ++i, ++mantissaDigits;
    }
    if (mantissaDigits == 0) return std::nullopt;
    if (i < t.size() && QStringLiteral("eEdD").contains(t[i])) {
        ++i;
        if (i < t.size() && (t[i] == QLatin1Char('+') || t[i] == QLatin1Char('-'))) ++i;
        int expDigits = 0;
        while (i < t.size() && t[i].unicode() >= '0' && t[i].unicode() <= '9') ++i, ++expDigits;
        if (expDigits == 0) return std::nullopt;
    }
    if (i != t.size()) return std::nullopt;
    QString c = t;
    c.replace(QLatin1Char('d'), QLatin1Char('e')).replace(QLatin1Char('D'), QLatin1Char('e'));
    bool ok = false;
    const double v = c.toDouble(&ok);
    if (!ok && !std::isinf(v)) return std::nullopt;
    return v;
}

qint16 CInt(const QString& text) {
    const auto v = ParseNumber(text);
    if (!v) throw RunTimeError::TypeMismatch();
    return CInt(*v);
}

qint32 CLng(const QString& text) {
    const auto v = ParseNumber(text);
    if (!v) throw RunTimeError::TypeMismatch();
    return CLng(*v);
}

bool TryCInt(const QString& text, qint16& out) {
    const auto v = ParseNumber(text);
    if (!v || std::isnan(*v) || RoundHalfEven(*v) < -32768.0 || RoundHalfEven(*v) > 32767.0) return false;
    out = static_cast<qint16>(RoundHalfEven(*v));
    return true;
}

bool TryCLng(const QString& text, qint32& out) {
    const auto v = ParseNumber(text);
    if (!v || std::isnan(*v) || RoundHalfEven(*v) < -2147483648.0 || RoundHalfEven(*v) > 2147483647.0)
        return false;
    out = static_cast<qint32>(RoundHalfEven(*v));
    return true;
}

QString Str(qint64 value) { return QString::number(value); }
