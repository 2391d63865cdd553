#pragma once

#include <QString>
#include <QtGlobal>

// The rules of the board setup window: the most boards each grid allows (so that a project never
// holds more than 1000 panes), what typing in the board count box turns into, and the count that
// accepting gives.

// Grids by their entry in the grid list: 0 "2 x 2", 1 "3 x 3", 2 "4 x 4", 3 "5 x 5".
qint16 GridSideOfEntry(int entry);
qint16 MaxBoardsOfEntry(int entry);
QString MaxBoardsCaption(int entry); // "Max 62 boards x 16 panes = 992 panes"

// The number a board count text holds, the whole text converted as every number the program
// reads ("1e1" is 10, "1.5" is 1.5). A text that is no number at all counts as 0, as an empty box
// does: accepting never refuses and never reports, it gives one board.
double BoardAmountNumber(const QString& text);

// The board count box after a change: blanks removed; an empty box, or one that does not start
// with a digit, becomes the maximum written with three digits ("062"); so does a number above the
// maximum. selectAll tells that the box was set to the maximum and is to be selected.
struct BoardAmountText {
    QString text;
    bool selectAll = false;
};
BoardAmountText CorrectBoardAmount(const QString& text, qint16 maxBoards);

// The count that accepting gives: the number rounded to a whole one (halves to even), 1 for
// nothing or less, the maximum at or above it.
qint16 AcceptedBoardAmount(const QString& text, qint16 maxBoards);

// The up and down buttons: one more up to the maximum, one less down to 1, written with three digits.
QString StepBoardAmount(const QString& text, int step, qint16 maxBoards);
