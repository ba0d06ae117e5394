#include "platform/windows/win_files.h"

#include "platform/windows/win_file_reader.h"
#include "platform/windows/win_file_times.h"
#include "platform/windows/win_handle.h"
#include "platform/windows/win_paths.h"
#include "platform/windows/win_replace.h"
#include "platform/windows/win_text.h"

#include <algorithm>
#include <new>

namespace {

ReadStatus StatusOfError(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY: // a drive without a disk
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY: return ReadStatus::NotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return ReadStatus::Denied;
    default: return ReadStatus::Failed;
    }
}

// Opens what is there, a folder too, and lets every other program do with it what it likes.
WinHandle OpenExisting(const std::wstring& path, DWORD access) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return WinHandle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

WinHandle OpenExisting(const std::u16string& path, DWORD access) {
    const auto native = NativePath(path);
    return native ? OpenExisting(*native, access) : WinHandle();
}

std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const WinHandle& file) {
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &information))
        return std::nullopt;
    return information;
}

std::optional<DWORD> AttributesOf(const std::u16string& path) {
    const auto native = NativePath(path);
    const DWORD attributes = native ? GetFileAttributesW(native->c_str()) : INVALID_FILE_ATTRIBUTES;
    if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return attributes;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

// A regular file open for reading, or why there is none.
struct RegularFile {
    explicit RegularFile(const std::u16string& path);

    WinHandle handle;
    ReadStatus status = ReadStatus::NotFound;
    std::uint64_t size = 0;
};

RegularFile::RegularFile(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) {
        if (NamesDevice(path)) status = ReadStatus::NotAFile;
        return;
    }
    handle = OpenExisting(*native, GENERIC_READ);
    if (!handle.IsOpen()) {
        status = StatusOfError(GetLastError());
        return;
    }
    const auto information = InformationOf(handle);
    if (GetFileType(handle.Get()) != FILE_TYPE_DISK || !information ||
        (information->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
        status = ReadStatus::NotAFile;
        return;
    }
    status = ReadStatus::Ok;
    size = Joined(information->nFileSizeHigh, information->nFileSizeLow);
}

// Reads on to the end, wherever that is by now: the file may grow or shrink meanwhile.
ReadStatus ReadToEnd(HANDLE file, std::uint64_t sizeNow, std::uint64_t limit, std::string& bytes) {
    constexpr std::size_t maxPiece = 1u << 24;
    std::string content(sizeNow + 1, '\0'); // one byte more than there should be, to see the end
    std::size_t used = 0;
    for (;;) {
        if (used > limit) return ReadStatus::TooLarge;
        if (used == content.size()) content.resize(used * 5 / 4 + 4096);
        const auto piece = static_cast<DWORD>(std::min(content.size() - used, maxPiece));
        DWORD got = 0;
        if (!ReadFile(file, content.data() + used, piece, &got, nullptr))
            return StatusOfError(GetLastError());
        if (got == 0) break;
        used += got;
    }
    content.resize(used);
    bytes = std::move(content);
    return ReadStatus::Ok;
}

} // namespace

bool WinFiles::FileExists(const std::u16string& path) const {
    const auto attributes = AttributesOf(path);
    return attributes && !(*attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool WinFiles::FolderExists(const std::u16string& path) const {
    const auto attributes = AttributesOf(path);
    return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The right to make files in it is asked for, and nothing is made.
bool WinFiles::FolderIsWritable(const std::u16string& path) const {
    return FolderExists(path) && OpenExisting(path, FILE_ADD_FILE).IsOpen();
}

bool WinFiles::CreateFolder(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) return false;
    const auto make = [&](std::size_t length) {
        return CreateDirectoryW(native->substr(0, length).c_str(), nullptr) != 0;
    };
    // Up to the deepest folder that is there already, then down again.
    std::size_t length = native->size();
    while (!make(length) && GetLastError() == ERROR_PATH_NOT_FOUND) {
        length = native->rfind(L'\\', length - 1);
        if (length == native->npos || length == 0) return false;
    }
    while (length < native->size()) {
        length = std::min(native->find(L'\\', length + 1), native->size());
        make(length);
    }
    return FolderExists(path);
}

bool WinFiles::SameFile(const std::u16string& a, const std::u16string& b) const {
    // Both stay open while they are compared: a number may be given to a new file.
    const WinHandle fileA = OpenExisting(a, FILE_READ_ATTRIBUTES);
    const WinHandle fileB = OpenExisting(b, FILE_READ_ATTRIBUTES);
    const auto first = InformationOf(fileA), second = InformationOf(fileB);
    return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
           first->nFileIndexHigh == second->nFileIndexHigh &&
           first->nFileIndexLow == second->nFileIndexLow;
}

std::optional<FileVersion> WinFiles::Version(const std::u16string& path) const {
    const auto information = InformationOf(OpenExisting(path, FILE_READ_ATTRIBUTES));
    if (!information) return std::nullopt;
    return FileVersion{information->dwVolumeSerialNumber,
                       Joined(information->nFileIndexHigh, information->nFileIndexLow),
                       Joined(information->nFileSizeHigh, information->nFileSizeLow),
                       NanosecondsOf(information->ftLastWriteTime)};
}

ReadStatus WinFiles::Read(const std::u16string& path, std::uint64_t limit,
                          std::string& bytes) const {
    const RegularFile file(path);
    if (file.status != ReadStatus::Ok) return file.status;
    if (file.size > limit) return ReadStatus::TooLarge;
    try {
        return ReadToEnd(file.handle.Get(), file.size, limit, bytes);
    } catch (const std::bad_alloc&) {
        return ReadStatus::TooLarge;
    }
}

ReadStatus WinFiles::ReadStart(const std::u16string& path, std::size_t count,
                               std::string& bytes) const {
    const RegularFile file(path);
    if (file.status != ReadStatus::Ok) return file.status;
    std::string start(std::min<std::uint64_t>(count, file.size), '\0');
    DWORD got = 0;
    if (!ReadFile(file.handle.Get(), start.data(), static_cast<DWORD>(start.size()), &got, nullptr))
        return StatusOfError(GetLastError());
    start.resize(got);
    bytes = std::move(start);
    return ReadStatus::Ok;
}

std::unique_ptr<FileReader> WinFiles::Open(const std::u16string& path, ReadStatus& status) const {
    RegularFile file(path);
    status = file.status;
    if (status != ReadStatus::Ok) return nullptr;
    return std::make_unique<WinFileReader>(std::move(file.handle), file.size);
}

bool WinFiles::MayReplace(const std::u16string& path) const {
    const auto native = NativePath(path);
    if (!native || !FolderIsWritable(FromWide(FolderOf(*native)))) return false;
    // Not the right to write: the read-only attribute would deny that to its owner, too.
    const WinHandle file = OpenExisting(*native, GENERIC_READ | DELETE);
    return file.IsOpen() || GetLastError() != ERROR_ACCESS_DENIED;
}

bool WinFiles::Replace(const std::u16string& path, std::string_view bytes, bool keepFileTime) {
    const auto native = NativePath(path);
    if (!native) return false;
    if (replaced_.insert(*native).second) RemoveLeftovers(*native);
    return ReplaceInOneStep(*native, bytes, keepFileTime);
}

std::optional<DateTime> WinFiles::Time(const std::u16string& path, FileTime which) const {
    const auto information = InformationOf(OpenExisting(path, FILE_READ_ATTRIBUTES));
    if (!information) return std::nullopt;
    return LocalTime(which == FileTime::Creation     ? information->ftCreationTime
                     : which == FileTime::LastAccess ? information->ftLastAccessTime
                                                     : information->ftLastWriteTime);
}

bool WinFiles::SetTime(const std::u16string& path, const DateTime& local, FileTime which) {
    const auto time = FileTimeFromLocal(local);
    const WinHandle file = OpenExisting(path, FILE_WRITE_ATTRIBUTES);
    if (!time || !file.IsOpen()) return false;
    const auto when = [&](FileTime stamp) { return which == stamp ? &*time : nullptr; };
    return SetFileTime(file.Get(), when(FileTime::Creation), when(FileTime::LastAccess),
                       when(FileTime::LastWrite));
}
