#include "model/linevalue.h"

#include "model/numbers.h"

#include <vector>

namespace {
template <typename T> using Converter = bool (*)(const QString&, T&);

bool isDigit(QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; }

int radixDigit(QChar c, int base) {
    const ushort u = c.unicode();
    int d = -1;
    if (u >= '0' && u <= '9')
        d = u - '0';
    else if (u >= 'a' && u <= 'f')
        d = u - 'a' + 10;
    else if (u >= 'A' && u <= 'F')
        d = u - 'A' + 10;
    return d < base ? d : -1;
}

// What converting a well-formed number text gives. Along prefixes whose exact value only grows in
// magnitude the fates come in this order: an exact zero converts, a value too small for a double
// does not ("0." and 400 zeros and "1"), then values that fit, then values that overflow.
enum class Fate { Zero, Underflow, Fits, Overflows };

template <typename T> Fate fateOf(const QString& text, Converter<T> convert) {
    const auto value = ParseNumber(text);
    if (!value) return Fate::Underflow;
    if (*value == 0) return Fate::Zero;
    T ignored;
    return convert(text, ignored) ? Fate::Fits : Fate::Overflows;
}

// The longest of the prefixes (lengths, in increasing order) that converts, or -1. Their exact
// magnitudes never shrink along the run when growing, never grow otherwise, so the fates are
// ordered along it and binary searches find the boundaries.
template <typename T>
int longestConverting(const QString& line, const std::vector<int>& lengths, bool growing,
                      Converter<T> convert) {
    if (lengths.empty()) return -1;
    const auto fate = [&](int i) { return fateOf(line.left(lengths[static_cast<size_t>(i)]), convert); };
    const auto rank = [growing](Fate f) { return growing ? static_cast<int>(f) : 3 - static_cast<int>(f); };
    const auto lastUpTo = [&](int maxRank) {
        int lo = 0, hi = static_cast<int>(lengths.size()) - 1, found = -1;
        while (lo <= hi) {
            const int mid = lo + (hi - lo) / 2;
            if (rank(fate(mid)) <= maxRank) {
                found = mid;
                lo = mid + 1;
            } else {
                hi = mid - 1;
            }
        }
        return found;
    };
    const Fate last = fate(static_cast<int>(lengths.size()) - 1);
    if (last == Fate::Zero || last == Fate::Fits) return lengths.back();
    // Growing: zeros, underflows, fits, overflows. Shrinking: overflows, fits, underflows.
    const int fits = lastUpTo(rank(Fate::Fits));
    if (fits >= 0 && (fate(fits) == Fate::Fits || fate(fits) == Fate::Zero))
        return lengths[static_cast<size_t>(fits)];
    if (!growing) return -1;
    const int zero = lastUpTo(rank(Fate::Zero));
    return zero >= 0 ? lengths[static_cast<size_t>(zero)] : -1;
}

// "&H" or "&O" and digits. The value depends only on the significant digits, so each prefix is
// converted in its short form; past 11 significant digits nothing fits in 32 bits any more.
template <typename T> int longestRadix(const QString& line, int at, Converter<T> convert) {
    if (at + 1 >= line.size()) return -1;
    const QChar kind = line[at + 1].toUpper();
    const int base = kind == QLatin1Char('H') ? 16 : kind == QLatin1Char('O') ? 8 : 0;
    if (base == 0) return -1;
    const QString head = QLatin1Char('&') + line[at + 1];
    QString digits;
    int best = -1;
    for (int j = at + 2; j < line.size() && radixDigit(line[j], base) >= 0; ++j) {
        if (line[j] != QLatin1Char('0') || !digits.isEmpty()) digits += line[j];
        if (digits.size() > 11) break;
        T value;
        if (convert(head + (digits.isEmpty() ? QStringLiteral("0") : digits), value)) best = j + 1;
    }
    return best;
}

// Blanks, a sign, digits with a decimal point, an exponent. Blanks after the number add no value
// of their own: they repeat the value of the number before them.
template <typename T> int longestDecimal(const QString& line, int at, Converter<T> convert) {
    const int n = line.size();
    int j = at;
    if (line[j] == QLatin1Char('+') || line[j] == QLatin1Char('-')) ++j;
    std::vector<int> mantissa;
    while (j < n && isDigit(line[j]))
        mantissa.push_back(++j);
    if (j < n && line[j] == QLatin1Char('.')) {
        ++j;
        if (!mantissa.empty()) mantissa.push_back(j);
        while (j < n && isDigit(line[j]))
            mantissa.push_back(++j);
    }
    if (mantissa.empty()) return -1;
    std::vector<int> exponent;
    bool negativeExponent = false;
    if (j < n && QStringLiteral("eEdD").contains(line[j])) {
        int k = j + 1;
        if (k < n && (line[k] == QLatin1Char('+') || line[k] == QLatin1Char('-')))
            negativeExponent = line[k++] == QLatin1Char('-');
        while (k < n && isDigit(line[k]))
            exponent.push_back(++k);
    }
    const int withExponent = longestConverting(line, exponent, !negativeExponent, convert);
    return withExponent >= 0 ? withExponent : longestConverting(line, mantissa, true, convert);
}

template <typename T> bool lastConverting(const QString& line, T& out, Converter<T> convert) {
    int at = 0;
    while (at < line.size() && line[at].isSpace())
        ++at;
    if (at == line.size()) return false;
    const int length =
        line[at] == QLatin1Char('&') ? longestRadix(line, at, convert) : longestDecimal(line, at, convert);
    return length >= 0 && convert(line.left(length), out);
}
} // namespace

bool LastConvertingPrefix(const QString& line, qint16& out) {
    return lastConverting<qint16>(line, out, TryCInt);
}
bool LastConvertingPrefix(const QString& line, qint32& out) {
    return lastConverting<qint32>(line, out, TryCLng);
}
