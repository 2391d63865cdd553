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
        dialog_.setLabelText(dialog_.labelText().section(QLatin1Char('\n'), 0, 0) +
                             QStringLiteral("\n%1 of %2").arg(done).arg(total));
        dialog_.setValue(done);
    };
}

std::function<bool(int, int)> ProgressWindow::CancellableCallback() {
    return [this, update = Callback()](int done, int total) {
        update(done, total);
        return !dialog_.wasCanceled();
    };
}
