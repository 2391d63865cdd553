#include "stage/progress.h"

ProgressWindow::ProgressWindow(QWidget* parent, Project& project, const QString& label, bool cancellable)
    : dialog_(label, QString(), 0, 0, parent), project_(project), wasBusy_(project.IsBusy) {
    dialog_.setWindowTitle(QStringLiteral("Kelvrin"));
    dialog_.setWindowModality(Qt::WindowModal);
    if (!cancellable) dialog_.setCancelButton(nullptr);
    dialog_.setMinimumDuration(1000);
    dialog_.setAutoClose(false);
    dialog_.setAutoReset(false);
    project_.IsBusy = true;
}

ProgressWindow::~ProgressWindow() {
    dialog_.close();
    project_.IsBusy = wasBusy_;
}

std::function<void(int, int)> ProgressWindow::Callback() {
    return [this](int done, int total) {
        if (dialog_.maximum() != total) dialog_.setMaximum(total);
        // The count is written only where it can be seen: laying out the label a thousand times
        // for a window that stays hidden cost most of a start-up. setValue shows the window
        // without painting it, so a count written right after is the one it first shows.
        const auto count = [&] {
            dialog_.setLabelText(dialog_.labelText().section(QLatin1Char('\n'), 0, 0) +
                                 QStringLiteral("\n%1 of %2").arg(done).arg(total));
        };
        const bool visible = dialog_.isVisible();
        if (visible) count();
        dialog_.setValue(done);
        if (!visible && dialog_.isVisible()) count();
    };
}

std::function<bool(int, int)> ProgressWindow::CancellableCallback() {
    return [this, update = Callback()](int done, int total) {
        update(done, total);
        return !dialog_.wasCanceled();
    };
}
