#include "platform/qt/system/exit_signals.h"

#include "platform/shared/call_handler.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

// The self-pipe that a signal handler, restricted to async-signal-safe functions, writes a byte to.
// It is never closed, because a late signal may still write to it.
std::array<int, 2> wakePipe = {-1, -1};

void WriteByte(int) {
    const int savedErrno = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakePipe[1], &byte, 1);
    errno = savedErrno;
}

void InstallHandler(int signal) {
    struct sigaction current = {};
    if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN) return;
    struct sigaction wake = {};
    wake.sa_handler = WriteByte;
    wake.sa_flags = SA_RESTART;
    sigaction(signal, &wake, nullptr);
}

} // namespace

ExitSignals::ExitSignals(std::function<void()> onSignal) {
    if (pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the default action of the signals remains
    auto* notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [onSignal = std::move(onSignal)] {
        std::array<char, 16> bytes;
        while (read(wakePipe[0], bytes.data(), bytes.size()) > 0) {
        }
        CallHandler(onSignal);
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        InstallHandler(signal);
}
