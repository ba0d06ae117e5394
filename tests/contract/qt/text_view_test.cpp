// How much the text view lays out, and that it equals the layout of whole paragraphs.
#include "tests/contract/qt/text_view_bench.h"

#include "common/string_text.h"
#include "platform/qt/text_view/pane/dropped_paths.h"

#include <doctest/doctest.h>

#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>

#include <random>

namespace {
std::u16string RandomText(std::mt19937& random, int length) {
    static const std::u16string pieces[] = {
        u"a",          u"word ",   u"longer-word, ", u" ",      u"\t",
        u"\n",         u"\n\n",    u"\u05D0\u05D1 ", u"12 ",    u"\u0645\u0631\u062D\u0628\u0627 ",
        u"\U0001D11E", u"e\u0301", u"\u4E2D\u6587",  u"\uFFFD", u"\u00ADx"};
    std::u16string text;
    while (int(text.size()) < length)
        text += pieces[random() % std::size(pieces)];
    return text;
}
} // namespace

TEST_CASE("qt text view: its lines are those of whole paragraphs laid out") {
    std::mt19937 random(20260); // NOLINT: reproducible
    for (int round = 0; round < 40; ++round) {
        const std::u16string text = RandomText(random, 400);
        QtViewBench bench(80 + int(random() % 600), 200);
        bench.view.LoadPlainText(text);
        const int width = bench.TextWidth();
        TextPos start = 0;
        while (start <= TextPos(text.size())) {
            const auto lineBreak = text.find(u'\n', start);
            const TextPos end = TextPos(std::min(lineBreak, text.size()));
            for (const TextPos line :
                 WholeLayout(text, start, end, width, bench.Widget().viewport())) {
                CAPTURE(line);
                CHECK(bench.view.LineAround(line).start == line);
                if (line > start) CHECK(bench.view.LineAround(line - 1).start < line);
            }
            start = end + 1;
        }
    }
}

TEST_CASE("qt text view: opening a long text at its end lays out two screens at most") {
    const std::u16string paragraph = u"A line of the book that fits the view.\n";
    QtViewBench bench(500, 400);
    const int before = bench.view.LayoutsMade();
    bench.view.LoadPlainText(RepeatedText(paragraph, 130'000)); // 10 MB
    bench.view.ScrollLineToTop(bench.view.TextLength() - 4000);
    CHECK(bench.view.FirstVisibleChar() > bench.view.TextLength() - 4100);
    bench.Widget().grab();
    const int lineHeight = QFontMetrics(MakeFont({}), bench.Widget().viewport()).height();
    const int screen = 400 / lineHeight + 2;
    CHECK(bench.view.LayoutsMade() - before <= 2 * screen);
}

TEST_CASE("qt text view: a text without breaks is laid out in pieces") {
    for (const std::u16string_view part : {u"\uFFFD", u"word ", u"\U0001D11E", u"e\u0301"}) {
        QtViewBench bench(500, 400);
        bench.view.LoadPlainText(RepeatedText(part, int(20'000'000 / part.size())));
        const int before = bench.view.LayoutsMade();
        const TextPos size = bench.view.TextLength();
        for (const TextPos position : {size, size / 2, 0, 16 * 1024, size - 1}) {
            bench.view.ScrollLineToTop(position);
            const TextPos top = bench.view.FirstVisibleChar();
            CHECK(top <= position);
            CHECK(top > position - 1000);
            bench.Widget().grab();
        }
        CHECK(bench.view.LayoutsMade() - before <= 12);
    }
}

TEST_CASE("qt text view: blocks tile the text and are the same from wherever they are found") {
    std::mt19937 random(99); // NOLINT
    for (const unsigned rarity : {50u, 5'000u, 40'000u, 1'000'000u}) {
        std::u16string units;
        for (int i = 0; i < 200'000; ++i)
            units += random() % rarity == 0 ? u'\n' : random() % 7 == 0 ? u' ' : u'x';
        const StringText text(units);
        const TextPos size = text.Length();
        TextPos start = 0;
        for (;;) {
            const TextBlock block = BlockAt(text, {}, start);
            REQUIRE(block.start == start);
            CHECK(block.end - block.start <= 2 * pieceLength);
            const TextPos middle = start + TextPos(random() % unsigned(block.end - start + 1)) - 1;
            for (const TextPos inside : {std::max(start, middle), std::max(start, block.end - 1)}) {
                CHECK(BlockAt(text, {}, inside).start == block.start);
                CHECK(BlockAt(text, {}, inside).end == block.end);
            }
            if (IsLastBlock(text, block)) break;
            REQUIRE(block.end > start);
            start = block.end;
        }
        CHECK(BlockAt(text, {}, size).end == size);
    }
}

TEST_CASE("qt text view: selecting a huge text and moving in it lays out next to nothing") {
    QtViewBench bench;
    bench.view.LoadPlainText(RepeatedText(u"Some line.\n\n", 1'000'000));
    const int before = bench.view.LayoutsMade();
    bench.view.Select(0, bench.view.TextLength());
    CHECK(bench.view.SelLength() == bench.view.TextLength());
    bench.Press(Qt::Key_End, Qt::ControlModifier);
    CHECK(bench.view.SelStart() == bench.view.TextLength());
    bench.Press(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    CHECK(bench.view.SelLength() == bench.view.TextLength());
    bench.Widget().grab();
    CHECK(bench.view.LayoutsMade() - before < 200);
}

TEST_CASE("qt text view: a click on the caret's position returns it") {
    for (const std::u16string_view part :
         {u"some words, \t more\n", u"\u4E2D\u6587\u4E2D\u6587", u"\u05D0\u05D1\u05D2\n", u"\n"})
        for (const int width : {900, 200, 90}) {
            QtViewBench bench(width, 6000);
            bench.view.LoadPlainText(RepeatedText(part, 15));
            for (TextPos position = 0; position <= bench.view.TextLength(); ++position) {
                CAPTURE(position);
                bench.view.Select(position, 0);
                const QRect caret = bench.Widget().CaretRect();
                REQUIRE_FALSE(caret.isNull());
                const Point point = ToPoint(caret.center());
                const TextPos found = bench.Widget().Pane().PositionAtPoint(point);
                bench.view.Select(found, 0); // trailing spaces of a wrapped line are at one place
                CHECK(bench.Widget().CaretRect() == caret);
            }
        }
}

TEST_CASE("qt text view: scrolling by the user stops at the last line") {
    QtViewBench bench(500, 400);
    bench.view.LoadPlainText(RepeatedText(u"line\n", 1000) + u"last");
    TextScroller& scroller = bench.Widget().Pane().Scroller();
    scroller.ScrollBy(1 << 20);
    const TextPos top = bench.view.FirstVisibleChar();
    bench.view.Select(bench.view.TextLength(), 0);
    const QRect caret = bench.Widget().CaretRect();
    CHECK(caret.bottom() < scroller.ViewHeight());
    CHECK(caret.bottom() > scroller.ViewHeight() - 2 * caret.height());
    bench.view.ScrollLineToTop(bench.view.TextLength()); // the text below need not fill the view
    CHECK(bench.view.FirstVisibleChar() == bench.view.LineAround(bench.view.TextLength()).start);
    scroller.ScrollBy(100);
    CHECK(bench.view.FirstVisibleChar() == bench.view.LineAround(bench.view.TextLength()).start);
    scroller.ScrollBy(-(1 << 20));
    CHECK(bench.view.FirstVisibleChar() == 0);
    CHECK(top < bench.view.TextLength() - 50);
}

TEST_CASE("qt text view: the scroll bar moves by characters") {
    QtViewBench bench(500, 400);
    bench.view.LoadPlainText(RepeatedText(u"line of the book\n", 10'000));
    bench.Widget().grab();
    QScrollBar& bar = *bench.Widget().verticalScrollBar();
    CHECK(bar.maximum() > 160'000);
    CHECK(bar.value() == 0);
    bar.setSliderPosition(bar.maximum() / 2);
    CHECK(std::abs(bench.view.FirstVisibleChar() - bar.maximum() / 2) < 40);
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    bench.Widget().grab();
    CHECK(bar.value() == bar.maximum());
    bar.triggerAction(QAbstractSlider::SliderToMinimum);
    CHECK(bench.view.FirstVisibleChar() == 0);
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    CHECK(bench.view.FirstVisibleChar() == 17);
}

TEST_CASE("qt text view: dropped paths keep the bytes that UTF-16 can hold") {
    struct {
        const char* list;
        std::vector<std::u16string> paths;
    } const cases[] = {
        {"file:///home/a%20b.txt\r\nfile:///c.rtf\r\n", {u"/home/a b.txt", u"/c.rtf"}},
        {"#comment\r\nfile://localhost/x", {u"/x"}},
        {"file:/one/slash\nFILE:///Upper", {u"/one/slash", u"/Upper"}},
        {"file:///caf%C3%A9/%FFbad%C3", {u"/caf\u00E9/?bad?"}},
        {"http://example.invalid/x\nfile://elsewhere/y\n\nfile:relative", {}},
        {"", {}},
    };
    for (const auto& c : cases) {
        CAPTURE(c.list);
        CHECK(DroppedPaths(c.list) == c.paths);
    }
}

TEST_CASE("qt text view: a drop of files is reported in its order, another is refused") {
    QtViewBench bench;
    std::vector<std::u16string> dropped;
    bench.view.onFilesDropped = [&](const auto& paths) { dropped = paths; };
    QMimeData files, text;
    files.setUrls({QUrl("file:///b%FF.txt"), QUrl("file:///a b.txt"), QUrl("http://a.invalid/")});
    text.setText("only text");
    const auto accepts = [&](const QMimeData& data) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QCoreApplication::sendEvent(bench.Widget().viewport(), &enter);
        return enter.isAccepted();
    };
    CHECK_FALSE(accepts(text));
    CHECK(accepts(files));
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.Widget().viewport(), &drop);
    CHECK(dropped == std::vector<std::u16string>{u"/b?.txt", u"/a b.txt"});
}
