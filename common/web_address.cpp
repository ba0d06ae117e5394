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

// RFC 3986.
bool IsScheme(std::u16string_view scheme) {
    const auto isLetter = [](char16_t unit) {
        return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
    };
    return isLetter(scheme.front()) && std::ranges::all_of(scheme, [&](char16_t unit) {
               return isLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u'+' ||
                      unit == u'-' || unit == u'.';
           });
}

void AppendEncoded(std::u16string& encoded, char byte) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    encoded.append({u'%', digits[value >> 4], digits[value & 15]});
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
    constexpr std::u16string_view unsafe[] = {
        // run, or are, what stands in them
        u"javascript", u"vbscript", u"data", u"blob", u"about", u"view-source",
        // files, and parts of them
        u"file", u"jar", u"res", u"mk", u"its", u"ms-its", u"mhtml",
        // folders, searches and helpers of Windows, which take orders in the address
        u"shell", u"search", u"search-ms", u"ms-msdt", u"hcp"};
    const std::u16string_view scheme = address.substr(0, address.find(u':'));
    if (scheme.size() < 2) return false; // a drive
    if (scheme.size() + 1 >= address.size()) return false;
    const auto isUnsafe = [scheme](std::u16string_view name) {
        return scheme.size() == name.size() && StartsWithIgnoringCase(scheme, name);
    };
    return IsScheme(scheme) && IsPlain(address) && std::ranges::none_of(unsafe, isUnsafe);
}

std::u16string EncodedAddress(std::u16string_view address) {
    std::u16string encoded;
    for (const char byte : Utf16ToUtf8(address)) {
        const auto unit = static_cast<char16_t>(static_cast<unsigned char>(byte));
        if (IsPlain({&unit, 1}))
            encoded += unit;
        else
            AppendEncoded(encoded, byte);
    }
    return encoded;
}

namespace {
std::string PercentDecoded(std::u16string_view text) {
    const auto digit = [](char16_t unit) {
        const auto place = std::u16string_view(u"0123456789ABCDEF").find(FoldCase(unit));
        return place == std::u16string_view::npos ? -1 : static_cast<int>(place);
    };
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool coded = text[i] == u'%' && i + 2 < text.size();
        const int high = coded ? digit(text[i + 1]) : -1, low = coded ? digit(text[i + 2]) : -1;
        if (high >= 0 && low >= 0) {
            decoded += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            decoded += text[i] < 0x80 ? static_cast<char>(text[i]) : '?';
        }
    }
    return decoded;
}

// A line break would begin another header of the mail.
bool IsOneLine(std::u16string_view encoded) {
    return PercentDecoded(encoded).find_first_of("\r\n") == std::string::npos;
}

bool IsPlainMailField(std::u16string_view field) {
    constexpr std::u16string_view headers[] = {u"to", u"cc", u"bcc", u"subject"};
    const std::u16string_view encodedName = field.substr(0, field.find(u'='));
    const std::u16string name = Utf8ToUtf16(PercentDecoded(encodedName), u'?');
    const auto isIt = [&](std::u16string_view known) { return EqualIgnoringCase(name, known); };
    return isIt(u"body") || (std::ranges::any_of(headers, isIt) && IsOneLine(field));
}
} // namespace

std::u16string WithPlainMailFields(std::u16string_view address) {
    constexpr std::u16string_view scheme = u"mailto:";
    if (!StartsWithIgnoringCase(address, scheme)) return std::u16string(address);
    address = address.substr(0, address.find(u'#'));
    const auto fieldsBegin = std::min(address.find(u'?'), address.size());
    const std::u16string_view to = address.substr(scheme.size(), fieldsBegin - scheme.size());
    std::u16string kept(scheme);
    if (IsOneLine(to)) kept += to;
    if (fieldsBegin == address.size()) return kept;
    char16_t before = u'?';
    for (const auto& field : Split(address.substr(fieldsBegin + 1), u"&")) {
        if (!IsPlainMailField(field)) continue;
        kept += before + field;
        before = u'&';
    }
    return kept;
}

std::u16string PercentEncoded(std::u16string_view text) {
    std::u16string encoded;
    for (const char byte : Utf16ToUtf8(text)) {
        if (IsUnreserved(byte))
            encoded += static_cast<char16_t>(byte);
        else
            AppendEncoded(encoded, byte);
    }
    return encoded;
}
