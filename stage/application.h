#pragma once

#include <QApplication>
#include <functional>

class Prompts;
class RunTimeError;

// Tells the user about a run-time error: "Run-time error 'N':", an empty line and the error's
// text, in a message box titled "Kelvrin".
void ReportRunTimeError(const RunTimeError& error, Prompts& prompts);

// The application object. Every event passes through notify(): a RunTimeError that escapes an
// event handler is caught there, reported once and ends the program at once. No exception
// crosses the event loop.
class KelvrinApplication : public QApplication {
    Q_OBJECT
public:
    KelvrinApplication(int& argc, char** argv);

    void SetPrompts(Prompts* prompts) { prompts_ = prompts; }
    // What ending the program means; the program's default leaves the process at once with
    // exit code 1. Tests put something harmless here.
    void SetExitHandler(std::function<void(int)> handler) { exit_ = std::move(handler); }

    bool notify(QObject* receiver, QEvent* event) override;

    // Reports the error and ends the program; used by notify() and by start-up code outside events.
    void Fail(const RunTimeError& error);

private:
    Prompts* prompts_ = nullptr;
    std::function<void(int)> exit_;
    bool failing_ = false;
};
