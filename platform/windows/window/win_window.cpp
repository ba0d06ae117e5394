#include "platform/windows/window/win_window.h"

#include "platform/windows/base/handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/window/win_drops.h"
#include "platform/windows/window/window_messages.h"

#include <algorithm>

namespace {

constexpr int usualDpi = 96;
constexpr int maxExtent = 16384; // pixels; drawing takes no larger ones
constexpr UINT_PTR closeTimer = 1;
constexpr UINT closeDelay = 50;    // milliseconds, for a dialog or menu to go away
constexpr double readingSize = 12; // points
constexpr double twipsPerInch = 1440;
constexpr int pageWidth = 860, pageHeight = 960; // pixels at the usual resolution

Rect ToRect(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

std::vector<Rect> Screens() {
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

// The one window of ours that can be used while the others wait for it; null for none.
HWND OpenDialog() {
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
                 return Answer(window, message, wParam, lParam);
             }),
      // The core's layout of the views counts on a border of two pixels.
      panel_({L"NorvasetPanel", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE,
              frame_.Handle()}) {
    TakeDefaultPlace();
    DragAcceptFiles(Handle(), TRUE);
}

WinWindow::~WinWindow() {
    if (Handle()) DestroyWindow(Handle()); // while the members that answer its messages live
}

// A page of comfortable width in the middle of the screen.
void WinWindow::TakeDefaultPlace() {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const Rect available = ToRect(work);
    const int dpi = DpiOf(Handle());
    const int width = std::min(MulDiv(pageWidth, dpi, usualDpi), MulDiv(available.width, 9, 10));
    const int height = std::min(MulDiv(pageHeight, dpi, usualDpi), MulDiv(available.height, 9, 10));
    Move({available.left + (available.width - width) / 2,
          available.top + (available.height - height) / 2, width, height});
}

void WinWindow::SetEvents(WindowEvents events) {
    events_ = std::move(events);
}

void WinWindow::Open() {
    constexpr int commands[] = {SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED};
    open_ = true;
    ShowWindow(Handle(), commands[static_cast<int>(stateToOpen_)]);
    UpdateWindow(Handle());
    PostMessageW(Handle(), ShownMessage, 0, 0);
}

void WinWindow::Close() {
    if (!Handle()) return;
    Unload();
    DestroyWindow(Handle());
}

void WinWindow::Unload() {
    if (!std::exchange(unloaded_, true)) CallHandler(events_.onUnload);
}

// The wish of the system or another program, which can come while a dialog or a menu is open: these
// are cancelled first, because what waits for them has to end before the window does.
void WinWindow::CloseWhenPossible() {
    KillTimer(Handle(), closeTimer);
    if (IsMenuOpen())
        EndMenu();
    else if (!IsWindowEnabled(Handle()))
        PostMessageW(OpenDialog(), WM_CLOSE, 0, 0);
    else
        return Close();
    SetTimer(Handle(), closeTimer, closeDelay, nullptr);
}

WindowState WinWindow::State() const {
    if (!open_) return stateToOpen_;
    if (IsIconic(Handle())) return WindowState::Minimized;
    return IsZoomed(Handle()) ? WindowState::Maximized : WindowState::Normal;
}

void WinWindow::SetState(WindowState state) {
    if (!open_) {
        stateToOpen_ = state;
        return;
    }
    if (state == State()) return; // showing a normal window again would activate it
    constexpr int commands[] = {SW_SHOWNORMAL, SW_MINIMIZE, SW_MAXIMIZE};
    ShowWindow(Handle(), commands[static_cast<int>(state)]);
}

Rect WinWindow::Bounds() const {
    RECT bounds = {};
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    // A minimised window is kept far outside the screen.
    if (IsIconic(Handle()) && GetWindowPlacement(Handle(), &placement))
        bounds = placement.rcNormalPosition;
    else
        GetWindowRect(Handle(), &bounds);
    return BoundsAsAsked(instead_, ToRect(bounds));
}

void WinWindow::Move(const Rect& bounds) {
    const double scale = static_cast<double>(DpiOf(Handle())) / usualDpi;
    const Rect shown = ReachablePlace(bounds, Screens(), scale);
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
    return twipsPerInch / DpiOf(Handle());
}

double WinWindow::TwipsPerPixelY() const {
    return TwipsPerPixelX(); // Windows has one resolution for both
}

void WinWindow::SetTitle(std::u16string_view title) {
    SetWindowTextW(Handle(), ToWide(title).c_str());
}

void WinWindow::ApplySystemFont() {
    const NONCLIENTMETRICSW metrics = MetricsAt(DpiOf(Handle()));
    font_.reset(CreateFontIndirectW(&metrics.lfMenuFont));
}

double WinWindow::TextWidth(std::u16string_view text) const {
    return TextExtent(Handle(), font_.get(), ToWide(text)).cx;
}

void WinWindow::SetPanelBounds(const Rect& bounds) {
    MoveWindow(ViewArea(), bounds.left, bounds.top, bounds.width, bounds.height, TRUE);
}

// Georgia was drawn for long reading on a screen, and comes with every Windows that we run on; the
// other serves where somebody took it away.
ViewFont WinWindow::DefaultViewFont() const {
    ViewFont viewFont;
    viewFont.name = IsFontInstalled(L"Georgia") ? u"Georgia" : u"Times New Roman";
    viewFont.size = readingSize;
    return viewFont;
}

LRESULT WinWindow::Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETFOCUS: FocusView(); return 0;
    case WM_WINDOWPOSCHANGED: ReportChange(); return 0;
    case WM_DPICHANGED: TakeResolution(*reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_GETMINMAXINFO:
        // A place from a larger desktop is taken as it stands.
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {maxExtent, maxExtent};
        return 0;
    case WM_DROPFILES:
        drops_.Add(window, TakeDroppedFiles(reinterpret_cast<HDROP>(wParam)));
        return 0;
    case WM_TIMER:
        if (wParam == closeTimer) CloseWhenPossible();
        return 0;
    case WM_CLOSE: CloseWhenPossible(); return 0;
    case ShownMessage: CallHandler(events_.onShown); return 0;
    case WM_ENDSESSION:
        // The process may be gone as soon as this returns, whatever is open.
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

void WinWindow::ReportChange() {
    const Shown now = {Bounds(), InnerWidth(), InnerHeight(), State()};
    if (std::exchange(shown_, now) != now) CallHandler(events_.onResize);
}

// The window came to a screen of another resolution, or the screen's was changed.
void WinWindow::TakeResolution(const RECT& suggested) {
    if (font_) ApplySystemFont();
    Move(ToRect(suggested));
    CallHandler(events_.onResize); // also for a window whose rectangle stays
}

void WinWindow::TellKeyDown(int keyCode, int shift) {
    CallHandler(events_.onKeyDown, keyCode, shift);
}

bool WinWindow::PassMessage(MSG& message) {
    const bool ours = Handle() && (message.hwnd == Handle() || IsChild(Handle(), message.hwnd));
    if (!ours) return true;
    if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) {
        const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN ||
                           message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
        if (!isKey) return true;
        if (normalizeKey) normalizeKey(message);
        input_.Key(message, events_);
        return !(takeKey && Handle() && takeKey(message));
    }
    if (message.message != WM_MOUSEWHEEL) return true;
    if (GET_KEYSTATE_WPARAM(message.wParam) & MK_CONTROL) {
        input_.Zoom(message, events_);
        return false;
    }
    const HWND focus = GetFocus(); // older systems send the wheel there anyway
    if (!IsChild(ViewArea(), message.hwnd) && IsChild(ViewArea(), focus)) message.hwnd = focus;
    return true;
}

void RunMessageLoop(WinWindow& window) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window.PassMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
