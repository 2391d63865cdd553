#pragma once

#include "model/project.h"

#include <QProgressDialog>
#include <functional>

// A progress window with a count for the long operations (imports, re-scaling all pane pictures,
// opening a project, exporting pictures or an animatic). It appears only when the work runs past a second; while
// it lives the program counts as busy, so that events it lets through change nothing.
class ProgressWindow {
public:
    // A cancellable window has a Cancel button; the work asks Cancelled() as it goes.
    ProgressWindow(QWidget* parent, Project& project, const QString& label, bool cancellable = false);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    // For the core routines: done out of total.
    std::function<void(int, int)> Callback();
    bool Cancelled() const { return dialog_.wasCanceled(); }

private:
    QProgressDialog dialog_;
    Project& project_;
    bool wasBusy_;
};
