#include "platform/windows/text_pane/pane_host.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/line_layout/win_canvas.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_drops.h"

#include <utility>

namespace {
constexpr UINT_PTR firstTimer = 1;
constexpr DWORD windowStyle = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | WS_TABSTOP;

SelectionColors SystemSelection() {
    return {GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT)};
}

void ShowRange(HWND window, int bar, const ScrollRange& range) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
    info.nMax = range.max + range.page - 1;
    info.nPage = static_cast<UINT>(range.page);
    info.nPos = range.value;
    SetScrollInfo(window, bar, &info, TRUE);
}

// Draws into a bitmap as large as what is to be painted, and shows it at once.
class PaintBuffer {
  public:
    PaintBuffer(HDC screen, const RECT& area)
        : screen_(screen), area_(area), context_(CreateCompatibleDC(screen)),
          bitmap_(CreateCompatibleBitmap(screen, area.right - area.left, area.bottom - area.top)),
          before_(SelectObject(context_, bitmap_)) {
        SetViewportOrgEx(context_, -area.left, -area.top, nullptr);
    }
    ~PaintBuffer() {
        BitBlt(screen_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top,
               context_, area_.left, area_.top, SRCCOPY);
        SelectObject(context_, before_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    PaintBuffer(const PaintBuffer&) = delete;
    PaintBuffer& operator=(const PaintBuffer&) = delete;

    HDC Context() const { return context_; }

  private:
    HDC screen_;
    RECT area_;
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

Rect ToOurs(const RECT& area) {
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}
} // namespace

PaneHost::PaneHost(const wchar_t* className, HWND parent)
    : window_({className, windowStyle, 0, parent},
              [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                  return HandleMessage(window, message, wParam, lParam);
              }) {
    DragAcceptFiles(Handle(), TRUE);
    SetHorizontalBar(false);
}

void PaneHost::SetPane(ViewPane& pane) {
    pane_ = &pane;
    UpdateSystemStyle();
}

void PaneHost::UpdateSystemStyle() {
    const NONCLIENTMETRICSW metrics = NonClientMetricsForDpi(96);
    SystemStyle style;
    style.fontFamily = FromWide(metrics.lfMessageFont.lfFaceName);
    style.text = GetSysColor(COLOR_WINDOWTEXT);
    style.link = GetSysColor(COLOR_HOTLIGHT);
    style.selection = style.inactiveSelection = SystemSelection();
    pane_->SetSystemStyle(style);
}

Size PaneHost::Room() const {
    RECT inside = {};
    GetClientRect(Handle(), &inside);
    return {static_cast<int>(inside.right), static_cast<int>(inside.bottom)};
}

double PaneHost::Dpi() const {
    return WindowDpi(Handle());
}

int PaneHost::BlinkInterval() const {
    const UINT interval = GetCaretBlinkTime();
    return interval == INFINITE ? 0 : static_cast<int>(interval);
}

void PaneHost::Redraw() {
    InvalidateRect(Handle(), nullptr, FALSE);
}

void PaneHost::RedrawPart(const Rect& part) {
    const RECT area = ToRect(part);
    InvalidateRect(Handle(), &area, FALSE);
}

void PaneHost::SetHorizontalBar(bool shown) {
    if (std::exchange(horizontalBar_, shown) != shown) ShowScrollBar(Handle(), SB_HORZ, shown);
}

void PaneHost::ShowVertical(const ScrollRange& range) {
    ShowRange(Handle(), SB_VERT, range);
}

void PaneHost::ShowHorizontal(const ScrollRange& range) {
    if (horizontalBar_) ShowRange(Handle(), SB_HORZ, range);
}

void PaneHost::StartTimer(PaneTimer timer, int milliseconds) {
    SetTimer(Handle(), firstTimer + static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds),
             nullptr);
}

void PaneHost::StopTimer(PaneTimer timer) {
    KillTimer(Handle(), firstTimer + static_cast<UINT_PTR>(timer));
}

std::chrono::milliseconds PaneHost::SteadyTime() const {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
}

void PaneHost::OnSelectionChanged(TextPos, TextPos) {
    PlaceSystemCaret();
}

// The system's caret stays unseen, as the pane draws its own; magnifiers and screen readers follow
// it.
void PaneHost::PlaceSystemCaret() {
    if (!HasFocus() || !IsWindowVisible(Handle())) return;
    if (const auto caret = pane_->CaretRect()) SetCaretPos(caret->left, caret->top);
}

void PaneHost::Paint() {
    pane_->OnResized(); // before painting: it may show or hide the horizontal scroll bar
    PAINTSTRUCT painted = {};
    const HDC screen = BeginPaint(Handle(), &painted);
    if (!IsRectEmpty(&painted.rcPaint)) {
        const PaintBuffer buffer(screen, painted.rcPaint);
        WinCanvas canvas(buffer.Context());
        const Rect clip = ToOurs(painted.rcPaint);
        canvas.FillRect(clip, pane_->BackColor());
        pane_->Paint(canvas, clip);
        PaintOver(buffer.Context());
    }
    EndPaint(Handle(), &painted);
    PlaceSystemCaret();
}

void PaneHost::SetCursorShape(CursorShape shape) {
    cursor_ = shape;
    POINT mouse = {};
    if (!GetCursorPos(&mouse) || WindowFromPoint(mouse) != Handle()) return;
    SendMessageW(Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

bool PaneHost::HandleSetCursor(LPARAM where) const {
    if (LOWORD(where) != HTCLIENT) return false;
    POINT mouse = {};
    const bool onLink = GetCursorPos(&mouse) && ScreenToClient(Handle(), &mouse) &&
                        pane_->IsLink({static_cast<int>(mouse.x), static_cast<int>(mouse.y)});
    const LPCWSTR text = onLink ? IDC_HAND : IDC_IBEAM;
    SetCursor(LoadCursorW(nullptr, cursor_ == CursorShape::Wait ? IDC_WAIT : text));
    return true;
}

LRESULT PaneHost::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!pane_) return DefWindowProcW(window, message, wParam, lParam); // as it is created
    if (const auto answer = OnMessage(message, wParam, lParam)) return *answer;
    switch (message) {
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_SIZE:
        pane_->OnResized();
        Redraw();
        return 0;
    case WM_TIMER: pane_->OnTimer(static_cast<PaneTimer>(wParam - firstTimer)); return 0;
    case WM_SETFOCUS:
        CreateCaret(window, nullptr, 1, pane_->LineHeight());
        pane_->OnFocusChanged();
        PlaceSystemCaret();
        return 0;
    case WM_KILLFOCUS:
        DestroyCaret();
        pane_->OnFocusChanged();
        return 0;
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_SETCURSOR:
        if (HandleSetCursor(lParam)) return TRUE;
        break;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE: UpdateSystemStyle(); break;
    default:
        if (HandleInput(message, wParam, lParam)) return 0;
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}
