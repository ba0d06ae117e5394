#include "platform/windows/web/web_target.h"

#include "platform/windows/base/text.h"

#include <shlwapi.h>

#include <algorithm>

namespace {

constexpr DWORD maxAddressLength = 2048; // longer than any that we publish

bool HasOnlyAddressCharacters(std::wstring_view address) {
    const auto isOther = [](wchar_t c) { return c <= L' ' || c == 0x7F || c == L'\\'; };
    return std::ranges::none_of(address, isOther);
}

bool ConsumePrefix(std::wstring_view& text, std::wstring_view prefix) {
    if (!StartsWithIgnoringCase(text, prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

// A decimal number of at most `maxDigits` digits; -1 for anything else.
int Number(std::wstring_view digits, std::size_t maxDigits) {
    if (digits.empty() || digits.size() > maxDigits) return -1;
    int number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9') return -1;
        number = number * 10 + (digit - L'0');
    }
    return number;
}

// 127.0.0.0/8, all four parts written out.
bool IsLoopbackNumber(std::wstring_view host) {
    for (int part = 0; part < 4; ++part) {
        const std::size_t end = std::min(host.find(L'.'), host.size());
        const int number = Number(host.substr(0, end), 3);
        const bool isLast = end == host.size();
        if (number < 0 || number > 255 || (part == 0 && number != 127) || isLast != (part == 3))
            return false;
        host.remove_prefix(isLast ? end : end + 1);
    }
    return true;
}

bool IsThisComputer(std::wstring_view host) {
    std::wstring_view rest = host;
    return (ConsumePrefix(rest, L"localhost") && rest.empty()) || host == L"[::1]" ||
           IsLoopbackNumber(host);
}

// "host", "host:port", "[::1]:port"
bool ParseAuthority(std::wstring_view authority, WebTarget& target) {
    const std::size_t bracket = authority.starts_with(L'[') ? authority.find(L']') : 0;
    if (bracket == authority.npos) return false;
    const std::size_t colon = std::min(authority.find(L':', bracket), authority.size());
    if (bracket > 0 && colon != bracket + 1) return false;
    target.host = authority.substr(0, colon);
    target.isThisComputer = IsThisComputer(target.host);
    target.port = target.secure ? 443 : 80;
    if (colon == authority.size()) return !target.host.empty();
    const int port = Number(authority.substr(colon + 1), 5);
    target.port = static_cast<std::uint16_t>(port);
    return !target.host.empty() && port > 0 && port <= 0xFFFF;
}

} // namespace

std::optional<WebTarget> ParseWebTarget(std::wstring_view address) {
    WebTarget target;
    target.address = address;
    if (address.size() > maxAddressLength || !HasOnlyAddressCharacters(address))
        return std::nullopt;
    target.secure = ConsumePrefix(address, L"https://");
    if (!target.secure && !ConsumePrefix(address, L"http://")) return std::nullopt;
    const std::size_t end = std::min(address.find_first_of(L"/?#"), address.size());
    const std::wstring_view authority = address.substr(0, end);
    if (authority.find(L'@') != authority.npos || !ParseAuthority(authority, target))
        return std::nullopt;
    target.path = address.substr(end, address.find(L'#', end) - end);
    if (!target.path.starts_with(L'/')) target.path.insert(0, 1, L'/');
    if (!target.secure && !target.isThisComputer) return std::nullopt;
    return target;
}

std::optional<WebTarget> RedirectedTarget(const WebTarget& from, const std::wstring& location) {
    if (location.empty() || location.size() > maxAddressLength) return std::nullopt;
    std::wstring whole(maxAddressLength + 1, L'\0');
    DWORD length = maxAddressLength + 1;
    if (FAILED(UrlCombineW(from.address.c_str(), location.c_str(), whole.data(), &length, 0)))
        return std::nullopt;
    whole.resize(length);
    const std::optional<WebTarget> target = ParseWebTarget(whole);
    return target && from.secure && !target->secure ? std::nullopt : target;
}
