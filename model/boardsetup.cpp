#include "model/boardsetup.h"

#include "model/numbers.h"

namespace {
constexpr qint16 kMaxBoardsOfEntry[4] = {100, 100, 62, 40};
}

qint16 GridSideOfEntry(int entry) {
    return static_cast<qint16>(qBound(0, entry, 3) + 2);
}

qint16 MaxBoardsOfEntry(int entry) {
    return kMaxBoardsOfEntry[qBound(0, entry, 3)];
}

QString MaxBoardsCaption(int entry) {
    const qint16 side = GridSideOfEntry(entry);
    const qint16 cells = Mul16(side, side);
    const qint16 boards = MaxBoardsOfEntry(entry);
    return QStringLiteral("Max %1 boards x %2 panes = %3 panes")
        .arg(boards)
        .arg(cells)
        .arg(Mul16(boards, cells));
}

double BoardAmountNumber(const QString& text) {
    return ParseNumber(text).value_or(0.0);
}

BoardAmountText CorrectBoardAmount(const QString& text, qint16 maxBoards) {
    BoardAmountText out;
    out.text = text;
    out.text.remove(QLatin1Char(' '));
    // An empty box gets a character that is no digit, so that the next rule puts the maximum in.
    if (out.text.isEmpty()) out.text = QStringLiteral("z");
    const ushort first = out.text[0].unicode();
    if (first <= 47 || first >= 58 || BoardAmountNumber(out.text) > maxBoards) {
        out.text = Format(maxBoards, "000");
        out.selectAll = true;
    }
    return out;
}

qint16 AcceptedBoardAmount(const QString& text, qint16 maxBoards) {
    // Compared before converting, so that no count the box can hold overflows.
    const double n = RoundHalfEven(BoardAmountNumber(text));
    if (n <= 0) return 1;
    if (n >= maxBoards) return maxBoards;
    return CInt(n);
}

QString StepBoardAmount(const QString& text, int step, qint16 maxBoards) {
    const double n = RoundHalfEven(BoardAmountNumber(text)) + step;
    return Format(CInt(qBound(1.0, n, static_cast<double>(maxBoards))), "000");
}
