#include "platform/qt/html_view/engine/page_memory.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

namespace {
// A page of 50 MB takes 2 GB. The engine itself ends at some 4 GB of text and elements, but not for
// what it paints.
constexpr std::int64_t maxForAnyPage = std::int64_t{4} << 30;

// Half of the machine at most, so that what else runs is not driven out of it. Also what the user
// has set for resident memory (ulimit -m), which the system itself does not hold.
std::int64_t Limit() {
    const std::int64_t machine =
        static_cast<std::int64_t>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    std::int64_t limit = machine > 0 ? std::min(maxForAnyPage, machine / 2) : maxForAnyPage;
    rlimit set = {};
    if (getrlimit(RLIMIT_RSS, &set) == 0 && set.rlim_cur < static_cast<rlim_t>(limit))
        limit = static_cast<std::int64_t>(set.rlim_cur);
    return limit;
}

// Bytes in memory and on the swap; 0 for a process that has gone.
std::int64_t MemoryOf(const std::string& process) {
    std::ifstream status("/proc/" + process + "/status");
    std::int64_t kilobytes = 0, sum = 0;
    for (std::string name; status >> name; status.ignore(1000, '\n'))
        if ((name == "VmRSS:" || name == "VmSwap:") && status >> kilobytes) sum += kilobytes * 1024;
    return sum;
}
} // namespace

PageMemory::PageMemory() : limit_(Limit()), before_(MemoryOf("self")) {}

bool PageMemory::IsTooMuch(std::int64_t pageProcess) const {
    if (pageProcess <= 0) return false; // not begun yet
    const std::int64_t drawn = std::max<std::int64_t>(MemoryOf("self") - before_, 0);
    return MemoryOf(std::to_string(pageProcess)) + drawn > limit_;
}
