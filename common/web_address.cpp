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
} // namespace

bool IsWebOrMailAddress(std::u16string_view address) {
    const auto begins = [address](std::u16string_view scheme) {
        return address.size() > scheme.size() && StartsWithIgnoringCase(address, scheme);
    };
    if (!begins(u"https://") && !begins(u"http://") && !begins(u"mailto:")) return false;
    return std::ranges::all_of(address, [](char16_t unit) {
        return unit > u' ' && unit < 0x7F &&
               std::u16string_view(u"\"'`<>\\^{|}").find(unit) == std::u16string_view::npos;
    });
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
