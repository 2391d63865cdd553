#include "endsignals.h"

#include <QSocketNotifier>
#include <QWidget>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
int signalPair[2] = {-1, -1};

// Only async-signal-safe work here: one byte to the event loop, which does the rest.
void onEndSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPair[1], &byte, 1);
}
} // namespace

void CloseOnEndSignals(QWidget& window) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalPair) != 0) return;
    auto* notifier = new QSocketNotifier(signalPair[0], QSocketNotifier::Read, &window);
    QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window] {
        char byte;
        [[maybe_unused]] const ssize_t read = ::read(signalPair[0], &byte, 1);
        window.close();
    });
    struct sigaction action = {};
    action.sa_handler = onEndSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaction(signal, &action, nullptr);
}
