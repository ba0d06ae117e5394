#include "common/char_refs.h"

#include "common/text.h"
#include "common/utf.h"

#include <algorithm>

std::u16string EncodeNonAscii(std::u16string_view text, int maxLength) {
    std::u16string encoded;
    for (const char16_t unit : text) {
        const std::u16string piece =
            unit < 128 ? std::u16string(1, unit) : u"&#" + NumberText(unit) + u";";
        if (maxLength > 0 && encoded.size() + piece.size() > static_cast<std::size_t>(maxLength))
            break;
        encoded += piece;
    }
    return encoded;
}

std::u16string OneLine(std::u16string text) {
    std::ranges::replace_if(
        text, [](char16_t unit) { return unit < u' ' || unit == 0x7F; }, u' ');
    return text;
}

namespace {
int DigitValue(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return 99;
}

void AppendCharacter(std::uint32_t character, std::u16string& text) {
    if (character > 0xFFFF) {
        text += HighSurrogateOf(character);
        text += LowSurrogateOf(character);
    } else {
        text += static_cast<char16_t>(character);
    }
}

// Decodes the reference at the start of `text`; returns its length, 0 when there is none.
std::size_t DecodeReference(std::u16string_view text, std::u16string& decoded) {
    if (!text.starts_with(u"&#")) return 0;
    const bool hexadecimal = text.size() > 2 && (text[2] == u'x' || text[2] == u'X');
    const std::uint32_t base = hexadecimal ? 16 : 10;
    const std::size_t digits = hexadecimal ? 3 : 2;
    std::size_t at = digits;
    std::uint32_t value = 0;
    while (at < text.size() && DigitValue(text[at]) < static_cast<int>(base) && value <= 0x10FFFF)
        value = value * base + static_cast<std::uint32_t>(DigitValue(text[at++]));
    const bool complete = at > digits && at < text.size() && text[at] == u';';
    if (!complete || value == 0 || value > 0x10FFFF) return 0;
    AppendCharacter(value, decoded);
    return at + 1;
}
} // namespace

std::u16string DecodeCharRefs(std::u16string_view text) {
    std::u16string decoded;
    while (!text.empty()) {
        std::size_t taken = DecodeReference(text, decoded);
        if (taken == 0) {
            decoded += text.front();
            taken = 1;
        }
        text.remove_prefix(taken);
    }
    return decoded;
}
