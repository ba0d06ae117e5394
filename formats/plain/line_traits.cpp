#include "formats/plain/line_traits.h"

#include "common/find_text.h"
#include "common/text.h"
#include "common/text_characters.h"
#include "common/unicode.h"

#include <algorithm>

namespace {
constexpr std::u16string_view bullets = u"-*+\u2022\u00B7";
constexpr std::u16string_view sentenceEnds = u".!?:\u2026\u3002\uFF01\uFF1F";

bool IsSmall(char16_t unit) {
    return FoldCase(unit) != unit;
}

bool IsCapital(char16_t unit) {
    return WordPartOf(unit) == WordPart::Letter && !IsSmall(unit) && CaseForms(unit).size() > 1;
}

bool IsLetter(char16_t unit) {
    return IsSurrogate(unit) || WordPartOf(unit) == WordPart::Letter;
}

int ColumnsOf(char32_t character) {
    return IsMarkOrFormat(character) ? 0 : IsWide(character) ? 2 : 1;
}

std::u16string_view WithoutEnd(std::u16string_view line) {
    while (!line.empty() && IsSpaceCharacter(line.back()))
        line.remove_suffix(1);
    return line;
}

// Up to a space, or to where the line could be broken without one.
int FirstWordOf(std::u16string_view text) {
    int columns = 0;
    for (std::size_t at = 0; at < text.size() && !IsSpaceCharacter(text[at]);) {
        const char32_t character = FirstCharacter(text.substr(at, 2));
        columns += ColumnsOf(character);
        if (IsWide(character)) break;
        at += static_cast<std::size_t>(UnitsOf(character));
    }
    return columns;
}

// More than one letter, and those that have a case are capitals.
bool IsInCapitals(std::u16string_view text) {
    return std::ranges::none_of(text, IsSmall) && std::ranges::count_if(text, IsCapital) > 1;
}

// Without the indent that a paragraph begins with: a tab or some blanks. A wider one is there to
// set the line apart.
std::u16string_view WithoutIndent(std::u16string_view text) {
    constexpr std::size_t maxBlanks = 8;
    if (text.starts_with(u'\t')) return text.substr(1);
    const std::size_t letter = text.find_first_not_of(u' ');
    return letter <= maxBlanks ? text.substr(letter) : text;
}

// Columns that were lined up by blanks, a tab, bars or a row of dots.
bool IsTableRow(std::u16string_view text) {
    return text.find(u"    ") != text.npos || text.find(u'\t') != text.npos ||
           text.find(u'|') != text.npos || text.find(u".....") != text.npos;
}

// A bullet, a number of at most three digits or a letter, with a blank after it.
bool BeginsItem(std::u16string_view text) {
    const std::size_t blank = text.find(u' ');
    if (blank == text.npos || blank == 0) return false;
    std::u16string_view mark = text.substr(0, blank);
    if (mark.size() == 1) return bullets.find(mark[0]) != bullets.npos;
    const bool isEnclosed = mark.front() == u'(' && mark.back() == u')';
    if (!isEnclosed && mark.back() != u')' && mark.back() != u'.') return false;
    const bool isDot = mark.back() == u'.';
    mark = mark.substr(isEnclosed ? 1 : 0, mark.size() - (isEnclosed ? 2 : 1));
    const bool isNumber =
        !mark.empty() && mark.size() <= 3 &&
        std::ranges::all_of(mark, [](char16_t u) { return u >= u'0' && u <= u'9'; });
    return isNumber || (!isDot && mark.size() == 1 && IsLetter(mark[0]));
}
} // namespace

LineTraits TraitsOf(std::u16string_view line) {
    LineTraits traits;
    traits.isTooLong = line.size() > maxPageLine;
    const std::u16string_view text = WithoutEnd(line);
    if (text.empty() || traits.isTooLong) return traits;
    traits.isBlank = false;
    traits.isIndented = IsSpaceCharacter(text.front());
    ForEachCharacter(text, [&](TextPos, char32_t each) { traits.width += ColumnsOf(each); });
    traits.firstWord = FirstWordOf(text);
    const auto letter = std::ranges::find_if(text, IsLetter);
    traits.standsAlone =
        letter == text.end() || IsInCapitals(text) || IsTableRow(WithoutIndent(text));
    traits.isItem = BeginsItem(text);
    if (letter == text.end()) return traits;
    traits.startsWithCapital = IsCapital(*letter);
    traits.startsWithSmall = IsSmall(*letter);
    traits.endsSentence = sentenceEnds.find(text.back()) != sentenceEnds.npos;
    return traits;
}
