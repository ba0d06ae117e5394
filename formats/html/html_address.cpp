#include "formats/html/html_address.h"

#include "common/text.h"
#include "common/utf.h"
#include "common/web_address.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <vector>

namespace {
constexpr std::u16string_view fileScheme = u"file";

bool IsSchemeUnit(char16_t unit) {
    return IsAsciiAlphanumeric(unit) || unit == u'+' || unit == u'-' || unit == u'.';
}

// "" where an address is relative.
std::u16string SchemeOf(std::u16string_view address) {
    if (address.empty() || !IsAsciiLetter(address[0])) return {};
    std::size_t end = 0;
    while (end < address.size() && IsSchemeUnit(address[end]))
        ++end;
    if (end == address.size() || address[end] != u':') return {};
    std::u16string scheme(address.substr(0, end));
    std::ranges::transform(scheme, scheme.begin(), AsciiLower);
    return scheme;
}

// Without the blanks around it, and without the line ends and tabs in it.
std::u16string Cleaned(std::u16string_view written) {
    while (!written.empty() && written.front() <= u' ')
        written.remove_prefix(1);
    while (!written.empty() && written.back() <= u' ')
        written.remove_suffix(1);
    std::u16string cleaned;
    for (const char16_t unit : written)
        if (unit != u'\n' && unit != u'\r' && unit != u'\t') cleaned += unit;
    return cleaned;
}

std::u16string DecodePercents(std::u16string_view text) {
    const std::string bytes = Utf16ToUtf8(text);
    std::string decoded;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int high = bytes[i] == '%' && i + 2 < bytes.size()
                             ? HexDigitOf(static_cast<unsigned char>(bytes[i + 1]))
                             : -1;
        const int low = high >= 0 ? HexDigitOf(static_cast<unsigned char>(bytes[i + 2])) : -1;
        decoded += low >= 0 ? static_cast<char>(high * 16 + low) : bytes[i];
        i += low >= 0 ? 2 : 0;
    }
    return Utf8ToUtf16(decoded);
}

bool HasDrive(std::u16string_view path) {
    return path.size() >= 2 && IsAsciiLetter(path[0]) && path[1] == u':';
}
bool IsOfWindows(std::u16string_view path) {
    return HasDrive(path) || path.starts_with(u"\\\\");
}

// A path of either system with "/" between its parts.
std::u16string WithSlashes(std::u16string_view path) {
    std::u16string result(path);
    std::ranges::replace(result, u'\\', u'/');
    return result;
}

// Without "." and "..", which lead no further than to the top.
std::u16string Normalized(std::u16string_view path) {
    std::vector<std::u16string_view> parts;
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find(u'/', start), path.size());
        const std::u16string_view part = path.substr(start, end - start);
        start = end + 1;
        if (part == u"..") {
            if (parts.size() > 1) parts.pop_back();
        } else if (part != u".") {
            parts.push_back(part);
        }
    }
    std::u16string result;
    for (std::size_t i = 0; i < parts.size(); ++i)
        result.append(i == 0 ? u"" : u"/").append(parts[i]);
    return result;
}

// A path with "/" as the system of `pagePath` writes it.
std::u16string AsSystem(std::u16string path, std::u16string_view pagePath) {
    if (!IsOfWindows(pagePath)) return path;
    if (path.size() > 2 && path[0] == u'/' && HasDrive(std::u16string_view(path).substr(1)))
        path.erase(0, 1);
    std::ranges::replace(path, u'/', u'\\');
    return path;
}

// The path of "file:" with what follows it; "" where it is not one of this machine.
std::u16string PathOfFileUrl(std::u16string_view rest, std::u16string_view pagePath) {
    std::u16string slashed = WithSlashes(rest);
    std::u16string_view path = slashed;
    if (path.starts_with(u"//")) {
        const std::size_t hostEnd = std::min(path.find(u'/', 2), path.size());
        const std::u16string_view host = path.substr(2, hostEnd - 2);
        if (!host.empty() && host != u"localhost" && !HasDrive(host)) {
            if (!IsOfWindows(pagePath)) return {};
            return AsSystem(DecodePercents(path), pagePath); // a server's
        }
        path.remove_prefix(HasDrive(host) ? 2 : hostEnd);
    }
    return AsSystem(Normalized(DecodePercents(path)), pagePath);
}

struct Parts {
    std::u16string_view path, query, fragment; // the last two with their signs
};

Parts Split(std::u16string_view address) {
    Parts parts;
    const std::size_t sharp = std::min(address.find(u'#'), address.size());
    parts.fragment = address.substr(sharp);
    address = address.substr(0, sharp);
    const std::size_t mark = std::min(address.find(u'?'), address.size());
    parts.query = address.substr(mark);
    parts.path = address.substr(0, mark);
    return parts;
}

// What a relative path means in the folder of a file, or from its top.
std::u16string Joined(std::u16string_view pagePath, std::u16string_view path) {
    const std::u16string base = WithSlashes(pagePath), relative = WithSlashes(path);
    if (relative.empty()) return std::u16string(pagePath);
    std::u16string joined;
    if (!relative.starts_with(u'/'))
        joined = base.substr(0, base.rfind(u'/') + 1);
    else if (HasDrive(base))
        joined = base.substr(0, 2);
    return AsSystem(Normalized(joined + DecodePercents(relative)), pagePath);
}

HtmlAddress Local(const std::u16string& path, const Parts& parts) {
    HtmlAddress address;
    address.path = path;
    address.url = path.empty() ? u"" : HtmlFileUrl(path);
    address.url.append(parts.query).append(parts.fragment);
    return address;
}

HtmlAddress ResolveWhole(std::u16string_view pagePath, const std::u16string& written) {
    const Parts parts = Split(written);
    const std::u16string scheme = SchemeOf(written);
    if (scheme == fileScheme)
        return Local(PathOfFileUrl(parts.path.substr(fileScheme.size() + 1), pagePath), parts);
    if (!scheme.empty()) return {written, {}, {}, false};
    if (parts.path.starts_with(u"//")) return Local(PathOfFileUrl(parts.path, pagePath), parts);
    return Local(Joined(pagePath, parts.path), parts);
}
} // namespace

std::u16string HtmlFileUrl(std::u16string_view path) {
    const std::u16string slashed = WithSlashes(path);
    const std::u16string_view whole = IsOfWindows(path) ? slashed : path;
    std::u16string url = whole.starts_with(u"//") ? u"file:"
                         : HasDrive(whole)        ? u"file:///"
                                                  : u"file://";
    std::size_t start = 0;
    while (start <= whole.size()) {
        const std::size_t end = std::min(whole.find(u'/', start), whole.size());
        const std::u16string_view part = whole.substr(start, end - start);
        url += HasDrive(part) && part.size() == 2 ? std::u16string(part) : PercentEncoded(part);
        if (end < whole.size()) url += u'/';
        start = end + 1;
    }
    return url;
}

HtmlAddress ResolveHtmlAddress(std::u16string_view pagePath, std::u16string_view base,
                               std::u16string_view reference) {
    const std::u16string written = Cleaned(reference);
    const Parts parts = Split(written);
    const bool samePage = parts.path.empty() && parts.query.empty();
    HtmlAddress address;
    const HtmlAddress around =
        base.empty() || samePage ? HtmlAddress{} : ResolveWhole(pagePath, Cleaned(base));
    if (!around.url.empty() && around.path.empty() && SchemeOf(written).empty()) {
        address.url = around.url.substr(0, around.url.rfind(u'/') + 1) + written; // of the web
    } else {
        address = ResolveWhole(around.path.empty() ? pagePath : around.path, written);
    }
    address.hasFragment = !parts.fragment.empty();
    if (address.hasFragment) address.fragment = DecodePercents(parts.fragment.substr(1));
    return address;
}
