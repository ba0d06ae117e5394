// The help window on Windows.
#include "platform/windows/help/win_help_window.h"

#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/win_dialogs.h"
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/window/dpi.h"
#include "windows_message_pump.h"
#include "windows_shown_help.h"
#include "windows_text_view_bench.h"
#include "windows_while_open.h"

#include <doctest/doctest.h>

#include <richedit.h>

namespace {

HelpContents Contents() {
    HelpContents contents;
    contents.windowTitle = u"The Help";
    contents.titles = {u"One", u"Two", u"Three"};
    contents.page = [](int page) {
        return "{\\rtf1{\\fonttbl{\\f0;}}\\f0 page " + std::to_string(page) + "\\par hello\\par}";
    };
    contents.search = [](std::u16string_view typed) {
        if (typed != u"hel") return std::vector<HelpFinding>{};
        return std::vector<HelpFinding>{{2, {7, 3}, u"Three", u"hello", {{0, 3}}},
                                        {0, {7, 3}, u"One", u"hello", {{0, 3}}}};
    };
    return contents;
}

struct Open {
    explicit Open(int page = 0) {
        window.Show(Contents(), page);
        REQUIRE(ShownHelp::Frame());
    }
    WinHelpWindow window;
};

bool HasFocus(HWND control) {
    return Becomes([control] { return GetFocus() == control; });
}

// Of a main window before: it would end a dialog's loop.
void ForgetQuit() {
    MSG quit;
    while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
}

bool IsClosed() {
    return Becomes([] { return !ShownHelp::Frame(); });
}

} // namespace

TEST_CASE("windows help window: has no owner, so that the main window can come before it") {
    const Open open;
    CHECK(GetWindow(ShownHelp::Frame(), GW_OWNER) == nullptr);
}

TEST_CASE("windows help window: the page has the system's face and colours") {
    const Open open;
    const ViewStyle& style = ShownHelp::Pane().Style();
    CHECK(ToWide(style.font.name) ==
          NonClientMetricsForDpi(WindowDpi(ShownHelp::Page())).lfMessageFont.lfFaceName);
    CHECK(style.autoColor);
    CHECK(style.backColor == GetSysColor(COLOR_WINDOW));
}

TEST_CASE("windows help window: the row that says that nothing was found cannot be chosen") {
    const Open open;
    ShownHelp::Type(u"nothing");
    ShownHelp::ChooseRow(0);
    CHECK(ShownHelp::Row() == -1);
    CHECK(ShownHelp::Text().starts_with(u"page 0"));
}

TEST_CASE("windows help window: a copy of the page is text and nothing else") {
    const Open open;
    ShownHelp::Type(u"hel");
    REQUIRE(ShownHelp::Selected() == u"hel");
    const HeldKey control(VK_CONTROL);
    for (const WPARAM key : {WPARAM('C'), WPARAM(VK_INSERT)}) {
        WinClipboard().SetText(u"before");
        SendMessageW(ShownHelp::Page(), WM_KEYDOWN, key, 1);
        REQUIRE(OpenClipboard(nullptr));
        const HANDLE copied = GetClipboardData(CF_UNICODETEXT);
        CHECK(std::wstring(static_cast<const wchar_t*>(GlobalLock(copied))) == L"hel");
        GlobalUnlock(copied);
        CloseClipboard();
        CHECK_FALSE(IsClipboardFormatAvailable(RegisterClipboardFormatW(CF_RTF)));
    }
}

TEST_CASE("windows help window: stays where the user has put it") {
    Open open;
    const HWND frame = ShownHelp::Frame();
    MoveWindow(frame, 70, 60, 600, 400, TRUE);
    CHECK(open.window.Raise());
    open.window.Show(Contents(), 1);
    CHECK(ShownHelp::Frame() == frame);
    RECT place = {};
    GetWindowRect(frame, &place);
    CHECK(place.right - place.left == 600);
}

TEST_CASE("windows help window: goes with its owner, and does not keep the program") {
    ForgetQuit();
    { const Open open; }
    CHECK_FALSE(ShownHelp::Frame());
    MSG message;
    CHECK_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_CASE("windows help window: its keys never reach the main window's form") {
    WinWindow main;
    int keys = 0;
    WindowEvents events;
    events.onKeyDown = events.onKeyUp = [&keys](int, int) { ++keys; };
    main.SetEvents(events);
    main.Open();
    const Open open;
    const auto typed = [&] { return WindowText(ShownHelp::Search()) == L"x"; };
    REQUIRE(HasFocus(ShownHelp::Search()));
    PressKey(VK_F1);
    PressKey('X');
    CHECK(Becomes(typed, &main));
    PressKey(VK_ESCAPE);
    CHECK(Becomes([] { return !ShownHelp::Frame(); }, &main));
    CHECK(keys == 0);
}

TEST_CASE("windows help window: can be used beside a message that waits") {
    ForgetQuit();
    const OwnerWindow owner({40, 40, 500, 400});
    WinDialogs dialogs(owner.Get());
    WinHelpWindow help;
    dialogs.onHelp = [&help](const std::string&) { help.Show(Contents(), 2); };
    const WhileOpen press([&](HWND box) {
        HELPINFO f1 = {}; // as the button, which does nothing under Wine
        f1.cbSize = sizeof f1;
        SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&f1));
        CHECK(IsWindowVisible(box));
        CHECK_FALSE(IsWindowEnabled(owner.Get()));
        REQUIRE(ShownHelp::Frame());
        CHECK(IsWindowEnabled(ShownHelp::Frame()));
        PressKey(VK_TAB);
        PressKey(VK_ESCAPE); // by the box's own loop, before the button
        PressButton(box, IDOK);
    });
    Message message;
    message.text = u"Text";
    message.helpButton = true;
    CHECK(dialogs.ShowMessage(message) == DialogResult::Ok);
    CHECK(IsClosed());
}

TEST_CASE("windows help window: the main window can be closed while it and a message are open") {
    ForgetQuit();
    WinWindow main;
    main.Open();
    WinDialogs dialogs(main.Handle());
    const Open open;
    const WhileOpen close([&](HWND) { PostMessageW(main.Handle(), WM_CLOSE, 0, 0); });
    Message message;
    message.text = u"Text";
    dialogs.ShowMessage(message);
    CHECK(Becomes([&] { return !main.Handle(); }));
    ForgetQuit();
}
