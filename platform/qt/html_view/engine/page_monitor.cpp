#include "platform/qt/html_view/engine/page_monitor.h"

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

namespace {
constexpr int pingInterval = 1000; // milliseconds
// In ticks. A page of 50 MB blocks for two or three while it loads and for twelve after a zoom. On
// a slow machine that may be reported as a hang, which does no harm.
constexpr int maxUnansweredTicks = 20;

// Bytes. A page of 50 MB takes 2 GB. The engine itself limits text and elements to some 4 GB, but
// not what it paints.
constexpr std::int64_t maxLimit = std::int64_t{4} << 30;

// At most half of the installed memory, and at most the user's limit for resident memory (ulimit
// -m), which the kernel ignores.
std::int64_t Limit() {
    const std::int64_t installed =
        static_cast<std::int64_t>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    std::int64_t limit = installed > 0 ? std::min(maxLimit, installed / 2) : maxLimit;
    rlimit userLimit = {};
    if (getrlimit(RLIMIT_RSS, &userLimit) == 0 && userLimit.rlim_cur < static_cast<rlim_t>(limit))
        limit = static_cast<std::int64_t>(userLimit.rlim_cur);
    return limit;
}

// Resident and swapped bytes; 0 if the process has ended.
std::int64_t MemoryOf(const std::string& process) {
    std::ifstream status("/proc/" + process + "/status");
    std::int64_t kilobytes = 0, sum = 0;
    for (std::string name; status >> name; status.ignore(1000, '\n'))
        if ((name == "VmRSS:" || name == "VmSwap:") && status >> kilobytes) sum += kilobytes * 1024;
    return sum;
}
} // namespace

PageMemory::PageMemory() : limit_(Limit()), baseline_(MemoryOf("self")) {}

bool PageMemory::IsExceeded(std::int64_t pageProcess) const {
    if (pageProcess <= 0) return false; // not started yet
    const std::int64_t growth = std::max<std::int64_t>(MemoryOf("self") - baseline_, 0);
    return MemoryOf(std::to_string(pageProcess)) + growth > limit_;
}

PageMonitor::PageMonitor(QWebEnginePage& page) : page_(page) {
    timer_.callOnTimeout([this] { OnTick(); });
    timer_.start(pingInterval);
}

// Ticks are counted instead of time, so that the page is not blamed while this program was
// suspended.
void PageMonitor::OnTick() {
    if (memory_.IsExceeded(page_.renderProcessPid())) return onMemoryExceeded();
    if (unanswered_ == 0) Ping();
    if (++unanswered_ <= maxUnansweredTicks || unresponsive_) return;
    unresponsive_ = true;
    onResponsiveChanged();
}

void PageMonitor::Ping() {
    page_.runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                        [this, alive = QPointer<PageMonitor>(this)](const QVariant&) {
                            if (alive) OnAnswer();
                        });
}

void PageMonitor::OnAnswer() {
    unanswered_ = 0;
    if (!unresponsive_) return;
    // Queued: this runs in a callback of the engine.
    QMetaObject::invokeMethod(
        this,
        [this] {
            unresponsive_ = false;
            onResponsiveChanged();
        },
        Qt::QueuedConnection);
}
