#include "formats/plain/heading_line.h"

#include "common/text.h"
#include "common/unicode.h"
#include "formats/plain/heading_words.h"

#include <algorithm>
#include <string>

namespace {

constexpr std::size_t maxLine = 80, maxTitle = 70; // units; longer ones are sentences
constexpr std::u16string_view ornaments =
    u"*_=#~|-\u2013\u2014\u2022[](){}<>\u3010\u3011\u300E\u300F";
constexpr std::u16string_view separators = u".:,)-\u2013\u2014\u3001\uFF0E\uFF1A\uFF09";
constexpr std::u16string_view eastDigits = u"0123456789\uFF10\uFF11\uFF12\uFF13\uFF14\uFF15\uFF16"
                                           u"\uFF17\uFF18\uFF19零〇一二两兩三四五六七八"
                                           u"九十百千廿卅";
constexpr std::u16string_view eastBooks = u"卷部篇集巻부편", eastChapters = u"章回節节話话幕折장화";

bool IsIn(std::u16string_view set, char16_t unit) {
    return set.find(unit) != std::u16string_view::npos;
}

template <class Condition>
std::u16string_view Trimmed(std::u16string_view text, const Condition& goes) {
    while (!text.empty() && goes(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && goes(text.back()))
        text.remove_suffix(1);
    return text;
}

bool IsSpace(char16_t unit) {
    return IsSpaceCharacter(unit);
}

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsLetter(char16_t unit) {
    return WordPartOf(unit) == WordPart::Letter;
}

std::u16string Capitals(std::u16string_view text) {
    std::u16string capitals(text);
    for (char16_t& unit : capitals)
        unit = FoldCase(unit);
    return capitals;
}

// In its shortest form, up to 399; 0 for none.
int RomanNumber(std::u16string_view text) {
    constexpr struct {
        std::u16string_view digits;
        int value;
    } parts[] = {{u"C", 100}, {u"XC", 90}, {u"L", 50}, {u"XL", 40}, {u"X", 10},
                 {u"IX", 9},  {u"V", 5},   {u"IV", 4}, {u"I", 1}};
    std::u16string_view rest = text;
    int value = 0;
    for (const auto& part : parts) {
        const int maxCount =
            part.digits == u"C" || part.digits == u"X" || part.digits == u"I" ? 3 : 1;
        for (int i = 0; i < maxCount && rest.starts_with(part.digits); ++i) {
            rest.remove_prefix(part.digits.size());
            value += part.value;
        }
    }
    return rest.empty() ? value : 0;
}

bool IsNumber(std::u16string_view word) {
    constexpr std::size_t maxDigits = 4;
    if (word.empty()) return false;
    if (std::ranges::all_of(word, IsDigit)) return word.size() <= maxDigits;
    const std::u16string capitals = Capitals(word);
    const bool roman = RomanNumber(capitals) > 0 && (capitals == word || word.size() > 1);
    return roman || IsNumberWord(capitals);
}

// Up to the next blank or separator; a hyphen within words stays.
std::u16string_view FirstWord(std::u16string_view text) {
    std::size_t length = 0;
    while (length < text.size() && !IsSpace(text[length])) {
        const char16_t unit = text[length];
        const bool joins = unit == u'-' && length + 1 < text.size() && IsLetter(text[length + 1]);
        if (IsIn(separators, unit) && !joins) break;
        ++length;
    }
    return text.substr(0, length);
}

bool IsTitle(std::u16string_view text) {
    if (text.empty() || text.size() > maxTitle) return false;
    const char16_t first =
        *std::ranges::find_if_not(text.substr(0, text.size() - 1), [](char16_t unit) {
            return IsIn(u"\"'\u201C\u2018\u00AB\u00BF\u00A1_*", unit);
        });
    return FoldCase(first) == first && !IsIn(u",;", text.back());
}

// What stands after the number.
HeadingLine WithTitle(int level, std::u16string_view rest) {
    const std::u16string_view title =
        Trimmed(rest, [](char16_t unit) { return IsSpace(unit) || IsIn(separators, unit); });
    if (title.empty()) return {level};
    if (!IsTitle(title)) return {};
    return {level, true, true};
}

// "CHAPTER IV", "Book the First: Recalled to Life".
HeadingLine AfterWord(int level, std::u16string_view rest) {
    rest = Trimmed(rest, [](char16_t unit) { return IsSpace(unit) || unit == u'.'; });
    std::u16string_view word = FirstWord(rest);
    if (Capitals(word) == u"THE") {
        rest = Trimmed(rest.substr(word.size()), IsSpace);
        word = FirstWord(rest);
    }
    return IsNumber(word) ? WithTitle(level, rest.substr(word.size())) : HeadingLine{};
}

// "Erstes Kapitel", "12. fejezet".
HeadingLine BeforeWord(std::u16string_view line, std::u16string_view number) {
    const auto rest = Trimmed(line.substr(number.size()),
                              [](char16_t unit) { return IsSpace(unit) || unit == u'.'; });
    const HeadingWord word = HeadingWordOf(Capitals(rest));
    if (word == HeadingWord::Book) return {1};
    return word == HeadingWord::Chapter ? HeadingLine{2} : HeadingLine{};
}

// "第三章 標題".
HeadingLine EastAsian(std::u16string_view line) {
    if (line.front() != u'第' && line.front() != u'제') return {};
    std::size_t end = 1;
    while (end < line.size() && (IsIn(eastDigits, line[end]) || line[end] == u' '))
        ++end;
    if (end == 1 || end >= line.size()) return {};
    const bool book = IsIn(eastBooks, line[end]);
    if (!book && !IsIn(eastChapters, line[end])) return {};
    const auto title = Trimmed(line.substr(end + 1), IsSpace);
    constexpr std::size_t maxEastTitle = 30;
    if (title.size() > maxEastTitle || IsIn(u"。，、！？", title.empty() ? u' ' : title.back()))
        return {};
    return {book ? 1 : 2, false, !title.empty()};
}

// "IV", "IV.", "XII. The Speckled Band".
HeadingLine Roman(std::u16string_view line) {
    const std::u16string_view number = FirstWord(line);
    if (RomanNumber(number) == 0) return {};
    const std::u16string_view rest = line.substr(number.size());
    if (rest.empty() || rest == u".") return {2, true};
    if (rest.front() != u'.' || rest.size() < 3 || rest[1] != u' ') return {};
    return WithTitle(2, rest);
}

} // namespace

HeadingLine HeadingLineOf(std::u16string_view line) {
    if (line.size() > 2 * maxLine) return {}; // with blanks around it
    line = Trimmed(line, [](char16_t unit) { return IsSpace(unit) || IsIn(ornaments, unit); });
    if (line.empty() || line.size() > maxLine) return {};
    if (const HeadingLine east = EastAsian(line)) return east;
    const std::u16string_view first = FirstWord(line);
    const std::u16string_view rest = line.substr(first.size());
    switch (HeadingWordOf(Capitals(first))) {
    case HeadingWord::Book: return AfterWord(1, rest);
    case HeadingWord::Chapter: return AfterWord(2, rest);
    case HeadingWord::Alone:
        return rest.empty() || rest == u"." ? HeadingLine{2, true} : HeadingLine{};
    case HeadingWord::None: break;
    }
    if (IsNumber(first))
        if (const HeadingLine before = BeforeWord(line, first)) return before;
    return Roman(line);
}
