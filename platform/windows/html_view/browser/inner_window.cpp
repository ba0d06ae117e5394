#include "platform/windows/html_view/browser/inner_window.h"

#include "platform/windows/html_view/page/page_menu.h"

#include <commctrl.h>
#include <windowsx.h>

namespace {

constexpr UINT_PTR subclassId = 1;

HWND FindInner(HWND host) {
    HWND window = host;
    for (const wchar_t* name :
         {L"Shell Embedding", L"Shell DocObject View", L"Internet Explorer_Server"})
        if (window) window = FindWindowExW(window, nullptr, name, nullptr);
    return window;
}

} // namespace

bool InnerWindow::Attach(HWND host) {
    const HWND inner = FindInner(host);
    if (inner == window_) return inner != nullptr;
    Detach();
    const auto data = reinterpret_cast<DWORD_PTR>(this);
    if (inner && SetWindowSubclass(inner, SubclassProc, subclassId, data)) window_ = inner;
    return window_ != nullptr;
}

void InnerWindow::Detach() {
    if (window_) RemoveWindowSubclass(window_, SubclassProc, subclassId);
    window_ = nullptr;
}

LRESULT CALLBACK InnerWindow::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR, DWORD_PTR data) noexcept {
    auto* self = reinterpret_cast<InnerWindow*>(data);
    if (message == WM_NCDESTROY) {
        self->Detach();
        return DefSubclassProc(window, message, wParam, lParam);
    }
    return self->HandleMessage(message, wParam, lParam);
}

LRESULT InnerWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    switch (message) {
    case WM_COMMAND: return HandleCommand(wParam, lParam);
    case WM_RBUTTONUP: return HandleRightButtonUp(wParam, lParam);
    // "Back" of mouse and keyboard, and the like.
    case WM_XBUTTONDOWN:
    case WM_XBUTTONUP:
    case WM_APPCOMMAND: return TRUE;
    case WM_MOUSEWHEEL:
        if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) return 0; // the window zooms
        break;
    default: break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

// Of commands the engine executes printing only. With an lParam it is a notification of a form
// control.
LRESULT InnerWindow::HandleCommand(WPARAM wParam, LPARAM lParam) {
    const auto command = ToPageCommand(LOWORD(wParam));
    const HWND window = window_;
    if (lParam != 0) return DefSubclassProc(window, WM_COMMAND, wParam, lParam);
    if (command) owner_.OnCommand(*command);
    return command == PageCommand::Print ? DefSubclassProc(window, WM_COMMAND, wParam, lParam) : 0;
}

// A left press without a release moves the caret. The engine then captures the mouse for selecting,
// which has to end before the menu opens.
LRESULT InnerWindow::HandleRightButtonUp(WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    if (!owner_.IsInSelection({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) {
        SendMessageW(window, WM_LBUTTONDOWN, wParam, lParam);
        if (GetCapture() == window) ReleaseCapture();
    }
    return DefSubclassProc(window, WM_RBUTTONUP, wParam, lParam);
}
