#include "platform/posix/posix_instance_lock.h"

#include "platform/posix/posix_paths.h"
#include "product.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

// A folder that nobody else could have put there or can write into.
bool IsOwnFolder(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & 022) == 0;
}

std::string LockFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime && *runtime == '/' && IsOwnFolder(runtime)) return runtime;
    const std::string own = "/tmp/" PRODUCT_TITLE "-" + std::to_string(geteuid());
    mkdir(own.c_str(), 0700);
    return IsOwnFolder(own) ? own : std::string();
}

std::string RealPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? std::string(real.get()) : std::string();
}

// One text for a file by whatever links it is reached, also before it exists.
std::string Identity(const std::string& path) {
    if (const std::string file = RealPath(path); !file.empty()) return file;
    return RealPath(FolderOf(path)) + "/" + NameOf(path);
}

std::string Hash(const std::string& text) { // FNV-1a, 64 bits
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

} // namespace

bool InstanceLock::Acquire(const std::u16string& dataFilePath) {
    const auto path = NativePath(dataFilePath);
    const std::string folder = LockFolder();
    if (file_.IsOpen() || !path || folder.empty()) return true;
    const std::string name = folder + "/" PRODUCT_TITLE "-" + Hash(Identity(*path)) + ".lock";
    FileDescriptor file(open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.IsOpen()) return true;
    fchmod(file.Number(), 01600); // the sticky bit keeps it from the sweep of old runtime files
    int result = 0;
    do {
        result = flock(file.Number(), LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    if (result != 0 && errno == EWOULDBLOCK) return false;
    file_ = std::move(file);
    return true;
}
