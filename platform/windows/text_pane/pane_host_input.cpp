// Keys, mouse, wheel and drops of a pane's window.
#include "platform/shared/call_handler.h"
#include "platform/windows/text_pane/pane_host.h"
#include "platform/windows/window/win_drops.h"

#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

namespace {
constexpr int charactersPerNotch = 3; // sideways, where the system says nothing

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

std::optional<PaneKey> PaneKeyOf(int key) {
    switch (key) {
    case VK_LEFT: return PaneKey::Left;
    case VK_RIGHT: return PaneKey::Right;
    case VK_UP: return PaneKey::Up;
    case VK_DOWN: return PaneKey::Down;
    case VK_PRIOR: return PaneKey::PageUp;
    case VK_NEXT: return PaneKey::PageDown;
    case VK_HOME: return PaneKey::Home;
    case VK_END: return PaneKey::End;
    case VK_SPACE: return PaneKey::Space;
    default: return std::nullopt;
    }
}

POINT PointOf(LPARAM where) {
    return {GET_X_LPARAM(where), GET_Y_LPARAM(where)};
}

Point ToPane(POINT point) {
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

bool IsNear(POINT a, POINT b) {
    return std::abs(a.x - b.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
           std::abs(a.y - b.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
}

// Lines for a notch of the wheel, as the user has set them; none for a page.
std::optional<int> LinesPerNotch() {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) return std::nullopt;
    return static_cast<int>(lines);
}

int ThumbPosition(HWND window, int bar) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS; // the message has only 16 bits of it
    GetScrollInfo(window, bar, &info);
    return info.nTrackPos;
}
} // namespace

bool PaneHost::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return HandleKey(static_cast<int>(wParam));
    case WM_VSCROLL:
        HandleVerticalScroll(LOWORD(wParam));
        pane_->ShowScrollLabel();
        return true;
    case WM_HSCROLL: HandleHorizontalScroll(LOWORD(wParam)); return true;
    case WM_CONTEXTMENU:
        if (lParam == -1)
            RequestContextMenu();
        else
            HandleRightClick(PointOf(lParam));
        return true;
    case WM_DROPFILES:
        if (onDrop) onDrop(FinishDrop(reinterpret_cast<HDROP>(wParam)));
        return true;
    case WM_COPY: CallHandler(onCopy); return true;
    default: return HandleMouse(message, wParam, lParam);
    }
}

bool PaneHost::HandleKey(int key) {
    if (key == VK_F10 && IsDown(VK_SHIFT)) {
        RequestContextMenu();
        return true;
    }
    if (IsDown(VK_MENU)) return false;
    if (key == 'A' && IsDown(VK_CONTROL) && !IsDown(VK_SHIFT)) {
        pane_->SelectAll();
        return true;
    }
    if (OnKey(key)) return true;
    const auto paneKey = PaneKeyOf(key);
    return paneKey && pane_->Press(*paneKey, IsDown(VK_SHIFT), IsDown(VK_CONTROL));
}

bool PaneHost::HandleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN: HandleClick(PointOf(lParam), (wParam & MK_SHIFT) != 0); return true;
    case WM_MOUSEMOVE:
        if (GetCapture() == Handle()) pane_->DragTo(ToPane(PointOf(lParam)));
        return true;
    case WM_LBUTTONUP: ReleaseCapture(); return true;
    case WM_CAPTURECHANGED: pane_->EndDrag(); return true;
    case WM_MOUSEWHEEL:
        if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) return true; // the window's
        HandleWheel(GET_WHEEL_DELTA_WPARAM(wParam), WheelAxis::Vertical);
        pane_->ShowScrollLabel();
        return true;
    case WM_MOUSEHWHEEL:
        HandleWheel(GET_WHEEL_DELTA_WPARAM(wParam), WheelAxis::Horizontal);
        return true;
    default: return false;
    }
}

// The class has no double clicks, so that a third click can be told from a first.
void PaneHost::HandleClick(POINT point, bool extend) {
    if (OnPress(ToPane(point))) return;
    const DWORD now = static_cast<DWORD>(GetMessageTime());
    const bool soon = now - clickTime_ <= GetDoubleClickTime() && IsNear(point, clicked_);
    clicks_ = soon && clicks_ < 3 ? clicks_ + 1 : 1;
    clickTime_ = now;
    clicked_ = point;
    ::SetFocus(Handle());
    SetCapture(Handle());
    pane_->Click(ToPane(point), clicks_, extend && clicks_ == 1);
}

// A click outside the selection moves the caret first.
void PaneHost::HandleRightClick(POINT onScreen) {
    POINT point = onScreen;
    ScreenToClient(Handle(), &point);
    pane_->PrepareContextMenu(ToPane(point));
    ::SetFocus(Handle());
    if (onContextMenu) onContextMenu(onScreen);
}

void PaneHost::RequestContextMenu() {
    const Size room = Room();
    const Rect caret = pane_->CaretRect().value_or(Rect{});
    POINT point = {std::clamp(caret.left, 0, std::max(0, room.width - 1)),
                   std::clamp(Bottom(caret), 0, std::max(0, room.height - 1))};
    ClientToScreen(Handle(), &point);
    if (onContextMenu) onContextMenu(point);
}

void PaneHost::HandleWheel(int turn, WheelAxis axis) {
    const bool sideways = axis == WheelAxis::Horizontal;
    const auto lines = sideways ? charactersPerNotch : LinesPerNotch();
    if (!lines) return pane_->ScrollPage(turn < 0);
    int& remainder = sideways ? sidewaysRemainder_ : wheelRemainder_;
    remainder += turn * *lines;
    const int whole = remainder / WHEEL_DELTA;
    remainder -= whole * WHEEL_DELTA;
    if (whole == 0) return;
    if (sideways)
        pane_->ScrollBy({whole * pane_->LineHeight(), 0});
    else
        pane_->ScrollLines(-whole);
}

void PaneHost::HandleVerticalScroll(int request) {
    switch (request) {
    case SB_LINEUP: return pane_->ScrollLines(-1);
    case SB_LINEDOWN: return pane_->ScrollLines(1);
    case SB_PAGEUP: return pane_->PageUp();
    case SB_PAGEDOWN: return pane_->PageDown();
    case SB_TOP: return pane_->ScrollToValue(0);
    case SB_BOTTOM: return pane_->ScrollToValue(std::numeric_limits<int>::max());
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: return pane_->ScrollToValue(ThumbPosition(Handle(), SB_VERT));
    default: break;
    }
}

void PaneHost::HandleHorizontalScroll(int request) {
    const int line = pane_->LineHeight(), page = Room().width;
    switch (request) {
    case SB_LINELEFT: return pane_->ScrollBy({-line, 0});
    case SB_LINERIGHT: return pane_->ScrollBy({line, 0});
    case SB_PAGELEFT: return pane_->ScrollBy({-page, 0});
    case SB_PAGERIGHT: return pane_->ScrollBy({page, 0});
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: return pane_->ScrollToX(ThumbPosition(Handle(), SB_HORZ));
    default: break;
    }
}
