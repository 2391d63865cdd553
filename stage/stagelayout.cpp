#include "stage/stagelayout.h"

#include "model/numbers.h"

StageGeometry ComputeStageLayout(int workWidthPx, int workHeightPx, const StageDesign& design) {
    StageGeometry g;
    // Measures come in twips and go back to pixels, rounded halves to even.
    const int stageW = CInt(static_cast<double>(workWidthPx) * kTwipsPerPixel / kTwipsPerPixel);
    const int stageH = CInt(static_cast<double>(workHeightPx) * kTwipsPerPixel / kTwipsPerPixel) - 46;
    g.picStage = QRect(0, 0, stageW, stageH);
    g.stageHeight = stageH;
    if (stageW < 0 || stageH < 0) return g.failedStep = 1, g;

    const int side = stageW - stageH;
    const int sideW = side - 6;
    const int sideH = stageH - 2;
    if (sideW < 0 || sideH < 0) return g.failedStep = 4, g;
    g.picSideBar = QRect(stageW - (sideW + 3), 3, sideW, sideH);

    const int toolbarW = sideW - 12;
    if (toolbarW < 0) return g.failedStep = 5, g;
    g.Toolbar1 = QRect(6, design.toolbarTop, toolbarW, design.toolbarHeight);

    g.comboLeftTwips = 990;
    g.comboWidthTwips = toolbarW * kTwipsPerPixel - 72 * kTwipsPerPixel;
    if (g.comboWidthTwips < 0) return g.failedStep = 6, g;

    const int listTop = design.toolbarHeight + 10;
    const int listH = sideH - (listTop + 50);
    if (listH < 0) return g.failedStep = 7, g;
    g.List1 = QRect(6, listTop, toolbarW, listH);

    const int textW = toolbarW - (design.buttonWidth + 10);
    if (textW < 0) return g.failedStep = 8, g;
    const int rowTop = listTop + listH + 10;
    g.Text1 = QRect(6, rowTop, textW, 0);
    g.cmdButton = QPoint(6 + textW + 4, rowTop);
    return g;
}
