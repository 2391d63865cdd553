#include "stage/frmmain.h"

#include "stage/progress.h"

#include "flows/picturefiles.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>

int frmMain::PaneAtStagePoint(QPoint at) {
    if (!picStage->rect().contains(at)) return 0;
    const int cells = Mul16(project.GridSide, project.GridSide);
    const int side = CInt(CellSize);
    for (int k = 1; k <= cells; ++k) {
        const Pane& slot = project.Panes(k);
        if (QRect(slot.Position[0], slot.Position[1], side, side).contains(at))
            return Combo_PageView->currentIndex() * cells + k;
    }
    return 0;
}

void frmMain::DropPictures(const QStringList& files, qint16 firstPane) {
    CellSize = CInt(StageSize / project.GridSide);
    picStage->setCursor(Qt::WaitCursor);
    QString failure;
    {
        ProgressWindow progress(this, project, QStringLiteral("Importing pictures ..."));
        // Trapped as in the mass import: the panes before a picture that cannot be read keep what
        // they got, its own pane and those after stay as they were, and the work is not lost to a
        // file the user happened to drag along.
        try {
            LoadPictureFiles(project, files, firstPane, CellSize, progress.Callback());
        } catch (const RunTimeError& error) {
            failure = error.text();
        }
    }
    picStage->setCursor(Qt::ArrowCursor);
    DrawCurrentBoard();
    if (!failure.isEmpty())
        prompts.Message(QStringLiteral("A dropped picture could not be loaded:\n\n") + failure,
                        MsgIcon::Exclamation, QStringLiteral("Kelvrin : Import"));
}

bool frmMain::acceptsDrag(const QMimeData* data, QPoint windowPoint) {
    if (project.IsBusy || !data || !data->hasUrls()) return false;
    const DroppedFiles dropped = SortDroppedFiles(data->urls());
    if (dropped.kind == DroppedFiles::Project) return true;
    if (dropped.kind != DroppedFiles::Pictures) return false;
    const QPoint at = picStage->mapFrom(this, windowPoint);
    if (!PaneAtStagePoint(at)) {
        clearDropHighlight();
        return false;
    }
    // The pane the pictures would start in shows the hover frame.
    TrackHover(at.x(), at.y(), CellSize, project.GridSide);
    return true;
}

void frmMain::clearDropHighlight() {
    TrackHover(-1, -1, CellSize, project.GridSide);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

void frmMain::dragMoveEvent(QDragMoveEvent* event) {
    if (acceptsDrag(event->mimeData(), event->position().toPoint())) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void frmMain::dragLeaveEvent(QDragLeaveEvent* event) {
    clearDropHighlight();
    event->accept();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QPoint at = event->position().toPoint();
    if (!acceptsDrag(event->mimeData(), at)) {
        event->ignore();
        return;
    }
    const DroppedFiles dropped = SortDroppedFiles(event->mimeData()->urls());
    const int pane = PaneAtStagePoint(picStage->mapFrom(this, at));
    event->setDropAction(Qt::CopyAction);
    event->accept();
    clearDropHighlight();
    // The work starts once the drop is over, so that the program the files came from is not kept
    // waiting for it.
    QMetaObject::invokeMethod(
        this,
        [this, dropped, pane] {
            if (dropped.kind == DroppedFiles::Project)
                OpenProjectFile(dropped.paths.first());
            else
                DropPictures(dropped.paths, static_cast<qint16>(pane));
        },
        Qt::QueuedConnection);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (watched == Text1 && (type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop)) {
        auto* drop = static_cast<QDropEvent*>(event);
        if (drop->mimeData() && drop->mimeData()->hasUrls()) {
            // Over the text row only a project can be dropped; the point tells the window so.
            const QPoint at = Text1->mapTo(this, drop->position().toPoint());
            if (type == QEvent::Drop) {
                QDropEvent moved(at, drop->possibleActions(), drop->mimeData(), drop->buttons(),
                                 drop->modifiers());
                dropEvent(&moved);
                drop->setDropAction(moved.dropAction());
                drop->setAccepted(moved.isAccepted());
            } else {
                QDragMoveEvent moved(at, drop->possibleActions(), drop->mimeData(), drop->buttons(),
                                     drop->modifiers());
                dragMoveEvent(&moved);
                drop->setDropAction(moved.dropAction());
                drop->setAccepted(moved.isAccepted());
            }
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}
