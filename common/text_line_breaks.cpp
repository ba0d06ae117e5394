// Where a line may start, of common/text_words.h.
#include "common/text_characters.h"
#include "common/text_clusters.h"
#include "common/text_words.h"
#include "common/unicode.h"

namespace {
constexpr char32_t softHyphen = 0xAD, zeroWidthSpace = 0x200B, emDash = 0x2014, wordJoiner = 0x2060;

bool IsGlue(char32_t character) {
    return character == 0xA0 || character == 0x2007 || character == 0x202F || character == 0x2060 ||
           character == 0xFEFF;
}

bool IsHyphen(char32_t character) {
    return character == u'-' || character == 0x2010 || character == 0x2013 || character == 0x058A;
}

bool IsOneOf(char32_t character, std::u32string_view characters) {
    return characters.find(character) != characters.npos;
}

// A line does not start with it, nor with a closing bracket.
bool IsNonstarter(char32_t character) {
    return IsOneOf(character,
                   U"!,./:;?%\u3001\u3002\uFF01\uFF0C\uFF0E\uFF1A\uFF1B\uFF1F\u3005\u301C\u303B"
                   U"\u30FB\u30FC\u3041\u3043\u3045\u3047\u3049\u3063\u3083\u3085\u3087\u308E\u309D"
                   U"\u309E\u30A1\u30A3\u30A5\u30A7\u30A9\u30C3\u30E3\u30E5\u30E7\u30EE\u30F5\u30F6"
                   U"\u30FD\u30FE");
}

bool IsWord(char32_t character) {
    return WordPartOf(character) == WordPart::Letter || WordPartOf(character) == WordPart::Number;
}

// Of three characters in a row, the first may be 0. A straight quotation mark stays with the sign
// before it, as it may close what ends there.
bool MayBreakAfterSign(char32_t before, char32_t sign, char32_t after) {
    if (after == u'"' || after == u'\'') return false;
    if (sign == softHyphen || sign == emDash) return true;
    if (IsHyphen(sign))
        return IsWord(before) && (sign != u'-' || WordPartOf(after) != WordPart::Number);
    return sign == u'/' && IsWord(before) && WordPartOf(after) == WordPart::Letter;
}

// Most of a text in Latin letters: no rule concerns two of them side by side.
bool IsLatinLetter(char32_t character) {
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

bool MayBreak(char32_t before, char32_t left, char32_t right) {
    if (IsLatinLetter(left) && IsLatinLetter(right)) return false;
    const bool space = left < 0x10000 && IsBreakingSpace(char16_t(left));
    if (right == u'\t') return space || left == u'\t';
    if (right < 0x10000 && IsBreakingSpace(char16_t(right))) return false;
    if (right == zeroWidthSpace || right == wordJoiner) return false;
    if (space || left == u'\t' || left == zeroWidthSpace || left == u'\u2028') return true;
    if (IsGlue(left) || IsGlue(right) || IsOpening(left)) return false;
    if (right == softHyphen || IsClosing(right) || IsNonstarter(right)) return false;
    if (MayBreakAfterSign(before, left, right)) return true;
    if (right == emDash) return IsWord(left);
    return IsWide(left) || IsWide(right);
}
} // namespace

bool IsBreakingSpace(char16_t unit) {
    return IsSpaceCharacter(unit) && !IsGlue(unit) && unit != u'\t' && unit != u'\u2028';
}

std::vector<bool> LineBreaks(std::u16string_view text) {
    std::vector<bool> breaks(text.size() + 1);
    const std::vector<TextPos> starts = ClusterStarts(text);
    char32_t before = 0, left = 0;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        const char32_t right = FirstCharacter(text.substr(std::size_t(starts[i]), 2));
        const std::size_t at = std::size_t(starts[i]);
        breaks[at] = i > 0 && !IsGlue(text[at - 1]) && MayBreak(before, left, right);
        before = left;
        left = right;
    }
    return breaks;
}
