#include "formats/rtf/rtf_field_text.h"

#include "common/decode_pieces.h"
#include "common/text.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/symbol_fonts.h"
#include "formats/rtf/rtf_field_words.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace {

bool IsLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

// Decimal, or hexadecimal after "0x".
std::optional<std::uint32_t> CodeOf(std::u16string_view word) {
    const bool isHex = StartsWithIgnoringCase(word, u"0x");
    const std::string digits(word.begin() + (isHex ? 2 : 0), word.end());
    std::uint32_t code = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, code, isHex ? 16 : 10);
    return error == std::errc() && stop == end ? std::optional(code) : std::nullopt;
}

std::u16string TextOfCharacter(char32_t character) {
    const bool isShown = character >= 0x20 && character <= 0x10FFFF && !IsSurrogate(character) &&
                         character != 0xFFFC;
    if (!isShown) return {};
    char16_t units[2];
    return {units, PutUtf16(character, units)};
}

std::u16string TextOfSymbol(RtfFieldWords& words) {
    constexpr int windowsLatin = 1252;
    if (!words.Next()) return {};
    const auto code = CodeOf(words.Word());
    if (!code) return {};
    bool isUnicode = false;
    SymbolSet symbols = SymbolSet::None;
    while (words.Next()) {
        if (words.IsSwitch(u'u')) isUnicode = true;
        if (words.IsSwitch(u'f') && words.Next()) symbols = SymbolSetOfFont(words.Word());
    }
    if (isUnicode) return TextOfCharacter(*code);
    const auto byte = static_cast<unsigned char>(*code & 0xFF);
    if (symbols != SymbolSet::None) {
        const char32_t sign = SymbolOfByte(symbols, byte);
        const bool isPrivateUse = sign < 0x10000 && IsSymbolFontUnit(static_cast<char16_t>(sign));
        return isPrivateUse ? std::u16string() : TextOfCharacter(sign);
    }
    if (*code > 0xFF || byte < 0x20) return {};
    std::u16string text;
    DecodeCodePage(windowsLatin, {reinterpret_cast<const char*>(&byte), 1}, text);
    return text;
}

// An equation in one line. A switch is a backslash, a name and options, then its elements in
// parentheses; in the elements a backslash escapes the next character.
class EquationReader {
  public:
    explicit EquationReader(std::u16string_view text) : rest_(text) {}

    std::u16string Read() {
        std::u16string text = ReadPart(0);
        while (!rest_.empty()) { // parentheses that nothing has opened
            text += rest_.front();
            rest_.remove_prefix(1);
            text += ReadPart(0);
        }
        return std::u16string(TrimBlanks(text));
    }

  private:
    static constexpr int maxDepth = 16;

    // Up to what separates parts, or to the end.
    std::u16string ReadPart(int depth) {
        std::u16string text;
        while (!rest_.empty()) {
            const char16_t unit = rest_.front();
            if (depth > 0 && (unit == u',' || unit == u';' || unit == u')')) break;
            if (depth == 0 && unit == u')') break;
            rest_.remove_prefix(1);
            if (unit != u'\\')
                text += unit;
            else if (!rest_.empty() && IsLetter(rest_.front()))
                text += ReadSwitch(depth);
            else if (!rest_.empty() && rest_.front() == u'*')
                SkipGeneralSwitch();
            else if (!rest_.empty()) {
                text += rest_.front();
                rest_.remove_prefix(1);
            }
        }
        return text;
    }

    // After its backslash.
    std::u16string ReadSwitch(int depth) {
        const char16_t name = FoldCase(rest_.front());
        SkipOptions();
        if (rest_.empty() || rest_.front() != u'(' || depth == maxDepth) return {};
        std::vector<std::u16string> parts;
        do {
            rest_.remove_prefix(1);
            parts.emplace_back(TrimBlanks(ReadPart(depth + 1)));
        } while (!rest_.empty() && rest_.front() != u')');
        if (rest_.empty()) return {};
        rest_.remove_prefix(1);
        switch (name) {
        case u'O': return parts.back();
        case u'F': return Join(parts, u"/");
        case u'R': return u"\u221A" + parts.back();
        case u'I': return u"\u222B" + parts.back();
        case u'L': return Join(parts, u", ");
        default: return Join(parts, u" ");
        }
    }

    // Letters, numbers, blanks and further switches before the parenthesis.
    void SkipOptions() {
        while (!rest_.empty() && rest_.front() != u'(') {
            const char16_t unit = rest_.front();
            const bool isOption =
                IsLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u' ' || unit == u'-';
            if (!isOption && unit != u'\\') return;
            rest_.remove_prefix(1);
            // Of a bracket's sign, which may be a parenthesis.
            if (unit == u'\\' && !rest_.empty()) rest_.remove_prefix(1);
        }
    }

    // "\* word" or "\* "words"".
    void SkipGeneralSwitch() {
        rest_.remove_prefix(1);
        RtfFieldWords words(rest_);
        words.Next();
        rest_ = words.Rest();
    }

    std::u16string_view rest_;
};

} // namespace

std::u16string TextOfField(std::u16string_view instruction) {
    RtfFieldWords words(instruction);
    if (!words.Next()) return {};
    if (EqualIgnoringCase(words.Word(), u"SYMBOL")) return TextOfSymbol(words);
    if (EqualIgnoringCase(words.Word(), u"EQ")) return EquationReader(words.Rest()).Read();
    if (EqualIgnoringCase(words.Word(), u"QUOTE") && words.Next()) return words.Word();
    const bool isButton = EqualIgnoringCase(words.Word(), u"MACROBUTTON") ||
                          EqualIgnoringCase(words.Word(), u"GOTOBUTTON");
    if (isButton && words.Next()) return std::u16string(TrimBlanks(words.Rest()));
    return {};
}

std::u16string PictureFileOfField(std::u16string_view instruction) {
    RtfFieldWords words(instruction);
    if (!words.Next() || !EqualIgnoringCase(words.Word(), u"INCLUDEPICTURE")) return {};
    while (words.Next()) {
        if (words.IsSwitch(u'c'))
            words.Next(); // a converter's name
        else if (!words.IsAnySwitch())
            return words.Word();
    }
    return {};
}
