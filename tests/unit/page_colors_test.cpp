#include "reading/page_colors.h"

#include "html_form.h"

#include <doctest/doctest.h>

TEST_CASE("page colours: text changes only where the reader's background would hide them") {
    struct Case {
        PageColors own;
        Color background;
        std::optional<Color> text;
    };
    const Case table[] = {
        {{0x000000, 0xFFFFFF}, 0xFFFFFF, {}},       // as most pages are read
        {{0x000000, 0xFFFFFF}, 0xC0E0FF, {}},       // pastel
        {{0x000000, 0xFFFFFF}, 0x000000, 0xFFFFFF}, // at night
        {{0x000000, 0xFFFFFF}, 0x403020, 0xFFFFFF},
        {{0x000000, 0xFFFFFF}, 0x808080, {}},       // can still be read
        {{0xEEEEEE, 0x443322}, 0xFFFFFF, 0x000000}, // a dark page on white
        {{0xEEEEEE, 0x443322}, 0x000000, {}},
        {{0xBBBBBB, 0xFFFFFF}, 0xFFFFFF, {}}, // faint, as its author wanted it
        {{0xBBBBBB, 0xFFFFFF}, 0xDDDDDD, 0x000000},
        {{0x0000FF, 0x00FFFF}, 0x0000FF, 0x000000},
        {{0xFF0000, 0xFFFFFF}, 0xFF0000, 0xFFFFFF},
    };
    for (const Case& row : table) {
        CAPTURE(row.own.text);
        CAPTURE(row.background);
        CHECK(ReadableTextColor(row.own, row.background) == row.text);
    }
}

TEST_CASE("page colours: they follow the reader's choice, there and back") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    NonePage dark = HtmlForm::LongPage();
    dark.colors = {0xEEEEEE, 0x302010};
    test.PutPage(u"/b/dark.htm", dark);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    CHECK(test.Page().textColor == std::nullopt);
    const auto choose = [&](Color color) {
        test.Dialogs().colorAnswer = {DialogResult::Ok, color};
        test.Choose(test.Menu().mView, test.Menu().mViewBackground);
    };
    choose(0x402010);
    CHECK(test.Page().backColors.back() == 0x402010);
    CHECK(test.Page().textColor == 0xFFFFFFu);
    choose(0xFFFFFF);
    CHECK(test.Page().textColor == std::nullopt);
    test.OpenLoaded(u"/b/dark.htm"); // on white
    CHECK(test.Page().textColor == 0x000000u);
}
