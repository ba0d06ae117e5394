#include "platform/windows/text_view/text_input.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/text_view/text_keys.h"
#include "platform/windows/window/win_drops.h"

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>

namespace {
constexpr UINT_PTR subclassId = 1;
constexpr UINT refillMessage = WM_APP + 0x51; // not used by the control

// The caret's position, clipped to the client area.
POINT CaretPoint(HWND window) {
    CHARRANGE selection = {};
    SendMessageW(window, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    POINTL caret = {};
    SendMessageW(window, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&caret), selection.cpMax);
    RECT inside = {};
    GetClientRect(window, &inside);
    POINT point = {std::clamp(caret.x, 0L, std::max(0L, inside.right - 1)),
                   std::clamp(caret.y, 0L, std::max(0L, inside.bottom - 1))};
    ClientToScreen(window, &point);
    return point;
}

void RequestContextMenu(const TextInputEvents& events, HWND window, LPARAM where) {
    const bool byKeyboard = where == -1;
    if (!events.onContextMenu) return;
    events.onContextMenu(byKeyboard ? CaretPoint(window)
                                    : POINT{GET_X_LPARAM(where), GET_Y_LPARAM(where)});
}

// Passed on, a right click would also open the control's own menu.
void HandleRightButtonUp(const TextInputEvents& events, HWND window, LPARAM where) {
    POINT point = {GET_X_LPARAM(where), GET_Y_LPARAM(where)};
    ClientToScreen(window, &point);
    if (events.onContextMenu) events.onContextMenu(point);
}

// True when the message was handled.
bool HandleMessage(const TextInputEvents& events, HWND window, UINT message, WPARAM wParam,
                   LPARAM lParam) {
    switch (message) {
    case WM_MOUSEWHEEL: return (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) != 0; // would zoom
    case WM_RBUTTONUP: HandleRightButtonUp(events, window, lParam); return true;
    case WM_CONTEXTMENU: RequestContextMenu(events, window, lParam); return true;
    case WM_DROPFILES:
        events.onDrop(window, FinishDrop(reinterpret_cast<HDROP>(wParam)));
        return true;
    case WM_SETCURSOR:
        if (events.pointer != Pointer::Hourglass || LOWORD(lParam) != HTCLIENT) return false;
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        return true;
    case refillMessage: // destroys this window
        CallHandler(events.onRefill);
        return true;
    case WM_COPY: CallHandler(events.onCopy); return true;
    case WM_CHAR:
    case WM_UNICHAR:
    case WM_CUT:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case EM_REDO:
    case EM_PASTESPECIAL: return true;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return HandleTextKeyDown(window, static_cast<int>(wParam));
    case WM_KEYUP: return HandleTextKeyUp(window, static_cast<int>(wParam));
    default: return false;
    }
}

LRESULT CALLBACK SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR data) {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, SubclassProc, subclassId);
    if (HandleMessage(*reinterpret_cast<const TextInputEvents*>(data), window, message, wParam,
                      lParam))
        return message == WM_SETCURSOR;
    return DefSubclassProc(window, message, wParam, lParam);
}
} // namespace

void AttachInput(RichEdit& control, const TextInputEvents& events) {
    if (!control.Handle()) return;
    SetWindowSubclass(control.Handle(), SubclassProc, subclassId,
                      reinterpret_cast<DWORD_PTR>(&events));
    RevokeDragDrop(control.Handle()); // OLE drag and drop would take precedence over WM_DROPFILES
    DragAcceptFiles(control.Handle(), TRUE);
}

void PostRefill(HWND control) {
    PostMessageW(control, refillMessage, 0, 0);
}

void UpdateCursor(HWND control) {
    POINT mouse = {};
    if (!GetCursorPos(&mouse) || WindowFromPoint(mouse) != control) return;
    SendMessageW(control, WM_SETCURSOR, reinterpret_cast<WPARAM>(control),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}
