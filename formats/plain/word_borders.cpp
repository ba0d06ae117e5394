#include "formats/plain/word_borders.h"

#include "common/find_text.h"
#include "formats/codepages/code_pages.h"

namespace {
// Bytes that are a character each, wherever they stand.
std::size_t SinglesOf(const PlainTextForm& form) {
    if (form.encoding == TextEncoding::Utf8) return 0x80;
    const bool single = form.encoding == TextEncoding::CodePage && IsSingleBytePage(form.codePage);
    return single ? 0x100 : 0;
}

} // namespace

WordBorders::WordBorders(const PlainTextForm& form) : form_(form) {
    for (std::size_t byte = 0; byte < SinglesOf(form); ++byte)
        single_[byte] = IsWordUnit(DecodeAs(form, std::string(1, static_cast<char>(byte)))[0]);
}

bool WordBorders::IsWordBefore(std::string_view bytes, std::size_t place) const {
    if (place == 0) return false;
    if (single_[static_cast<unsigned char>(bytes[place - 1])]) return true;
    return place >= 2 && IsWordPair(bytes.substr(place - 2, 2), place);
}

bool WordBorders::IsWordAt(std::string_view bytes, std::size_t place) const {
    if (place >= bytes.size()) return false;
    if (single_[static_cast<unsigned char>(bytes[place])]) return true;
    return place + 2 <= bytes.size() && IsWordPair(bytes.substr(place, 2), place);
}

bool WordBorders::IsWordPair(std::string_view pair, std::size_t place) const {
    const auto first = static_cast<unsigned char>(pair[0]);
    const auto second = static_cast<unsigned char>(pair[1]);
    const bool even = place % 2 == 0;
    switch (form_.encoding) {
    case TextEncoding::Utf8:
        return first >= 0xC2 && first < 0xE0 && (second & 0xC0) == 0x80 &&
               IsWordUnit(static_cast<char16_t>((first & 0x1F) << 6 | (second & 0x3F)));
    case TextEncoding::Utf16LittleEndian:
        return even && IsWordUnit(static_cast<char16_t>(second << 8 | first));
    case TextEncoding::Utf16BigEndian:
        return even && IsWordUnit(static_cast<char16_t>(first << 8 | second));
    default: return false;
    }
}
