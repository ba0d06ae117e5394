// The help file: its format, and that the help we ship is whole.
#include "shell/help/help_file.h"

#include "common/text.h"
#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "test_form.h"
#include "tests/document_check.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {
std::u16string PageText(const char* lines) {
    const auto book = ParseHelpFile(std::string("help 1\n= a: T\n") + lines + "= end\n");
    return book ? book->topics[0].page.text : u"damaged";
}

std::string ShippedHelp() {
    std::ifstream file(HelpFile(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::u16string AllText(const HelpBook& book) {
    std::u16string text;
    for (const HelpTopic& topic : book.topics)
        text += topic.page.text;
    return text;
}

// What the style of the letters at `what` is.
const CharStyle& StyleOf(const Document& page, std::u16string_view what) {
    const auto at = static_cast<TextPos>(page.text.find(what));
    std::uint32_t style = 0;
    for (const StyleRun& run : page.charRuns)
        if (run.start <= at) style = run.style;
    return page.charStyles[style];
}
} // namespace

TEST_CASE("help file: lines become paragraphs") {
    CHECK(PageText("") == u"T\n");
    CHECK(PageText("one\n  two\n\n\nthree\n") == u"T\none two\nthree\n");
    CHECK(PageText("one\n== Head\ntwo\n") == u"T\none\nHead\ntwo\n");
    CHECK(PageText("- one\n  more\n- two\n") == u"T\n\u2022\tone more\n\u2022\ttwo\n");
    CHECK(PageText("1. one\n12. two\n") == u"T\n1.\tone\n12.\ttwo\n");
    CHECK(PageText("2026 was\n1.5 times\n") == u"T\n2026 was 1.5 times\n");
    CHECK(PageText("| Ctrl+O | open | close\n") == u"T\nCtrl+O\topen | close\n");
    CHECK(PageText("a *b c* d\n") == u"T\na b c d\n");
    CHECK(PageText("a * b\n") == u"T\na * b\n");
    CHECK(PageText("\xC3\xA9 \xF0\x9D\x84\x9E\r\n") == u"T\n\u00E9 \U0001D11E\n");
}

TEST_CASE("help file: letters are bold between asterisks, large in headings") {
    const auto book = ParseHelpFile("help 1\n= a: Title\nplain *bold*\n== Head\n= end\n");
    REQUIRE(book);
    const Document& page = book->topics[0].page;
    CHECK_FALSE(StyleOf(page, u"plain").bold);
    CHECK(StyleOf(page, u"bold").bold);
    CHECK(StyleOf(page, u"Head").halfPoints > StyleOf(page, u"plain").halfPoints);
    CHECK(StyleOf(page, u"Title").halfPoints > StyleOf(page, u"Head").halfPoints);
}

TEST_CASE("help file: a title between quotation marks leads to its topic") {
    const auto book = ParseHelpFile("help 1\n= a: One\nSee \"The other\", not \"nothing\" or "
                                    "\"The other\n\" \"*x*\"\n- \"One\"\"The other\" \"\n"
                                    "= b: The other\n\"One\n= end\n");
    REQUIRE(book);
    const Document& page = book->topics[0].page;
    CHECK(page.text.starts_with(u"One\nSee \"The other\", not \"nothing\""));
    std::vector<std::pair<std::u16string, std::u16string>> links; // text and address
    for (std::size_t run = 0; run < page.charRuns.size(); ++run) {
        const std::uint16_t link = page.charStyles[page.charRuns[run].style].link;
        const std::size_t start = std::size_t(page.charRuns[run].start);
        const std::size_t end = run + 1 < page.charRuns.size()
                                    ? std::size_t(page.charRuns[run + 1].start)
                                    : page.text.size();
        if (link > 0)
            links.emplace_back(page.text.substr(start, end - start), page.links[link - 1u]);
    }
    CHECK(links == decltype(links){{u"The other", u"1"}, {u"One", u"0"}, {u"The other", u"1"}});
    CHECK(book->topics[1].page.links.empty());
}

TEST_CASE("help file: topics are found by each of their ids") {
    const auto book = ParseHelpFile("help 1\n= a x: One\n= b  y: Two\n= end\n");
    REQUIRE(book);
    CHECK(book->topics[1].title == u"Two");
    CHECK(FindHelpTopic(*book, "x") == 0);
    CHECK(FindHelpTopic(*book, "b") == 1);
    CHECK(FindHelpTopic(*book, "y") == 1);
    CHECK(FindHelpTopic(*book, "nobody") == 0);
    CHECK(FindHelpTopic(*book, "") == 0);
}

TEST_CASE("help file: what is not whole is damaged") {
    const std::string good = "help 1\n= a: T\ntext\n= end\n";
    REQUIRE(ParseHelpFile(good));
    for (std::size_t length = 0; length + 1 < good.size(); ++length)
        CHECK_FALSE(ParseHelpFile(good.substr(0, length)));
    const std::string bad[] = {
        "help 2\n= a: T\n= end\n", // of a later program
        "\xEF\xBB\xBFhelp 1\n= a: T\n= end\n",
        "help 1\n= end\n",               // no topic
        "help 1\ntext\n= a: T\n= end\n", // text of no topic
        "help 1\n= a\n= end\n",
        "help 1\n= : T\n= end\n",
        "help 1\n= a: \n= end\n",
        "help 1\n= a: T\n| key\n= end\n",
        "help 1\n= a: T\n\xFF\n= end\n",
        good + "more\n",
        "help 1\n= a: T\n" + std::string(maxHelpFileSize, 'x') + "\n= end\n",
    };
    for (const std::string& bytes : bad)
        CHECK_FALSE_MESSAGE(ParseHelpFile(bytes), bytes.substr(0, 40));
}

TEST_CASE("help file: the shipped one is whole, and its pages come back from RTF as they are") {
    const auto book = ParseHelpFile(ShippedHelp());
    REQUIRE(book);
    CHECK(book->topics.size() >= 12);
    CHECK(FindHelpTopic(*book, "index") == 0);
    CHECK(FindHelpTopic(*book, "mFileOpen") > 0); // the Help button of messages about books
    for (const HelpTopic& topic : book->topics) {
        const std::string rtf = WriteRtf(topic.page);
        CHECK(std::ranges::all_of(rtf, [](char c) { return c == '\n' || (c >= ' ' && c < 0x7F); }));
        CHECK(document_check::FirstDifference(topic.page, ReadRtf(rtf, 1252)) == "");
    }
}

TEST_CASE("help file: the shipped one names every command and every key") {
    const auto book = ParseHelpFile(ShippedHelp());
    REQUIRE(book);
    const std::u16string text = AllText(*book);
    TestForm test;
    test.Start();
    int commands = 0;
    for (const MenuArray* top : test.Menu().TopLevel())
        for (const MenuArray* array : top->children) {
            for (const MenuItem& item : array->items) {
                if (item.IsSeparator() || item.literal || !item.visible) continue;
                const std::u16string name = DialogTitle(item);
                CHECK_MESSAGE(text.find(name) != std::u16string::npos, Utf16ToUtf8(name));
                ++commands;
                const std::size_t tab = item.caption.find(u'\t');
                if (tab == std::u16string::npos || item.caption[tab + 1] == u'[') continue;
                const std::u16string key =
                    Replace(item.caption.substr(tab + 1), u"Ctrl+ ", u"Ctrl and ");
                CHECK_MESSAGE(text.find(key) != std::u16string::npos, Utf16ToUtf8(key));
            }
        }
    CHECK(commands > 30);
}

TEST_CASE("help file: where one topic names another, that one is there") {
    const auto book = ParseHelpFile(ShippedHelp());
    REQUIRE(book);
    const std::u16string text = AllText(*book);
    int references = 0;
    for (std::size_t at = 0; (at = text.find(u"see \"", at)) != std::u16string::npos; ++at) {
        const std::size_t start = at + 5, end = text.find(u'"', start);
        const std::u16string title = text.substr(start, end - start);
        CHECK_MESSAGE(std::ranges::find(book->topics, title, &HelpTopic::title) !=
                          book->topics.end(),
                      Utf16ToUtf8(title));
        ++references;
    }
    CHECK(references >= 5);
    std::size_t links = 0;
    for (const HelpTopic& topic : book->topics)
        links += topic.page.links.size();
    CHECK(links >= std::size_t(references));
}
