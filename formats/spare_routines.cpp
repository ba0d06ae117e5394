#include "formats/spare_routines.h"

#include "common/char_refs.h"
#include "common/text.h"
#include "formats/codepages/code_pages.h"

std::int32_t IndexInArray(std::u16string_view value, const std::vector<std::u16string>& array,
                          CompareMode mode) {
    if (value.empty()) return -1;
    for (std::size_t i = 0; i < array.size(); ++i) {
        const bool equal =
            mode == CompareMode::Exact ? array[i] == value : EqualIgnoringCase(array[i], value);
        if (equal) return static_cast<std::int32_t>(i);
    }
    return -1;
}

std::vector<std::uint8_t> StringToBytes(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

std::vector<std::int32_t> StringToCodeUnits(std::u16string_view text) {
    return {text.begin(), text.end()};
}

std::u16string EncodePageText(std::string_view bytes, int codePage, int systemCodePage,
                              int maxLength) {
    std::u16string text;
    DecodeCodePage(codePage == 0 ? systemCodePage : codePage, bytes, text);
    return EncodeNonAscii(text, maxLength);
}

std::u16string ColorToComponentsText(std::int64_t value, ColorComponents& components) {
    if (value < 0 || value >= 1 << 24) return u"";
    components.first = static_cast<std::uint8_t>(value >> 16);
    components.second = static_cast<std::uint8_t>(value >> 8 & 0xFF);
    components.third = static_cast<std::uint8_t>(value & 0xFF);
    return NumberText(components.first) + u',' + NumberText(components.second) + u',' +
           NumberText(components.third);
}
