#pragma once

#include <QRect>

// The geometry of the main window, a pure function of the desktop work area: the stage covers the
// work area less 46 pixels for the title and menu bars; the board is the square at its left, as
// high as the stage; the side bar fills what lies right of it.

constexpr int kTwipsPerPixel = 15;

struct StageDesign {
    int toolbarTop = 2; // sizes the layout keeps as designed
    int toolbarHeight = 42;
    int buttonWidth = 60; // the swap button
};

struct StageGeometry {
    QRect picStage;
    QRect picSideBar;
    QRect Toolbar1;
    int comboLeftTwips = 0;
    int comboWidthTwips = 0;
    QRect List1;
    QRect Text1; // height as designed; only left, top and width are laid out
    QPoint cmdButton;
    int stageHeight = 0;
    // The step (4 to 8) at which a measure came out negative, 0 when the layout is complete.
    // Everything placed before that step keeps its new place.
    int failedStep = 0;
};

StageGeometry ComputeStageLayout(int workWidthPx, int workHeightPx, const StageDesign& design = {});
