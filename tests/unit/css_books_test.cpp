// Real books: what of their styles is not understood, and what some of their elements look like.
#include "css_samples.h"

#include "common/text.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace {

std::u16string ReadBook(const std::string& name) {
    std::ifstream file(RealBooks() / "htm" / name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return DecodeCss(bytes, IsValidUtf8(bytes) ? 65001 : 28591);
}

std::u16string WithoutComments(std::u16string css) {
    for (std::size_t at = css.find(u"/*"); at != css.npos; at = css.find(u"/*", at))
        css.erase(at, css.find(u"*/", at) - at + 2);
    return css;
}

void AddUnknown(std::u16string_view declarations, std::set<std::string>& unknown) {
    for (const std::u16string& one : Split(declarations, u";"))
        if (!Trim(one).empty() && ReadCssBlock(one).declarations.empty())
            unknown.insert(Utf16ToUtf8(Trim(one)));
}

// Of its sheets and `style` attributes.
std::set<std::string> UnknownDeclarations(const HtmlTree& tree) {
    std::set<std::string> unknown;
    for (HtmlNodeId id = tree.Next(htmlDocumentNode); id; id = tree.Next(id)) {
        if (const HtmlAttribute* style = tree[id].Attribute(HtmlName::Style))
            AddUnknown(style->Value(), unknown);
        if (!tree[id].Is(HtmlName::Style) || !tree[id].firstChild) continue;
        const std::u16string css =
            WithoutComments(std::u16string(tree[tree[id].firstChild].Text()));
        for (std::size_t at = css.find(u'{'); at != css.npos; at = css.find(u'{', at + 1))
            AddUnknown(std::u16string_view(css).substr(at + 1, css.find(u'}', at) - at - 1),
                       unknown);
    }
    return unknown;
}

// The first element of this name and, if one is given, this class.
HtmlNodeId First(const HtmlTree& tree, HtmlName name, std::u16string_view className = {}) {
    for (HtmlNodeId id = tree.Next(htmlDocumentNode); id; id = tree.Next(id)) {
        const HtmlAttribute* classes = tree[id].Attribute(HtmlName::Class);
        const bool fits = className.empty() || (classes && classes->Value() == className);
        if (tree[id].Is(name) && fits) return id;
    }
    return noHtmlNode;
}

} // namespace

TEST_CASE("css: declarations of real books") {
    if (!std::filesystem::exists(RealBooks() / "htm")) {
        MESSAGE("skipped: no real books");
        return;
    }
    const char* const books[] = {"War and Peace.htm", "essays/16351-h.htm",
                                 "girls-own-paper/18195-h.htm", "little-colonel/15122-h.htm",
                                 "merry-thought/20535-h.htm"};
    std::set<std::string> unknown;
    for (const char* book : books) {
        const StyledPage page(ReadBook(book));
        unknown.merge(UnknownDeclarations(page.tree));
        CHECK(page.styles.Steps() < page.tree.NodeCount() * 60);
        CHECK(page.styles.Count() < 500);
        CHECK_FALSE(page.sheets.empty());
    }
    // Pictures after text are not shown: in the reader's own colours it could not be read.
    CHECK(unknown == std::set<std::string>{"background-image:\n    url(\"images/illus007.png\")",
                                           "background-repeat: no-repeat"});
}

TEST_CASE("css: what real books look like") {
    if (!std::filesystem::exists(RealBooks() / "htm")) {
        MESSAGE("skipped: no real books");
        return;
    }
    const StyledPage novel(ReadBook("War and Peace.htm"));
    const CssStyle body = novel.styles.Of(novel.tree.Body());
    CHECK(body.box->margin[cssLeft] == CssLength::Percent(5));
    CHECK(body.box->background == CssColor{0xFA, 0xEB, 0xD0});
    const CssStyle paragraph = novel.styles.Of(First(novel.tree, HtmlName::P));
    CHECK(paragraph.inherited->textIndent == CssLength::Pixels(16));
    CHECK(paragraph.inherited->textAlign == CssTextAlign::Justify);
    CHECK(paragraph.box->margin[cssTop] == CssLength::Pixels(4));

    const StyledPage verse(ReadBook("merry-thought/20535-h.htm"));
    const HtmlNodeId number = First(verse.tree, HtmlName::Span, u"pagenum intro");
    REQUIRE(number != noHtmlNode);
    CHECK(verse.styles.Of(number).box->position == CssPosition::Absolute);
    CHECK(verse.styles.Of(number).box->display == CssDisplay::Block);
    CHECK(verse.styles.Of(number).box->inset[cssRight] == CssLength::Percent(3));
    const CssStyle before = verse.styles.Before(number);
    REQUIRE(before.box != nullptr);
    CHECK(verse.styles.Content(before.box->content)[0].text == u"-");

    const StyledPage essays(ReadBook("essays/16351-h.htm"));
    CHECK(essays.sheets.size() == 1); // the second is to be chosen by the reader
    const CssStyle picture = essays.styles.Of(First(essays.tree, HtmlName::Img));
    CHECK(picture.box->borderWidth == CssSides<float>{3, 1, 3, 1});
    CHECK(picture.box->verticalAlign == CssVerticalAlign::Middle);
}
