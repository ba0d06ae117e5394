// The keyboard, the zoom and the window of the HTML view.
#include "platform/windows/html_view/win_html_view.h"

#include "platform/window.h"
#include "platform/windows/html_view/page/page_keys.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_input.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int minPercent = 10, maxPercent = 1000; // of the engine
constexpr int usualDpi = 96;

bool IsKey(UINT message) {
    return message == WM_KEYDOWN || message == WM_KEYUP;
}

} // namespace

bool WinHtmlView::IsOfView(HWND window) const {
    const HWND host = window_.Handle();
    return host && (window == host || IsChild(host, window));
}

void WinHtmlView::Normalize(MSG& message) const {
    if (!IsKey(message.message) || !IsOfView(message.hwnd)) return;
    if (!(ShiftState() & CtrlKey)) return;
    message.wParam = static_cast<WPARAM>(MainBlockKey(static_cast<int>(message.wParam)));
}

bool WinHtmlView::TranslateKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !control_ || !IsOfView(message.hwnd)) return false;
    const int key = static_cast<int>(message.wParam);
    switch (ClassifyPageKey(key, ShiftState())) {
    case PageKey::Blocked: return true;
    case PageKey::Scrolls: return control_->TranslateAccelerator(message);
    case PageKey::Zooms: {
        const int main = MainBlockKey(key);
        Zoom(main == '0' ? 0 : main == VK_OEM_PLUS ? 1 : -1);
        return true;
    }
    case PageKey::Other: break;
    }
    return false;
}

// Not by SendInput, which goes to whatever window has the focus, with whatever keys are down.
void WinHtmlView::SendZoomKey(bool larger) {
    Zoom(larger ? 1 : -1);
    const int key = larger ? VK_OEM_PLUS : VK_OEM_MINUS;
    Post([this, key] {
        if (onZoomKey) onZoomKey(key, CtrlKey);
    });
}

// Keys pressed during a layout are applied together.
void WinHtmlView::Zoom(int steps) {
    zoom_.Move(steps);
    zoomPending_ = true;
    window_.NotifyWhenIdle();
}

void WinHtmlView::ApplyZoom() {
    if (!std::exchange(zoomPending_, false)) return;
    RelayoutAtAnchor([this] {
        zoomPercent_ = ZoomPercent();
        if (control_) control_->SetZoom(zoomPercent_);
    });
    snapshot_.zoomSteps = zoom_.Steps();
    if (load_ != Load::Complete) return;
    Post([this] {
        if (onZoomed) onZoomed();
    });
}

// The DPI may have changed, too.
void WinHtmlView::FitWindow() {
    if (!control_) return;
    ApplyZoom();
    RelayoutAtAnchor([this] { control_->FitWindow(); });
    if (document_ && ZoomPercent() != zoomPercent_)
        RelayoutAtAnchor([this] { control_->SetZoom(zoomPercent_ = ZoomPercent()); });
}

void WinHtmlView::RelayoutAtAnchor(const std::function<void()>& change) {
    scrollAnchor_.Save(document_, TopMargin());
    change();
    scrollAnchor_.Restore(document_);
}

// At 100 a CSS pixel is one device pixel, whatever the DPI.
int WinHtmlView::ZoomPercent() const {
    return std::clamp(MulDiv(zoom_.Percent(), WindowDpi(window_.Handle()), usualDpi), minPercent,
                      maxPercent);
}

bool WinHtmlView::IsInSelection(POINT pixels) const {
    const PageRange selection = document_.SelectedText();
    if (TextOf(selection).value_or(u"").empty()) return false;
    const int percent = zoomPercent_;
    return IsInside(
        RangeAt(document_, MulDiv(pixels.x, 100, percent), MulDiv(pixels.y, 100, percent)),
        selection);
}

void WinHtmlView::SetBounds(const Rect& bounds) {
    SetWindowPos(window_.Handle(), nullptr, bounds.left, bounds.top, bounds.width, bounds.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinHtmlView::SetVisible(bool visible) {
    ShowWindow(window_.Handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void WinHtmlView::FocusView() {
    SetFocus(window_.Handle());
}

// The host window has the focus already; passes it on to the page.
void WinHtmlView::FocusPage() {
    if (!control_ || !inner_.Handle()) return;
    control_->ActivateUi();
    SetFocus(inner_.Handle());
}
