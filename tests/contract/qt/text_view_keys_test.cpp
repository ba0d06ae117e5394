// Keys, mouse and wheel of the text view.
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

#include <QWheelEvent>

namespace {
const std::u16string someLines = u"first line\nsecond line here\n\nfourth";

bool Turn(QtViewBench& bench, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
          QPoint pixels = {}) {
    QWheelEvent event(QPointF(10, 10), bench.Widget().mapToGlobal(QPointF(10, 10)), pixels,
                      QPoint(0, angle), Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    event.setAccepted(false);
    QCoreApplication::sendEvent(bench.Widget().viewport(), &event);
    return event.isAccepted();
}
} // namespace

TEST_CASE("qt text view: keys move the caret") {
    constexpr auto none = Qt::NoModifier, control = Qt::ControlModifier;
    struct {
        TextPos from;
        int key;
        Qt::KeyboardModifier modifier;
        TextPos to;
    } const cases[] = {
        {0, Qt::Key_Right, none, 1},     {10, Qt::Key_Right, none, 11},
        {11, Qt::Key_Left, none, 10},    {0, Qt::Key_Left, none, 0},
        {35, Qt::Key_Right, none, 35},   {15, Qt::Key_Home, none, 11},
        {15, Qt::Key_End, none, 27},     {0, Qt::Key_Right, control, 6},
        {9, Qt::Key_Left, control, 6},   {10, Qt::Key_Right, control, 11},
        {11, Qt::Key_Left, control, 10}, {20, Qt::Key_Home, control, 0},
        {20, Qt::Key_End, control, 35},  {0, Qt::Key_Down, none, 11},
        {11, Qt::Key_Up, none, 0},       {27, Qt::Key_Down, none, 28},
        {28, Qt::Key_Down, none, 29},    {0, Qt::Key_Up, none, 0},
        {31, Qt::Key_Down, none, 31},    {3, Qt::Key_PageUp, none, 0},
        {3, Qt::Key_PageDown, none, 35},
    };
    QtViewBench bench;
    bench.view.LoadPlainText(someLines);
    REQUIRE(bench.view.TextLength() == 35);
    for (const auto& c : cases) {
        INFO("from ", c.from, " to ", c.to, " by key ", c.key);
        bench.view.Select(c.from, 0);
        CHECK(bench.Press(c.key, c.modifier));
        CHECK(bench.view.SelStart() == c.to);
        CHECK(bench.view.SelLength() == 0);
    }
}

TEST_CASE("qt text view: up and down keep the column") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"a long line\nx\nanother long one");
    bench.view.Select(9, 0);
    bench.Press(Qt::Key_Down);
    CHECK(bench.view.SelStart() == 13);
    bench.Press(Qt::Key_Down);
    CHECK(bench.view.SelStart() > 20);
    bench.Press(Qt::Key_Up);
    bench.Press(Qt::Key_Up);
    CHECK(bench.view.SelStart() == 9);
}

TEST_CASE("qt text view: arrow keys move visually in right-to-left text") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"\u05D0\u05D1\u05D2 \u05D3\u05D4\nx");
    bench.Press(Qt::Key_Left);
    CHECK(bench.view.SelStart() == 1);
    bench.Press(Qt::Key_Right);
    CHECK(bench.view.SelStart() == 0);
    bench.Press(Qt::Key_Left, Qt::ControlModifier);
    CHECK(bench.view.SelStart() == 4);
    bench.Press(Qt::Key_End);
    CHECK(bench.view.SelStart() == 6);
    bench.Press(Qt::Key_Left);
    CHECK(bench.view.SelStart() == 7);
}

TEST_CASE("qt text view: Shift extends the selection") {
    QtViewBench bench;
    bench.view.LoadPlainText(someLines);
    bench.view.Select(6, 0);
    bench.Press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    CHECK(bench.view.SelStart() == 6);
    CHECK(bench.view.SelLength() == 4);
    bench.Press(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    CHECK(bench.view.SelStart() == 0);
    CHECK(bench.view.SelLength() == 6);
    bench.Press(Qt::Key_Right); // collapses the selection
    CHECK(bench.view.SelStart() == 6);
    CHECK(bench.view.SelLength() == 0);
}

TEST_CASE("qt text view: the caret passes a surrogate pair in one step") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"\U0001D11E\U0001D11E");
    bench.Press(Qt::Key_Right);
    CHECK(bench.view.SelStart() == 2);
    bench.Press(Qt::Key_Right);
    bench.Press(Qt::Key_Left);
    CHECK(bench.view.SelStart() == 2);
}

TEST_CASE("qt text view: End and the arrows at the seam of two pieces of a long paragraph") {
    QtViewBench bench;
    bench.view.LoadPlainText(RepeatedText(u"x", 100'000));
    TextPos seam = 16 * 1024;
    REQUIRE(bench.view.LineAround(seam).start == seam);
    bench.view.Select(seam - 1, 0);
    bench.Press(Qt::Key_End);
    CHECK(bench.view.SelStart() == seam - 1);
    bench.Press(Qt::Key_Right);
    CHECK(bench.view.SelStart() == seam);
    bench.Press(Qt::Key_Left);
    CHECK(bench.view.SelStart() == seam - 1);
}

TEST_CASE("qt text view: the arrows step over a line that is only its end") {
    QtViewBench bench(15, 400);                        // one character per line
    bench.view.LoadPlainText(u"\v \u05E2\u05D5\nend"); // right-to-left
    for (const TextPos place : {1, 2, 3, 4}) {
        bench.Press(Qt::Key_Left);
        CHECK(bench.view.SelStart() == place);
    }
    for (const TextPos place : {3, 2, 1, 0}) {
        bench.Press(Qt::Key_Right);
        CHECK(bench.view.SelStart() == place);
    }
}

TEST_CASE("qt text view: the arrows step over each blank with an accent") {
    QtViewBench bench(15, 400); // one letter per line
    bench.view.LoadPlainText(u"\u05D0 \u0301 \u0301 \u05D1\u05D2");
    for (const TextPos place : {1, 3, 5, 6}) {
        bench.Press(Qt::Key_Left);
        CHECK(bench.view.SelStart() == place);
    }
    for (const TextPos place : {5, 3, 1, 0}) {
        bench.Press(Qt::Key_Right);
        CHECK(bench.view.SelStart() == place);
    }
}

TEST_CASE("qt text view: keys scroll the caret into view") {
    QtViewBench bench(500, 200);
    bench.view.LoadPlainText(RepeatedText(u"line\n", 1000));
    for (int i = 0; i < 40; ++i)
        bench.Press(Qt::Key_Down);
    CHECK(bench.view.SelStart() == 200);
    CHECK(bench.view.FirstVisibleChar() > 0);
    CHECK(bench.Widget().rect().contains(bench.Widget().CaretRect()));
    for (int i = 0; i < 10; ++i)
        bench.Press(Qt::Key_PageUp);
    CHECK(bench.view.SelStart() == 0);
    CHECK(bench.view.FirstVisibleChar() == 0);
}

TEST_CASE("qt text view: Space scrolls a page and leaves the caret") {
    QtViewBench bench(500, 200);
    bench.view.LoadPlainText(RepeatedText(u"line\n", 1000));
    CHECK(bench.Press(Qt::Key_Space));
    const TextPos top = bench.view.FirstVisibleChar();
    CHECK(top > 20);
    CHECK(bench.view.SelStart() == 0);
    CHECK(bench.Press(Qt::Key_Space, Qt::ShiftModifier));
    CHECK(bench.view.FirstVisibleChar() == 0);
}

TEST_CASE("qt text view: keys that it does not use propagate to the window") {
    QtViewBench bench;
    bench.view.LoadPlainText(someLines);
    CHECK_FALSE(bench.Press(Qt::Key_C, Qt::ControlModifier));
    CHECK_FALSE(bench.Press(Qt::Key_A, Qt::ControlModifier));
    CHECK_FALSE(bench.Press(Qt::Key_A));
    CHECK_FALSE(bench.Press(Qt::Key_F3));
    CHECK_FALSE(bench.Press(Qt::Key_Left, Qt::AltModifier));
    CHECK_FALSE(bench.Press(Qt::Key_Space, Qt::ControlModifier));
    CHECK_FALSE(bench.Press(Qt::Key_PageDown, Qt::ControlModifier));
}

TEST_CASE("qt text view: the mouse places the caret, extends and selects words and paragraphs") {
    QtViewBench bench;
    bench.view.LoadPlainText(someLines);
    const auto at = [&](TextPos position) {
        const auto start = bench.view.SelStart(), length = bench.view.SelLength();
        bench.view.Select(position, 0);
        const QPoint point = bench.Widget().CaretRect().center();
        bench.view.Select(start, length);
        return point;
    };
    bench.Mouse(QEvent::MouseButtonPress, at(3));
    CHECK(bench.view.SelStart() == 3);
    bench.Mouse(QEvent::MouseMove, at(14));
    CHECK(bench.view.SelLength() == 11);
    bench.Mouse(QEvent::MouseButtonRelease, at(14));
    bench.Mouse(QEvent::MouseButtonPress, at(8), Qt::ShiftModifier);
    CHECK(bench.view.SelStart() == 3);
    CHECK(bench.view.SelLength() == 5);

    const QPoint word = at(20);
    bench.Mouse(QEvent::MouseButtonDblClick, word);
    CHECK(bench.view.TextRange(bench.view.SelStart(), bench.view.SelLength()) == u"line");
    bench.Mouse(QEvent::MouseMove, at(12)); // by words
    CHECK(bench.view.TextRange(bench.view.SelStart(), bench.view.SelLength()) == u"second line");
    bench.Mouse(QEvent::MouseButtonDblClick, word);
    bench.Mouse(QEvent::MouseButtonPress, word);
    CHECK(bench.view.TextRange(bench.view.SelStart(), bench.view.SelLength()) ==
          u"second line here\n");
}

TEST_CASE("qt text view: the wheel scrolls three lines, with Ctrl it is left to the window") {
    QtViewBench bench(500, 200);
    bench.view.LoadPlainText(RepeatedText(u"line\n", 1000));
    CHECK(Turn(bench, -120));
    CHECK(bench.view.FirstVisibleChar() == 15);
    CHECK(Turn(bench, -40));
    CHECK(bench.view.FirstVisibleChar() == 20);
    CHECK(Turn(bench, 120));
    CHECK(bench.view.FirstVisibleChar() == 5);
    CHECK_FALSE(Turn(bench, -120, Qt::ControlModifier));
    CHECK(bench.view.FirstVisibleChar() == 5);
    CHECK(Turn(bench, 0, Qt::NoModifier, QPoint(0, -1))); // a touchpad scrolls by pixels
    CHECK(bench.view.FirstVisibleChar() == 5);
    bench.view.ScrollLineToTop(bench.view.FirstVisibleChar());
    CHECK(bench.view.FirstVisibleChar() == 5);
}

TEST_CASE("qt text view: the caret shows while the view has the focus") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"");
    const auto caretShown = [&] {
        const QRect caret = bench.Widget().CaretRect();
        const QImage image = bench.Widget().viewport()->grab().toImage();
        return image.pixelColor(caret.center()) == QColor(Qt::black);
    };
    CHECK_FALSE(caretShown());
    bench.view.Widget()->activateWindow();
    bench.view.FocusView();
    QCoreApplication::processEvents();
    REQUIRE(bench.view.Widget()->hasFocus());
    CHECK(caretShown());
    bench.view.Widget()->clearFocus();
    CHECK_FALSE(caretShown());
}

TEST_CASE("qt text view: a window enlarged at the end of the book has no gap") {
    QtViewBench bench(500, 20);
    bench.view.LoadPlainText(RepeatedText(u"a line\n", 500));
    bench.Press(Qt::Key_End, Qt::ControlModifier);
    const TextPos whenSmall = bench.view.FirstVisibleChar();
    CHECK(whenSmall > 7 * 497);
    bench.view.SetBounds({0, 0, 500, 400});
    CHECK(bench.view.FirstVisibleChar() < 7 * 490); // lines above became visible
    bench.view.SetBounds({0, 0, 500, 20});
    bench.view.ScrollLineToTop(7 * 499); // a position scrolled to stays at the top
    bench.view.SetBounds({0, 0, 500, 400});
    CHECK(bench.view.FirstVisibleChar() == 7 * 499);
}
