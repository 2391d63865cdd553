#include "model/project.h"

#include "model/numbers.h"
#include "model/runtimeerror.h"

void ReplyList::ReDim(int upperBound) {
    items_.assign(static_cast<size_t>(upperBound < 0 ? 0 : upperBound + 1), QString());
}

QString& ReplyList::operator[](int index) {
    if (index < 0 || index > UBound()) throw RunTimeError::SubscriptOutOfRange();
    return items_[static_cast<size_t>(index)];
}

const QString& ReplyList::operator[](int index) const {
    if (index < 0 || index > UBound()) throw RunTimeError::SubscriptOutOfRange();
    return items_[static_cast<size_t>(index)];
}

Pane& Project::Panes(int index) {
    if (index < 0 || index > kMaxPane) throw RunTimeError::SubscriptOutOfRange();
    return pool_[static_cast<size_t>(index)];
}

const Pane& Project::Panes(int index) const {
    if (index < 0 || index > kMaxPane) throw RunTimeError::SubscriptOutOfRange();
    return pool_[static_cast<size_t>(index)];
}

void ForgetPicture(Pane& pane) {
    pane.ImageFile = kNone;
    pane.SourceFile = kNone;
    pane.SourceStem = kNone;
    pane.FlipHorizontal = 0;
    pane.FlipVertical = 0;
}

QString TrimBlanks(const QString& text) {
    qsizetype first = 0, last = text.size();
    while (first < last && text[first] == QLatin1Char(' '))
        ++first;
    while (last > first && text[last - 1] == QLatin1Char(' '))
        --last;
    return text.mid(first, last - first);
}

void ResetPanes(Project& project) {
    for (int i = 1; i <= kMaxPane; ++i) {
        Pane& p = project.Panes(i);
        ForgetPicture(p);
        p.Text = kToUse;
        p.Label = kToUse;
        p.Url = kToUse;
    }
    project.BoardTitle = kToUse;
    project.FooterText = kToUse;
}

qint16 CellsPerBoard(const Project& project) {
    return Mul16(project.GridSide, project.GridSide);
}

qint16 PaneTotal(const Project& project) {
    return Mul16(CellsPerBoard(project), project.BoardCount);
}

qint16 PaneOfCell(const Project& project, int board, int cell) {
    return Add16(Mul16(board - 1, CellsPerBoard(project)), cell);
}

int BoardOfPane(const Project& project, int pane) {
    const int cells = CellsPerBoard(project);
    return cells > 0 ? (pane - 1) / cells + 1 : 0;
}
