#include "formats/plain/heading_line.h"

#include "common/utf.h"
#include "formats/plain/plain_headings.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

TEST_CASE("headings: which lines of a plain text are some") {
    const struct {
        const char16_t* line;
        int level;
    } cases[] = {
        {u"CHAPTER IV", 2},
        {u"Chapter 12.", 2},
        {u"  CHAPTER I. Down the Rabbit-Hole  ", 2},
        {u"Chapter the First", 2},
        {u"CHAPTER TWENTY-THREE", 2},
        {u"* Chapter 3: A Door *", 2},
        {u"BOOK THE SECOND\u2014THE GOLDEN THREAD", 1},
        {u"Part II", 1},
        {u"VOLUME I", 1},
        {u"Глава 2", 2},
        {u"ГЛАВА ПЕРВАЯ", 2},
        {u"ЧАСТЬ ВТОРАЯ", 1},
        {u"Часть третья", 1},
        {u"Capítulo primero. Que trata de la condición y ejercicio del famoso", 2},
        {u"CAPÍTULO II", 2},
        {u"Chapitre premier", 2},
        {u"Erstes Kapitel", 2},
        {u"Kapitel 7", 2},
        {u"3. Kapitel", 2},
        {u"12. fejezet", 2},
        {u"Rozdział XIV", 2},
        {u"第三章", 2},
        {u"第十二回 賈寶玉", 2},
        {u"第１章　はじまり", 2},
        {u"第二卷", 1},
        {u"제3장", 2},
        {u"Prologue", 2},
        {u"ЭПИЛОГ", 2},
        {u"序章", 2},
        {u"IV", 2},
        {u"XXVII.", 2},
        {u"I", 2},
        {u"XII. The Speckled Band", 2},
        {u"I. A SCANDAL IN BOHEMIA", 2},

        {u"", 0},
        {u"   ", 0},
        {u"Chapter", 0},
        {u"chapters and verses", 0},
        {u"Part of the reason was that he had", 0},
        {u"Part I of the plan was easy, and he did", 0},
        {u"Book one for me, please,", 0},
        {u"I was born in the year 1632", 0},
        {u"I, too, was there", 0},
        {u"IIII", 0},
        {u"mix", 0},
        {u"12", 0}, // the number of a page
        {u"1. Sugar", 0},
        {u"He read chapter 4", 0},
        {u"第三章的時候，他說了一句話。", 0},
        {u"Chapter 4 was the one that he had liked best of all, since nobody in it ever came to "
         u"any harm.",
         0},
    };
    for (const auto& row : cases) {
        CAPTURE(Utf16ToUtf8(row.line));
        CHECK(HeadingLineOf(row.line).level == row.level);
    }
}

namespace {
// In pieces of some units: where a text is cut makes no difference.
std::vector<Heading> HeadingsIn(std::u16string_view text, std::size_t piece = 1000) {
    PlainHeadings headings;
    for (std::size_t at = 0; at < text.size(); at += piece)
        headings.Add(text.substr(at, piece));
    headings.Finish();
    return headings.Found();
}

std::vector<std::string> TextsIn(std::u16string_view text) {
    std::vector<std::string> texts;
    for (const Heading& heading : HeadingsIn(text))
        texts.push_back(Utf16ToUtf8(heading.text));
    return texts;
}

using Texts = std::vector<std::string>;
} // namespace

TEST_CASE("headings: an empty line stands before one, and after those that could be a text") {
    CHECK(TextsIn(u"CHAPTER I\nIt was.\nMore.\n") == Texts{"CHAPTER I"});
    CHECK(TextsIn(u"It was\nCHAPTER I\nnot.\n").empty());
    CHECK(TextsIn(u"a\n\nCHAPTER II\n\nIt was.\n") == Texts{"CHAPTER II"});
    CHECK(TextsIn(u"a\n\nIV\n\nIt was.\n") == Texts{"IV"});
    CHECK(TextsIn(u"a\n\nI\nwas there, and a good many lines of text are to follow after this, "
                  u"too.\nMore.\n")
              .empty());
    CHECK(TextsIn(u"a\n\nChapter 2 The Boy\nwho is a paragraph of several lines and goes on for "
                  u"some more.\nMore.\n")
              .empty());
}

TEST_CASE("headings: the line of its title belongs to it") {
    CHECK(TextsIn(u"\n\nCHAPTER I.\nDown the Rabbit-Hole\n\nAlice was") ==
          Texts{"CHAPTER I. Down the Rabbit-Hole"});
    CHECK(TextsIn(u"\n\nCHAPTER XII. THE ADVENTURE OF THE\nNOBLE BACHELOR\n\nThe Lord") ==
          Texts{"CHAPTER XII. THE ADVENTURE OF THE NOBLE BACHELOR"});
}

TEST_CASE("headings: lines of a table of contents are none") {
    CHECK(TextsIn(u"CONTENTS\n\nCHAPTER I. One\nCHAPTER II. Two\nCHAPTER III. Three\n\nText.\n")
              .empty());
    CHECK(TextsIn(u"\n\nChapter 1\nChapter 2\nChapter 3\n\nText.\n").empty());
    CHECK(TextsIn(u"BOOK ONE\n\nCHAPTER I\n\nCHAPTER II\n\nBOOK TWO\n\nCHAPTER I\n\n\n"
                  u"BOOK ONE\n\nCHAPTER I\n\nText.\n\nCHAPTER II\n\nText.\n") ==
          Texts{"BOOK ONE", "CHAPTER I", "CHAPTER II"});
}

TEST_CASE("headings: places and levels, however the text comes in") {
    const std::u16string text = u"Title\n\n\nPART ONE\n\n\nCHAPTER I\n\nText.\n\n  第三章  \n\nEnd";
    for (const std::size_t piece : {1u, 2u, 7u, 1000u}) {
        CAPTURE(piece);
        CHECK(HeadingsIn(text, piece) ==
              std::vector<Heading>{{8, 1, u"PART ONE"}, {19, 2, u"CHAPTER I"}, {37, 2, u"第三章"}});
    }
}

TEST_CASE("headings: a long line costs no memory, and no number of headings either") {
    PlainHeadings headings;
    const std::u16string letters(1 << 16, u'x');
    for (int i = 0; i < 64; ++i)
        headings.Add(letters);
    headings.Add(u"\n\n");
    for (int i = 0; i < 30'000; ++i)
        headings.Add(u"Chapter 1\n\nText.\n\n");
    headings.Finish();
    CHECK(headings.Found().size() == maxHeadings);
    CHECK(headings.Found().front().position == 64 * (1 << 16) + 2);
}

TEST_CASE("headings: the one above a place, and those that match what is typed") {
    const std::vector<Heading> headings{
        {10, 1, u"Part One"}, {20, 2, u"Глава 2"}, {30, 2, u"Über"}};
    CHECK(HeadingAbove(headings, 9) == -1);
    CHECK(HeadingAbove(headings, 10) == 0);
    CHECK(HeadingAbove(headings, 29) == 1);
    CHECK(HeadingAbove(headings, 1000) == 2);
    CHECK(HeadingAbove({}, 5) == -1);
    CHECK(MatchingHeadings(headings, u"") == std::vector<int>{0, 1, 2});
    CHECK(MatchingHeadings(headings, u"глава") == std::vector<int>{1});
    CHECK(MatchingHeadings(headings, u"ÜBER") == std::vector<int>{2});
    CHECK(MatchingHeadings(headings, u"x").empty());
    CHECK(IndentedHeading(headings[1]) == u"    Глава 2");
}
