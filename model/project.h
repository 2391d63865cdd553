#pragma once

#include <QString>
#include <QtGlobal>
#include <array>
#include <vector>

// The project the user edits: a fixed pool of pane records, the shape of the project and a few
// project-wide settings. Plain data; the routines that act on it take it by reference and address
// panes by index. One instance is owned by the program for its whole run.

// The two sentinels. "none" says there is no picture or file (and a cancelled dialog);
// "ToUse" stands for an empty text, in memory and on disk.
inline const QString kNone = QStringLiteral("none");
inline const QString kToUse = QStringLiteral("ToUse");

constexpr int kMaxPane = 1000;  // highest pane index; index 0 is scratch, never a pane
constexpr int kMaxBoards = 100; // boards of a project, whatever the grid

struct Pane {
    QString Text = kToUse;      // shown in the pane list, edited in the main window
    QString Label = kToUse;     // the picture's ALT text on export, shown on hover
    QString Url = kToUse;       // the link target around the pane on export
    qint16 FlipHorizontal = 0;  // 1 when mirrored left to right
    qint16 FlipVertical = 0;    // 1 when mirrored top to bottom
    QString ImageFile = kNone;  // the working BMP in the working folder
    QString SourceFile = kNone; // the picture the working BMP is built from
    // Left and top pixel of cell k of the board drawn last, kept in record k (a cell table, not
    // per pane); never saved.
    qint16 Position[2] = {0, 0};
    QString SourceStem = kNone; // the chosen file's name less its extension; names the stored copies
};

// A list of strings with a lower bound of 0 that callers re-dimension before use; an index past
// the upper bound is a subscript fault. Dialogs answer their callers through two of these.
class ReplyList {
public:
    void ReDim(int upperBound); // all elements empty
    QString& operator[](int index);
    const QString& operator[](int index) const;
    int UBound() const { return static_cast<int>(items_.size()) - 1; }

private:
    std::vector<QString> items_;
};

struct Project {
    // The pool: indices 0 to 1000, checked on every access (1001 or more is RunTimeError 9).
    Pane& Panes(int index);
    const Pane& Panes(int index) const;

    qint16 GridSide = 2;   // panes per board side, 2 to 5
    qint16 BoardCount = 1; // 1 to 100
    QString BoardTitle = kToUse;
    QString FooterText = kToUse;
    qint32 GlobalHighlightColor = 65280; // red + 256 x green + 65536 x blue
    qint32 MoveHighlightColor = 65280;

    bool IsBusy = false; // raised while the program itself fills lists and rebuilds the stage
    ReplyList DialogReply;
    ReplyList DialogReply2;
    std::array<QString, 31> HtmlWords; // entries 1 to 30 hold the HTML word table 101 to 130

    QString ProgramFolder; // the folder of the executable
    QString WorkFolder;    // where the working pictures live while the program runs

private:
    std::array<Pane, kMaxPane + 1> pool_;
};

// The pane has no picture any more: ImageFile, SourceFile and SourceStem "none", no flips. Its
// texts stay.
void ForgetPicture(Pane& pane);

// Every pane from 1 to 1000 back to the sentinels, then title and footer; positions and colours stay.
void ResetPanes(Project& project);

// Panes per board, GridSide x GridSide.
qint16 CellsPerBoard(const Project& project);
// GridSide x GridSide x BoardCount in 16-bit arithmetic (an overflow is RunTimeError 6).
qint16 PaneTotal(const Project& project);
// Pane index of cell k (1-based) of board b (1-based): (b - 1) x GridSide^2 + k.
qint16 PaneOfCell(const Project& project, int board, int cell);
// The 1-based board that holds a pane.
int BoardOfPane(const Project& project, int pane);

// Whether a text counts as set ("ToUse" means no text).
inline bool IsSet(const QString& text) {
    return text != kToUse;
}

// The text without the blanks (spaces) at either end; other white space is the user's.
QString TrimBlanks(const QString& text);
