// The characters of a page as all views count them: the cases of the views' contract, read by our
// own reader.
#include "common/utf.h"
#include "formats/html/html_page_text.h"
#include "formats/html/html_reader.h"
#include "tests/contract/page_text_cases.h"

#include <doctest/doctest.h>

namespace {

HtmlTree PageWithBody(const std::string& body) {
    return ReadHtml(
        Utf8ToUtf16("<!DOCTYPE html><html><head><title>t</title></head><body>" + body + "</body>"));
}

} // namespace

TEST_CASE("html page text: characters are counted as in every view") {
    for (const PageTextCase& c : pageTextCases) {
        CAPTURE(c.body);
        const HtmlTree tree = PageWithBody(c.body);
        const HtmlCountedText counted = HtmlPageText(tree);
        CHECK(counted.text == c.text);
        TextPos end = 0;
        for (const HtmlTextPiece& piece : counted.pieces) {
            CHECK(piece.start >= end);
            CHECK(piece.start - end <= 1); // a break or a blank
            CHECK(piece.end > piece.start);
            end = piece.end;
        }
        CHECK(end == static_cast<TextPos>(counted.text.size()));
    }
}

TEST_CASE("html page text: an element without content ends where it begins") {
    CHECK(HtmlPageText(PageWithBody("<pre></pre>a  b")).text == u"a b");
    CHECK(HtmlPageText(PageWithBody("a<div></div>b")).text == u"a\nb");
}

TEST_CASE("html page text: places within a text node") {
    // Of "  one \n two " the piece is "one two".
    constexpr std::u16string_view node = u"  one \n two ";
    const struct {
        std::size_t unit, count;
    } cases[] = {{2, 0}, {3, 1}, {5, 3}, {8, 4}, {9, 5}, {11, 7}};
    for (const auto& c : cases) {
        CAPTURE(c.unit);
        CHECK(HtmlUnitOfCharacter(node, c.count) == c.unit);
        CHECK(HtmlCharactersBefore(node, c.unit) == c.count);
    }
    CHECK(HtmlCharactersBefore(node, 0) == 0);
    CHECK(HtmlUnitOfCharacter(node, 99) == node.size());
}

TEST_CASE("html page text: a page without a body's text") {
    CHECK(HtmlPageText(ReadHtml(u"")).text.empty());
    CHECK(HtmlPageText(ReadHtml(u"<frameset><frame></frameset>")).text.empty());
    CHECK(HtmlPageText(ReadHtml(u"<body hidden>one")).text.empty());
}
