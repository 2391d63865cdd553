#include "images/sequence.h"

#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QFileInfo>

namespace {
bool startsNumber(QChar c) {
    return c >= QLatin1Char('1') && c <= QLatin1Char('9');
}

// Looks for the number in the last `count` characters of the stem (count is 1, 2 or 3): the first
// of them that is "1" to "9" starts it and the rest of the stem is read with it; every "0" met
// before that is a leading zero. False when no character starts a number.
bool findNumber(const QString& stem, int count, int& zeros, int& number) {
    const QString tail = stem.right(count);
    for (int i = 0; i < count; ++i) {
        if (startsNumber(tail[i])) {
            number = CInt(tail.mid(i)); // a non-digit after the first digit is RunTimeError 13
            return true;
        }
        if (tail[i] == QLatin1Char('0')) ++zeros;
    }
    return false;
}
} // namespace

ImageSequence AnalyseSequence(const QString& path, const QString& title) {
    ImageSequence s;
    s.Path = path;
    s.Folder = path.left(path.size() - title.size());
    s.Extension = path.right(4);
    if (title.isEmpty()) return s;
    try {
        // A title of four characters or fewer leaves no stem to take a prefix from.
        if (title.size() <= 4) throw RunTimeError(5, QStringLiteral("Invalid procedure call or argument"));
        const QString stem = title.left(title.size() - 4);
        const int count = qMin<int>(stem.size(), 3);
        if (!findNumber(stem, count, s.Zeros, s.Number)) {
            s.Zeros = 0;
            s.Number = 0;
            s.Result = QStringLiteral("error");
            return s;
        }
        int cut = 0;
        if (s.Zeros == 2)
            cut = 3;
        else if (s.Zeros == 1)
            cut = 2;
        else
            cut = s.Number <= 9 ? 1 : s.Number <= 99 ? 2 : 3;
        s.Prefix = stem.left(stem.size() - cut);
        s.Result = QStringLiteral("Success");
    } catch (const RunTimeError&) {
        // Read like a cancel: no result and no message.
        s.Zeros = 0;
        s.Number = 0;
        s.Prefix.clear();
        s.Result.clear();
    }
    return s;
}

QString SequenceNumberText(qint64 number, int zeros) {
    if (zeros == 1) return Format(number, "00");
    if (zeros == 2) return Format(number, "000");
    return Str(number);
}

QString FindSequenceFile(const QString& path) {
    if (QFileInfo::exists(path)) return path;
    // Every mix of upper and lower case of the extension's letters, lower case first.
    const QString head = path.left(path.size() - 4);
    const QString extension = path.right(4).toLower();
    QList<int> letters;
    for (int i = 0; i < extension.size(); ++i)
        if (extension[i].toUpper() != extension[i]) letters << i;
    for (int mask = 0; mask < (1 << letters.size()); ++mask) {
        QString variant = extension;
        for (int b = 0; b < letters.size(); ++b)
            if (mask & (1 << b)) variant[letters[b]] = variant[letters[b]].toUpper();
        const QString candidate = head + variant;
        if (candidate != path && QFileInfo::exists(candidate)) return candidate;
    }
    return path;
}
