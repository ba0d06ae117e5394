// A text on the screen, its caret and its scrolling, without any toolkit.
#include "tests/unit/pane_bench.h"

#include <doctest/doctest.h>

namespace {
const std::u16string someLines = u"first line\nsecond line here\n\nfourth";

std::u16string Numbered(int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += u"line " + std::u16string(1, char16_t(u'a' + i % 26)) + u"\n";
    return text;
}
} // namespace

TEST_CASE("text pane: lines break between words at the window's width") {
    PaneBench bench(6 + 6 + 10 * PaneBench::letter);
    bench.LoadPlainText(u"a few words in a narrow window");
    CHECK(bench.PaintedLines() ==
          std::vector<std::u16string>{u"a few", u"words in a", u"narrow", u"window"});
    CHECK(bench.LineAround(7).start == 6);
    CHECK(bench.LineAround(7).length == 11);
    bench.window.room.width *= 4;
    CHECK(bench.PaintedLines() == std::vector<std::u16string>{u"a few words in a narrow window"});
}

TEST_CASE("text pane: a paragraph's border takes its thickness from the text") {
    const auto topWith = [](std::uint16_t width) {
        Document document;
        document.text = u"text\n";
        document.paragraphStyles[0].borders.top.width = width;
        PaneBench bench;
        bench.LoadDocument(document);
        bench.PaintedLines();
        return bench.Pane().CharacterRect(0).top;
    };
    CHECK(topWith(1) == topWith(0) + 1);      // seen, however thin
    CHECK(topWith(15 * 4) == topWith(0) + 4); // twips, at 96 dpi
}

TEST_CASE("text pane: a link is where its letters are, and is clicked without selecting") {
    Document document;
    document.text = u"go there now\n";
    document.links = {u"an address"};
    document.charStyles.resize(2);
    document.charStyles[1].link = 1;
    document.charRuns = {{0, 0}, {3, 1}, {8, 0}};
    PaneBench bench;
    bench.LoadDocument(document);
    bench.PaintedLines();
    TextPane& pane = bench.Pane();
    const auto on = [&](TextPos position) {
        const Rect box = pane.CharacterRect(position);
        return Point{box.left + box.width / 2, box.top + box.height / 2};
    };
    CHECK(pane.LinkAt(on(4)) == u"an address");
    CHECK(pane.LinkAt(on(2)).empty());
    CHECK(pane.LinkAt(on(8)).empty());
    CHECK(pane.LinkAt(Point{on(4).x, 100}).empty()); // below the text
    CHECK(pane.LinkAt(TextPos(3)) == u"an address");
    CHECK(pane.LinkAt(TextPos(8)).empty());
    CHECK_FALSE(pane.IsLink(on(4))); // nobody follows it
    std::u16string followed;
    bench.SetLinkHandler([&](const std::u16string& address) { followed += address; });
    CHECK(pane.IsLink(on(4)));
    CHECK_FALSE(pane.IsLink(on(2)));
    const auto click = [&](TextPos from, TextPos to, int count) {
        followed.clear();
        pane.Click(on(from), count, false);
        if (from != to) pane.DragTo(on(to));
        pane.EndDrag();
        pane.EndDrag(); // as where the mouse is captured
        return followed;
    };
    CHECK(click(4, 4, 1) == u"an address");
    CHECK(click(4, 5, 1) == u"an address"); // the hand was not quite still
    CHECK(click(1, 1, 1).empty());
    CHECK(click(4, 1, 1).empty());
    CHECK(bench.SelLength() == 3);
    CHECK(click(4, 4, 2).empty());
    bench.LoadPlainText(u"go there now");
    CHECK(click(4, 4, 1).empty());
}

TEST_CASE("text pane: keys move the caret") {
    struct {
        TextPos from;
        PaneKey key;
        bool control;
        TextPos to;
    } const cases[] = {
        {0, PaneKey::Right, false, 1},  {10, PaneKey::Right, false, 11},
        {11, PaneKey::Left, false, 10}, {0, PaneKey::Left, false, 0},
        {15, PaneKey::Home, false, 11}, {15, PaneKey::End, false, 27},
        {0, PaneKey::Right, true, 6},   {9, PaneKey::Left, true, 6},
        {20, PaneKey::Home, true, 0},   {20, PaneKey::End, true, 35},
        {0, PaneKey::Down, false, 11},  {11, PaneKey::Up, false, 0},
        {27, PaneKey::Down, false, 28}, {28, PaneKey::Down, false, 29},
        {3, PaneKey::PageUp, false, 0}, {3, PaneKey::PageDown, false, 35},
        {3, PaneKey::Down, true, 11},   {11, PaneKey::Down, true, 28},
        {28, PaneKey::Down, true, 29},  {30, PaneKey::Down, true, 35},
        {35, PaneKey::Down, true, 35},  {33, PaneKey::Up, true, 29},
        {29, PaneKey::Up, true, 28},    {28, PaneKey::Up, true, 11},
        {12, PaneKey::Up, true, 11},    {3, PaneKey::Up, true, 0},
        {0, PaneKey::Up, true, 0},
    };
    PaneBench bench;
    bench.LoadPlainText(someLines);
    for (const auto& c : cases) {
        INFO("from ", c.from, " to ", c.to, " by key ", int(c.key));
        bench.Select(c.from, 0);
        CHECK(bench.Press(c.key, false, c.control) == c.to);
        CHECK(bench.SelLength() == 0);
    }
    CHECK_FALSE(bench.Pane().Press(PaneKey::PageUp, false, true)); // is the window's
}

TEST_CASE("text pane: a paragraph that is laid out in pieces is passed as a whole") {
    PaneBench bench;
    const std::u16string dense(40'000, u'x'); // is laid out in many pieces
    bench.LoadPlainText(u"one\n" + dense + u"\nthree");
    bench.Select(2, 0);
    CHECK(bench.Press(PaneKey::Down, true, true) == 4);
    CHECK(bench.Press(PaneKey::Down, true, true) == 40'005);
    CHECK(bench.SelLength() == 40'003);
    CHECK(bench.Press(PaneKey::Up, false, true) == 4);
}

TEST_CASE("text pane: up and down keep the column, left and right do not") {
    PaneBench bench;
    bench.LoadPlainText(u"a long line\nx\nanother long one");
    bench.Select(9, 0);
    CHECK(bench.Press(PaneKey::Down) == 13);
    CHECK(bench.Press(PaneKey::Down) == 23);
    CHECK(bench.Press(PaneKey::Up) == 13);
    CHECK(bench.Press(PaneKey::Left) == 12);
    CHECK(bench.Press(PaneKey::Up) == 0);
}

TEST_CASE("text pane: arrows go the way they point in text from right to left") {
    PaneBench bench;
    bench.LoadPlainText(u"\u05D0\u05D1\u05D2 \u05D3\u05D4\nx");
    CHECK(bench.Caret().left > 350); // the paragraph begins at the right
    CHECK(bench.Press(PaneKey::Left) == 1);
    CHECK(bench.Press(PaneKey::Right) == 0);
    CHECK(bench.Press(PaneKey::Left, false, true) == 4);
    CHECK(bench.Press(PaneKey::End) == 6);
    CHECK(bench.Press(PaneKey::Left) == 7);
}

TEST_CASE("text pane: shift extends the selection, an arrow alone collapses it to its side") {
    PaneBench bench;
    bench.LoadPlainText(someLines);
    bench.Select(2, 0);
    bench.Press(PaneKey::Right, true);
    bench.Press(PaneKey::Down, true);
    CHECK(bench.SelStart() == 2);
    CHECK(bench.SelLength() == 12);
    CHECK(bench.Press(PaneKey::Left) == 2);
    bench.Press(PaneKey::End, true);
    CHECK(bench.Press(PaneKey::Right) == 10);
    CHECK(bench.SelLength() == 0);
}

TEST_CASE("text pane: the line asked for is on top, and stays there in any width") {
    PaneBench bench(200);
    const std::u16string text = Numbered(500);
    bench.LoadPlainText(text);
    const TextPos line = 7 * 250;
    bench.ScrollLineToTop(line + 3);
    CHECK(bench.FirstVisibleChar() == line);
    for (const int width : {60, 500, 33, 200}) {
        bench.window.room.width = width;
        CHECK(bench.LineAround(bench.FirstVisibleChar()).start <= line + 3);
        CHECK(bench.LineAround(line + 3).start == bench.FirstVisibleChar());
    }
    CHECK(bench.FirstVisibleChar() == line);
    CHECK(bench.LayoutsMade() < 5 * 40); // a screen each, not the text
}

TEST_CASE("text pane: the last line may be on top when it is asked for, not by the wheel") {
    PaneBench bench;
    bench.LoadPlainText(Numbered(100));
    bench.ScrollLineToTop(bench.TextLength());
    CHECK(bench.FirstVisibleChar() == bench.TextLength());
    bench.Pane().ScrollLines(-50);
    bench.Pane().ScrollLines(1000);
    CHECK(bench.FirstVisibleChar() == 7 * 91); // ten lines in view, the last one empty
}

TEST_CASE("text pane: paging shows one line of the page before, and comes back") {
    PaneBench bench;
    bench.LoadPlainText(Numbered(100));
    bench.Painted();
    bench.Pane().PageDown();
    CHECK(bench.FirstVisibleChar() == 7 * 9);
    bench.Pane().PageUp();
    CHECK(bench.FirstVisibleChar() == 0);
    bench.Press(PaneKey::Space);
    CHECK(bench.FirstVisibleChar() == 7 * 9);
    bench.Press(PaneKey::Space, true);
    CHECK(bench.FirstVisibleChar() == 0);
}

TEST_CASE("text pane: the vertical scroll bar goes by the text") {
    PaneBench bench;
    bench.LoadPlainText(Numbered(100));
    bench.Painted();
    CHECK(bench.window.vertical.value == 0);
    CHECK(bench.window.vertical.max == 7 * 91);
    CHECK(bench.window.vertical.page == 70);
    bench.Pane().ScrollTo(7 * 50);
    CHECK(bench.FirstVisibleChar() == 7 * 50);
    bench.Painted();
    CHECK(bench.window.vertical.value == 7 * 50);
}

TEST_CASE("text pane: lines wider than the window scroll sideways to what is revealed") {
    PaneBench bench;
    bench.SetRightMargin(491520);
    bench.LoadPlainText(std::u16string(200, u'x') + u" needle");
    bench.Painted();
    CHECK(bench.window.horizontalBar);
    CHECK(bench.window.horizontal.max == 207 * PaneBench::letter + 2 * bench.Margin() - 400);
    bench.ScrollIntoViewHorizontally(201, 6);
    CHECK(bench.window.horizontal.value > 0);
    const auto needle = bench.Pane().CharacterRect(201);
    CHECK(needle.left >= 0);
    CHECK(needle.left + 6 * PaneBench::letter <= 400);
    bench.Press(PaneKey::Home, false, true);
    bench.Painted();
    CHECK(bench.window.horizontal.value == 0);
    bench.SetRightMargin(0);
    bench.Painted();
    CHECK_FALSE(bench.window.horizontalBar);
}

TEST_CASE("text pane: clicks select a character's place, a word and a paragraph") {
    PaneBench bench;
    bench.LoadPlainText(someLines);
    const Point inSecond{bench.Margin() + 9 * PaneBench::letter + 1, PaneBench::lineHeight + 5};
    bench.Pane().Click(inSecond, 1, false);
    CHECK(bench.SelStart() == 20);
    CHECK(bench.SelLength() == 0);
    bench.Pane().Click(inSecond, 2, false);
    CHECK(bench.TextRange(bench.SelStart(), bench.SelLength()) == u"line");
    bench.Pane().Click(inSecond, 3, false);
    CHECK(bench.TextRange(bench.SelStart(), bench.SelLength()) == u"second line here\n");
    bench.Pane().Click({bench.Margin(), 5}, 1, true);
    CHECK(bench.SelStart() == 0); // extended
}

TEST_CASE("text pane: a drag goes by what it began with, and scrolls outside of the window") {
    PaneBench bench;
    bench.LoadPlainText(Numbered(100));
    const auto place = [&](int column, int line) {
        return Point{bench.Margin() + column * PaneBench::letter, line * PaneBench::lineHeight + 5};
    };
    bench.Pane().Click(place(1, 1), 2, false); // "line" of the second line
    bench.Pane().DragTo(place(6, 3));
    CHECK(bench.TextRange(bench.SelStart(), bench.SelLength()) == u"line b\nline c\nline d");
    bench.Pane().DragTo(place(1, 0));
    CHECK(bench.TextRange(bench.SelStart(), bench.SelLength()) == u"line a\nline");
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::AutoScroll));
    bench.Pane().DragTo({50, 400});
    REQUIRE(bench.window.timers.contains(PaneTimer::AutoScroll));
    for (int i = 0; i < 3; ++i)
        bench.Pane().OnTimer(PaneTimer::AutoScroll);
    CHECK(bench.FirstVisibleChar() > 7 * 30);
    CHECK(bench.Pane().Caret() > 7 * 40);
    bench.Pane().EndDrag();
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::AutoScroll));
}

TEST_CASE("text pane: what is selected is drawn in the selection's colours, once") {
    PaneBench bench;
    SystemStyle system;
    system.selection = {0x111111, 0x222222};
    bench.Pane().SetSystemStyle(system);
    bench.LoadPlainText(u"abcdef\nghi");
    bench.Select(2, 3);
    std::vector<Rect> filled;
    for (const NoneDrawing& drawing : bench.Painted())
        if (drawing.color == 0x222222) filled.push_back(drawing.rect);
    const int left = bench.Margin() + 2 * PaneBench::letter;
    CHECK(filled == std::vector<Rect>{{left, 0, 3 * PaneBench::letter, PaneBench::lineHeight}});
    bench.window.focused = false;
    for (const NoneDrawing& drawing : bench.Painted())
        CHECK(drawing.color != 0x222222);
}

TEST_CASE("text pane: the caret blinks while the window has the keyboard") {
    PaneBench bench;
    bench.LoadPlainText(u"text");
    bench.Select(1, 0);
    const auto carets = [&] {
        int count = 0;
        for (const NoneDrawing& drawing : bench.Painted())
            count += drawing.kind == NoneDrawing::Kind::Fill && drawing.rect == bench.Caret();
        return count;
    };
    CHECK(bench.window.timers.contains(PaneTimer::CaretBlink));
    CHECK(carets() == 1);
    bench.Pane().OnTimer(PaneTimer::CaretBlink);
    CHECK(carets() == 0);
    CHECK(bench.window.redrawn.back() == bench.Caret());
    bench.window.focused = false;
    bench.Pane().OnFocusChanged();
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::CaretBlink));
    CHECK(carets() == 0);
}

TEST_CASE("text pane: another resolution is laid out anew, with fonts of its own") {
    PaneBench bench;
    bench.LoadPlainText(u"text that is somewhat longer than one line at this size, and goes on");
    const std::size_t before = bench.PaintedLines().size();
    bench.window.dpi = 192;
    CHECK(bench.PaintedLines().size() > before);
    CHECK(bench.Caret().height == 32);
    CHECK(bench.lines.staleStyles == 0);
}

TEST_CASE("text pane: a picture that cannot be decoded leaves its frame") {
    PaneBench bench;
    bench.LoadRichText("{\\rtf1 a{\\pict\\wmetafile8\\picwgoal600\\pichgoal300 00}b}", 1252);
    const auto drawings = bench.Painted();
    const auto isFrame = [](const NoneDrawing& drawing) {
        return drawing.kind == NoneDrawing::Kind::Fill && drawing.rect.width == 40;
    };
    CHECK(std::count_if(drawings.begin(), drawings.end(), isFrame) == 2); // above and below
    CHECK(bench.Pane().CharacterRect(1).width == 40);
    CHECK(bench.Pane().CharacterRect(1).height == 20);
}

TEST_CASE("text pane: cells of a table stand beside each other, and down stays in the column") {
    PaneBench bench(600);
    bench.LoadRichText(
        "{\\rtf1\\trowd\\cellx3000\\cellx6000\\intbl one\\par two\\cell three\\cell\\row"
        "\\trowd\\cellx3000\\cellx6000\\intbl four\\cell five\\cell\\row\\pard end}",
        1252);
    const auto top = [&](TextPos at) { return bench.Pane().CharacterRect(at).top; };
    CHECK(top(0) == top(8)); // "one" and "three"
    CHECK(bench.Pane().CharacterRect(8).left > bench.Pane().CharacterRect(0).left + 150);
    bench.Select(0, 0);
    CHECK(bench.Press(PaneKey::Down) == 4); // "two"
    CHECK(bench.TextRange(bench.Press(PaneKey::Down), 4) == u"four");
}
