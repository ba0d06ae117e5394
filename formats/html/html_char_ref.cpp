#include "formats/html/html_char_ref.h"

#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_entity_table.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <array>

namespace {

HtmlCharRef OneCharacter(char32_t character, std::size_t length) {
    HtmlCharRef ref{.units = {}, .unitCount = 1, .length = length};
    ref.units[0] = static_cast<char16_t>(character);
    if (character >= 0x10000) {
        ref.units[0] = HighSurrogateOf(character);
        ref.units[1] = LowSurrogateOf(character);
        ref.unitCount = 2;
    }
    return ref;
}

// Numbers from 80 to 9F are bytes of Windows 1252, which pages of old meant; five have no
// character there and stay.
char32_t CharacterOfNumber(char32_t number) {
    if (number == 0 || number > 0x10FFFF || IsSurrogate(number)) return 0xFFFD;
    if (number < 0x80 || number > 0x9F) return number;
    const char16_t meant = UpperHalf(1252)[number - 0x80];
    return meant == u'\uFFFD' ? number : meant;
}

HtmlCharRef ReadNumber(std::u16string_view text) {
    std::size_t at = 2;
    const bool isHex = at < text.size() && (text[at] == u'x' || text[at] == u'X');
    if (isHex) ++at;
    const std::size_t digits = at;
    char32_t number = 0;
    for (; at < text.size(); ++at) {
        const int digit = HexDigitOf(text[at]);
        if (digit < 0 || (!isHex && digit > 9)) break;
        // Any number above the last character is as good as another.
        number =
            std::min<char32_t>(number * (isHex ? 16 : 10) + static_cast<char32_t>(digit), 0x110000);
    }
    if (at == digits) return {};
    if (at < text.size() && text[at] == u';') ++at;
    return OneCharacter(CharacterOfNumber(number), at);
}

std::size_t NameLength(const HtmlEntity* entity) {
    return std::size_t(entity[1].nameBegin - entity[0].nameBegin);
}

// Unit `index` of a name, 0 after its end.
char16_t NameUnit(const HtmlEntity& entity, std::size_t index) {
    if (index >= NameLength(&entity)) return 0;
    return static_cast<unsigned char>(htmlEntityNames[entity.nameBegin + index]);
}

constexpr char firstLetter = 'A', lastLetter = 'z'; // that names begin with

// Where the names with a first letter, or a later one, begin: it is not searched for, as some books
// write every quotation mark as a reference.
constexpr auto firstNames = [] {
    std::array<std::uint16_t, lastLetter - firstLetter + 2> firsts{};
    std::uint16_t name = 0;
    for (int letter = 0; letter < int(firsts.size()); ++letter) {
        while (name < htmlEntityCount &&
               htmlEntityNames[htmlEntities[name].nameBegin] - firstLetter < letter)
            ++name;
        firsts[std::size_t(letter)] = name;
    }
    return firsts;
}();

// The longest name that the text begins with: the names that begin like it are narrowed unit by
// unit, and one that ends is the first of them.
const HtmlEntity* LongestName(std::u16string_view text) {
    if (text[0] < firstLetter || text[0] > lastLetter) return nullptr;
    const HtmlEntity* first = htmlEntities + firstNames[std::size_t(text[0] - firstLetter)];
    const HtmlEntity* last = htmlEntities + firstNames[std::size_t(text[0] - firstLetter + 1)];
    const HtmlEntity* longest = nullptr;
    for (std::size_t i = 1; i < text.size() && first != last; ++i) {
        const char16_t unit = text[i];
        if (last - first == 1) {
            if (NameUnit(*first, i) != unit) break;
            if (NameLength(first) == i + 1) return first;
            continue;
        }
        first = std::partition_point(
            first, last, [=](const HtmlEntity& entity) { return NameUnit(entity, i) < unit; });
        last = std::partition_point(
            first, last, [=](const HtmlEntity& entity) { return NameUnit(entity, i) == unit; });
        if (first != last && NameLength(first) == i + 1) longest = first;
    }
    return longest;
}

HtmlCharRef ReadName(std::u16string_view text) {
    const HtmlEntity* const entity = LongestName(text.substr(1));
    if (entity == nullptr) return {};
    return {.units = {entity->units[0], entity->units[1]},
            .unitCount = entity->units[1] == 0 ? 1u : 2u,
            .length = 1 + NameLength(entity)};
}

} // namespace

HtmlCharRef ReadHtmlCharRef(std::u16string_view text) {
    if (text.size() < 2) return {};
    if (text[1] == u'#') return ReadNumber(text);
    return IsAsciiAlphanumeric(text[1]) ? ReadName(text) : HtmlCharRef();
}

HtmlCharRef ReadHtmlAttributeCharRef(std::u16string_view text) {
    const HtmlCharRef ref = ReadHtmlCharRef(text);
    const bool isOpenName = ref.length > 0 && text[1] != u'#' && text[ref.length - 1] != u';' &&
                            ref.length < text.size();
    const bool isParameter =
        isOpenName && (text[ref.length] == u'=' || IsAsciiAlphanumeric(text[ref.length]));
    return isParameter ? HtmlCharRef() : ref;
}
