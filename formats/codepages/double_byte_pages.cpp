#include "formats/codepages/double_byte_pages.h"

#include "common/decode_pieces.h"
#include "formats/codepages/code_page_gb18030.h"
#include "formats/codepages/code_page_tables.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

constexpr int gb18030Page = 54936;
constexpr int gbkPage = 936;

struct Character {
    char32_t value;
    int length; // in bytes
};

// As DecodePair, of a sequence that a pair cannot be.
std::optional<Character> DecodeLong(const LongSequences& longer, const unsigned char* at,
                                    const unsigned char* end) {
    const int length = longer.firstPlane != 0 ? 4 : 3;
    if (at[0] != longer.lead || end - at < length) return std::nullopt;
    const int plane = longer.firstPlane != 0 ? at[1] - longer.firstPlane : 0;
    const int row = at[length - 2] - 0xA1, cell = at[length - 1] - 0xA1;
    const auto isInside = [](int number, int count) { return number >= 0 && number < count; };
    if (!isInside(plane, longer.planes) || !isInside(row, eucRows) || !isInside(cell, eucRows))
        return std::nullopt;
    return Character{longer.units()[(plane * eucRows + row) * eucRows + cell], length};
}

// The character at a lead byte. A second byte that cannot follow it is left to be read by itself,
// and so is an ASCII one of a pair without a meaning: a stray lead byte eats no letter and no line
// end.
Character DecodePair(const DoubleBytePage& page, const char16_t* pairs, const unsigned char* at,
                     const unsigned char* end) {
    if (page.page == gbkPage && end - at >= 4 && IsFourByteSequence(at))
        return {FourByteCharacter(at), 4};
    if (page.longer)
        if (const auto character = DecodeLong(*page.longer, at, end)) return *character;
    if (end - at < 2 || at[1] < page.firstTrail || at[1] - page.firstTrail >= page.trailCount)
        return {undefinedUnit, 1};
    const int row = at[0] - page.firstLead;
    const char16_t unit = pairs[row * page.trailCount + (at[1] - page.firstTrail)];
    return {unit, unit == undefinedUnit && at[1] < 0x80 ? 1 : 2};
}

} // namespace

// 936 is read with all that GB18030 adds, so both share a table.
const DoubleBytePage* FindDoubleBytePage(int codePage) {
    const int page = codePage == gb18030Page ? gbkPage : codePage;
    const auto* const found = std::ranges::find(doubleBytePages, page, &DoubleBytePage::page);
    return found == std::end(doubleBytePages) ? nullptr : found;
}

bool IsLeadByte(const DoubleBytePage& page, unsigned char byte) {
    return byte >= 0x80 && page.units[byte - 0x80] == leadUnit;
}

std::size_t SequenceLength(const DoubleBytePage& page, std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (!IsLeadByte(page, first)) return 1;
    const char second = bytes.size() > 1 ? bytes[1] : '\0';
    if (page.page == gbkPage && second >= '0' && second <= '9') return 4;
    if (page.longer && page.longer->lead == first) return page.longer->firstPlane != 0 ? 4 : 3;
    return 2;
}

std::size_t CharacterEnd(const DoubleBytePage& page, std::string_view bytes, std::size_t place) {
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char *at = start, *const end = start + bytes.size();
    while (at < start + place)
        at += IsLeadByte(page, *at) ? DecodePair(page, page.pairs(), at, end).length : 1;
    return static_cast<std::size_t>(at - start);
}

void DecodeDoubleBytes(const DoubleBytePage& page, std::string_view bytes, std::u16string& text) {
    const char16_t* const pairs = page.pairs();
    DecodeInPieces(bytes, text,
                   [&page, pairs](const unsigned char*& at, const unsigned char* stop,
                                  const unsigned char* end, char16_t*& out) {
                       do {
                           const unsigned char byte = *at;
                           const char16_t unit = byte < 0x80 ? byte : page.units[byte - 0x80];
                           if (byte < 0x80 || unit != leadUnit) {
                               *out++ = unit;
                               ++at;
                           } else {
                               const Character character = DecodePair(page, pairs, at, end);
                               out = PutUtf16(character.value, out);
                               at += character.length;
                           }
                       } while (at < stop && *at >= 0x80);
                   });
}
