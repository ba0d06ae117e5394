#include "platform/windows/window/win_status_bar.h"
#include "platform/windows/window/win_window.h"

#include <doctest/doctest.h>

#include <commctrl.h>

#include <string>

namespace {

std::wstring PanelText(HWND bar, int panel) {
    wchar_t text[256] = {};
    SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(text));
    return text;
}

RECT PanelPlace(HWND bar, int panel) {
    RECT place = {};
    SendMessageW(bar, SB_GETRECT, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(&place));
    return place;
}

} // namespace

TEST_CASE("windows status bar: it has the height and the place that it is given") {
    WinWindow window;
    window.Move({10, 10, 600, 400});
    WinStatusBar bar(window.Handle());
    bar.SetHeight(18);
    CHECK(bar.Height() == 18);
    bar.SetBounds({0, 300, 500, 18});
    RECT place = {};
    GetWindowRect(bar.Handle(), &place);
    MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&place), 2);
    CHECK(place.left == 0);
    CHECK(place.top == 300);
    CHECK(place.right == 500);
    CHECK(place.bottom == 318);
    window.Move({10, 10, 640, 420}); // the control stays where it is until it is placed
    CHECK(bar.Height() == 18);
}

TEST_CASE("windows status bar: the spring takes what is left, the date shows today") {
    WinWindow window;
    WinStatusBar bar(window.Handle());
    bar.SetPanels({{u"Common", PanelStyle::Text, true},
                   {u"Pagination", PanelStyle::Text, false},
                   {u"Date", PanelStyle::Date, false}});
    int springs[2] = {};
    for (const int width : {500, 800}) {
        bar.SetBounds({0, 0, width, 18});
        CHECK(SendMessageW(bar.Handle(), SB_GETPARTS, 0, 0) == 3);
        CHECK(PanelPlace(bar.Handle(), 2).right <= width);
        CHECK(PanelPlace(bar.Handle(), 2).right > width - 5);
        const RECT spring = PanelPlace(bar.Handle(), 0);
        springs[width == 800] = spring.right - spring.left;
    }
    CHECK(springs[1] - springs[0] == 300);
    wchar_t today[80] = {};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, today, 80, nullptr);
    CHECK(PanelText(bar.Handle(), 0).empty());
    CHECK(PanelText(bar.Handle(), 1).empty());
    CHECK(PanelText(bar.Handle(), 2) == today);
}

TEST_CASE("windows status bar: a bar too narrow for its panels does no harm") {
    WinWindow window;
    WinStatusBar bar(window.Handle());
    bar.SetPanels({{u"Common", PanelStyle::Text, true}, {u"Date", PanelStyle::Date, false}});
    for (const int width : {0, 1, 40}) {
        bar.SetBounds({0, 0, width, 18});
        CHECK(SendMessageW(bar.Handle(), SB_GETPARTS, 0, 0) == 2);
    }
}
