#include "platform/posix/posix_files.h"

#include "platform/posix/file_descriptor.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_file_reader.h"
#include "platform/posix/posix_paths.h"
#include "platform/posix/posix_replace.h"
#include "platform/posix/real_path.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>

namespace {

std::optional<struct stat> StatusOf(const std::u16string& path) {
    const auto native = NativePath(path);
    struct stat status {};
    if (!native || stat(native->c_str(), &status) != 0) return std::nullopt;
    return status;
}

ReadStatus StatusOfError(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG: return ReadStatus::NotFound;
    case EACCES:
    case EPERM: return ReadStatus::Denied;
    default: return ReadStatus::Failed;
    }
}

// A link into a folder that is not there, as on a share that is not mounted: the file it means may
// exist.
bool LeadsOutOfReach(const std::string& path) {
    const auto target = FollowLinks(path);
    struct stat status {};
    return target && *target != path && stat(FolderOf(*target).c_str(), &status) != 0;
}

// A regular file open for reading, or why there is none.
struct RegularFile {
    explicit RegularFile(const std::u16string& path) : descriptor(Open(path)) {}

    ReadStatus status = ReadStatus::NotFound;
    std::uint64_t size = 0;
    FileDescriptor descriptor;

  private:
    int Open(const std::u16string& path);
};

int RegularFile::Open(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) return -1;
    // Asked before it is opened, because opening a device or a pipe can do something by itself.
    struct stat found {};
    int file = -1;
    if (stat(native->c_str(), &found) != 0 ||
        (S_ISREG(found.st_mode) &&
         ((file = open(native->c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) < 0 ||
          fstat(file, &found) != 0))) {
        status = StatusOfError(errno);
        if (status == ReadStatus::NotFound && LeadsOutOfReach(*native)) status = ReadStatus::Failed;
        return file;
    }
    status = S_ISREG(found.st_mode) ? ReadStatus::Ok : ReadStatus::NotAFile;
    size = static_cast<std::uint64_t>(found.st_size);
    return file;
}

// Reads on to the end, wherever that is by now: the file may grow or shrink meanwhile.
ReadStatus ReadToEnd(int file, std::uint64_t sizeNow, std::uint64_t limit, std::string& bytes) {
    std::string content(sizeNow + 1, '\0'); // one byte more than there should be, to see the end
    std::size_t used = 0;
    for (;;) {
        if (used > limit) return ReadStatus::TooLarge;
        if (used == content.size()) content.resize(used * 5 / 4 + 4096);
        const ssize_t got = read(file, content.data() + used, content.size() - used);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return StatusOfError(errno);
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
    }
    content.resize(used);
    bytes = std::move(content);
    return ReadStatus::Ok;
}

} // namespace

bool PosixFiles::FileExists(const std::u16string& path) const {
    const auto status = StatusOf(path);
    return status && !S_ISDIR(status->st_mode);
}

bool PosixFiles::FolderExists(const std::u16string& path) const {
    const auto status = StatusOf(path);
    return status && S_ISDIR(status->st_mode);
}

bool PosixFiles::FolderIsWritable(const std::u16string& path) const {
    return FolderExists(path) &&
           faccessat(AT_FDCWD, NativePath(path)->c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

bool PosixFiles::FolderIsPublic(const std::u16string& path) const {
    const auto status = StatusOf(path);
    return status && S_ISDIR(status->st_mode) && (status->st_mode & S_ISVTX) &&
           (status->st_mode & S_IWOTH);
}

bool PosixFiles::CreateFolder(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) return false;
    for (std::size_t slash = 0; slash != native->npos;) {
        slash = native->find('/', slash + 1);
        mkdir(native->substr(0, slash).c_str(), 0700); // most are there already
    }
    return FolderExists(path);
}

bool PosixFiles::SameFile(const std::u16string& a, const std::u16string& b) const {
    const auto first = StatusOf(a), second = StatusOf(b);
    return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
}

bool PosixFiles::IsInFolder(const std::u16string& path, const std::u16string& folder) const {
    const auto file = NativePath(path), place = NativePath(folder);
    if (!file || !place) return false;
    std::error_code error;
    const auto realFolder = std::filesystem::canonical(*place, error);
    return !error && RealPathBelow(realFolder, *file).has_value();
}

std::optional<FileVersion> PosixFiles::Version(const std::u16string& path) const {
    const auto status = StatusOf(path);
    if (!status) return std::nullopt;
    return FileVersion{status->st_dev, status->st_ino, static_cast<std::uint64_t>(status->st_size),
                       status->st_mtim.tv_sec * 1'000'000'000 + status->st_mtim.tv_nsec};
}

ReadStatus PosixFiles::Read(const std::u16string& path, std::uint64_t limit,
                            std::string& bytes) const {
    const RegularFile file(path);
    if (file.status != ReadStatus::Ok) return file.status;
    if (file.size > limit) return ReadStatus::TooLarge;
    try {
        return ReadToEnd(file.descriptor.Number(), file.size, limit, bytes);
    } catch (const std::bad_alloc&) {
        return ReadStatus::TooLarge;
    }
}

ReadStatus PosixFiles::ReadStart(const std::u16string& path, std::size_t count,
                                 std::string& bytes) const {
    const RegularFile file(path);
    if (file.status != ReadStatus::Ok) return file.status;
    std::string start(count, '\0');
    const ssize_t got = pread(file.descriptor.Number(), start.data(), count, 0);
    if (got < 0) return StatusOfError(errno);
    start.resize(static_cast<std::size_t>(got));
    bytes = std::move(start);
    return ReadStatus::Ok;
}

std::unique_ptr<FileReader> PosixFiles::Open(const std::u16string& path, ReadStatus& status) const {
    RegularFile file(path);
    status = file.status;
    if (status != ReadStatus::Ok) return nullptr;
    return std::make_unique<PosixFileReader>(std::move(file.descriptor), file.size);
}

bool PosixFiles::MayReplace(const std::u16string& path) const {
    const auto native = NativePath(path);
    return native && ::MayReplace(*native);
}

bool PosixFiles::Replace(const std::u16string& path, std::string_view bytes, WriteTime time) {
    const auto native = NativePath(path);
    if (!native) return false;
    if (replaced_.insert(*native).second) RemoveLeftovers(*native);
    return ReplaceInOneStep(*native, bytes, time);
}

std::optional<DateTime> PosixFiles::Time(const std::u16string& path, FileTime which) const {
    const auto native = NativePath(path);
    struct statx status {};
    if (!native ||
        statx(AT_FDCWD, native->c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
        return std::nullopt;
    }
    if (which == FileTime::Creation && !(status.stx_mask & STATX_BTIME)) return std::nullopt;
    const auto& stamp = which == FileTime::Creation     ? status.stx_btime
                        : which == FileTime::LastAccess ? status.stx_atime
                                                        : status.stx_mtime;
    return LocalTime(stamp.tv_sec);
}

bool PosixFiles::SetTime(const std::u16string& path, const DateTime& local, FileTime which) {
    const auto native = NativePath(path);
    const auto time = TimeFromLocal(local);
    if (!native || !time || which == FileTime::Creation) return false;
    timespec times[2] = {{0, UTIME_OMIT}, {0, UTIME_OMIT}};
    times[which == FileTime::LastAccess ? 0 : 1] = {*time, 0};
    return utimensat(AT_FDCWD, native->c_str(), times, 0) == 0;
}
