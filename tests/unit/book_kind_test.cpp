#include "show_text.h"

#include "books/book_kind.h"
#include "formats/html_start.h"

#include <doctest/doctest.h>

TEST_CASE("book kind: from the first line, else from the name") {
    CHECK(KindOfBook(u"/b/a.txt", "{\\RTF1 x}") == BookKind::RichText);
    CHECK(KindOfBook(u"/b/a.TXT", "plain") == BookKind::Text);
    CHECK(KindOfBook(u"/b/a.rtf", "plain") == BookKind::RichText);
    CHECK(KindOfBook(u"/b/a.htm", "<html>") == BookKind::Html);
    CHECK(KindOfBook(u"/b/a.log", "") == BookKind::Other);
    CHECK(KindOfBook(u"/b/README", "") == BookKind::Other);
}

TEST_CASE("book kind: patterns of the filter") {
    CHECK(GetFilterPatterns(bookFilter) ==
          std::vector<std::u16string>{u"*.txt", u"*.rtf", u"*.htm", u"*.*"});
    CHECK(MatchesPattern(u"abcabd", u"a*abd"));
    CHECK(MatchesPattern(u"abc", u"?b*"));
    CHECK_FALSE(MatchesPattern(u"abc", u"b*"));
}

TEST_CASE("book kind: a name tells the type in whose list it stands") {
    CHECK(ListedPatterns() ==
          std::vector<std::u16string>{u"*.txt", u"*.rtf", u"*.htm;*.html;*.xhtml", u"*.*"});
    const std::pair<const char16_t*, BookKind> table[] = {
        {u"/b/a.txt", BookKind::Text},         {u"/b/A.TXT", BookKind::Text},
        {u"C:\\b\\a.rtf", BookKind::RichText}, {u"/b/a.htm", BookKind::Html},
        {u"/b/a.HTML", BookKind::Html},        {u"/b/a.xhtml", BookKind::Html},
        {u"/b/a.txt.rtf", BookKind::RichText}, {u".htm", BookKind::Html},
        {u"/b/a.shtml", BookKind::Other},      {u"/b/a.xhtm", BookKind::Other},
        {u"/b/htm", BookKind::Other},          {u"/b.txt/a", BookKind::Other},
        {u"/b/a.txt ", BookKind::Other},       {u"", BookKind::Other},
        {u"/b/README", BookKind::Other},
    };
    for (const auto& [path, kind] : table) {
        CAPTURE(std::u16string(path));
        CHECK(KindOfName(path) == kind);
    }
}

TEST_CASE("book kind: what is chosen in the dialog, by the type there and by the name") {
    struct Row {
        const char16_t* path;
        RequestedKind text, rich, page, all; // with each of the four types
    };
    const Row table[] = {
        {u"/b/a.txt", BookKind::Text, BookKind::Text, BookKind::Text, std::nullopt},
        {u"/b/a.rtf", BookKind::RichText, BookKind::RichText, BookKind::RichText, std::nullopt},
        {u"/b/a.html", BookKind::Html, BookKind::Html, BookKind::Html, std::nullopt},
        {u"/b/a.log", BookKind::Text, BookKind::RichText, BookKind::Html, std::nullopt},
        {u"/b/README", BookKind::Text, BookKind::RichText, BookKind::Html, std::nullopt},
    };
    for (const Row& row : table) {
        CAPTURE(std::u16string(row.path));
        const RequestedKind kinds[] = {row.text, row.rich, row.page, row.all};
        for (int type = 1; type <= 4; ++type)
            CHECK(KindOfChoice(row.path, type) == kinds[type - 1]);
        for (const int noType : {-1, 0, 5})
            CHECK(KindOfChoice(row.path, noType) == std::nullopt);
    }
}

TEST_CASE("book kind: of a listed book, opened again") {
    constexpr const char *page = "<!DOCTYPE html>", *rich = "{\\rtf1 x}", *text = "Once";
    struct Row {
        const char16_t* path;
        const char* start;
        BookKind listed;
        RequestedKind asked;
        BookKind kind;
    };
    const Row table[] = {
        // Asked for: as asked.
        {u"/a.log", text, BookKind::Text, BookKind::Html, BookKind::Html},
        {u"/a.htm", page, BookKind::Html, BookKind::Text, BookKind::Text},
        {u"/a.rtf", text, BookKind::Other, BookKind::RichText, BookKind::RichText},
        // Told from the file: a text of the list is put right by name and content together.
        {u"/a.htm", page, BookKind::Text, std::nullopt, BookKind::Html},
        {u"/a.xhtml", " \n<?xml?>", BookKind::Other, std::nullopt, BookKind::Html},
        {u"/a.rtf", rich, BookKind::Text, std::nullopt, BookKind::RichText},
        {u"/a.htm", text, BookKind::Text, std::nullopt, BookKind::Text},
        {u"/a.log", page, BookKind::Text, std::nullopt, BookKind::Text},
        {u"/a.txt", rich, BookKind::Text, std::nullopt, BookKind::Text},
        {u"/a.htm", rich, BookKind::Text, std::nullopt, BookKind::Text},
        {u"/a.rtf", page, BookKind::Text, std::nullopt, BookKind::Text},
        {u"/a.txt", text, BookKind::Other, std::nullopt, BookKind::Other},
        {u"/a.log", text, BookKind::Text, std::nullopt, BookKind::Text},
        // Rich text and pages stay what their readers made of them.
        {u"/a.txt", text, BookKind::Html, std::nullopt, BookKind::Html},
        {u"/a.htm", page, BookKind::RichText, std::nullopt, BookKind::RichText},
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
