#include "platform/posix/posix_instance_lock.h"

#include "common/utf.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/posix_sharing.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace {

enum class Locking { Locked, Held, Impossible };

// The user's number, their name and the machine's, a line each.
std::string Self() {
    char host[HOST_NAME_MAX + 1] = {};
    gethostname(host, sizeof host - 1);
    // By the environment: a question to a directory of users may take long, at every start.
    const std::string number = std::to_string(geteuid());
    const char* name = std::getenv("USER");
    return number + '\n' + (name ? name : "user " + number) + '\n' + host + '\n';
}

// Without the right to write, as of another user's file, it can still be locked.
FileDescriptor OpenLockFile(const std::string& path) {
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | flags, 0600));
    if (!file.IsOpen()) file = FileDescriptor(open(path.c_str(), O_RDONLY | flags));
    return file;
}

Locking Lock(const FileDescriptor& file) {
    int result = 0;
    do {
        result = flock(file.Number(), LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    if (result == 0) return Locking::Locked;
    return errno == EWOULDBLOCK ? Locking::Held : Locking::Impossible;
}

// Whether this is still the file of that name: its holder removes it at the end.
bool IsAt(const FileDescriptor& file, const std::string& path) {
    struct stat opened {
    }, named{};
    return fstat(file.Number(), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           S_ISREG(opened.st_mode) && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

void WriteSelf(const FileDescriptor& file, const std::string& path) {
    const std::string self = Self();
    ShareAsFolder(file.Number(), FolderOf(path));
    if (ftruncate(file.Number(), 0) != 0) return;
    [[maybe_unused]] const ssize_t written = pwrite(file.Number(), self.data(), self.size(), 0);
}

InstanceClaim ClaimOfHolder(const FileDescriptor& file) {
    constexpr std::size_t maxContent = 1024;
    std::string text(maxContent, '\0');
    const ssize_t got = pread(file.Number(), text.data(), text.size(), 0);
    text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    const std::size_t first = text.find('\n'), second = text.find('\n', first + 1);
    if (second == text.npos || text == Self()) return {InstanceClaim::Result::Own, u""};
    const std::string name = text.substr(first + 1, second - first - 1);
    std::string host = text.substr(second + 1);
    host.resize(std::min(host.find('\n'), host.size()));
    return {InstanceClaim::Result::SomebodyElse, Utf8ToUtf16(name + " on " + host)};
}

} // namespace

InstanceLock::~InstanceLock() {
    if (file_.IsOpen() && IsAt(file_, path_)) unlink(path_.c_str());
}

std::optional<std::string> InstanceLock::PathFor(const std::u16string& dataFilePath) {
    const auto path = NativePath(dataFilePath);
    const auto target = path ? FollowLinks(*path) : std::nullopt;
    if (!target) return std::nullopt;
    return *target + ".lock";
}

InstanceClaim InstanceLock::Acquire(const std::u16string& dataFilePath) {
    const auto path = PathFor(dataFilePath);
    if (file_.IsOpen() || !path) return {};
    path_ = *path;
    constexpr int attempts = 10; // each takes a holder that ends just then
    for (int i = 0; i < attempts; ++i) {
        FileDescriptor file = OpenLockFile(path_);
        if (!file.IsOpen()) return {};
        const Locking locking = Lock(file);
        if (locking == Locking::Held) return ClaimOfHolder(file);
        if (locking == Locking::Impossible) return {};
        if (!IsAt(file, path_)) continue;
        WriteSelf(file, path_);
        file_ = std::move(file);
        return {};
    }
    return {};
}
