#include "platform/windows/window/win_window.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/window/foreground.h"
#include "platform/windows/window/title_bar.h"
#include "platform/windows/window/win_drops.h"
#include "platform/windows/window/window_messages.h"

#include <utility>

namespace {

constexpr int maxExtent = 16384; // pixels; larger windows cannot be drawn
constexpr UINT_PTR closeTimer = 1;
constexpr UINT closeDelay = 50;        // milliseconds, for a dialog or menu to go away
constexpr double defaultFontSize = 12; // points

// The enabled one of our windows while a modal dialog disables the others; null for none.
HWND ActiveDialog() {
    HWND dialog = nullptr;
    const auto look = [](HWND window, LPARAM found) -> BOOL {
        if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

// The system tells top-level windows alone; views and common controls have to hear of it from
// theirs.
void SendToAllWithin(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    MSG sent = {nullptr, message, wParam, lParam, 0, {}};
    const auto send = [](HWND child, LPARAM what) -> BOOL {
        const MSG& each = *reinterpret_cast<const MSG*>(what);
        // A browser's windows may be another process's, which is told by itself.
        if (GetWindowThreadProcessId(child, nullptr) == GetCurrentThreadId())
            SendMessageW(child, each.message, each.wParam, each.lParam);
        return TRUE;
    };
    EnumChildWindows(window, send, reinterpret_cast<LPARAM>(&sent));
}

} // namespace

WinWindow::WinWindow()
    : frame_({L"NorvasetWindow", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN},
             [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                 return HandleMessage(window, message, wParam, lParam);
             }),
      // The core's layout of the views counts on a border of two pixels.
      panel_({L"NorvasetPanel", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE,
              frame_.Handle()}) {
    SetDefaultBounds();
    FollowColorScheme(Handle());
    DragAcceptFiles(Handle(), TRUE);
}

WinWindow::~WinWindow() {
    if (Handle()) DestroyWindow(Handle()); // its messages use the other members
}

void WinWindow::SetEvents(WindowEvents events) {
    events_ = std::move(events);
}

void WinWindow::Open() {
    constexpr int commands[] = {SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED};
    open_ = true;
    ShowWindow(Handle(), commands[static_cast<int>(initialState_)]);
    UpdateWindow(Handle());
    PostMessageW(Handle(), ShownMessage, 0, 0);
}

void WinWindow::Close() {
    if (!Handle()) return;
    Unload();
    DestroyWindow(Handle());
}

// The start that asks has given the right to it (AllowSetForegroundWindow), so there is no token.
void WinWindow::BringToFront(const std::u16string&) {
    BringToForeground(Handle());
}

void WinWindow::Alert() {
    constexpr UINT flashes = 3;
    FLASHWINFO flash = {sizeof flash, Handle(), FLASHW_CAPTION, flashes, 0};
    MessageBeep(MB_ICONWARNING);
    FlashWindowEx(&flash);
}

void WinWindow::Unload() {
    if (!std::exchange(unloaded_, true)) CallHandler(events_.onUnload);
}

// WM_CLOSE of the system or another program can arrive while a dialog or a menu is open. These are
// cancelled first: the handler that waits for them has to return before the window is destroyed.
void WinWindow::CloseWhenPossible() {
    KillTimer(Handle(), closeTimer);
    if (IsMenuOpen())
        EndMenu();
    else if (!IsWindowEnabled(Handle()))
        PostMessageW(ActiveDialog(), WM_CLOSE, 0, 0);
    else
        return Close();
    SetTimer(Handle(), closeTimer, closeDelay, nullptr);
}

void WinWindow::SetTitle(std::u16string_view title) {
    SetWindowTextW(Handle(), ToWide(title).c_str());
}

void WinWindow::ApplySystemFont() {
    const NONCLIENTMETRICSW metrics = NonClientMetricsForDpi(WindowDpi(Handle()));
    font_.reset(CreateFontIndirectW(&metrics.lfMenuFont));
}

double WinWindow::TextWidth(std::u16string_view text) const {
    return MeasureText(Handle(), font_.get(), ToWide(text)).cx;
}

void WinWindow::SetPanelBounds(const Rect& bounds) {
    MoveWindow(ViewArea(), bounds.left, bounds.top, bounds.width, bounds.height, TRUE);
}

// Georgia was designed for reading on screens and comes with Windows; the other is the fallback
// where it was removed.
ViewFont WinWindow::DefaultViewFont() const {
    ViewFont viewFont;
    viewFont.name = IsFontInstalled(L"Georgia") ? u"Georgia" : u"Times New Roman";
    viewFont.size = defaultFontSize;
    return viewFont;
}

LRESULT WinWindow::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETFOCUS: FocusView(); return 0;
    case WM_WINDOWPOSCHANGED: HandlePosChanged(); return 0;
    case WM_DPICHANGED: HandleDpiChanged(*reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_GETMINMAXINFO:
        // Bounds from a larger desktop are not clipped to this one.
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {maxExtent, maxExtent};
        return 0;
    case WM_SETTINGCHANGE:
        FollowColorScheme(window);
        SendToAllWithin(window, message, wParam, lParam);
        return DefWindowProcW(window, message, wParam, lParam);
    case WM_SYSCOLORCHANGE: SendToAllWithin(window, message, wParam, lParam); return 0;
    case WM_DROPFILES: drops_.Add(window, FinishDrop(reinterpret_cast<HDROP>(wParam))); return 0;
    case WM_TIMER:
        if (wParam == closeTimer) CloseWhenPossible();
        return 0;
    case WM_CLOSE: CloseWhenPossible(); return 0;
    case WM_SYSCOMMAND:
        if ((wParam & 0xFFF0) == SC_KEYMENU) ShowMenuBar(true);
        return DefWindowProcW(window, message, wParam, lParam);
    case WM_EXITMENULOOP: PostMessageW(window, MenuBarLeftMessage, 0, 0); return 0;
    case MenuBarLeftMessage:
        if (!IsMenuOpen()) ShowMenuBar(false);
        return 0;
    case ShownMessage: CallHandler(events_.onShown); return 0;
    case WM_ENDSESSION:
        // The process may be terminated as soon as this returns.
        if (wParam) Unload();
        return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

void WinWindow::FocusView() {
    for (HWND view = GetWindow(ViewArea(), GW_CHILD); view; view = GetWindow(view, GW_HWNDNEXT))
        if (IsWindowVisible(view)) {
            SetFocus(view);
            return;
        }
}
