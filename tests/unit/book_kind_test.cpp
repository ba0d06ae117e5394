#include "show_text.h"

#include "books/book_kind.h"
#include "formats/html_start.h"

#include <doctest/doctest.h>

TEST_CASE("book kind: from the first line, else from the name") {
    CHECK(GetFilterPatterns(bookFilter) ==
          std::vector<std::u16string>{u"*.txt", u"*.rtf", u"*.htm", u"*.*"});
    CHECK(KindOfBook(u"/b/a.txt", "{\\RTF1 x}") == RichTextBook);
    CHECK(KindOfBook(u"/b/a.TXT", "plain") == TextBook);
    CHECK(KindOfBook(u"/b/a.rtf", "plain") == RichTextBook);
    CHECK(KindOfBook(u"/b/a.htm", "<html>") == HtmlBook);
    CHECK(KindOfBook(u"/b/a.log", "") == OtherBook);
    CHECK(KindOfBook(u"/b/README", "") == OtherBook);
    CHECK(MatchesPattern(u"abcabd", u"a*abd"));
    CHECK(MatchesPattern(u"abc", u"?b*"));
    CHECK_FALSE(MatchesPattern(u"abc", u"b*"));
}

TEST_CASE("book kind: a name tells the type in whose list it stands") {
    CHECK(ListedPatterns() ==
          std::vector<std::u16string>{u"*.txt", u"*.rtf", u"*.htm;*.html;*.xhtml", u"*.*"});
    const std::pair<const char16_t*, int> table[] = {
        {u"/b/a.txt", TextBook},         {u"/b/A.TXT", TextBook},  {u"C:\\b\\a.rtf", RichTextBook},
        {u"/b/a.htm", HtmlBook},         {u"/b/a.HTML", HtmlBook}, {u"/b/a.xhtml", HtmlBook},
        {u"/b/a.txt.rtf", RichTextBook}, {u".htm", HtmlBook},      {u"/b/a.shtml", OtherBook},
        {u"/b/a.xhtm", OtherBook},       {u"/b/htm", OtherBook},   {u"/b.txt/a", OtherBook},
        {u"/b/a.txt ", OtherBook},       {u"", OtherBook},         {u"/b/README", OtherBook},
    };
    for (const auto& [path, kind] : table) {
        CAPTURE(std::u16string(path));
        CHECK(KindOfName(path) == kind);
    }
}

TEST_CASE("book kind: what is chosen in the dialog, by the type there and by the name") {
    struct Row {
        const char16_t* path;
        int text, rich, page, all; // with each of the four types
    };
    const Row table[] = {
        {u"/b/a.txt", TextBook, TextBook, TextBook, KindFromFile},
        {u"/b/a.rtf", RichTextBook, RichTextBook, RichTextBook, KindFromFile},
        {u"/b/a.html", HtmlBook, HtmlBook, HtmlBook, KindFromFile},
        {u"/b/a.log", TextBook, RichTextBook, HtmlBook, KindFromFile},
        {u"/b/README", TextBook, RichTextBook, HtmlBook, KindFromFile},
    };
    for (const Row& row : table) {
        CAPTURE(std::u16string(row.path));
        const int kinds[] = {row.text, row.rich, row.page, row.all};
        for (int type = 1; type <= 4; ++type)
            CHECK(KindOfChoice(row.path, type) == kinds[type - 1]);
        for (const int noType : {-1, 0, 5})
            CHECK(KindOfChoice(row.path, noType) == KindFromFile);
    }
}

TEST_CASE("book kind: of a listed book, opened again") {
    constexpr const char *page = "<!DOCTYPE html>", *rich = "{\\rtf1 x}", *text = "Once";
    struct Row {
        const char16_t* path;
        const char* start;
        int listed, asked, kind;
    };
    const Row table[] = {
        // Asked for: as asked.
        {u"/a.log", text, TextBook, HtmlBook, HtmlBook},
        {u"/a.htm", page, HtmlBook, TextBook, TextBook},
        {u"/a.rtf", text, OtherBook, RichTextBook, RichTextBook},
        // Told from the file: a text of the list is put right by name and content together.
        {u"/a.htm", page, TextBook, KindFromFile, HtmlBook},
        {u"/a.xhtml", " \n<?xml?>", OtherBook, KindFromFile, HtmlBook},
        {u"/a.rtf", rich, TextBook, KindFromFile, RichTextBook},
        {u"/a.htm", text, TextBook, KindFromFile, TextBook},
        {u"/a.log", page, TextBook, KindFromFile, TextBook},
        {u"/a.txt", rich, TextBook, KindFromFile, TextBook},
        {u"/a.htm", rich, TextBook, KindFromFile, TextBook},
        {u"/a.rtf", page, TextBook, KindFromFile, TextBook},
        {u"/a.txt", text, OtherBook, KindFromFile, OtherBook},
        {u"/a.log", text, TextBook, KindFromFile, TextBook},
        // Rich text and pages stay what their readers made of them.
        {u"/a.txt", text, HtmlBook, KindFromFile, HtmlBook},
        {u"/a.htm", page, RichTextBook, KindFromFile, RichTextBook},
        {u"/a.log", text, 77, KindFromFile, 77},
    };
    for (const Row& row : table) {
        CAPTURE(std::u16string(row.path));
        CAPTURE(row.start);
        CHECK(KindOfListedBook(row.listed, row.asked, row.path, row.start) == row.kind);
    }
}

TEST_CASE("book kind: what looks like HTML") {
    using namespace std::string_view_literals;
    for (const std::string_view html :
         {"<html>"sv, "<p>"sv, "<H1>x"sv, "<!DOCTYPE html>"sv, "<!-- a remark -->"sv, "<?xml"sv,
          "\r\n\t <body>"sv, "\xEF\xBB\xBF<html>"sv, "\xFF\xFE<\0h\0t\0"sv, "\xFE\xFF\0<\0h\0t"sv})
        CHECK(LooksLikeHtml(html));
    for (const std::string_view other :
         {""sv, " "sv, "<"sv, "< p>"sv, "<3"sv, "</p>"sv, "<<guillemets>>"sv, "x<html>"sv,
          "{\\rtf1}"sv, "\0\0"sv, "\xFF\xFE<\0"sv})
        CHECK_FALSE(LooksLikeHtml(other));
}
