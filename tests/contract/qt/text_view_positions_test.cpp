// Character positions where QTextLayout's own are wrong.
#include "tests/contract/qt/text_view_bench.h"

#include "view/selected_region.h"

#include <doctest/doctest.h>

TEST_CASE("qt text view: the hyphen at a line's end has its width before it is painted") {
    QtViewBench bench(200, 400);
    const std::u16string text = u"\u05D0" + RepeatedText(u"syl\u00AD", 30);
    bench.view.LoadPlainText(text);
    const TextPos end = bench.view.LineAround(0).length;
    REQUIRE(end < bench.view.TextLength());
    const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
    std::vector<int> before, after;
    for (TextPos at = 0; at < end; ++at)
        before.push_back(CaretQRect(layout, at).x());
    bench.Widget().grab();
    for (TextPos at = 0; at < end; ++at)
        after.push_back(CaretQRect(layout, at).x());
    CHECK(before == after);
}

TEST_CASE("qt text view: words before a no-break space at a line's end are found where they are") {
    const std::u16string text = u"\u05D0\v" + RepeatedText(u"ab\u00A0", 10);
    for (int width = 16; width < 60; ++width) {
        QtViewBench bench(width, 400);
        bench.view.LoadPlainText(text);
        const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
        for (TextPos at = 3; at < bench.view.TextLength(); at += 3) {
            INFO("character ", at, ", width ", width);
            CHECK(CaretQRect(layout, at).x() == CharacterQRect(layout, at).left());
        }
    }
}

TEST_CASE("qt text view: words before a tab at a line's end are found where they are") {
    const std::u16string text = u"\u05D0\u05D1\u05D2\t\u05D3\u05D4";
    int tabs = 0; // at ends of lines
    for (int width = 40; width < 120; ++width) {
        QtViewBench bench(width, 400);
        bench.view.LoadPlainText(text);
        tabs += bench.view.LineAround(4).start == 4;
        const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
        for (TextPos at = 0; at < 3; ++at) {
            INFO("character ", at, ", width ", width);
            CHECK(std::abs(CaretQRect(layout, at).x() - CharacterQRect(layout, at).right()) <= 1);
        }
    }
    CHECK(tabs > 0);
}

TEST_CASE(
    "qt text view: the caret before a line's first word of another direction is in that line") {
    const std::u16string text = u"some words \u05D0\u05D1\u05D2\u05D3 and so on";
    constexpr TextPos word = 11;
    int times = 0; // at the start of a line
    for (int width = 40; width < 160; ++width) {
        QtViewBench bench(width, 400);
        bench.view.LoadPlainText(text);
        if (bench.view.LineAround(word).start != word) continue;
        ++times;
        CAPTURE(width);
        const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
        CHECK(std::abs(CaretQRect(layout, word).x() - CharacterQRect(layout, word).right()) <= 1);
    }
    CHECK(times > 0);
}

TEST_CASE("qt text view: the caret among ligatures of another direction is beside its letters") {
    QtViewBench bench(800, 400);
    const std::u16string words = u"office fluffy office";
    bench.view.LoadPlainText(u"\u05D0 " + words + u" \u05D1");
    const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
    for (TextPos at = 3; at < TextPos(2 + words.size()); ++at) {
        CAPTURE(at);
        const QRect box = CharacterQRect(layout, at);
        CHECK(CaretQRect(layout, at).x() >= box.left() - 1);
        CHECK(CaretQRect(layout, at).x() <= box.right() + 1);
    }
}

TEST_CASE("qt text view: the caret at a line's end is beside a last word of another direction") {
    const std::u16string text = u"a " + RepeatedText(u"\u05D0\u05D1\u05D2\u05D3 ", 6) + u"b";
    for (int width = 60; width < 160; ++width) {
        QtViewBench bench(width, 400);
        bench.view.LoadPlainText(text);
        const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
        for (TextPos end = 6; end + 2 < bench.view.TextLength(); end += 5) {
            if (bench.view.LineAround(end + 1).start != end + 1) continue;
            INFO("before the blank ", end, ", width ", width);
            CHECK(std::abs(CaretQRect(layout, end).x() - CharacterQRect(layout, end - 1).left()) <=
                  1);
        }
    }
}

TEST_CASE("qt text view: what is selected in a line of two directions is where it is drawn") {
    const std::u16string texts[] = {
        u"a \u05D0\u05D1\u05D2\u05D3\u05D4\u05D5\u05D6\u05D7 111 222 b",
        u"\u05D0\u05D1 word, \u05D2\u05D3 12 34 and more",
        u"some \u0645\u0631\u062D 56 \u05D0 thing",
    };
    for (const std::u16string& text : texts)
        for (int width = 40; width < 240; width += 3) {
            QtViewBench bench(width, 400);
            bench.view.LoadPlainText(text);
            const BlockLayout& layout = *bench.Widget().Pane().Layouts().At(0);
            const ParagraphLayout& paragraph = layout.paragraphs[0];
            const TextPos length = bench.view.TextLength();
            for (TextPos from = 0; from < length; from += 2) {
                const TextPos to = std::min(length, from + 5);
                QRegion region;
                for (const Rect& box : SelectedRegion(paragraph, from, to, {0, 0, 40000, 5000}))
                    region += ToQRect(box);
                for (TextPos at = 0; at < length; ++at) {
                    if (text[std::size_t(at)] == u' ') continue;
                    INFO("character ", at, ", selected from ", from, ", width ", width);
                    const QPoint center = CharacterQRect(layout, at).center() -
                                          QPoint(paragraph.origin.x, paragraph.origin.y);
                    CHECK(region.contains(center) == (at >= from && at < to));
                }
            }
        }
}
