#include "formats/codepages/code_pages.h"

#include "common/decode_pieces.h"
#include "common/utf.h"
#include "formats/codepages/code_page_gb18030.h"
#include "formats/codepages/code_page_tables.h"
#include "formats/codepages/escaped_text.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <optional>

namespace {

constexpr int gb18030Page = 54936;
constexpr int gbkPage = 936;
constexpr int fallbackPage = 1252;

template <class Page, std::size_t count>
const Page* FindPage(const Page (&pages)[count], int codePage) {
    const auto* const found = std::find_if(std::begin(pages), std::end(pages),
                                           [=](const Page& page) { return page.page == codePage; });
    return found == std::end(pages) ? nullptr : found;
}

struct VisualPage {
    int page, logicalPage;
};
constexpr VisualPage visualPages[] = {
    {visualIsoPage, logicalIsoPage}, {visualDosPage, 862}, {visualWindowsPage, 1255}};

const SingleBytePage* FindSingleBytePage(int codePage) {
    const int letters = LogicalOrderPage(codePage);
    return FindPage(singleBytePages, letters == logicalIsoPage ? visualIsoPage : letters);
}

// 936 is read with all that GB18030 adds, so both share a table.
const DoubleBytePage* FindDoubleBytePage(int codePage) {
    return FindPage(doubleBytePages, codePage == gb18030Page ? gbkPage : codePage);
}

void DecodeSingleBytes(const SingleBytePage& page, std::string_view bytes, std::u16string& text) {
    char16_t units[0x100];
    std::iota(units, units + 0x80, u'\0');
    std::copy(std::begin(page.units), std::end(page.units), units + 0x80);
    const std::size_t begin = text.size();
    text.resize(begin + bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin() + static_cast<std::ptrdiff_t>(begin),
                   [&units](char byte) { return units[static_cast<unsigned char>(byte)]; });
}

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

// Nearly every text has none of them.
void ReplaceControlCharacters(int codePage, std::u16string& text, std::size_t begin) {
    const ControlLetters* const letters = FindPage(controlLetters, codePage);
    if (!letters) return;
    for (std::size_t i = begin; i < text.size(); ++i)
        if (text[i] < 0x20 && letters->units[text[i]] != 0) text[i] = letters->units[text[i]];
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

} // namespace

bool IsVisualOrder(int codePage) {
    return FindPage(visualPages, codePage) != nullptr;
}

int LogicalOrderPage(int codePage) {
    const VisualPage* const visual = FindPage(visualPages, codePage);
    return visual ? visual->logicalPage : codePage;
}

int OtherOrderPage(int codePage) {
    for (const VisualPage& each : visualPages) {
        if (each.page == codePage) return each.logicalPage;
        if (each.logicalPage == codePage) return each.page;
    }
    return 0;
}

bool HasCodePage(int codePage) {
    return codePage == utf8Page || IsEscapedPage(codePage) || FindSingleBytePage(codePage) ||
           FindDoubleBytePage(codePage);
}

void DecodeCodePage(int codePage, std::string_view bytes, std::u16string& text) {
    if (codePage == utf8Page && text.empty())
        text = Utf8ToUtf16(bytes); // a whole book is not held twice
    else if (codePage == utf8Page)
        text += Utf8ToUtf16(bytes);
    else if (IsEscapedPage(codePage))
        DecodeEscaped(codePage, bytes, text);
    else if (const DoubleBytePage* pairs = FindDoubleBytePage(codePage))
        DecodeDoubleBytes(*pairs, bytes, text);
    else if (const SingleBytePage* single = FindSingleBytePage(codePage)) {
        const std::size_t begin = text.size();
        DecodeSingleBytes(*single, bytes, text);
        ReplaceControlCharacters(codePage, text, begin);
    } else
        DecodeCodePage(fallbackPage, bytes, text);
}

const char16_t* UpperHalf(int codePage) {
    const SingleBytePage* const page = FindSingleBytePage(codePage);
    return page ? page->units : nullptr;
}

bool IsSingleBytePage(int codePage) {
    return codePage != utf8Page && !IsEscapedPage(codePage) && !FindDoubleBytePage(codePage);
}

std::size_t SequenceLength(int codePage, std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (codePage == utf8Page)
        return static_cast<std::size_t>(std::max(Utf8SequenceLength(first), 1));
    const DoubleBytePage* const page = FindDoubleBytePage(codePage);
    if (!page || !IsLeadByte(codePage, first)) return 1;
    const char second = bytes.size() > 1 ? bytes[1] : '\0';
    if (page->page == gbkPage && second >= '0' && second <= '9') return 4;
    if (page->longer && page->longer->lead == first) return page->longer->firstPlane != 0 ? 4 : 3;
    return 2;
}

std::size_t CharacterEnd(int codePage, std::string_view bytes, std::size_t place) {
    if (codePage == utf8Page) return Utf8CharacterEnd(bytes, place);
    const DoubleBytePage* page = FindDoubleBytePage(codePage);
    if (!page) return place;
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char *at = start, *const end = start + bytes.size();
    while (at < start + place) {
        const bool leads = *at >= 0x80 && page->units[*at - 0x80] == leadUnit;
        at += leads ? DecodePair(*page, page->pairs(), at, end).length : 1;
    }
    return static_cast<std::size_t>(at - start);
}

bool IsLeadByte(int codePage, unsigned char byte) {
    const DoubleBytePage* page = FindDoubleBytePage(codePage);
    return page && byte >= 0x80 && page->units[byte - 0x80] == leadUnit;
}
