#include "model/projectfile.h"

#include "model/ansi.h"
#include "model/linevalue.h"
#include "model/numbers.h"

namespace {

QString projectText(const Project& project, int paneTotal, qint16 boardCount, qint16 gridSide) {
    QString text;
    text.reserve(64 + 48 * qBound(0, paneTotal, kMaxPane));
    const auto put = [&text](const QString& value) {
        text += value.isEmpty() ? kToUse : value;
        text += QLatin1String("\r\n");
    };
    put(Str(paneTotal));
    put(Str(boardCount));
    put(Str(gridSide));
    put(project.FooterText);
    put(Str(project.GlobalHighlightColor));
    put(Str(project.MoveHighlightColor));
    put(project.BoardTitle);
    for (int i = 1; i <= qMin(paneTotal, kMaxPane); ++i) {
        const Pane& pane = project.Panes(i);
        put(pane.SourceStem == kNone ? kNone : ProjectPictureName(pane.SourceStem, i));
        put(Str(pane.FlipHorizontal));
        put(Str(pane.FlipVertical));
        put(pane.Label);
        put(pane.Text);
        put(pane.Url);
    }
    return text;
}

// Where the reader stands: header lines 1 to 7, then field 1 to 6 of a pane.
struct ReadPosition {
    int line = 1;
    int field = 0;
    int pane = 1;

    void nextLine() {
        if (++line <= 7) return;
        if (++field > 6) {
            field = 1;
            ++pane;
        }
    }
};

// What the last store of a line leaves in its target.
void store(Project& project, ProjectFileHeader& header, const ReadPosition& at, const QString& value) {
    switch (at.line) {
    case 1:
        LastConvertingPrefix(value, header.paneTotal);
        return;
    case 2:
        LastConvertingPrefix(value, header.boardCount);
        return;
    case 3:
        LastConvertingPrefix(value, header.gridSide);
        return;
    case 4:
        project.FooterText = value;
        return;
    case 5:
        LastConvertingPrefix(value, project.GlobalHighlightColor);
        return;
    case 6:
        LastConvertingPrefix(value, project.MoveHighlightColor);
        return;
    case 7:
        project.BoardTitle = value;
        return;
    default:
        break;
    }
    Pane& pane = project.Panes(at.pane);
    switch (at.field) {
    case 1:
        // The name less "-0000"; a shorter name ("none") cannot lose five characters and stores nothing.
        if (value.size() >= 5) pane.SourceStem = value.left(value.size() - 5);
        break;
    case 2:
        pane.FlipHorizontal = 0;
        break;
    case 3:
        pane.FlipVertical = 0;
        break;
    case 4:
        pane.Label = value;
        break;
    case 5:
        pane.Text = value;
        break;
    case 6:
        pane.Url = value;
        break;
    default:
        break;
    }
}
} // namespace

void SetPathReply(ReplyList& reply, const QString& chosen) {
    reply.ReDim(3);
    if (chosen.isEmpty()) {
        reply[1] = kNone;
        return;
    }
    const int slash = static_cast<int>(chosen.lastIndexOf(QLatin1Char('/')));
    const QString file = chosen.mid(slash + 1);
    reply[1] = chosen;
    reply[2] = chosen.left(slash + 1);
    reply[3] = file.size() > 4 ? file.left(file.size() - 4) : QString();
}

QString ProjectPictureName(const QString& stem, int index) {
    return stem + QLatin1Char('-') + Format(index, "0000");
}

QString PictureFolder(const QString& folder, const QString& name) {
    const QString separator =
        folder.isEmpty() || folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/");
    return folder + separator + name + QStringLiteral("_Data");
}

QByteArray ProjectFileBytes(const Project& project, qint16 paneTotal, qint16 boardCount, qint16 gridSide) {
    return ToAnsi(projectText(project, paneTotal, boardCount, gridSide));
}

ProjectFileHeader ParseProjectFile(Project& project, const QByteArray& bytes) {
    // Nothing here fails: what does not convert or does not fit is not stored.
    ProjectFileHeader header;
    ReadPosition at;
    qsizetype start = 0;
    while (at.pane <= kMaxPane) {
        const qsizetype cr = bytes.indexOf('\r', start);
        const qsizetype end = cr < 0 ? bytes.size() : cr;
        QByteArray line = bytes.mid(start, end - start);
        line.replace('\n', QByteArray());
        if (!line.isEmpty()) store(project, header, at, FromAnsi(line));
        if (cr < 0) break;
        at.nextLine();
        start = cr + 1;
    }
    return header;
}
