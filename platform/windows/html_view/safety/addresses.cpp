#include "platform/windows/html_view/safety/addresses.h"

#include "platform/windows/base/text.h"

#include <shlwapi.h>
#include <wininet.h>

#include <array>

namespace {

// Some versions report a plain path instead of a file: URL.
bool IsPlainPath(std::wstring_view url) {
    return url.starts_with(L"\\\\") || (url.size() > 2 && url[1] == L':' && url[2] == L'\\');
}

std::wstring_view WithoutFragment(std::wstring_view url) {
    return url.substr(0, url.find(L'#'));
}

} // namespace

std::wstring UrlOfPath(const std::wstring& path) {
    std::array<wchar_t, INTERNET_MAX_URL_LENGTH> url = {};
    DWORD size = static_cast<DWORD>(url.size());
    const bool made =
        IsPlainPath(path) && UrlCreateFromPathW(path.c_str(), url.data(), &size, 0) == S_OK;
    return made ? std::wstring(url.data()) : std::wstring();
}

std::wstring PathOfUrl(std::wstring_view url) {
    if (IsPlainPath(url)) return std::wstring(url);
    if (!StartsWithIgnoringCase(url, L"file:")) return {};
    const std::wstring file(url.substr(0, url.find_first_of(L"#?")));
    std::wstring path(file.size() + 1, L'\0');
    DWORD size = static_cast<DWORD>(path.size());
    if (PathCreateFromUrlW(file.c_str(), path.data(), &size, 0) != S_OK) return {};
    path.resize(size);
    return IsPlainPath(path) ? path : std::wstring();
}

std::wstring_view HostOfPath(std::wstring_view path) {
    if (!path.starts_with(L"\\\\")) return {};
    path.remove_prefix(2);
    return path.substr(0, path.find(L'\\'));
}

bool HasNoLocation(std::wstring_view url) {
    return StartsWithIgnoringCase(url, L"about:") || StartsWithIgnoringCase(url, L"data:");
}

bool IsLocal(std::wstring_view url, std::wstring_view bookHost) {
    if (HasNoLocation(url)) return true;
    const std::wstring path = PathOfUrl(url);
    if (path.empty()) return false;
    const std::wstring_view host = HostOfPath(path);
    return host.empty() || EqualsIgnoringCase(host, bookHost);
}

bool IsAnchorInPage(std::wstring_view url, std::wstring_view pageUrl) {
    if (url.find(L'#') == std::wstring_view::npos) return false;
    if (EqualsIgnoringCase(WithoutFragment(url), WithoutFragment(pageUrl))) return true;
    const std::wstring path = PathOfUrl(url);
    return !path.empty() && EqualsIgnoringCase(path, PathOfUrl(pageUrl));
}
