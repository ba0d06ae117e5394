// The help window on Windows.
#include "platform/windows/help/win_help_window.h"

#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/win_dialogs.h"
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/window/dpi.h"
#include "windows_message_pump.h"
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

// The help window of this thread that is open; null for none.
HWND Shown() {
    HWND help = nullptr;
    const auto look = [](HWND window, LPARAM found) -> BOOL {
        wchar_t name[32] = {};
        GetClassNameW(window, name, 32);
        if (std::wstring(name) != L"NorvasetHelp" || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&help));
    return help;
}

struct Open {
    explicit Open(int page = 0) {
        window.Show(Contents(), page);
        REQUIRE(Shown());
    }
    HWND Search() const { return FindWindowExW(Shown(), nullptr, L"EDIT", nullptr); }
    HWND List() const { return FindWindowExW(Shown(), nullptr, L"LISTBOX", nullptr); }
    HWND View() const {
        const HWND panel = FindWindowExW(Shown(), nullptr, L"NorvasetHelpPage", nullptr);
        return FindWindowExW(panel, nullptr, MSFTEDIT_CLASS, nullptr);
    }
    LRESULT Count() const { return SendMessageW(List(), LB_GETCOUNT, 0, 0); }
    LRESULT Row() const { return SendMessageW(List(), LB_GETCURSEL, 0, 0); }
    std::wstring Text() const { return WindowText(View()); }
    std::wstring Selected() const {
        wchar_t text[64] = {};
        SendMessageW(View(), EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text));
        return text;
    }
    void Type(const wchar_t* text) const { SetWindowTextW(Search(), text); }
    // As a click on it does.
    void Choose(int row) const {
        SendMessageW(List(), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
        SendMessageW(Shown(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(List()), LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(List()));
    }
    WinHelpWindow window;
};

bool HasFocus(HWND control) {
    return Becomes([control] { return GetFocus() == control; });
}

// Of a main window before: it would end a dialog's loop.
bool ForgetQuit() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
}

bool IsClosed() {
    return Becomes([] { return !Shown(); });
}

} // namespace

TEST_CASE("windows help window: opens at a page, with all titles") {
    const Open open(1);
    CHECK(WindowText(Shown()) == L"The Help");
    CHECK(GetWindow(Shown(), GW_OWNER) == nullptr);
    CHECK(open.Count() == 3);
    CHECK(open.Row() == 1);
    CHECK(open.Text().starts_with(L"page 1\r\nhello"));
    open.Choose(2);
    CHECK(open.Text().starts_with(L"page 2\r\nhello"));
}

TEST_CASE("windows help window: the page has the system's face and colours") {
    const Open open;
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    SendMessageW(open.View(), EM_SETSEL, 0, 3);
    SendMessageW(open.View(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    CHECK(std::wstring(format.szFaceName) ==
          NonClientMetricsForDpi(WindowDpi(open.View())).lfMessageFont.lfFaceName);
    CHECK((format.dwEffects & CFE_AUTOCOLOR) != 0);
    const LRESULT background = SendMessageW(open.View(), EM_SETBKGNDCOLOR, 1, 0);
    CHECK(static_cast<COLORREF>(background) == GetSysColor(COLOR_WINDOW));
}

TEST_CASE("windows help window: a search lists what was found, and shows the best") {
    const Open open;
    open.Type(L"hel");
    REQUIRE(open.Count() == 2);
    CHECK(open.Row() == 0);
    CHECK(open.Text().starts_with(L"page 2\r\nhello"));
    CHECK(open.Selected() == L"hel");
    open.Choose(1);
    CHECK(open.Text().starts_with(L"page 0\r\nhello"));
    CHECK(open.Selected() == L"hel");
    open.Type(L"nothing");
    CHECK(open.Count() == 1);
    CHECK(open.Row() == -1);
    open.Choose(0); // there is nothing to choose
    CHECK(open.Row() == -1);
    CHECK(open.Text().starts_with(L"page 0\r\nhello")); // what was shown stays
    open.Type(L" ");
    CHECK(open.Count() == 3);
    CHECK(open.Row() == 0);
    CHECK(open.Selected().empty());
}

TEST_CASE("windows help window: a copy of the page is text and nothing else") {
    const Open open;
    open.Type(L"hel");
    REQUIRE(open.Selected() == L"hel");
    const HeldKey control(VK_CONTROL);
    for (const WPARAM key : {WPARAM('C'), WPARAM(VK_INSERT)}) {
        WinClipboard().SetText(u"before");
        SendMessageW(open.View(), WM_KEYDOWN, key, 1);
        REQUIRE(OpenClipboard(nullptr));
        const HANDLE copied = GetClipboardData(CF_UNICODETEXT);
        CHECK(std::wstring(static_cast<const wchar_t*>(GlobalLock(copied))) == L"hel");
        GlobalUnlock(copied);
        CloseClipboard();
        CHECK_FALSE(IsClipboardFormatAvailable(RegisterClipboardFormatW(CF_RTF)));
    }
}

TEST_CASE("windows help window: shown again while open, it is the same window at the new page") {
    Open open;
    open.Type(L"hel");
    const HWND before = Shown();
    open.window.Show(Contents(), 1);
    CHECK(Shown() == before);
    CHECK(WindowText(open.Search()).empty());
    CHECK(open.Count() == 3);
    CHECK(open.Text().starts_with(L"page 1\r\nhello"));
}

TEST_CASE("windows help window: brought to the front as it is, while it is open") {
    WinHelpWindow closed;
    CHECK_FALSE(closed.Raise());
    Open open;
    open.Choose(2);
    MoveWindow(Shown(), 70, 60, 600, 400, TRUE);
    CHECK(open.window.Raise());
    RECT place = {};
    GetWindowRect(Shown(), &place);
    CHECK(place.right - place.left == 600);
    CHECK(open.Text().starts_with(L"page 2\r\nhello"));
    ShowWindow(Shown(), SW_MINIMIZE);
    CHECK(open.window.Raise());
    CHECK_FALSE(IsIconic(Shown()));
    PostMessageW(Shown(), WM_CLOSE, 0, 0);
    REQUIRE(IsClosed());
    CHECK_FALSE(open.window.Raise());
    open.window.Show(Contents(), 1);
    REQUIRE(Shown());
    CHECK(open.Text().starts_with(L"page 1\r\nhello"));
}

TEST_CASE("windows help window: goes with its owner, and does not keep the program") {
    { const Open open; }
    CHECK_FALSE(Shown());
    MSG message;
    CHECK_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_CASE("windows help window: keys") {
    const Open open;
    REQUIRE(HasFocus(open.Search()));
    PressKey(VK_TAB);
    CHECK(HasFocus(open.List()));
    PressKey(VK_DOWN);
    CHECK(Becomes([&] { return open.Text().starts_with(L"page 1"); }));
    PressKey(VK_TAB);
    CHECK(HasFocus(open.View()));
    PressKey(VK_TAB);
    CHECK(HasFocus(open.Search()));
    PressKey(VK_DOWN);
    CHECK(HasFocus(open.List()));
    PressKey(VK_RETURN);
    CHECK(HasFocus(open.View()));
    PressKey(VK_ESCAPE);
    CHECK(IsClosed());
}

TEST_CASE("windows help window: its keys never reach the main window's form") {
    WinWindow main;
    int keys = 0;
    WindowEvents events;
    events.onKeyDown = events.onKeyUp = [&keys](int, int) { ++keys; };
    main.SetEvents(events);
    main.Open();
    const Open open;
    const auto typed = [&] { return WindowText(open.Search()) == L"x"; };
    REQUIRE(HasFocus(open.Search()));
    PressKey(VK_F1);
    PressKey('X');
    CHECK(Becomes(typed, &main));
    PressKey(VK_ESCAPE);
    CHECK(Becomes([] { return !Shown(); }, &main));
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
        REQUIRE(Shown());
        CHECK(IsWindowEnabled(Shown()));
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
