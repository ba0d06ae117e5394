#include "shell/help/help_search.h"

#include <doctest/doctest.h>

#include <string>

namespace {
HelpBook Book() {
    auto book = ParseHelpFile("help 1\n"
                              "= a: Opening a book\nChoose a file. Books end in .txt.\n"
                              "= b: Bookmarks\n== Making one\nA bookmark marks a place in a book.\n"
                              "= c: Colours\nThe paper of a book may be \xC3\x89"
                              "cru. "
                              "And so on and on, with many words that nobody has asked for, and "
                              "at the far end of this very long paragraph stands zeppelin.\n"
                              "== Zeppelin\nnothing\n"
                              "= d: Greek\n\xCE\x9B\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82 and mice\n"
                              "= end\n");
    REQUIRE(book);
    return *book;
}

std::string Pages(std::u16string_view typed) {
    std::string pages;
    for (const HelpFinding& finding : SearchHelp(Book(), typed))
        pages += static_cast<char>('a' + finding.page);
    return pages;
}

std::u16string Marked(const HelpFinding& finding) {
    std::u16string marked;
    for (const HelpSpan& mark : finding.marks)
        marked += u"<" + finding.excerpt.substr(mark.start, mark.length) + u">";
    return marked;
}
} // namespace

TEST_CASE("help search: topics by the weight of what was found") {
    CHECK(Pages(u"") == "");
    CHECK(Pages(u" ,. ") == "");
    CHECK(Pages(u"xylophone") == "");
    CHECK(Pages(u"book") == "abc"); // a whole word in a title, the beginning of one, text
    CHECK(Pages(u"BOOKMARK") == "b");
    CHECK(Pages(u"mice mice book") == "abcd"); // each word counts once
    CHECK(Pages(u"ook") == "");                // words are found by their beginnings
    CHECK(Pages(u"\u00E9cru") == "c");
    CHECK(Pages(u"\u03BB\u03CC\u03B3") == "d");
    CHECK(Pages(u"txt") == "a");
    CHECK(Pages(u"zeppelin") == "c");
}

TEST_CASE("help search: the most of the words") {
    CHECK(Pages(u"mark place") == "b");
    CHECK(Pages(u"how do I open file") == "a");
    CHECK(Pages(u"book xylophone") == "abc");
    CHECK(Pages(std::u16string(100'000, u'x')) == "");
    CHECK(Pages(u"book book BOOK") == "abc");
}

TEST_CASE("help search: an excerpt shows the words, and the place is that of the first") {
    const HelpBook book = Book();
    HelpFinding finding = SearchHelp(book, u"pap zep")[0];
    CHECK(Marked(finding) == u"<pap>"); // the rest of the paragraph is too far away
    CHECK(finding.title == u"Colours");
    CHECK(finding.excerpt.starts_with(u"The paper of a book"));
    CHECK(finding.excerpt.ends_with(u" \u2026"));
    const std::u16string& text = book.topics[2].page.text;
    CHECK(text.substr(finding.place.start, finding.place.length) == u"pap");

    finding = SearchHelp(book, u"zeppelin")[0];
    CHECK(Marked(finding) == u"<zeppelin>");
    CHECK(finding.excerpt.starts_with(u"\u2026 "));
    CHECK(finding.excerpt.ends_with(u"zeppelin."));
    CHECK(finding.excerpt.size() < 60);

    finding = SearchHelp(book, u"mark")[0];
    CHECK(Marked(finding) == u"<mark>");
    CHECK(finding.excerpt == u"A bookmark marks a place in a book.");
}

TEST_CASE("help search: a word of the title alone shows how the topic begins") {
    const HelpFinding finding = SearchHelp(Book(), u"opening")[0];
    CHECK(finding.excerpt == u"Choose a file. Books end in .txt.");
    CHECK(finding.marks.empty());
    CHECK(finding.place.start == 0);
    CHECK(finding.place.length == 7);
}

TEST_CASE("help search: a paragraph without blanks is cut all the same") {
    const auto book = ParseHelpFile("help 1\n= a: T\nx " + std::string(5000, 'y') + "\n= end\n");
    REQUIRE(book);
    const HelpFinding finding = SearchHelp(*book, u"yyy")[0];
    CHECK(finding.excerpt.size() < 130);
    CHECK(Marked(finding) == u"<yyy>");
}
