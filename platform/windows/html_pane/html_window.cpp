#include "platform/windows/html_pane/html_window.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/page_keys.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_input.h"

#include "common/keys.h"

#include <utility>

namespace {
constexpr UINT postedMessage = WM_APP + 1;
constexpr int noticeMargin = 20; // 1/96 inch

class MessageFont {
  public:
    explicit MessageFont(HDC context, HWND window) : context_(context) {
        const NONCLIENTMETRICSW metrics = NonClientMetricsForDpi(WindowDpi(window));
        font_ = CreateFontIndirectW(&metrics.lfMessageFont);
        before_ = SelectObject(context, font_);
    }
    ~MessageFont() {
        SelectObject(context_, before_);
        DeleteObject(font_);
    }
    MessageFont(const MessageFont&) = delete;
    MessageFont& operator=(const MessageFont&) = delete;

  private:
    HDC context_;
    HFONT font_ = nullptr;
    HGDIOBJ before_ = nullptr;
};
} // namespace

HtmlWindow::HtmlWindow(HWND parent, const Files& files)
    : ReadableWindow(L"NorvasetOwnPage", parent), pane_(*this, Lines(), Pictures(), files) {
    SetReadable(pane_);
}

// The base destroys the window, whose messages must not come here any more.
HtmlWindow::~HtmlWindow() {
    DestroyWindow(Handle());
}

void HtmlWindow::Post() {
    PostMessageW(Handle(), postedMessage, 0, 0);
}

void HtmlWindow::SetNotice(std::wstring text) {
    notice_ = std::move(text);
    InvalidateRect(Handle(), nullptr, FALSE);
}

std::optional<LRESULT> HtmlWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != postedMessage) return ReadableWindow::OnMessage(message, wParam, lParam);
    CallHandler(onPosted);
    return 0;
}

// A page is called by its title where it is read aloud.
void HtmlWindow::OnTextChanged() {
    if (pane_.Page()) SetWindowTextW(Handle(), ToWide(pane_.Page()->Title()).c_str());
    ReadableWindow::OnTextChanged();
}

bool HtmlWindow::OnKey(int key) {
    const int shift = ShiftState();
    if (shift & CtrlKey) return onZoomKey && onZoomKey(MainBlockKey(key));
    const bool takes = key == VK_TAB || (key == VK_RETURN && shift == 0);
    return takes && onOtherKey && onOtherKey(key, (shift & ShiftKey) != 0);
}

void HtmlWindow::PaintOver(HDC context) {
    if (notice_.empty()) return;
    RECT inside = {};
    GetClientRect(Handle(), &inside);
    const int margin = MulDiv(noticeMargin, WindowDpi(Handle()), 96);
    InflateRect(&inside, -margin, -margin);
    const MessageFont font(context, Handle());
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, notice_.c_str(), -1, &inside, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}
