// The main window on Windows.
#include "platform/windows/window/win_window.h"
#include "tests/contract/windows_drop.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/contract/windows_while_open.h"

#include <doctest/doctest.h>

#include <cmath>

namespace {

using KeyList = std::vector<std::pair<int, int>>;
using Paths = std::vector<std::u16string>;

struct Bench {
    WinWindow window;
    KeyList down, up;
    std::vector<int> zooms;
    int unloads = 0, resizes = 0;

    Bench() {
        MSG quit; // of the window before this one: it would end a dialog's loop
        while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
        WindowEvents events;
        events.onResize = [this] { ++resizes; };
        events.onUnload = [this] { ++unloads; };
        events.onKeyDown = [this](int code, int shift) { down.emplace_back(code, shift); };
        events.onKeyUp = [this](int code, int shift) { up.emplace_back(code, shift); };
        events.onZoom = [this](int steps) { zooms.push_back(steps); };
        window.SetEvents(events);
    }
    void Pass(UINT message, WPARAM wParam) {
        MSG passed = {};
        passed.hwnd = window.Handle();
        passed.message = message;
        passed.wParam = wParam;
        window.PreTranslateMessage(passed);
    }
};

// The keys held while it lives, as the thread's messages tell them.
class Held {
  public:
    explicit Held(std::initializer_list<int> keys) {
        GetKeyboardState(before_);
        BYTE state[256] = {};
        for (const int key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
    }
    ~Held() { SetKeyboardState(before_); }

  private:
    BYTE before_[256] = {};
};

HWND AddChild(HWND parent) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 50, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

constexpr WPARAM Turn(int angle, WPARAM keys) {
    return keys | static_cast<WPARAM>(static_cast<DWORD>(angle) << 16);
}

} // namespace

TEST_CASE("windows window: it is where it was moved, before and after it is shown") {
    Bench bench;
    bench.window.Move({40, 30, 500, 400});
    CHECK(bench.window.Bounds() == Rect{40, 30, 500, 400});
    CHECK(bench.window.InnerWidth() > 400);
    CHECK(bench.window.InnerWidth() <= 500);
    bench.window.Open();
    CHECK(bench.window.Bounds() == Rect{40, 30, 500, 400});
    const int before = bench.resizes;
    bench.window.Move({60, 50, 420, 300});
    CHECK(bench.window.Bounds() == Rect{60, 50, 420, 300});
    CHECK(bench.resizes > before);
    CHECK(bench.window.State() == WindowState::Normal);
}

TEST_CASE("windows window: sizes that no screen has do no harm") {
    Bench bench;
    for (const Rect bounds :
         {Rect{0, 0, 0, 0}, Rect{-9, -9, -500, -1}, Rect{0, 0, 2000000000, 9}}) {
        bench.window.Move(bounds);
        CHECK(bench.window.InnerWidth() >= 0);
        CHECK(bench.window.InnerWidth() <= 16384);
    }
}

TEST_CASE("windows window: a place from a larger desktop is taken as it stands") {
    Bench bench;
    const int width = GetSystemMetrics(SM_CXSCREEN) + 700;
    bench.window.Move({-300, 20, width, 400});
    CHECK(bench.window.Bounds() == Rect{-300, 20, width, 400});
}

TEST_CASE("windows window: a state given before it is shown is the one it opens in") {
    for (const WindowState state :
         {WindowState::Normal, WindowState::Minimized, WindowState::Maximized}) {
        Bench bench;
        bench.window.Move({40, 30, 500, 400});
        bench.window.SetState(state);
        CHECK(bench.window.State() == state);
        CHECK_FALSE(IsWindowVisible(bench.window.Handle()));
        bench.window.Open();
        CHECK(bench.window.State() == state);
        bench.window.SetState(WindowState::Normal);
        CHECK(bench.window.State() == WindowState::Normal);
        CHECK(Becomes([&] { return bench.window.Bounds() == Rect{40, 30, 500, 400}; }));
    }
}

TEST_CASE("windows window: a minimised one tells its normal place, not the far one it is kept at") {
    Bench bench;
    bench.window.Move({140, 130, 500, 400});
    bench.window.Open();
    bench.window.SetState(WindowState::Minimized);
    CHECK(bench.window.Bounds().width == 500);
    CHECK(bench.window.Bounds().left > 0);
}

TEST_CASE("windows window: a close tells once, and the program ends") {
    Bench bench;
    bench.window.Open();
    bench.window.Close();
    CHECK(bench.unloads == 1);
    CHECK(bench.window.Handle() == nullptr);
    bench.window.Close();
    CHECK(bench.unloads == 1);
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    }
    CHECK(message.message == WM_QUIT);
}

TEST_CASE("windows window: the end of the session saves at once") {
    Bench bench;
    bench.window.Open();
    CHECK(SendMessageW(bench.window.Handle(), WM_QUERYENDSESSION, 0, 0) == TRUE);
    SendMessageW(bench.window.Handle(), WM_ENDSESSION, FALSE, 0); // somebody else refused
    CHECK(bench.unloads == 0);
    SendMessageW(bench.window.Handle(), WM_ENDSESSION, TRUE, 0);
    CHECK(bench.unloads == 1);
}

TEST_CASE("windows window: another program's wish to close cancels an open dialog first") {
    Bench bench;
    bench.window.Open();
    const HWND frame = bench.window.Handle();
    PostMessageW(frame, WM_CLOSE, 0, 0);
    CHECK(MessageBoxW(frame, L"Well?", L"Asked", MB_OKCANCEL) == IDCANCEL);
    CHECK(bench.unloads == 0); // what waited for the dialog ends before the window does
    CHECK(Becomes([&] { return bench.unloads == 1 && !IsWindow(frame); }));
}

TEST_CASE("windows window: keys are told with their codes, also when Ctrl was let go first") {
    Bench bench;
    bench.window.Open();
    {
        const Held held({VK_MENU});
        bench.Pass(WM_SYSKEYDOWN, VK_F2);
        bench.Pass(WM_SYSKEYUP, VK_F2);
        bench.Pass(WM_SYSKEYDOWN, VK_F4); // the system's own
    }
    {
        const Held held({VK_CONTROL});
        bench.Pass(WM_KEYDOWN, VK_OEM_PLUS);
    }
    {
        const Held held({});
        bench.Pass(WM_KEYUP, VK_OEM_PLUS);
    }
    CHECK(bench.down == KeyList{{113, AltKey}, {PlusKey, CtrlKey}});
    CHECK(bench.up == KeyList{{113, AltKey}, {PlusKey, CtrlKey}});
}

TEST_CASE("windows window: keys for a child are told too, those for other windows are not") {
    Bench bench, other;
    bench.window.Open();
    const HWND view = AddChild(bench.window.ViewArea());
    PostMessageW(view, WM_KEYDOWN, VK_F3, 0);
    PostMessageW(other.window.Handle(), WM_KEYDOWN, VK_F5, 0);
    CHECK(Becomes([&] { return !bench.down.empty(); }, &bench.window));
    CHECK(bench.down == KeyList{{114, 0}});
}

TEST_CASE("windows window: a wheel with Ctrl zooms by notches") {
    Bench bench;
    bench.Pass(WM_MOUSEWHEEL, Turn(120, MK_CONTROL));
    bench.Pass(WM_MOUSEWHEEL, Turn(-240, MK_CONTROL));
    bench.Pass(WM_MOUSEWHEEL, Turn(120, 0));
    for (int i = 0; i < 8; ++i)
        bench.Pass(WM_MOUSEWHEEL, Turn(30, MK_CONTROL)); // a wheel that turns smoothly
    CHECK(bench.zooms == std::vector<int>{1, -2, 1, 1});
}

TEST_CASE("windows window: the keyboard goes to the view that shows") {
    Bench bench;
    const HWND hidden = AddChild(bench.window.ViewArea());
    const HWND shown = AddChild(bench.window.ViewArea());
    ShowWindow(hidden, SW_HIDE);
    bench.window.Open();
    SetFocus(bench.window.Handle());
    CHECK(GetFocus() == shown);
}

TEST_CASE("windows window: a drop is answered at once, then told with the window in front") {
    Bench bench;
    bench.window.Open();
    const OwnerWindow other({300, 300, 500, 400}); // whose files these are, and the keyboard
    SetForegroundWindow(other.Get());
    REQUIRE(Becomes([&] { return GetForegroundWindow() == other.Get(); }));
    std::vector<std::u16string> dropped;
    HWND inFront = nullptr;
    bench.window.onFilesDropped = [&](const std::vector<std::u16string>& paths) {
        dropped = paths;
        inFront = GetForegroundWindow();
    };
    using namespace std::string_literals;
    SendMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(L"C:\\b.txt\0"s), 0);
    CHECK(dropped.empty());
    CHECK(GetForegroundWindow() == other.Get());
    CHECK(Becomes([&] { return !dropped.empty(); }));
    CHECK(dropped == std::vector<std::u16string>{u"C:\\b.txt"});
    CHECK(inFront == bench.window.Handle());
}

TEST_CASE("windows window: a drop of no files changes nothing") {
    Bench bench;
    bench.window.Open();
    const OwnerWindow other({300, 300, 500, 400});
    SetForegroundWindow(other.Get());
    REQUIRE(Becomes([&] { return GetForegroundWindow() == other.Get(); }));
    int told = 0;
    bench.window.onFilesDropped = [&](const auto& paths) {
        told += paths == Paths{u"C:\\c"} ? 1 : 9;
    };
    using namespace std::string_literals;
    for (const std::wstring& paths : {L""s, L"\0"s, L"ows\0"s})
        SendMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(paths), 0);
    MSG message;
    CHECK_FALSE(PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_NOREMOVE));
    SendMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(L"C:\\c\0"s), 0);
    CHECK(Becomes([&] { return told != 0; }));
    CHECK(told == 1);
}

TEST_CASE("windows window: a drop while a dialog is open leaves the keyboard to the dialog") {
    Bench bench;
    bench.window.Open();
    int drops = 0;
    bench.window.onFilesDropped = [&](const auto&) { ++drops; };
    using namespace std::string_literals;
    {
        const WhileOpen dropped([&](HWND dialog) {
            SendMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(L"C:\\b.txt\0"s), 0);
            CHECK(Becomes([&] { return drops == 1; }));
            CHECK(GetForegroundWindow() == dialog);
            PressButton(dialog, IDOK);
        });
        MessageBoxW(bench.window.Handle(), L"A question", L"Title", MB_OK);
    }
    CHECK(drops == 1);
}

TEST_CASE("windows window: a drop closes the menu that is open, which has the books of before") {
    Bench bench;
    bench.window.Open();
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"A book");
    int drops = 0;
    bench.window.onFilesDropped = [&](const auto&) { ++drops; };
    using namespace std::string_literals;
    PostMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(L"C:\\b.txt\0"s), 0);
    static bool gaveUp = false; // a timer is told nothing but its number
    const auto giveUp = SetTimer(nullptr, 0, 5000, [](HWND, UINT, UINT_PTR, DWORD) {
        gaveUp = true;
        EndMenu();
    });
    SetForegroundWindow(bench.window.Handle());
    TrackPopupMenuEx(menu, TPM_RETURNCMD, 10, 10, bench.window.Handle(), nullptr);
    KillTimer(nullptr, giveUp);
    CHECK_FALSE(gaveUp);
    CHECK(Becomes([&] { return drops == 1; }));
    DestroyMenu(menu);
}

TEST_CASE("windows window: a message about a drop has the keyboard") {
    Bench bench;
    bench.window.Open();
    const OwnerWindow other({300, 300, 500, 400});
    SetForegroundWindow(other.Get());
    REQUIRE(Becomes([&] { return GetForegroundWindow() == other.Get(); }));
    int answer = 0;
    bench.window.onFilesDropped = [&](const std::vector<std::u16string>&) {
        const WhileOpen press([](HWND box) {
            CHECK(GetForegroundWindow() == box);
            PressKey(VK_ESCAPE);
        });
        answer = MessageBoxW(bench.window.Handle(), L"Well?", L"Asked", MB_OKCANCEL);
    };
    using namespace std::string_literals;
    SendMessageW(bench.window.Handle(), WM_DROPFILES, DropOf(L"C:\\b.txt\0"s), 0);
    CHECK(Becomes([&] { return answer != 0; }));
    CHECK(answer == IDCANCEL);
}

TEST_CASE("windows window: text is measured in the menu font, and units follow the resolution") {
    Bench bench;
    bench.window.ApplySystemFont();
    CHECK(bench.window.TextWidth(u"") == 0);
    CHECK(bench.window.TextWidth(u"mmmm") > bench.window.TextWidth(u"iiii"));
    CHECK(std::lround(1440 / bench.window.TwipsPerPixelX()) == WindowDpi(bench.window.Handle()));
    CHECK(bench.window.TwipsPerPixelY() == bench.window.TwipsPerPixelX());
    CHECK_FALSE(bench.window.DefaultViewFont().name.empty());
}

TEST_CASE("windows window: a new resolution brings its rectangle and a new layout") {
    Bench bench;
    bench.window.Open();
    RECT suggested = {80, 70, 680, 570};
    const int before = bench.resizes;
    SendMessageW(bench.window.Handle(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                 reinterpret_cast<LPARAM>(&suggested));
    CHECK(bench.window.Bounds() == Rect{80, 70, 600, 500});
    CHECK(bench.resizes > before);
}

TEST_CASE("windows window: the panel's border leaves the views what the layout counts on") {
    Bench bench;
    bench.window.SetPanelBounds({0, 0, 300, 200});
    RECT inside = {};
    GetClientRect(bench.window.ViewArea(), &inside);
    CHECK(inside.right == 296);
    CHECK(inside.bottom == 196);
}
