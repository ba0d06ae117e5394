#include "platform/windows/line_layout/characters.h"

#include "platform/windows/base/win32.h"

namespace {

bool IsHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t Join(wchar_t high, wchar_t low) {
    return 0x10000 + ((char32_t(high) - 0xD800) << 10) + (char32_t(low) - 0xDC00);
}

bool IsIn(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

WORD TypeOf(char32_t character, DWORD kind) {
    if (character >= 0x10000) return 0;
    const wchar_t unit = static_cast<wchar_t>(character);
    WORD type = 0;
    GetStringTypeW(kind, &unit, 1, &type);
    return type;
}

bool IsDigit(char32_t character) {
    return (TypeOf(character, CT_CTYPE1) & C1_DIGIT) != 0;
}

bool IsJamo(char32_t character) {
    return IsIn(character, 0x1100, 0x11FF);
}

bool IsOneOf(char32_t character, std::u32string_view set) {
    return set.find(character) != set.npos;
}

// May not begin a line in Chinese, Japanese and Korean text: what closes, small kana, marks of
// length and repetition.
bool IsNotAtStart(char32_t character) {
    return IsOneOf(character,
                   U"!%),.:;?]}»’”‰℃…、。〉》」』】〕〗〙〛〟々〻ぁぃぅぇぉっゃゅょゎ"
                   U"ァィゥェォッャュョヮヵヶ・ーヽヾゝゞ゛゜！％），．：；？］｝～￠｡｣､･");
}

bool IsNotAtEnd(char32_t character) {
    return IsOneOf(character, U"([{«‘“〈《「『【〔〖〘〚〝（［｛￡￥｢$£¥");
}

// Quotes of which one cannot say whether they open or close.
bool IsPlainQuote(char32_t character) {
    return character == U'"' || character == U'\'';
}

bool IsGlue(char32_t character) {
    return IsOneOf(character, U"\u00A0\u2007\u202F\u2011\u2060\uFEFF");
}

BreakRule BreakBesideIdeograph(char32_t before, char32_t after) {
    if (IsNotAtEnd(before) || IsNotAtStart(after) || IsPlainQuote(before) || IsPlainQuote(after))
        return BreakRule::Never;
    return BreakRule::Allowed;
}

} // namespace

char32_t CharacterAt(std::wstring_view text, std::size_t at) {
    const bool pair =
        IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
    return pair ? Join(text[at], text[at + 1]) : text[at];
}

char32_t CharacterBefore(std::wstring_view text, std::size_t at) {
    const bool pair = at >= 2 && IsHighSurrogate(text[at - 2]) && IsLowSurrogate(text[at - 1]);
    return pair ? Join(text[at - 2], text[at - 1]) : text[at - 1];
}

bool IsBreakingSpace(char32_t character) {
    return character == U' ' || character == 0x1680 || IsIn(character, 0x2000, 0x2006) ||
           IsIn(character, 0x2008, 0x200A) || character == 0x205F || character == 0x3000;
}

bool IsHiddenControl(char32_t character) {
    return character < 0x20 || IsIn(character, 0x7F, 0x9F) || character == 0x061C ||
           character == 0x200B || IsIn(character, 0x200E, 0x200F) ||
           IsIn(character, 0x2029, 0x202E) || IsIn(character, 0x2060, 0x206F) ||
           character == 0xFEFF;
}

bool IsIgnorable(char32_t character) {
    return IsIn(character, 0x200C, 0x200D) || character == 0x034F ||
           IsIn(character, 0x180B, 0x180E) || IsIn(character, 0xFE00, 0xFE0F) ||
           IsIn(character, 0xE0000, 0xE0FFF);
}

bool IsLetterOrDigit(char32_t character) {
    if (character < 0x80) return IsIn(character | 0x20, U'a', U'z') || IsIn(character, U'0', U'9');
    if (character >= 0x10000) return !IsIn(character, 0x1F000, 0x1FAFF);
    return (TypeOf(character, CT_CTYPE1) & (C1_ALPHA | C1_DIGIT)) != 0;
}

bool IsIdeographic(char32_t character) {
    return IsIn(character, 0x2E80, 0x312F) || IsIn(character, 0x3190, 0x4DBF) ||
           IsIn(character, 0x4E00, 0xA4CF) || IsIn(character, 0xAC00, 0xD7A3) ||
           IsIn(character, 0xF900, 0xFAFF) || IsIn(character, 0xFE30, 0xFE4F) ||
           IsIn(character, 0xFF00, 0xFFEF) || IsIn(character, 0x20000, 0x3FFFF);
}

bool JoinsInCharacter(char32_t before, char32_t after) {
    constexpr char32_t joiner = 0x200D, firstMark = 0x0300;
    if (after < firstMark) return false;
    if (IsIgnorable(after) || IsIn(after, 0x1F3FB, 0x1F3FF)) return true; // shades of skin
    if (IsJamo(before) && IsIn(after, 0x1160, 0x11FF)) return true;       // of one syllable
    if (before == joiner && (after >= 0x10000 || IsIn(after, 0x2190, 0x2BFF))) return true;
    if (IsIn(after, 0x0300, 0x036F) || IsIn(after, 0x1AB0, 0x1AFF) || IsIn(after, 0x1DC0, 0x1DFF) ||
        IsIn(after, 0x20D0, 0x20FF) || IsIn(after, 0x3099, 0x309A) || IsIn(after, 0xFE20, 0xFE2F))
        return true;
    return (TypeOf(after, CT_CTYPE3) & C3_NONSPACING) != 0 && !IsIn(after, 0xFF9E, 0xFF9F);
}

BreakRule BreakBetween(char32_t before, char32_t after) {
    constexpr char32_t zeroWidthSpace = 0x200B, softHyphen = 0x00AD, hyphen = 0x2010,
                       enDash = 0x2013, emDash = 0x2014;
    if (IsBreakingSpace(after)) return BreakRule::Never; // spaces stay at the line's end
    if (IsBreakingSpace(before) || before == zeroWidthSpace) return BreakRule::Allowed;
    if (IsGlue(before) || IsGlue(after)) return BreakRule::Never;
    if (before == softHyphen) return BreakRule::Allowed;
    if (before == U'-' || before == hyphen)
        return IsLetterOrDigit(after) && !IsDigit(after) ? BreakRule::Allowed : BreakRule::Never;
    if (before == enDash || before == emDash)
        return IsLetterOrDigit(after) ? BreakRule::Allowed : BreakRule::Never;
    if (IsIdeographic(before) || IsIdeographic(after)) return BreakBesideIdeograph(before, after);
    return BreakRule::AsTheSystemSays;
}
