#include "model/ansi.h"

namespace {
// Windows-1252 bytes 0x80 to 0x9F; the five undefined bytes map to the C1 controls of the same value.
constexpr char16_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char encode(char16_t u) {
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
    for (int i = 0; i < 32; ++i)
        if (kHigh[i] == u) return static_cast<char>(0x80 + i);
    return '?';
}
} // namespace

QChar AnsiChar(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? QChar(kHigh[byte - 0x80]) : QChar(byte);
}

QByteArray ToAnsi(const QString& text) {
    QByteArray out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        // A character outside the basic plane is one "?" in the code page, not two.
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
        out.append(encode(c.unicode()));
    }
    return out;
}

QString FromAnsi(const QByteArray& bytes) {
    QString out;
    out.resize(bytes.size());
    QChar* d = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) d[i] = AnsiChar(static_cast<unsigned char>(bytes[i]));
    return out;
}
