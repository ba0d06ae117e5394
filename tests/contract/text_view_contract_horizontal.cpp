// Lines that are wider than the view, and what comes into view in them.
#include "tests/contract/text_view_contract.h"

#include <doctest/doctest.h>

#include <string>

namespace {
constexpr int width = 400;
constexpr int unwrapped = 491520; // twips

// A line of a thousand characters between two short ones.
std::u16string WideLine(char16_t letter) {
    return u"one\n" + std::u16string(1000, letter) + u"\nthree";
}

// Views on a text that no line of breaks, with the place of a character in them.
void OnEachWideView(
    const std::u16string& text,
    const std::function<void(TextView&, const std::function<int(TextPos)>&)>& check) {
    for (const TextViewBackEnd& backEnd : TextViewBackEnds()) {
        CAPTURE(backEnd.name);
        const std::unique_ptr<TextView> view = backEnd.make();
        view->SetBounds({0, 0, width, 300});
        view->SetVisible(true);
        view->LoadPlainText(text);
        view->SetRightMargin(unwrapped);
        check(*view, [&](TextPos position) { return backEnd.x(*view, position); });
    }
}

bool IsSeen(int x) {
    return x >= 0 && x < width;
}
} // namespace

TEST_CASE("text view: a stretch far to the right comes into view, and its line stays where it is") {
    OnEachWideView(WideLine(u'x'), [](TextView& view, const auto& x) {
        view.ScrollLineToTop(500);
        const TextPos top = view.FirstVisibleChar();
        CHECK(top == 4);
        REQUIRE_FALSE(IsSeen(x(800)));
        view.ScrollIntoViewHorizontally(800, 5);
        CHECK(IsSeen(x(800)));
        CHECK(IsSeen(x(804)));
        CHECK(view.FirstVisibleChar() == top);
        view.ScrollIntoViewHorizontally(1003, 1); // the line's last character
        CHECK(IsSeen(x(1003)));
        view.ScrollIntoViewHorizontally(300, 0);
        CHECK(IsSeen(x(300)));
        CHECK(view.FirstVisibleChar() == top);
    });
}

TEST_CASE("text view: what is in view already stays, and the line's beginning is shown again") {
    OnEachWideView(WideLine(u'x'), [](TextView& view, const auto& x) {
        const int beginning = x(4);
        view.ScrollIntoViewHorizontally(10, 2);
        CHECK(x(4) == beginning);
        view.ScrollIntoViewHorizontally(800, 5);
        const int before = x(800);
        view.ScrollIntoViewHorizontally(801, 3);
        CHECK(x(800) == before);
        view.ScrollIntoViewHorizontally(10, 2);
        CHECK(x(4) == beginning);
    });
}

TEST_CASE(
    "text view: of a stretch wider than the view, or of several lines, the beginning is seen") {
    OnEachWideView(WideLine(u'x'), [](TextView& view, const auto& x) {
        view.ScrollIntoViewHorizontally(600, 400);
        CHECK(IsSeen(x(600)));
        view.ScrollIntoViewHorizontally(900, 106); // to the end of the text
        CHECK(IsSeen(x(900)));
        view.ScrollIntoViewHorizontally(1006, 3);
        CHECK(IsSeen(x(1006)));
        view.ScrollIntoViewHorizontally(-7, 1 << 30);
        CHECK(IsSeen(x(0)));
    });
}

TEST_CASE("text view: a text that goes to the left is followed, too") {
    OnEachWideView(WideLine(u'\u05D0'), [](TextView& view, const auto& x) {
        for (const TextPos position : {4, 500, 900, 20}) {
            view.ScrollIntoViewHorizontally(position, 3);
            CHECK(IsSeen(x(position)));
        }
        view.ScrollIntoViewHorizontally(500, 500);
        CHECK(IsSeen(x(500)));
    });
}

TEST_CASE("text view: loading scrolls back to the left") {
    OnEachWideView(WideLine(u'x'), [](TextView& view, const auto& x) {
        const int beginning = x(0);
        view.ScrollIntoViewHorizontally(800, 5);
        view.LoadPlainText(WideLine(u'x'));
        CHECK(x(0) == beginning);
    });
}

TEST_CASE("text view: where lines wrap there is nothing to scroll to") {
    OnEachWideView(WideLine(u'x'), [](TextView& view, const auto& x) {
        view.SetRightMargin(0);
        const int beginning = x(4);
        view.ScrollIntoViewHorizontally(950, 20);
        CHECK(x(4) == beginning);
        CHECK(IsSeen(x(950)));
    });
}
