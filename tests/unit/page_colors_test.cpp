#include "reading/page_colors.h"

#include "html_form.h"

#include <doctest/doctest.h>

TEST_CASE("page colours: letters change only where the reader's background would hide them") {
    struct Case {
        PageColors own;
        std::uint32_t background;
        std::optional<std::uint32_t> letters;
    };
    const Case table[] = {
        {{0x000000, 0xFFFFFF}, 0xFFFFFF, {}},       // as most pages are read
        {{0x000000, 0xFFFFFF}, 0xFFE0C0, {}},       // pastel
        {{0x000000, 0xFFFFFF}, 0x000000, 0xFFFFFF}, // at night
        {{0x000000, 0xFFFFFF}, 0x203040, 0xFFFFFF},
        {{0x000000, 0xFFFFFF}, 0x808080, {}},       // can still be read
        {{0xEEEEEE, 0x223344}, 0xFFFFFF, 0x000000}, // a dark page on white
        {{0xEEEEEE, 0x223344}, 0x000000, {}},
        {{0xBBBBBB, 0xFFFFFF}, 0xFFFFFF, {}}, // faint, as its author wanted it
        {{0xBBBBBB, 0xFFFFFF}, 0xDDDDDD, 0x000000},
        {{0xFF0000, 0xFFFF00}, 0xFF0000, 0x000000},
        {{0x0000FF, 0xFFFFFF}, 0x0000FF, 0xFFFFFF},
    };
    for (const Case& row : table) {
        CAPTURE(row.own.text);
        CAPTURE(row.background);
        CHECK(ReadableTextColor(row.own, row.background) == row.letters);
    }
}

TEST_CASE("page colours: they follow the reader's choice, there and back") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    NonePage dark = HtmlForm::LongPage();
    dark.colors = {0xEEEEEE, 0x102030};
    test.PutPage(u"/b/dark.htm", dark);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    CHECK(test.Page().letterColor == std::nullopt);
    const auto choose = [&](Color color) {
        test.Dialogs().colorAnswer = {DialogResult::Ok, color};
        test.Choose(test.Menu().mView, test.Menu().mViewBackground);
    };
    choose(0x402010);
    CHECK(test.Page().backColors.back() == 0x102040);
    CHECK(test.Page().letterColor == 0xFFFFFFu);
    choose(0xFFFFFF);
    CHECK(test.Page().letterColor == std::nullopt);
    test.OpenLoaded(u"/b/dark.htm"); // on white
    CHECK(test.Page().letterColor == 0x000000u);
}
