#include "view/print_pages.h"

#include "common/string_text.h"
#include "paper.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {

ViewStyle InFixedFont() {
    ViewStyle style;
    style.font = {u"Fixed", 12, 0};
    return style;
}

struct Job {
    explicit Job(std::u16string content) { document.text = std::move(content); }
    PrintEnd Print() {
        const StringText text(document.text);
        PrintedText printed{text,         document,          plain, style, SystemStyle(),
                            u"The Title", {wanted, lastPage}};
        return PrintPages(printed, lines, pictures, paper);
    }
    Document document;
    bool plain = true;
    ViewStyle style = InFixedFont();
    std::function<bool(int)> wanted;
    int lastPage = 1'000'000;
    NoneLineLayout lines;
    NoPictures pictures;
    Paper paper;
};

std::u16string Lines(int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += u"line " + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)) +
                std::u16string(static_cast<std::size_t>(i / 26), u'+') + u"\n";
    if (!text.empty()) text.pop_back();
    return text;
}

} // namespace

TEST_CASE("print: every line once, in order, with the title above and the number below") {
    Job job(Lines(60));
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() > 3);
    std::u16string all;
    for (std::size_t page = 0; page < job.paper.pages.size(); ++page) {
        const auto texts = job.paper.Texts(page);
        REQUIRE(texts.size() > 2);
        CHECK(texts[0] == u"The Title");
        const std::string number = std::to_string(page + 1);
        CHECK(texts[1] == std::u16string(number.begin(), number.end()));
        for (std::size_t i = 2; i < texts.size(); ++i)
            all += (all.empty() ? u"" : u"\n") + texts[i];
    }
    CHECK(all == job.document.text);
}

TEST_CASE("print: no line reaches beyond its page's text, or is cut") {
    Job job(Lines(60));
    REQUIRE(job.Print() == PrintEnd::Done);
    for (const NoneCanvas& page : job.paper.pages)
        for (const NoneDrawing& drawing : page.drawings) {
            CHECK(drawing.baseline > 0);
            CHECK(drawing.baseline <= 300);
        }
    for (const Rect& clip : job.paper.clips)
        CHECK(Bottom(clip) <= 300);
}

TEST_CASE("print: a paragraph that is longer than a page goes on over the next ones") {
    std::u16string words;
    for (int i = 0; i < 3000; ++i)
        words += u"word ";
    Job job(words + u"end");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(job.paper.pages.size() > 10);
    CHECK(job.paper.Texts(job.paper.pages.size() - 1).back().ends_with(u"end"));
}

TEST_CASE("print: the wanted pages alone, under their own numbers") {
    Job job(Lines(60));
    job.wanted = [](int page) { return page == 2 || page == 3; };
    job.lastPage = 3;
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() == 2);
    CHECK(job.paper.Texts(0)[1] == u"2");
    CHECK(job.paper.Texts(1)[1] == u"3");
    CHECK(job.paper.percents.size() == 3); // what comes after is not laid out
}

TEST_CASE("print: cancelled or failed, it ends") {
    Job cancelled(Lines(200));
    cancelled.paper.endAfter = 2;
    CHECK(cancelled.Print() == PrintEnd::GivenUp);
    CHECK(cancelled.paper.pages.size() == 2);
    Job failed(Lines(200));
    failed.paper.failAt = 1;
    CHECK(failed.Print() == PrintEnd::Failed);
}

TEST_CASE("print: how far it is grows to the end") {
    Job job(Lines(400));
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(std::ranges::is_sorted(job.paper.percents));
    CHECK(job.paper.percents.front() == 0);
    CHECK(job.paper.percents.back() > 80);
}

TEST_CASE("print: an empty book is one page") {
    Job job(u"");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(job.paper.pages.size() == 1);
}

TEST_CASE("print: white letters come out black, and other colours as they are") {
    ViewStyle style;
    style.backColor = 0x000000;
    style.rightMargin = 50'000;
    style.textColor = 0xFFFFFF;
    CHECK(OnPaper(style).textColor == 0x000000);
    style.textColor = 0x800000;
    CHECK(OnPaper(style).textColor == 0x800000);
    CHECK(OnPaper(style).backColor == 0xFFFFFF);
    CHECK(OnPaper(style).rightMargin == 0);
}

TEST_CASE("print: a row of a table stands on one page") {
    std::u16string text = Lines(10) + u"\n";
    Job job(text);
    job.plain = false;
    TableRow row;
    row.start = static_cast<TextPos>(text.size());
    for (int cell = 0; cell < 2; ++cell) {
        TableCell made;
        made.start = static_cast<TextPos>(text.size());
        text += u"one\ntwo\nthree\nfour\nfive\nsix\a";
        made.end = static_cast<TextPos>(text.size());
        made.rightEdge = 2000 * (cell + 1);
        row.cells.push_back(made);
    }
    text += u"\n";
    row.end = static_cast<TextPos>(text.size());
    job.document.text = text;
    job.document.rows = {row};
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() >= 2);
    const auto first = job.paper.Texts(0);
    CHECK(std::ranges::find(first, u"one") == first.end());
    const auto second = job.paper.Texts(1);
    CHECK(std::ranges::count(second, u"six") == 2);
}
