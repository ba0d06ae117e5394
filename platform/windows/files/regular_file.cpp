#include "platform/windows/files/regular_file.h"

#include "platform/windows/base/text.h"
#include "platform/windows/files/paths.h"

#include <algorithm>
#include <new>

namespace {

constexpr std::size_t maxPiece = 1u << 24; // bytes of one call

ReadStatus ToReadStatus(DWORD error) {
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

ReadStatus ReadToEnd(HANDLE file, std::uint64_t sizeNow, std::uint64_t limit, std::string& bytes) {
    std::string content(sizeNow + 1, '\0'); // one byte more, to notice the end
    std::size_t used = 0;
    for (;;) {
        if (used > limit) return ReadStatus::TooLarge;
        if (used == content.size()) content.resize(used * 5 / 4 + 4096);
        const auto piece = static_cast<DWORD>(std::min(content.size() - used, maxPiece));
        DWORD got = 0;
        if (!ReadFile(file, content.data() + used, piece, &got, nullptr))
            return ToReadStatus(GetLastError());
        if (got == 0) break;
        used += got;
    }
    content.resize(used);
    bytes = std::move(content);
    return ReadStatus::Ok;
}

} // namespace

WinHandle OpenExisting(const std::wstring& path, DWORD access, DWORD& error) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    WinHandle file(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    error = file.IsOpen() ? ERROR_SUCCESS : GetLastError();
    return file;
}

std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const WinHandle& file) {
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &information))
        return std::nullopt;
    return information;
}

std::wstring RealPathOf(const WinHandle& opened) {
    if (!opened.IsOpen()) return {};
    std::wstring path(maxPathLength, L'\0');
    path.resize(GetFinalPathNameByHandleW(opened.Get(), path.data(), maxPathLength, 0));
    return path;
}

std::wstring RealFolderOf(const WinHandle& opened) {
    std::wstring folder = RealPathOf(opened);
    if (!folder.empty() && !folder.ends_with(L'\\')) folder += L'\\';
    return folder;
}

bool IsBelowRealFolder(const WinHandle& opened, std::wstring_view realFolder) {
    const std::wstring path = RealPathOf(opened);
    return !realFolder.empty() && path.size() > realFolder.size() && path.starts_with(realFolder);
}

std::uint64_t MakeUint64(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

RegularFile::RegularFile(const std::u16string& path) {
    const auto native = NativePath(path);
    if (!native) {
        if (IsDevicePath(path)) status = ReadStatus::NotAFile;
        return;
    }
    DWORD error = ERROR_SUCCESS;
    handle = OpenExisting(*native, GENERIC_READ, error);
    if (!handle.IsOpen()) {
        status = ToReadStatus(error);
        return;
    }
    const auto information = InformationOf(handle);
    if (GetFileType(handle.Get()) != FILE_TYPE_DISK || !information ||
        (information->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
        status = ReadStatus::NotAFile;
        return;
    }
    status = ReadStatus::Ok;
    size = MakeUint64(information->nFileSizeHigh, information->nFileSizeLow);
}

ReadStatus RegularFile::Read(std::uint64_t limit, std::string& bytes) const {
    if (status != ReadStatus::Ok) return status;
    if (size > limit) return ReadStatus::TooLarge;
    try {
        return ReadToEnd(handle.Get(), size, limit, bytes);
    } catch (const std::bad_alloc&) {
        return ReadStatus::TooLarge;
    }
}

ReadStatus RegularFile::ReadStart(std::size_t count, std::string& bytes) const {
    if (status != ReadStatus::Ok) return status;
    std::string start(std::min<std::uint64_t>(count, size), '\0');
    DWORD got = 0;
    if (!ReadFile(handle.Get(), start.data(), static_cast<DWORD>(start.size()), &got, nullptr))
        return ToReadStatus(GetLastError());
    start.resize(got);
    bytes = std::move(start);
    return ReadStatus::Ok;
}

std::size_t WinFileReader::ReadAt(std::uint64_t offset, char* to, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
        const std::uint64_t from = offset + done;
        OVERLAPPED place = {};
        place.Offset = static_cast<DWORD>(from);
        place.OffsetHigh = static_cast<DWORD>(from >> 32);
        const auto piece = static_cast<DWORD>(std::min(count - done, maxPiece));
        DWORD got = 0;
        if (!ReadFile(file_.handle.Get(), to + done, piece, &got, &place) || got == 0) break;
        done += got;
    }
    return done;
}
