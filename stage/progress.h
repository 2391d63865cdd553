#pragma once

#include "model/project.h"

#include <QProgressDialog>
#include <functional>

// A progress window with a count for the long operations (imports, re-scaling all pane pictures,
// opening a project, exporting pictures). It appears only when the work runs past a second; while
// it lives the program counts as busy, so that events it lets through change nothing.
class ProgressWindow {
public:
    // With cancellable, the window has a Cancel button that CancellableCallback reports.
    ProgressWindow(QWidget* parent, Project& project, const QString& label, bool cancellable = false);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    // For the core routines: done out of total.
    std::function<void(int, int)> Callback();
    // The same, answering false once Cancel was pressed.
    std::function<bool(int, int)> CancellableCallback();

private:
    QProgressDialog dialog_;
    Project& project_;
    bool wasBusy_;
};
