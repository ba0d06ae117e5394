#include "platform/windows/files/win_files.h"

#include "platform/windows/base/text.h"
#include "platform/windows/files/file_times.h"
#include "platform/windows/files/paths.h"
#include "platform/windows/files/regular_file.h"
#include "platform/windows/files/replace.h"

#include <algorithm>

namespace {

WinHandle OpenExisting(const std::u16string& path, DWORD access) {
    const auto native = NativePath(path);
    DWORD error = ERROR_SUCCESS;
    return native ? ::OpenExisting(*native, access, error) : WinHandle();
}

std::optional<DWORD> AttributesOf(const std::u16string& path) {
    const auto native = NativePath(path);
    const DWORD attributes = native ? GetFileAttributesW(native->c_str()) : INVALID_FILE_ATTRIBUTES;
    if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return attributes;
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

// Opened for FILE_ADD_FILE; nothing is created.
bool WinFiles::FolderIsWritable(const std::u16string& path) const {
    return FolderExists(path) && OpenExisting(path, FILE_ADD_FILE).IsOpen();
}

bool WinFiles::CreateFolder(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) return false;
    const auto make = [&](std::size_t length) {
        return CreateDirectoryW(native->substr(0, length).c_str(), nullptr) != 0;
    };
    // Up to the deepest existing folder, then down again.
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
    // Both stay open while they are compared: the index of a closed file may be reused.
    const WinHandle fileA = OpenExisting(a, FILE_READ_ATTRIBUTES);
    const WinHandle fileB = OpenExisting(b, FILE_READ_ATTRIBUTES);
    const auto first = InformationOf(fileA), second = InformationOf(fileB);
    return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
           first->nFileIndexHigh == second->nFileIndexHigh &&
           first->nFileIndexLow == second->nFileIndexLow;
}

bool WinFiles::IsInFolder(const std::u16string& path, const std::u16string& folder) const {
    return IsBelowRealFolder(OpenExisting(path, FILE_READ_ATTRIBUTES),
                             RealFolderOf(OpenExisting(folder, FILE_READ_ATTRIBUTES)));
}

std::optional<FileVersion> WinFiles::Version(const std::u16string& path) const {
    const auto information = InformationOf(OpenExisting(path, FILE_READ_ATTRIBUTES));
    if (!information) return std::nullopt;
    return FileVersion{information->dwVolumeSerialNumber,
                       MakeUint64(information->nFileIndexHigh, information->nFileIndexLow),
                       MakeUint64(information->nFileSizeHigh, information->nFileSizeLow),
                       ToUnixNanoseconds(information->ftLastWriteTime)};
}

ReadStatus WinFiles::Read(const std::u16string& path, std::uint64_t limit,
                          std::string& bytes) const {
    return RegularFile(path).Read(limit, bytes);
}

ReadStatus WinFiles::ReadStart(const std::u16string& path, std::size_t count,
                               std::string& bytes) const {
    return RegularFile(path).ReadStart(count, bytes);
}

std::unique_ptr<FileReader> WinFiles::Open(const std::u16string& path, ReadStatus& status) const {
    RegularFile file(path);
    status = file.status;
    if (status != ReadStatus::Ok) return nullptr;
    return std::make_unique<WinFileReader>(std::move(file));
}

bool WinFiles::MayReplace(const std::u16string& path) const {
    const auto native = NativePath(path);
    if (!native || !FolderIsWritable(FromWide(FolderOf(*native)))) return false;
    // Not GENERIC_WRITE: the read-only attribute would deny that to the owner, too.
    DWORD error = ERROR_SUCCESS;
    const WinHandle file = OpenExisting(*native, GENERIC_READ | DELETE, error);
    return error != ERROR_ACCESS_DENIED;
}

bool WinFiles::Replace(const std::u16string& path, std::string_view bytes, WriteTime time) {
    const auto native = NativePath(path);
    if (!native) return false;
    if (replaced_.insert(*native).second) RemoveLeftovers(*native);
    return ReplaceInOneStep(*native, bytes, time);
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
