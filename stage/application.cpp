#include "stage/application.h"

#include "model/prompts.h"
#include "model/runtimeerror.h"

#include <cstdio>
#include <cstdlib>

void ReportRunTimeError(const RunTimeError& error, Prompts& prompts) {
    prompts.Message(QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(error.text()),
                    MsgIcon::Critical, QStringLiteral("Kelvrin"));
}

KelvrinApplication::KelvrinApplication(int& argc, char** argv)
    : QApplication(argc, argv), exit_([](int code) {
          std::fflush(nullptr);
          std::_Exit(code);
      }) {}

void KelvrinApplication::Fail(const RunTimeError& error) {
    std::fprintf(stderr, "kelvrin: %s\n", error.what());
    // The report's own message box runs an event loop; an error inside it must not report again.
    if (!failing_) {
        failing_ = true;
        if (prompts_) ReportRunTimeError(error, *prompts_);
    }
    exit_(1);
    failing_ = false;
}

bool KelvrinApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const RunTimeError& error) {
        Fail(error);
    } catch (const std::bad_alloc&) {
        Fail(RunTimeError::OutOfMemory());
    } catch (const std::exception& error) {
        Fail(
            RunTimeError(51, QStringLiteral("Internal error: %1").arg(QString::fromLocal8Bit(error.what()))));
    }
    return false;
}
