// Real books: what of their styles is not understood, and what some of their elements look like.
#include "css_samples.h"

#include "common/text.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace {

std::u16string ReadBook(const std::string& name) {
    std::ifstream file(std::filesystem::path(REAL_BOOKS) / "htm" / name, std::ios::binary);
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

} // namespace

TEST_CASE("css: declarations of real books") {
    if (!std::filesystem::exists(std::filesystem::path(REAL_BOOKS) / "htm")) {
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
        MESSAGE(book << ": " << page.tree.NodeCount() << " nodes, " << page.styles.Steps()
                     << " steps, " << page.styles.Count() << " styles");
    }
    // Pictures behind text are not shown: in the reader's own colours it could not be read.
    CHECK(unknown == std::set<std::string>{"background-image:\n    url(\"images/illus007.png\")",
                                           "background-repeat: no-repeat"});
}
