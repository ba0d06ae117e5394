#include "common/page_zoom.h"
#include "platform/windows/portable/css_color.h"
#include "platform/windows/portable/quoted_argument.h"

#include "platform/windows/portable/elided_text.h"

#include <doctest/doctest.h>

#include <algorithm>

TEST_CASE("windows html view: colours of computed styles") {
    const struct {
        const wchar_t* text;
        std::optional<Color> color;
    } table[] = {
        {L"rgb(1, 2, 3)", 0x030201},
        {L"rgb(255,128,0)", 0x0080FF},
        {L"#0A1BFF", 0xFF1B0A},
        {L"rgba(1, 2, 3, 0.5)", 0x030201},
        {L"rgba(1, 2, 3, 0)", {}},
        {L"transparent", {}},
        {L"", {}},
        {L"rgb(1, 2", {}},
        {L"#12", {}},
        {L"#01020g", {}},
        {L"rgba(1, 2, 3)", {}},
        {L"rgba(1, 2, 3, 1)", 0x030201},
        {L"rgba(0, 0, 0, 0.0)", {}},
    };
    for (const auto& row : table)
        CHECK(ParseCssColor(row.text) == row.color);
}

TEST_CASE("windows arguments: quotes only where they must be") {
    CHECK((QuotedArgument(L"C:\\books\\a.txt") == L"C:\\books\\a.txt"));
    CHECK((QuotedArgument(L"C:\\my books\\") == L"\"C:\\my books\\\\\""));
    CHECK((QuotedArgument(L"") == L"\"\""));
    CHECK((QuotedArgument(L"a\\\"b") == L"\"a\\\\\\\"b\""));
}

TEST_CASE("windows html view: zoom steps beyond the last size count") {
    PageZoom zoom;
    CHECK(zoom.Percent() == 100);
    zoom.Move(2);
    CHECK(zoom.Percent() == 125);
    zoom.Move(20);
    CHECK(zoom.Percent() == 500);
    zoom.Move(-20);
    CHECK(zoom.Percent() == 125);
    zoom.Move(-300); // no further than 100 steps
    CHECK(zoom.Percent() == 25);
    CHECK(zoom.Steps() == -100);
    zoom.Move(0);
    CHECK(zoom.Percent() == 100);
}

TEST_CASE("portable windows: a text is elided in its middle, to what fits") {
    const auto width = [](std::u16string_view text) { return static_cast<int>(text.size()); };
    CHECK(ElidedInMiddle(u"abcdefgh", 8, width) == u"abcdefgh");
    CHECK(ElidedInMiddle(u"abcdefgh", 7, width) == u"abc\u2026fgh");
    CHECK(ElidedInMiddle(u"abcdefgh", 4, width) == u"ab\u2026h");
    CHECK(ElidedInMiddle(u"abcdefgh", 1, width) == u"\u2026");
    CHECK(ElidedInMiddle(u"abcdefgh", 0, width) == u"\u2026");
    CHECK(ElidedInMiddle(u"", 0, width).empty());
    for (int room = 1; room < 12; ++room) // no half of a pair
        for (const char16_t unit : {u'\xD834', u'\xDD1E'}) {
            const std::u16string shown = ElidedInMiddle(
                u"\U0001D11E\U0001D11E\U0001D11E\U0001D11E\U0001D11E\U0001D11E", room, width);
            CHECK(std::ranges::count(shown, unit) * 2 ==
                  std::ranges::count_if(shown, [](char16_t c) { return c != u'\u2026'; }));
        }
}
