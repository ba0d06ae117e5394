#include "formats/plain/visual_lines.h"

#include "common/bidi_levels.h"
#include "common/utf.h"

#include <doctest/doctest.h>

#include <random>

namespace {
// Aleph to gimel stand for any letters: 'A', 'B', 'C' in these tests.
std::u16string Hebrew(std::string_view text) {
    std::u16string result;
    for (const char c : text)
        result += c >= 'A' && c <= 'Z' ? static_cast<char16_t>(0x5D0 + c - 'A')
                                       : static_cast<char16_t>(c);
    return result;
}

std::string Logical(std::string_view visual) {
    std::u16string text = Hebrew(visual);
    ReorderVisualLines(text);
    std::string result;
    for (const char16_t unit : text)
        result += unit >= 0x5D0 ? static_cast<char>('A' + unit - 0x5D0) : static_cast<char>(unit);
    return result;
}
} // namespace

TEST_CASE("visual lines: what is read from the left stays so") {
    const struct {
        std::string_view visual, logical;
    } cases[] = {
        {"", ""},
        {"CBA", "ABC"},
        {".FED CBA", "ABC DEF."},
        {"FED 1948 CBA", "ABC 1948 DEF"},
        {"FED 12.5% CBA", "ABC 12.5% DEF"},
        {"31/12/1999 CBA", "ABC 31/12/1999"},
        {"1995-B", "B-1995"},
        {".word 97 CBA", "ABC word 97."},
        {".FED word, word CBA", "ABC word, word DEF."},
        {"FED (CBA)", "(ABC) DEF"},
        {"FED (word) [CBA] {B} <C>", "<C> {B} [ABC] (word) DEF"},
        {"C\"BA", "AB\"C"},
        {"   CBA", "ABC   "},
        {"CBA  ", "  ABC"},
        {"FED\tCBA", "ABC\tDEF"},
        {"12\t34\tCBA", "ABC\t34\t12"},
        // Without Hebrew, or mostly without it
        {"plain words (1).", "plain words (1)."},
        {"12. 34", "12. 34"},
        {"it means CBA in other words.", "it means ABC in other words."},
        {"www.example.org :CBA", "ABC: www.example.org"},
    };
    for (const auto& c : cases)
        CHECK(Logical(c.visual) == c.logical);
}

TEST_CASE("visual lines: each line for itself, and line ends stay") {
    CHECK(Logical("BA\r\nDC\r\n\r\nFE\nHG\rJI\fLK") == "AB\r\nCD\r\n\r\nEF\nGH\rIJ\fKL");
    CHECK(Logical("\r\n\n\r") == "\r\n\n\r");
    CHECK(Logical("BA\x1A") == "\x1A"
                               "AB");
}

TEST_CASE("visual lines: quotation marks are mirrored") {
    std::u16string text = u"\u00AB\u05D1\u05D0\u00BB";
    ReorderVisualLines(text);
    CHECK(text == u"\u00AB\u05D0\u05D1\u00BB");
}

TEST_CASE("visual lines: points are after their letters, wherever they were") {
    const std::u16string logical = u"\u05D0\u05B0\u05D1\u05BC\u05B8 \u05D2\u05D3\u05B7";
    std::u16string ordered = u"\u05D3\u05B7\u05D2 \u05D1\u05BC\u05B8\u05D0\u05B0";
    std::u16string turned(logical.rbegin(), logical.rend());
    ReorderVisualLines(ordered);
    CHECK(ordered == logical);
    ReorderVisualLines(turned);
    CHECK(turned == logical);
    const std::u16string visual = u"\u05D3\u05D2\u05B7";
    for (const std::size_t place : {0, 1, 2}) {
        CHECK(VisualPlaceOf(visual, place) == (place + 1) % 3);
        CHECK(LogicalPlaceOf(visual, (place + 1) % 3) == place);
    }
}

TEST_CASE("visual lines: a line of any length, stretch by stretch") {
    std::u16string text(2 * maxVisualStretch + 10, u'\u05D0');
    text[0] = text[maxVisualStretch] = text[2 * maxVisualStretch] = u'\u05D1';
    text += u"\nend";
    ReorderVisualLines(text);
    CHECK(text.find(u'\u05D1') == maxVisualStretch - 1);
    CHECK(text[2 * maxVisualStretch - 1] == u'\u05D1');
    CHECK(text[2 * maxVisualStretch + 9] == u'\u05D1');
    CHECK(text.ends_with(u"\nend"));
    CHECK(VisualStretchEnd("ab\r\nc", 0) == 4);
    CHECK(VisualStretchEnd("ab\r\nc", 4) == 5);
}

TEST_CASE("visual lines: every character has a place in both orders, and is shown where it was") {
    std::mt19937 random(5); // NOLINT: the same texts every time
    constexpr std::string_view parts = "ABCDE AB CD ab12.,-/()%\"\t \n";
    for (int round = 0; round < 2000; ++round) {
        std::string drawn;
        while (drawn.size() < 30)
            drawn += parts[random() % parts.size()];
        CAPTURE(drawn);
        const std::u16string visual = Hebrew(drawn);
        std::u16string logical = visual;
        ReorderVisualLines(logical);
        REQUIRE(logical.size() == visual.size());
        for (std::size_t place = 0; place < visual.size(); ++place) {
            const std::size_t from = VisualPlaceOf(visual, place);
            REQUIRE(LogicalPlaceOf(visual, from) == place);
            const bool bracket = visual[from] == u'(' || visual[from] == u')';
            CHECK((logical[place] == visual[from] || bracket));
        }
    }
}
