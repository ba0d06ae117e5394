#include "formats/plain/letter_bytes.h"

#include "common/find_text.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"

#include <algorithm>

namespace {
// One u'\n' stands for several line ends, U+FFFD for all that has no meaning, and half a pair is a
// part of other bytes.
bool IsAmbiguous(std::u16string_view letter) {
    const bool half = letter.size() == 1 && (letter[0] & 0xF800) == 0xD800;
    return half || letter == u"\n" || letter == u"\uFFFD";
}

std::string Number(char32_t number, int size, bool bigEndian) {
    std::string bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> 8 * (bigEndian ? size - 1 - i : i) & 0xFF);
    return bytes;
}

std::string Utf16Bytes(std::u16string_view letter, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : letter)
        bytes += Number(unit, 2, bigEndian);
    return bytes;
}

// All that is decoded as the letter. A text has no NUL and no u'\r'.
std::vector<std::string> BytesOf(const PlainTextForm& form, std::u16string_view letter) {
    if (letter[0] == u'\0' || letter[0] == u'\r') return {};
    switch (form.encoding) {
    case TextEncoding::Utf8: return {Utf16ToUtf8(letter)};
    case TextEncoding::Utf16LittleEndian: return {Utf16Bytes(letter, false)};
    case TextEncoding::Utf16BigEndian: return {Utf16Bytes(letter, true)};
    case TextEncoding::Utf32LittleEndian: return {Number(FirstCharacter(letter), 4, false)};
    case TextEncoding::Utf32BigEndian: return {Number(FirstCharacter(letter), 4, true)};
    case TextEncoding::CodePage: break;
    }
    return CodePageBytes(form.codePage, letter);
}

void AddForm(std::vector<BytePattern>& patterns, const BytePattern& form) {
    for (BytePattern& pattern : patterns) {
        const auto joined = Joined(pattern, form);
        if (!joined) continue;
        pattern = *joined;
        return;
    }
    patterns.push_back(form);
}

LetterBytes BytesOfLetter(const PlainTextForm& form, std::u16string_view letter, bool matchCase) {
    constexpr std::size_t maxAmbiguousBytes = 8; // a line end of two units in UTF-32
    if (IsAmbiguous(letter)) return {{}, true, maxAmbiguousBytes};
    LetterBytes result;
    const auto add = [&](std::u16string_view each) {
        for (const std::string& bytes : BytesOf(form, each)) {
            AddForm(result.patterns, PatternOf(bytes));
            result.most = std::max(result.most, bytes.size());
        }
    };
    if (matchCase || letter.size() > 1)
        add(letter);
    else
        for (const char16_t unit : CaseForms(letter[0]))
            add({&unit, 1});
    return result;
}
} // namespace

std::vector<LetterBytes> BytesOfLetters(const PlainTextForm& form, std::u16string_view text,
                                        bool matchCase) {
    std::vector<LetterBytes> letters;
    while (!text.empty()) {
        const std::size_t size = FirstCharacter(text) >= 0x10000 ? 2 : 1;
        letters.push_back(BytesOfLetter(form, text.substr(0, size), matchCase));
        text.remove_prefix(size);
    }
    return letters;
}
