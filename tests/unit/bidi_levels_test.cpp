#include "common/bidi_levels.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

namespace {
// In the examples, capitals are Hebrew letters, and signs are direction controls:
// "<" LRE, ">" RLE, "#" RLO, "^" PDF, "[" LRI, "]" RLI, "{" FSI, "}" PDI.
constexpr std::u16string_view signs = u"<>#^[]{}", controls =
                                                       u"\u202A\u202B\u202E\u202C\u2066\u2067"
                                                       u"\u2068\u2069";

std::u16string FromExample(std::string_view example) {
    std::u16string text;
    for (const char each : example) {
        const auto sign = signs.find(char16_t(each));
        if (each >= 'A' && each <= 'Z')
            text += char16_t(u'\u05D0' + each - 'A');
        else
            text += sign == signs.npos ? char16_t(each) : controls[sign];
    }
    return text;
}

// As it is seen from left to right, without the controls.
std::string Seen(std::string_view example, bool rightToLeft = false) {
    const std::u16string text = FromExample(example);
    auto levels = BidiLevels(text, rightToLeft);
    ResetLineLevels(text, 0, TextPos(text.size()), rightToLeft, levels);
    std::string seen;
    for (const std::size_t index : VisualOrder(levels))
        if (signs.find(char16_t(example[index])) == signs.npos) seen += example[index];
    return seen;
}
} // namespace

TEST_CASE("text of both directions is seen in the paragraph's order") {
    CHECK(Seen("") == "");
    CHECK(Seen("car means CAR.") == "car means RAC.");
    CHECK(Seen("car MEANS CAR.", true) == ".RAC SNAEM car");
    CHECK(Seen("one ABC DEF two") == "one FED CBA two");
    CHECK(Seen("ABC one two DEF", true) == "FED one two CBA");
    CHECK(Seen("ABC def") == "CBA def");
    CHECK(Seen("ABC def", true) == "def CBA");
}

TEST_CASE("numbers keep their order") {
    CHECK(Seen("ABC 123 DE", true) == "ED 123 CBA");
    CHECK(Seen("ABC 123") == "123 CBA");
    CHECK(Seen("A 1,234.5 B") == "B 1,234.5 A");
    CHECK(Seen("A $5 10% B") == "B 10% $5 A");
    CHECK(Seen("A 1-2 B", true) == "B 1-2 A");
    CHECK(Seen("one 12 ABC") == "one 12 CBA");
}

TEST_CASE("spaces at the end and around tabs take the paragraph's direction") {
    CHECK(Seen("one ABC  ") == "one CBA  ");
    CHECK(Seen("ABC one  ", true) == "  one CBA");
    CHECK(Seen("AB \tCD") == "BA \tDC");
    CHECK(Seen("AB\tcd", true) == "cd\tBA");
}

TEST_CASE("marks go with their letter") {
    const std::u16string text = u"a \u05D0\u05B8 b";
    CHECK(BidiLevels(text, false) == std::vector<BidiLevel>{0, 0, 1, 1, 0, 0});
    CHECK(BidiLevels(u"\U00010800\U0001D11E", true) == std::vector<BidiLevel>{1, 1, 2, 2});
    CHECK(BidiLevels(u"\u0661a\u0645 1", false) == std::vector<BidiLevel>{2, 0, 1, 1, 2});
}

TEST_CASE("direction controls embed, override and isolate") {
    CHECK(Seen("one >ABC two^ three") == "one two CBA three");
    CHECK(Seen("one #abc^ two") == "one cba two");
    CHECK(Seen("he said \"]car MEANS CAR}.\"") == "he said \"RAC SNAEM car.\"");
    CHECK(Seen("A [b C d} E") == "E b C d A");
    CHECK(Seen("one {AB c} two") == "one c BA two");
    CHECK(Seen("one {c AB} two") == "one c BA two");
    CHECK(Seen("one ]ABC") == "one CBA"); // never closed
    CHECK(Seen("one} ^two") == "one two");
    const std::u16string deep(300, u'\u202B');
    CHECK(BidiLevels(deep + u"a", false).back() == 126);
}
