#include "flows/importsequence.h"

#include "images/panebatch.h"
#include "images/paneimage.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

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
