#include "stage/frmmain.h"

#include "images/panebatch.h"
#include "model/numbers.h"
#include "model/runtimeerror.h"
#include "stage/progress.h"
#include "stage/stagelayout.h"

#include <QGuiApplication>
#include <QScreen>

qint16 frmMain::LayoutStage() {
    const QRect area = WorkArea();
    StageDesign design;
    design.toolbarHeight = Toolbar1->height();
    design.buttonWidth = cmdButton->width();
    const StageGeometry g = ComputeStageLayout(area.width(), area.height(), design);
    const int failed = g.failedStep;
    const auto done = [failed](int step) { return failed == 0 || step < failed; };

    picStage->setGeometry(g.picStage);
    if (done(4)) picSideBar->setGeometry(g.picSideBar);
    if (done(5))
        Toolbar1->setGeometry(g.Toolbar1.left(), Toolbar1->y(), g.Toolbar1.width(), Toolbar1->height());
    if (done(6))
        Combo_PageView->setGeometry(g.comboLeftTwips / kTwipsPerPixel, Combo_PageView->y(),
                                    g.comboWidthTwips / kTwipsPerPixel, Combo_PageView->height());
    if (done(7)) List1->setGeometry(g.List1);
    if (done(8)) {
        Text1->setGeometry(g.Text1.left(), g.Text1.top(), g.Text1.width(), Text1->height());
        cmdButton->move(g.cmdButton);
    }
    if (failed) throw RunTimeError(380, QStringLiteral("Invalid property value"));
    return CInt(g.stageHeight);
}

void frmMain::ArrangeMainWindow() {
    if (project.IsBusy) return;
    const double workWidth = WorkArea().width();
    if (workWidth == LastWorkAreaWidth) return;
    // The width is taken first: moving the window raises another resize event, which must find
    // this width already laid out.
    LastWorkAreaWidth = CInt(workWidth);
    if (!isMaximized()) {
        const QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
        if (s) {
            const QSize frame = frameGeometry().size() - geometry().size();
            move(s->geometry().topLeft());
            resize(s->geometry().size() - frame);
        }
    }
    try {
        StageSize = LayoutStage();
        CellSize = CInt(StageSize / project.GridSide);
        StageFullSize = StageSize;
        StageSize -= 15;
        picStage->setCursor(Qt::WaitCursor);
        {
            ProgressWindow progress(this, project, QStringLiteral("Re-scaling pane pictures ..."));
            StorePaneImages(project, 1, kMaxPane, CellSize, false, progress.Callback());
        }
        picStage->setCursor(Qt::ArrowCursor);
        picStage->ClearPicture();
        DrawCurrentBoard();
    } catch (const RunTimeError&) {
        prompts.Message(
            QStringLiteral("I experienced an error whilst trying to resize; Please reset Kelvrin."),
            MsgIcon::Exclamation, QStringLiteral("Kelvrin : Resize Error"));
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    ArrangeMainWindow();
}
