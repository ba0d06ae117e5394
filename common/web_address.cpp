#include "common/web_address.h"

#include "common/text.h"
#include "common/utf.h"

#include <algorithm>

namespace {
bool IsUnreserved(char byte) {
    const char lower = static_cast<char>(byte | 0x20);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || byte == '-' ||
           byte == '.' || byte == '_' || byte == '~';
}

bool IsPlain(std::u16string_view address) {
    return std::ranges::all_of(address, [](char16_t unit) {
        return unit > u' ' && unit < 0x7F &&
               std::u16string_view(u"\"'`<>\\^{|}").find(unit) == std::u16string_view::npos;
    });
}
} // namespace

bool IsWebOrMailAddress(std::u16string_view address) {
    const auto begins = [address](std::u16string_view scheme) {
        return address.size() > scheme.size() && StartsWithIgnoringCase(address, scheme);
    };
    if (!begins(u"https://") && !begins(u"http://") && !begins(u"mailto:")) return false;
    return IsPlain(address);
}

bool IsProgramAddress(std::u16string_view address) {
    constexpr std::u16string_view unsafe[] = {u"javascript", u"vbscript", u"data",       u"blob",
                                              u"file",       u"about",    u"view-source"};
    const std::u16string_view scheme = address.substr(0, address.find(u':'));
    if (scheme.size() < 2 || scheme.size() == address.size()) return false; // one letter: a drive
    const auto isUnsafe = [scheme](std::u16string_view name) {
        return scheme.size() == name.size() && StartsWithIgnoringCase(scheme, name);
    };
    return IsPlain(address) && std::ranges::none_of(unsafe, isUnsafe);
}

std::u16string PercentEncoded(std::u16string_view text) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    std::u16string encoded;
    for (const char byte : Utf16ToUtf8(text)) {
        const auto value = static_cast<unsigned char>(byte);
        if (IsUnreserved(byte))
            encoded += static_cast<char16_t>(value);
        else
            encoded.append({u'%', digits[value >> 4], digits[value & 15]});
    }
    return encoded;
}
