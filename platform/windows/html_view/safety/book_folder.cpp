#include "platform/windows/html_view/safety/book_folder.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/html_view/safety/addresses.h"

namespace {

// Without read access: only for its path and attributes.
WinHandle Open(const std::wstring& path) {
    return WinHandle(CreateFileW(path.c_str(), 0,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::wstring RealPath(const WinHandle& opened) {
    std::wstring path(maxPathLength, L'\0');
    path.resize(opened.IsOpen()
                    ? GetFinalPathNameByHandleW(opened.Get(), path.data(), maxPathLength, 0)
                    : 0);
    return path;
}

bool IsRegularFile(const WinHandle& opened) {
    BY_HANDLE_FILE_INFORMATION about = {};
    return GetFileType(opened.Get()) == FILE_TYPE_DISK &&
           GetFileInformationByHandle(opened.Get(), &about) &&
           !(about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Without "." and "..", which URLs may contain between backslashes.
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(maxPathLength, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), maxPathLength, full.data(), nullptr));
    return full;
}

bool IsBelow(std::wstring_view path, std::wstring_view folder) {
    return path.size() > folder.size() && StartsWithIgnoringCase(path, folder);
}

} // namespace

BookFolder::BookFolder(const std::wstring& bookPath) {
    const std::wstring book = FullPath(bookPath);
    folder_ = book.substr(0, book.rfind(L'\\') + 1);
    if (folder_.empty()) return;
    real_ = RealPath(Open(folder_));
    if (!real_.empty() && !real_.ends_with(L'\\')) real_ += L'\\';
}

bool BookFolder::Allows(std::wstring_view url) const {
    if (HasNoLocation(url)) return true;
    const std::wstring path = PathOfUrl(url);
    return !path.empty() && !folder_.empty() && Contains(FullPath(path));
}

// By name first: opening a file of another host would contact that host.
bool BookFolder::Contains(const std::wstring& path) const {
    if (!IsBelow(path, folder_)) return false;
    const WinHandle file = Open(path);
    if (!file.IsOpen()) return true; // cannot be loaded anyway
    return !real_.empty() && IsRegularFile(file) && IsBelow(RealPath(file), real_);
}
