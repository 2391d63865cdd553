#include "targets.h"

#include "model/ansi.h"
#include "model/linevalue.h"
#include "model/numbers.h"
#include "model/projectfile.h"

#include <QByteArray>
#include <QList>
#include <memory>

namespace {
// The reader as the format describes it: the line is converted after each of its characters and
// the last conversion that succeeds is the value.
template <typename T> bool everyPrefix(const QString& line, T& out, bool (*convert)(const QString&, T&)) {
    bool stored = false;
    for (int k = 1; k <= line.size(); ++k)
        stored = convert(line.left(k), out) || stored;
    return stored;
}

template <typename T>
void checkNumericLine(const QString& line, bool (*convert)(const QString&, T&), const char* what) {
    T fast = 12345, slow = 12345;
    const bool storedFast = LastConvertingPrefix(line, fast);
    const bool storedSlow = everyPrefix(line, slow, convert);
    FuzzCheck(storedFast == storedSlow && fast == slow, what);
}

bool sameTexts(const Project& a, const Project& b, int pane) {
    const Pane &x = a.Panes(pane), &y = b.Panes(pane);
    return x.Text == y.Text && x.Label == y.Label && x.Url == y.Url && x.SourceStem == y.SourceStem &&
           y.FlipHorizontal == 0 && y.FlipVertical == 0;
}
} // namespace

int FuzzProjectFile(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    auto read = std::make_unique<Project>();
    const ProjectFileHeader header = ParseProjectFile(*read, bytes);

    // What is saved from what was read reads back as the same project.
    const QByteArray saved = ProjectFileBytes(*read, header.paneTotal, header.boardCount, header.gridSide);
    FuzzCheck(!saved.contains("\r\n\r\n") && saved.endsWith("\r\n"), "no empty line is written");
    auto again = std::make_unique<Project>();
    const ProjectFileHeader reread = ParseProjectFile(*again, saved);
    FuzzCheck(reread.paneTotal == header.paneTotal && reread.boardCount == header.boardCount &&
                  reread.gridSide == header.gridSide,
              "the header reads back");
    FuzzCheck(again->BoardTitle == read->BoardTitle && again->FooterText == read->FooterText &&
                  again->GlobalHighlightColor == read->GlobalHighlightColor &&
                  again->MoveHighlightColor == read->MoveHighlightColor,
              "title, footer and colours read back");
    for (int i = 1; i <= qMin<int>(header.paneTotal, kMaxPane); ++i)
        FuzzCheck(sameTexts(*read, *again, i), "every pane reads back, unflipped");

    // The numeric header lines, against the per-character reading (short lines only: it is slow).
    const QList<QByteArray> lines = bytes.left(4096).split('\r');
    for (int n = 0; n < qMin<int>(lines.size(), 6); ++n) {
        const QString line = FromAnsi(QByteArray(lines[n]).replace('\n', QByteArray()));
        if (line.size() > 48) continue;
        if (n < 3) checkNumericLine<qint16>(line, TryCInt, "a 16-bit header line keeps its longest number");
        if (n >= 4) checkNumericLine<qint32>(line, TryCLng, "a colour line keeps its longest number");
    }
    return 0;
}
