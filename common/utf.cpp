#include "common/utf.h"

#include "common/decode_pieces.h"
#include "common/sum_over_bytes.h"

#include <algorithm>

namespace {

// The length of the well-formed sequence at `at` (Unicode, table 3-7), 0 when there is none before
// `end`.
int SequenceLength(const unsigned char* at, const unsigned char* end) {
    const unsigned lead = at[0];
    const int length = Utf8SequenceLength(at[0]);
    if (length <= 1 || end - at < length) return length == 1 ? 1 : 0;

    // The second byte shuts out overlong forms, surrogates and what is above U+10FFFF.
    const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (at[1] < low || at[1] > high) return 0;
    for (int i = 2; i < length; ++i)
        if ((at[i] & 0xC0) != 0x80) return 0;
    return length;
}

char32_t SequenceValue(const unsigned char* at, int length) {
    switch (length) {
    case 1: return at[0];
    case 2: return (at[0] & 0x1Fu) << 6 | (at[1] & 0x3Fu);
    case 3: return (at[0] & 0x0Fu) << 12 | (at[1] & 0x3Fu) << 6 | (at[2] & 0x3Fu);
    default:
        return (at[0] & 0x07u) << 18 | (at[1] & 0x3Fu) << 12 | (at[2] & 0x3Fu) << 6 |
               (at[3] & 0x3Fu);
    }
}

void AppendUtf8(char32_t value, std::string& bytes) {
    const auto put = [&](char32_t byte) { bytes += static_cast<char>(byte); };
    if (value < 0x80) {
        put(value);
    } else if (value < 0x800) {
        put(0xC0 | value >> 6);
        put(0x80 | (value & 0x3F));
    } else if (value < 0x10000) {
        put(0xE0 | value >> 12);
        put(0x80 | (value >> 6 & 0x3F));
        put(0x80 | (value & 0x3F));
    } else {
        put(0xF0 | value >> 18);
        put(0x80 | (value >> 12 & 0x3F));
        put(0x80 | (value >> 6 & 0x3F));
        put(0x80 | (value & 0x3F));
    }
}

} // namespace

std::size_t ValidUtf8Length(std::string_view bytes) {
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char* const end = start + bytes.size();
    const unsigned char* at = start;
    while (at != end) {
        at += AsciiLength(at, end);
        if (at == end) break;
        do {
            const int length = SequenceLength(at, end);
            if (length == 0) return static_cast<std::size_t>(at - start);
            at += length;
        } while (at != end && *at >= 0x80);
    }
    return static_cast<std::size_t>(at - start);
}

namespace {
// A byte as a signed number in the same order, which is what processors compare.
constexpr signed char Place(unsigned char byte) {
    return static_cast<signed char>(byte ^ 0x80);
}

// Whether something is wrong at this byte, told from it and the three before it. Only comparisons
// of bytes, no branch: the compiler looks at many bytes at once.
bool IsWrongAt(const unsigned char* at) {
    constexpr signed char p80 = Place(0x80), p90 = Place(0x90), pA0 = Place(0xA0);
    constexpr signed char pC0 = Place(0xC0), pC1 = Place(0xC1), pE0 = Place(0xE0);
    constexpr signed char pED = Place(0xED), pF0 = Place(0xF0), pF4 = Place(0xF4);
    constexpr signed char pF5 = Place(0xF5);
    const signed char now = Place(at[0]), first = Place(at[-1]), second = Place(at[-2]);
    const signed char third = Place(at[-3]); // before it
    const bool wanted = (first >= pC0) | (second >= pE0) | (third >= pF0);
    const bool continues = (now >= p80) & (now < pC0);
    const bool never = (now == pC0) | (now == pC1) | (now >= pF5);
    const bool overlong = ((first == pE0) & (now < pA0)) | ((first == pF0) & (now < p90));
    const bool outside = ((first == pED) & (now >= pA0)) | ((first == pF4) & (now >= p90));
    return (wanted ^ continues) | never | overlong | outside;
}
} // namespace

bool IsValidUtf8(std::string_view bytes) {
    constexpr std::size_t blockSize = 4096;
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    const std::size_t size = bytes.size();
    // The ends are looked at slowly: there are no three bytes before, or a sequence may be cut.
    if (size < 8) return ValidUtf8Length(bytes) == size;
    std::size_t at = ValidUtf8Length(bytes.substr(0, 4));
    if (at < 4) at += ValidUtf8Length(bytes.substr(at, 4));
    if (at < 3) return false;
    while (at < size) {
        const std::size_t end = std::min(size, at + blockSize);
        unsigned char wrong = 0;
        for (; at < end; ++at)
            wrong = static_cast<unsigned char>(wrong | IsWrongAt(start + at));
        if (wrong) return false;
    }
    const std::size_t last = size - 3;
    return start[size - 1] < 0xC0 && start[size - 2] < 0xE0 && start[last] < 0xF0;
}

// Each sequence has one byte that continues none, and the longest make a pair.
std::size_t Utf16Length(std::string_view bytes) {
    return SumOverBytes(
        bytes, [](const unsigned char* at) { return ((*at & 0xC0) != 0x80) + (*at >= 0xF0); });
}

std::size_t Utf8CharacterEnd(std::string_view bytes, std::size_t place) {
    constexpr std::size_t maxBefore = 3; // bytes of a sequence
    const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
    for (std::size_t before = 1; before <= std::min(maxBefore, place); ++before) {
        const unsigned char* const first = start + place - before;
        const auto length = static_cast<std::size_t>(SequenceLength(first, start + bytes.size()));
        if (length > before) return place - before + length;
    }
    return place;
}

char32_t NextUtf8Character(std::string_view bytes, std::size_t& at) {
    const auto* const lead = reinterpret_cast<const unsigned char*>(bytes.data()) + at;
    const int length = Utf8SequenceLength(*lead);
    at += static_cast<std::size_t>(length);
    return SequenceValue(lead, length);
}

std::u16string Utf8ToUtf16(std::string_view bytes, char16_t replacement) {
    std::u16string text;
    text.reserve(Utf16Length(bytes));
    DecodeInPieces(bytes, text,
                   [replacement](const unsigned char*& at, const unsigned char* stop,
                                 const unsigned char* end, char16_t*& out) {
                       do {
                           const int length = SequenceLength(at, end);
                           out =
                               PutUtf16(length == 0 ? replacement : SequenceValue(at, length), out);
                           at += std::max(length, 1);
                       } while (at < stop && *at >= 0x80);
                   });
    return text;
}

char32_t FirstCharacter(std::u16string_view text) {
    const bool pair = text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]);
    return pair ? 0x10000u + ((text[0] & 0x3FFu) << 10 | (text[1] & 0x3FFu)) : text[0];
}

std::string Utf16ToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t character = FirstCharacter(text.substr(i));
        AppendUtf8(IsSurrogate(character) ? 0xFFFD : character, bytes);
        i += character >= 0x10000;
    }
    return bytes;
}
