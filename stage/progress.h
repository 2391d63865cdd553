#pragma once

#include "model/project.h"

#include <QProgressDialog>
#include <functional>

// A progress window with a count for the long operations (imports, re-scaling all pane pictures,
// opening a project, exporting pictures). It appears only when the work runs past a second; while
// it lives the program counts as busy, so that events it lets through change nothing.
class ProgressWindow {
public:
    ProgressWindow(QWidget* parent, Project& project, const QString& label);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    // For the core routines: done out of total.
    std::function<void(int, int)> Callback();

private:
    QProgressDialog dialog_;
    Project& project_;
    bool wasBusy_;
};
