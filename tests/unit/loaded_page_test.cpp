// What a page says of itself when it has been read.
#include "common/utf.h"
#include "view/html/loaded_page.h"

#include <doctest/doctest.h>

TEST_CASE("loaded page: its title is one line") {
    const struct {
        const char *source, *title;
    } cases[] = {
        {"<title>War and Peace</title>", "War and Peace"},
        {"<title>\n  War\t and\r\n\r\n Peace\n</title>", "War and Peace"},
        {"<title> \n </title>", ""},
        {"<title></title><title>Another</title>", ""},
        {"<p>none", ""},
        {"<svg><title>a drawing's</title></svg><title>Peace &amp; war</title>", "Peace & war"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.source);
        CHECK(Utf16ToUtf8(LoadedPage(u"/b/page.htm", c.source, 1252).Title()) == c.title);
    }
}
