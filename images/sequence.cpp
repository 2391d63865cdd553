#include "images/sequence.h"

#include "images/panebatch.h"
#include "images/paneimage.h"
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

ImportOutcome ImportSequence(Project& project, const ImageSequence& sequence, qint16 firstPane,
                             float cellSize, const std::function<void(int, int)>& progress) {
    // Files are found, decoded and scaled on every core a few panes ahead; each pane is filled
    // here in order, so the import halts at the same pane, with the same panes filled, as one
    // that loads the files one by one.
    struct Found {
        QString file;
        RenderedPane picture;
    };
    const int side = CInt(cellSize);
    project.Panes(firstPane); // a first pane outside the pool is the bounds fault
    const int count = kMaxPane - firstPane + 1;
    ImportOutcome outcome;
    outcome.NextPane = firstPane;
    RenderInOrder<Found>(
        count,
        [&sequence, side](int k) {
            Found found;
            found.file = FindSequenceFile(sequence.Folder + sequence.Prefix +
                                          SequenceNumberText(qint64(sequence.Number) + k, sequence.Zeros) +
                                          sequence.Extension);
            found.picture = RenderCatching([&] { return RenderPaneBmp(found.file, side, 0, 0); });
            return found;
        },
        [&](int k, Found& found) {
            const qint16 p = outcome.NextPane;
            Pane& pane = project.Panes(p);
            // The pane's flips are cleared before its picture is tried, and stay cleared.
            pane.FlipHorizontal = 0;
            pane.FlipVertical = 0;
            if (!found.picture.error) {
                const QString keptStem = pane.SourceStem;
                pane.SourceStem = sequence.Prefix;
                try {
                    CommitPaneImage(project, p, found.picture.bmp, true);
                    pane.SourceFile = found.file;
                } catch (const RunTimeError&) {
                    pane.SourceStem = keptStem;
                    found.picture.error = RunTimeError::PathFileAccess();
                }
            }
            if (found.picture.error) {
                outcome.Halted = true;
                return false;
            }
            outcome.NextPane = Add16(p, 1);
            if (progress) progress(k + 1, count);
            return true;
        });
    return outcome;
}

QString NoImagesMessage() {
    return QStringLiteral(
        "I couldn't find any compatible images.\nChoose images with number patterns such as : \n"
        "Image01.bmp, Image1.gif, Image214.jpg");
}

QString ImportCountMessage(qint16 nextPane, qint16 firstPane) {
    const int chosenBy = nextPane - 1;
    if (chosenBy == 0) return NoImagesMessage();
    if (chosenBy == 1) return QStringLiteral("I found only 1 compatible image.");
    return QStringLiteral("I found ") + Str(nextPane - firstPane) +
           QStringLiteral(" compatible images.\nTruncation where current project specifies.");
}
