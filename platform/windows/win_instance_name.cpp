#include "platform/windows/win_instance_name.h"

#include "platform/windows/win_handle.h"
#include "platform/windows/win_paths.h"
#include "platform/windows/win_text.h"
#include "product.h"

#include <cstdint>
#include <cwchar>
#include <iterator>

namespace {

// Where a folder really is, "" if nowhere.
std::wstring RealFolder(const std::wstring& folder) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring withEnd = folder + L'\\'; // the root of a drive is one with it only
    const WinHandle opened(CreateFileW(withEnd.c_str(), 0, sharing, nullptr, OPEN_EXISTING,
                                       FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring real(MAXSHORT, L'\0');
    real.resize(opened.IsOpen() ? GetFinalPathNameByHandleW(opened.Get(), real.data(), MAXSHORT, 0)
                                : 0);
    return real;
}

std::wstring Identity(const std::wstring& path) {
    const auto native = NativePath(FromWide(path));
    if (!native) return path;
    const std::wstring folder = RealFolder(FolderOf(*native));
    return FoldedPath(folder.empty() ? *native : folder + L'\\' + NameOf(*native));
}

std::wstring Hash(const std::wstring& text) { // FNV-1a, 64 bits
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const wchar_t unit : text)
        hash = (hash ^ unit) * 0x100000001b3;
    wchar_t digits[17] = {};
    std::swprintf(digits, std::size(digits), L"%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

} // namespace

// A hash, because a mutex's name is short and has no backslashes.
std::wstring InstanceLockName(const std::wstring& dataFilePath) {
    return L"Local\\" PRODUCT_TITLE L"-" + Hash(Identity(dataFilePath));
}
