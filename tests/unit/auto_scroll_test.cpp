#include "reading/auto_scroll.h"

#include "app/open_book.h"
#include "test_form.h"

#include <doctest/doctest.h>

namespace {
constexpr int ctrlShift = CtrlKey | ShiftKey, shiftCode = 16, spaceCode = 32;

class ScrollForm : public TestForm {
  public:
    ScrollForm() {
        PutBook(u"/books/a.txt", NumberedLines(300));
        REQUIRE(Start());
        OpenBook(form, u"/books/a.txt");
    }
    NoneTimer& ScrollTimer() { return static_cast<NoneTimer&>(*form.ports.scrollTimer); }
    void Press(int key, int shift = 0) { Window().Events().onKeyDown(key, shift); }
    void Release(int key, int shift = 0) { Window().Events().onKeyUp(key, shift); }
    void Toggle() {
        for (int repeat = 0; repeat < 3; ++repeat) // as a key that is held down
            Press('S', ctrlShift);
        Release('S', ctrlShift);
    }
};
} // namespace

TEST_CASE("auto-scroll: Ctrl+Shift+S starts and ends it") {
    ScrollForm test;
    test.Toggle();
    REQUIRE(test.ScrollTimer().IsRunning());
    const TextPos before = test.View().FirstVisibleChar();
    test.ScrollTimer().Tick(5);
    CHECK(test.View().FirstVisibleChar() > before);
    test.Toggle();
    CHECK_FALSE(test.ScrollTimer().IsRunning());
}

TEST_CASE("auto-scroll: plus and minus change its speed, with Shift where plus needs it") {
    ScrollForm test;
    test.Toggle();
    const int usual = test.form.autoScroll.speed;
    test.Press(shiftCode, ShiftKey);
    test.Press(PlusKey, ShiftKey);
    CHECK(test.form.autoScroll.speed == usual + 1);
    test.Press(NumMinusKey);
    test.Press(MinusKey);
    CHECK(test.form.autoScroll.speed == usual - 1);
    for (int i = 0; i < 30; ++i)
        test.Press(NumPlusKey);
    CHECK(test.form.autoScroll.speed == maxScrollSpeed);
    CHECK(test.ScrollTimer().IsRunning());
}

TEST_CASE("auto-scroll: its beginning, its speed and its end are announced to screen readers") {
    ScrollForm test;
    test.Toggle();
    test.Press(PlusKey);
    test.Press(spaceCode);
    test.Press(spaceCode);
    CHECK(test.View().announced ==
          std::vector<std::u16string>{u"Scrolling by itself. Any key ends it.", u"Speed 6 of 12.",
                                      u"Scrolling has ended."});
}

TEST_CASE("full screen: its beginning and its end are announced to screen readers") {
    ScrollForm test;
    test.Release(F11Key);
    test.Press(EscapeKey);
    test.Press(EscapeKey);
    CHECK(test.View().announced == std::vector<std::u16string>{u"Full screen. Escape ends it.",
                                                               u"No full screen any more."});
}

TEST_CASE("auto-scroll: any other key ends it, and so does the mouse") {
    ScrollForm test;
    for (const int key : {spaceCode, int{EscapeKey}, int{'A'}, int{F1Key}}) {
        CAPTURE(key);
        test.Toggle();
        REQUIRE(test.ScrollTimer().IsRunning());
        test.Press(key);
        test.Release(key);
        CHECK_FALSE(test.ScrollTimer().IsRunning());
    }
    test.Toggle();
    test.Window().Events().onMouse();
    CHECK_FALSE(test.ScrollTimer().IsRunning());
}

TEST_CASE("auto-scroll: another book and the menu of the text end it, a book read anew does not") {
    ScrollForm test;
    test.PutBook(u"/books/b.txt", NumberedLines(300));
    test.Toggle();
    OpenBook(test.form, u"/books/b.txt");
    CHECK_FALSE(test.ScrollTimer().IsRunning());
    test.Toggle();
    ReloadBook(test.form, OpenShownBookFile(test.form));
    CHECK(test.ScrollTimer().IsRunning());
    test.View().onContextMenu();
    CHECK_FALSE(test.ScrollTimer().IsRunning());
}

TEST_CASE("auto-scroll: Escape ends it before it leaves the full screen") {
    ScrollForm test;
    test.Release(F11Key);
    REQUIRE(test.Window().IsFullScreen());
    test.Toggle();
    test.Press(EscapeKey);
    CHECK(test.Window().IsFullScreen());
    test.Press(EscapeKey);
    CHECK_FALSE(test.Window().IsFullScreen());
}

TEST_CASE("auto-scroll: it ends at the end of the book") {
    ScrollForm test;
    test.Toggle();
    test.ScrollTimer().Tick(2000);
    CHECK_FALSE(test.ScrollTimer().IsRunning());
}

TEST_CASE("auto-scroll: without a book there is nothing to scroll") {
    TestForm test;
    REQUIRE(test.Start());
    test.Window().Events().onKeyDown('S', ctrlShift);
    test.Window().Events().onKeyUp('S', ctrlShift);
    CHECK_FALSE(test.form.autoScroll.running);
}

TEST_CASE("auto-scroll: steps are single pixels while a screen can show each") {
    double before = 0;
    for (int speed = 0; speed <= maxScrollSpeed; ++speed) {
        CAPTURE(speed);
        const ScrollStep step = StepOf(speed, 96);
        CHECK((step.pixels == 1 || step.interval < 32));
        CHECK(step.interval >= 14);
        const double perSecond = 1000.0 * step.pixels / step.interval;
        CHECK(perSecond > before);
        before = perSecond;
    }
    CHECK(before > 150);
    const ScrollStep usual = StepOf(4, 96), dense = StepOf(4, 192);
    CHECK(dense.interval * dense.pixels <= usual.interval);
}
