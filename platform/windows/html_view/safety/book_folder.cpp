#include "platform/windows/html_view/safety/book_folder.h"

#include "platform/windows/base/text.h"
#include "platform/windows/files/regular_file.h"
#include "platform/windows/html_view/safety/addresses.h"

namespace {

// Without read access: only for its path and attributes.
WinHandle Open(const std::wstring& path) {
    DWORD error = ERROR_SUCCESS;
    return OpenExisting(path, 0, error);
}

bool IsRegularFile(const WinHandle& opened) {
    const auto about = InformationOf(opened);
    return GetFileType(opened.Get()) == FILE_TYPE_DISK && about &&
           !(about->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Without "." and "..", which URLs may contain between backslashes.
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(maxPathLength, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), maxPathLength, full.data(), nullptr));
    return full;
}

bool IsBelowByName(std::wstring_view path, std::wstring_view folder) {
    return path.size() > folder.size() && StartsWithIgnoringCase(path, folder);
}

} // namespace

BookFolder::BookFolder(const std::wstring& bookPath) {
    const std::wstring book = FullPath(bookPath);
    folder_ = book.substr(0, book.rfind(L'\\') + 1);
    if (folder_.empty()) return;
    real_ = RealFolderOf(Open(folder_));
}

bool BookFolder::Allows(std::wstring_view url) const {
    if (HasNoLocation(url)) return true;
    const std::wstring path = PathOfUrl(url);
    return !path.empty() && !folder_.empty() && Contains(FullPath(path));
}

// By name first: opening a file of another host would contact that host.
bool BookFolder::Contains(const std::wstring& path) const {
    if (!IsBelowByName(path, folder_)) return false;
    const WinHandle file = Open(path);
    if (!file.IsOpen()) return true; // cannot be loaded anyway
    return IsRegularFile(file) && IsBelowRealFolder(file, real_);
}
