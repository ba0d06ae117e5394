#include "platform/windows/files/paths.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::wstring_view verbatim = L"\\\\?\\", verbatimServer = L"\\\\?\\UNC\\";
constexpr std::wstring_view server = L"\\\\", device = L"\\\\.\\";
// A folder's path must leave room for a name of 8.3 characters in it.
constexpr std::size_t maxPlainPathLength = MAX_PATH - 13;

std::wstring FullPath(const std::wstring& path) {
    if (path.starts_with(verbatim)) return path; // not normalised by the system either
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        const bool fits = length < full.size();
        full.resize(length);
        if (fits) return full;
    }
}

// The second part of "server\share\...".
std::wstring_view ShareOf(std::wstring_view serverPath) {
    const std::size_t start = serverPath.find(L'\\');
    if (start == serverPath.npos) return {};
    return serverPath.substr(start + 1, serverPath.find(L'\\', start + 1) - start - 1);
}

bool IsDriveOrVolume(std::wstring_view rest) {
    constexpr std::wstring_view volume = L"Volume{";
    return (rest.size() >= 2 && rest[1] == L':') || StartsWithIgnoringCase(rest, volume);
}

bool IsDevice(std::wstring_view full) {
    std::wstring_view share;
    if (StartsWithIgnoringCase(full, verbatimServer)) {
        share = ShareOf(full.substr(verbatimServer.size()));
    } else if (full.starts_with(verbatim)) {
        return !IsDriveOrVolume(full.substr(verbatim.size()));
    } else if (full.starts_with(device)) {
        return true;
    } else if (full.starts_with(server)) {
        share = ShareOf(full.substr(server.size()));
    }
    constexpr std::wstring_view shares[] = {L"pipe", L"mailslot", L"IPC$"}; // of what is no file
    return std::ranges::any_of(
        shares, [&](std::wstring_view name) { return EqualsIgnoringCase(share, name); });
}

bool IsInvalidPath(std::wstring_view path) {
    const std::size_t start = path.starts_with(verbatim) ? verbatim.size() : 0;
    return path.empty() || path.find(L'\0') != path.npos || path.find(L'?', start) != path.npos;
}

} // namespace

std::optional<std::wstring> NativePath(const std::u16string& path) {
    const std::wstring wide = ToWide(path);
    if (IsInvalidPath(wide)) return std::nullopt;
    const std::wstring full = FullPath(wide);
    if (full.empty() || IsDevice(full)) return std::nullopt;
    if (full.size() <= maxPlainPathLength || full.starts_with(verbatim)) return full;
    if (full.starts_with(server)) {
        return std::wstring(verbatimServer).append(full, server.size());
    }
    return std::wstring(verbatim) + full;
}

bool IsDevicePath(const std::u16string& path) {
    const std::wstring wide = ToWide(path);
    return !IsInvalidPath(wide) && IsDevice(FullPath(wide));
}

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\'));
}

std::wstring NameOf(const std::wstring& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

std::wstring UppercasePath(const std::wstring& path) {
    std::wstring folded(path.size(), L'\0');
    LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, path.data(),
                  static_cast<int>(path.size()), folded.data(), static_cast<int>(folded.size()),
                  nullptr, nullptr, 0);
    return folded;
}
