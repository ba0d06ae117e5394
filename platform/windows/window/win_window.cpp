#include "platform/windows/window/win_window.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/window/title_bar.h"
#include "platform/windows/window/win_drops.h"
#include "platform/windows/window/window_messages.h"

#include <algorithm>

namespace {

constexpr int maxExtent = 16384; // pixels; larger windows cannot be drawn
constexpr UINT_PTR closeTimer = 1;
constexpr UINT closeDelay = 50;        // milliseconds, for a dialog or menu to go away
constexpr double defaultFontSize = 12; // points
constexpr double twipsPerInch = 1440;
constexpr int defaultWidth = 860, defaultHeight = 960; // pixels at 96 dpi

Rect ToRect(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

std::vector<Rect> WorkAreas() {
    std::vector<Rect> screens;
    const auto add = [](HMONITOR monitor, HDC, RECT*, LPARAM found) -> BOOL {
        MONITORINFO info = {};
        info.cbSize = sizeof info;
        if (GetMonitorInfoW(monitor, &info))
            reinterpret_cast<std::vector<Rect>*>(found)->push_back(ToRect(info.rcWork));
        return TRUE;
    };
    EnumDisplayMonitors(nullptr, nullptr, add, reinterpret_cast<LPARAM>(&screens));
    return screens;
}

bool IsMenuOpen() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE);
}

bool IsPress(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_NCLBUTTONDOWN: // of a scroll bar
    case WM_MOUSEWHEEL: return true;
    default: return false;
    }
}

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

// A comfortable width for reading, in the middle of the screen.
void WinWindow::SetDefaultBounds() {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const Rect available = ToRect(work);
    const int dpi = WindowDpi(Handle());
    const int width = std::min(MulDiv(defaultWidth, dpi, USER_DEFAULT_SCREEN_DPI),
                               MulDiv(available.width, 9, 10));
    const int height = std::min(MulDiv(defaultHeight, dpi, USER_DEFAULT_SCREEN_DPI),
                                MulDiv(available.height, 9, 10));
    Move({available.left + (available.width - width) / 2,
          available.top + (available.height - height) / 2, width, height});
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
    if (IsMenuOpen()) EndMenu();
    if (IsIconic(Handle())) ShowWindow(Handle(), SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(Handle()));
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

WindowState WinWindow::State() const {
    if (!open_) return initialState_;
    if (IsIconic(Handle())) return WindowState::Minimized;
    return IsZoomed(Handle()) ? WindowState::Maximized : WindowState::Normal;
}

void WinWindow::SetState(WindowState state) {
    if (!open_) {
        initialState_ = state;
        return;
    }
    if (state == State()) return; // ShowWindow would activate a normal window
    constexpr int commands[] = {SW_SHOWNORMAL, SW_MINIMIZE, SW_MAXIMIZE};
    ShowWindow(Handle(), commands[static_cast<int>(state)]);
}

Rect WinWindow::Bounds() const {
    RECT bounds = {};
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    // GetWindowRect of a minimised window is off-screen.
    if (IsIconic(Handle()) && GetWindowPlacement(Handle(), &placement))
        bounds = placement.rcNormalPosition;
    else
        GetWindowRect(Handle(), &bounds);
    return RequestedBounds(instead_, ToRect(bounds));
}

void WinWindow::Move(const Rect& bounds) {
    const double scale = static_cast<double>(WindowDpi(Handle())) / USER_DEFAULT_SCREEN_DPI;
    const Rect shown = ReachablePlace(bounds, WorkAreas(), scale);
    instead_.reset();
    if (shown != bounds) instead_ = {bounds, shown};
    SetWindowPos(Handle(), nullptr, shown.left, shown.top, shown.width, shown.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

int WinWindow::InnerWidth() const {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    return inner.right;
}

int WinWindow::InnerHeight() const {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    return inner.bottom;
}

double WinWindow::TwipsPerPixelX() const {
    return twipsPerInch / WindowDpi(Handle());
}

double WinWindow::TwipsPerPixelY() const {
    return TwipsPerPixelX(); // Windows has one DPI for both axes
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
        return DefWindowProcW(window, message, wParam, lParam);
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

void WinWindow::HandlePosChanged() {
    const ReportedState now = {Bounds(), InnerWidth(), InnerHeight(), State()};
    if (std::exchange(reported_, now) != now) CallHandler(events_.onResize);
}

void WinWindow::HandleDpiChanged(const RECT& suggested) {
    if (font_) ApplySystemFont();
    Move(ToRect(suggested));
    CallHandler(events_.onResize); // even when the rectangle is unchanged
}

void WinWindow::ReportKeyDown(int keyCode, int shift) {
    CallHandler(events_.onKeyDown, keyCode, shift);
}

bool WinWindow::PreTranslateMessage(MSG& message) {
    const bool ours = Handle() && (message.hwnd == Handle() || IsChild(Handle(), message.hwnd));
    if (!ours) return false;
    if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) {
        if (beneath_) ShowMenuBarForKey(message);
        const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN ||
                           message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
        if (!isKey) return false;
        if (normalizeKey) normalizeKey(message);
        input_.HandleKey(message, events_);
        return translateKey && Handle() && translateKey(message);
    }
    const bool moved = message.message == WM_MOUSEMOVE || message.message == WM_NCMOUSEMOVE;
    if (moved && beneath_) FollowPointer(message);
    if (IsPress(message.message)) CallHandler(events_.onMouse);
    if (message.message != WM_MOUSEWHEEL) return false;
    if (GET_KEYSTATE_WPARAM(message.wParam) & MK_CONTROL) {
        input_.HandleZoomWheel(message, events_);
        return true;
    }
    const HWND focus = GetFocus(); // before Windows 10 the wheel goes there anyway
    if (!IsChild(ViewArea(), message.hwnd) && IsChild(ViewArea(), focus)) message.hwnd = focus;
    return false;
}

void RunMessageLoop(WinWindow& window) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window.PreTranslateMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
