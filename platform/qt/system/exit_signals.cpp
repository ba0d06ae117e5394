#include "platform/qt/system/exit_signals.h"

#include "platform/qt/handler.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

// A signal handler may touch little more than these: it writes a byte into the pipe, which wakes
// the loop. The pipe stays open to the end, because a late signal may still write into it.
std::array<int, 2> wakePipe = {-1, -1};

void WriteByte(int) {
    const int savedErrno = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakePipe[1], &byte, 1);
    errno = savedErrno;
}

void Catch(int signal) {
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
        return; // signals then end the process as they always did
    auto* notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [onSignal = std::move(onSignal)] {
        std::array<char, 16> bytes;
        while (read(wakePipe[0], bytes.data(), bytes.size()) > 0) {
        }
        CallHandler(onSignal);
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        Catch(signal);
}
