#include "platform/posix/posix_replace.h"

#include "platform/posix/file_descriptor.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/posix_sharing.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <memory>
#include <optional>

namespace {

// "Norvaset.dat.1234.new": the target's name, the writer's process id.
constexpr std::string_view temporaryEnd = ".new";

std::string TemporaryName(const std::string& target) {
    return target + "." + std::to_string(getpid()) + std::string(temporaryEnd);
}

// The process id in the name of a temporary file of `target`, both without folder.
std::optional<pid_t> WriterOf(std::string_view name, std::string_view target) {
    if (!name.starts_with(target) || !name.ends_with(temporaryEnd)) return std::nullopt;
    if (name.size() < target.size() + 1 + temporaryEnd.size()) return std::nullopt;
    name.remove_prefix(target.size());
    name.remove_suffix(temporaryEnd.size());
    if (name.front() != '.') return std::nullopt;
    name.remove_prefix(1);
    pid_t writer = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), writer);
    if (error != std::errc() || end != name.data() + name.size() || writer <= 0)
        return std::nullopt;
    return writer;
}

// This process is replacing nothing while it asks, so its own id is one that was given out again.
bool IsGone(pid_t process) {
    return process == getpid() || (kill(process, 0) != 0 && errno == ESRCH);
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool Flush(int file) {
    if (fsync(file) == 0) return true;
    return errno == EINVAL || errno == ENOSYS || errno == ENOTSUP; // a file system without a disk
}

// The mode, where the file system has modes of its own: on many a stick it has none to keep.
bool SetMode(int file, mode_t mode) {
    return fchmod(file, mode) == 0 || errno == EPERM || errno == ENOTSUP || errno == ENOSYS;
}

// Owner before mode: a change of owner clears bits of the mode.
bool CopyAttributes(int file, const struct stat& old, WriteTime time) {
    mode_t mode = old.st_mode & 07777;
    if (fchown(file, old.st_uid, old.st_gid) != 0 &&
        fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
        mode = (mode & ~070u) | (mode & 07u) << 3; // another group may do no more than others
    }
    if (!SetMode(file, mode)) return false;
    const timespec times[2] = {{0, UTIME_OMIT}, old.st_mtim};
    return time == WriteTime::Now || futimens(file, times) == 0;
}

bool WriteTemporary(const std::string& path, std::string_view bytes, const struct stat* old,
                    WriteTime time) {
    FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.IsOpen()) return false;
    if (!old) ShareAsFolder(file.Number(), FolderOf(path));
    const bool written = WriteAll(file.Number(), bytes) &&
                         (!old || CopyAttributes(file.Number(), *old, time)) &&
                         Flush(file.Number()) && file.Close();
    if (!written) unlink(path.c_str());
    return written;
}

} // namespace

bool MayReplace(const std::string& path) {
    const auto target = FollowLinks(path).value_or(path); // of a loop its rights do not matter
    const auto may = [](const std::string& name, int rights) {
        return faccessat(AT_FDCWD, name.c_str(), rights, AT_EACCESS) == 0;
    };
    const std::string folder = FolderOf(target);
    struct stat file {
    }, place{};
    if (stat(folder.c_str(), &place) != 0 || !may(folder, W_OK | X_OK)) return false;
    const uid_t user = geteuid();
    if (lstat(target.c_str(), &file) != 0) return errno == ENOENT;
    if (user == 0 || file.st_uid == user) return true;
    // In a sticky folder nobody but the owners of file and folder may rename over the file.
    const bool sticky = (place.st_mode & S_ISVTX) && place.st_uid != user;
    return !sticky && may(target, W_OK);
}

bool ReplaceInOneStep(const std::string& path, std::string_view bytes, WriteTime time) {
    const auto target = FollowLinks(path);
    if (!target || !MayReplace(*target)) return false;
    struct stat old {};
    const bool exists = lstat(target->c_str(), &old) == 0;
    if (exists ? !S_ISREG(old.st_mode) : errno != ENOENT) return false;

    const std::string temporary = TemporaryName(*target);
    if (!WriteTemporary(temporary, bytes, exists ? &old : nullptr, time)) return false;
    if (rename(temporary.c_str(), target->c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    // The new content is in place; what this adds is that it stays so after a power cut.
    const FileDescriptor folder(
        open(FolderOf(*target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen()) fsync(folder.Number());
    return true;
}

void RemoveLeftovers(const std::string& path) {
    const auto target = FollowLinks(path);
    if (!target) return;
    const std::string folder = FolderOf(*target), name = NameOf(*target);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) return;
    while (const dirent* entry = readdir(entries.get())) {
        const auto writer = WriterOf(entry->d_name, name);
        if (writer && IsGone(*writer)) unlink((folder + "/" + entry->d_name).c_str());
    }
}
