#include "platform/windows/window/win_status_bar.h"
#include "platform/windows/window/win_window.h"

#include <doctest/doctest.h>

#include <commctrl.h>

TEST_CASE("windows status bar: stays where it is until it is placed") {
    WinWindow window;
    window.Move({10, 10, 600, 400});
    WinStatusBar bar(window.Handle());
    bar.SetBounds({0, 300, 500, 18});
    RECT before = {}, after = {};
    GetClientRect(bar.Handle(), &before);
    window.Move({10, 10, 640, 420}); // a status bar of itself goes to the lower edge
    GetClientRect(bar.Handle(), &after);
    CHECK(EqualRect(&before, &after));
    CHECK(bar.Height() == 18);
}

TEST_CASE("windows status bar: the key of a panel is not shown") {
    WinWindow window;
    WinStatusBar bar(window.Handle());
    bar.SetPanels({{u"Common", PanelStyle::Text, true}, {u"Pagination", PanelStyle::Text, false}});
    for (const WPARAM panel : {0, 1})
        CHECK(LOWORD(SendMessageW(bar.Handle(), SB_GETTEXTLENGTHW, panel, 0)) == 0);
}
