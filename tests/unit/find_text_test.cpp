#include "common/find_text.h"
#include "common/text.h"

#include <doctest/doctest.h>

#include <map>
#include <random>
#include <set>
#include <string>

namespace {
std::size_t FindSimply(std::u16string_view text, std::u16string_view what, std::size_t start) {
    for (std::size_t at = start; at + what.size() <= text.size(); ++at)
        if (EqualIgnoringCase(text.substr(at, what.size()), what)) return at;
    return std::u16string_view::npos;
}

std::u16string RandomText(std::mt19937& random, std::size_t length) {
    constexpr std::u16string_view letters = u"aAbB sS\u017F\u03C3\u03C2\u03A3";
    std::u16string text(length, u' ');
    for (char16_t& unit : text)
        unit = letters[random() % letters.size()];
    return text;
}
} // namespace

TEST_CASE("find text: the same as a simple search, in texts of all lengths") {
    std::mt19937 random(7);
    for (std::size_t length = 0; length < 200; ++length) {
        const std::u16string text = RandomText(random, length);
        for (std::size_t size = 1; size < 5; ++size) {
            const std::u16string what = RandomText(random, size);
            const std::size_t start = random() % (length + 1);
            CHECK(FindText(text, what, start, {}) == FindSimply(text, what, start));
            CHECK(FindText(text, what, start, {false, true}) == text.find(what, start));
        }
    }
}

TEST_CASE("find text: a match at each place around the borders of what is searched at once") {
    for (std::size_t at = 0; at < 150; ++at) {
        std::u16string text(150, u'-');
        CHECK(FindText(text + u"Xy", u"xY", at, {}) == 150);
        text.replace(at, 1, u"Xy");
        CHECK(FindText(text, u"xY", 0, {}) == at);
    }
}

TEST_CASE("find text: what belongs to a word") {
    for (const char16_t unit :
         u"aZ09_\u00AA\u00B5\u00BA\u00E9\u0301\u0416\u05D0\u0E01\u3005\u3042\u4E00"
         u"\uAC00\uFF21\uFF3F\uFF71\U00020000")
        if (unit != 0) CHECK_MESSAGE(IsWordUnit(unit), static_cast<int>(unit));
    for (const char16_t unit :
         u" \n-'."
         u"\u00A0\u00AB\u00B7\u00BB\u00BF\u00D7\u00F7\u2019\u2014\u20AC\u2192\u25A0\u2713\u3000"
         u"\u3001\u300C\uFF0C\uFF1F\uFF65\uFFFC\uFFFD")
        CHECK_MESSAGE(!IsWordUnit(unit), static_cast<int>(unit)); // the NUL at the end, too
}

TEST_CASE("find text: a whole word beside signs and letters of any script") {
    const struct {
        std::u16string text, what;
        std::size_t at;
    } cases[] = {
        {u"\u2192word\u2190", u"word", 1},
        {u"2\u00D7word", u"word", 2},
        {u"\u3001\u65E5\u672C\u3002", u"\u65E5\u672C", 1},
        {u"sword words word", u"word", 12},
        {u"\u00E9word", u"word", std::u16string::npos},
        {u"word_", u"word", std::u16string::npos},
    };
    for (const auto& c : cases)
        CHECK(FindText(c.text, c.what, 0, {true, false}) == c.at);
}

TEST_CASE("find text: the forms of a unit are those that are folded to the same") {
    std::map<char16_t, std::set<char16_t>> groups;
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit)
        groups[FoldCase(static_cast<char16_t>(unit))].insert(static_cast<char16_t>(unit));
    for (const auto& [folded, units] : groups) {
        CAPTURE(static_cast<int>(folded));
        CHECK(units.size() <= 4); // what a search has room for
        for (const char16_t unit : units) {
            const std::vector<char16_t> forms = CaseForms(unit);
            CHECK(std::set<char16_t>(forms.begin(), forms.end()) == units);
            CHECK(forms.size() == units.size());
        }
    }
    CHECK(CaseForms(u's') == std::vector<char16_t>{u'S', u's', u'\u017F'});
    CHECK(CaseForms(u'\u03B9') ==
          std::vector<char16_t>{u'\u0399', u'\u03B9', u'\u0345', u'\u1FBE'});
}
