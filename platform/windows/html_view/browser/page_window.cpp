#include "platform/windows/html_view/browser/page_window.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/window/dpi.h"

namespace {

constexpr wchar_t className[] = L"NorvasetPage";
constexpr UINT postedMessage = WM_APP;
constexpr UINT_PTR idleTimer = 1;

} // namespace

PageWindow::PageWindow(HWND parent, Events events) : events_(std::move(events)) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WndProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass); // only the first one's counts
    CreateWindowExW(0, className, L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                    parent, nullptr, windowClass.hInstance, this);
}

PageWindow::~PageWindow() {
    if (handle_) DestroyWindow(handle_);
}

void PageWindow::SetNotice(std::wstring notice) {
    notice_ = std::move(notice);
    if (handle_) InvalidateRect(handle_, nullptr, TRUE);
}

void PageWindow::Post() {
    if (handle_) PostMessageW(handle_, postedMessage, 0, 0);
}

// The system makes a timer's message only when the queue holds nothing else.
void PageWindow::NotifyWhenIdle() {
    if (handle_) SetTimer(handle_, idleTimer, USER_TIMER_MINIMUM, nullptr);
}

LRESULT CALLBACK PageWindow::WndProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* made = static_cast<PageWindow*>(
            reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* self = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return self->HandleMessage(message, wParam, lParam);
}

LRESULT PageWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE: CallHandler(events_.onResize); return 0;
    case WM_SETFOCUS: CallHandler(events_.onFocus); return 0;
    case WM_DESTROY: CallHandler(events_.onDestroy); return 0;
    case WM_PAINT: Paint(); return 0;
    case postedMessage: CallHandler(events_.onPosted); return 0;
    case WM_TIMER:
        if (wParam != idleTimer) break;
        KillTimer(handle_, idleTimer);
        CallHandler(events_.onIdle);
        return 0;
    default: break;
    }
    return DefWindowProcW(handle_, message, wParam, lParam);
}

void PageWindow::Paint() {
    PAINTSTRUCT paint = {};
    const HDC device = BeginPaint(handle_, &paint);
    RECT place = {};
    GetClientRect(handle_, &place);
    const int margin = GetSystemMetrics(SM_CXICON);
    InflateRect(&place, -margin, -margin);
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, GetSysColor(COLOR_WINDOWTEXT));
    const LOGFONTW messageFont = NonClientMetricsForDpi(WindowDpi(handle_)).lfMessageFont;
    const WinFont font(CreateFontIndirectW(&messageFont));
    const HGDIOBJ before = SelectObject(device, font.get());
    DrawTextW(device, notice_.c_str(), static_cast<int>(notice_.size()), &place,
              DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(device, before);
    EndPaint(handle_, &paint);
}
