#include "platform/windows/html_pane/win_page_view.h"

#include "common/keys.h"
#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/page_keys.h"
#include "platform/windows/html_view/page/page_menu.h"
#include "platform/windows/printing/print_dialog.h"
#include "platform/windows/system/win_locale.h"
#include "platform/windows/window/win_input.h"

WinPageView::WinPageView(HWND parent, const Files& files)
    : PaneHtmlView(files, WinLocale().AnsiCodePage()),
      window_(std::make_unique<HtmlWindow>(parent, files)) {
    window_->Pane().onLink = [this](HtmlNodeId link) { FollowLink(link); };
    window_->onZoomKey = [this](int keyCode) { return ZoomByKey(keyCode); };
    window_->onOtherKey = [this](int keyCode, bool shift) {
        return HandleOtherKey(keyCode, shift);
    };
    window_->onPosted = [this] { RunPosted(); };
    window_->onContextMenu = [this](POINT onScreen) { ShowContextMenu(onScreen); };
    window_->onCopy = [this] { CallHandler(onCommand, PageCommand::Copy); };
    window_->onDrop = [this](std::vector<std::u16string> paths) {
        drops_.Add(Handle(), std::move(paths));
    };
}

void WinPageView::Normalize(MSG& message) const {
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
    if (!isKey || message.hwnd != Handle() || !(ShiftState() & CtrlKey)) return;
    message.wParam = static_cast<WPARAM>(MainBlockKey(static_cast<int>(message.wParam)));
}

void WinPageView::ShowNotice(std::u16string_view text) {
    window_->SetNotice(ToWide(text));
}

void WinPageView::ReportZoomKey(bool larger) {
    CallHandler(onZoomKey, larger ? PlusKey : MinusKey, CtrlKey);
}

void WinPageView::ShowContextMenu(POINT onScreen) {
    PageMenu menu{HasText(), Selection().span.length > 0, {}};
    if (offersEngineChange_) menu.engine = PageEngine::Own;
    if (const auto command = TrackPageMenu(Handle(), onScreen, menu))
        CallHandler(onCommand, *command);
}

PrintAnswer WinPageView::Print(const std::u16string& title) {
    if (!HasBody()) return {};
    const PrintJob print = [&](LineLayout& lines, PictureStore& pictures, PrintDevice& device,
                               const PageRanges& pageRanges) {
        return Pane().Print(title, pageRanges, lines, pictures, device);
    };
    return PrintByDialog(GetAncestor(Handle(), GA_ROOT), title, print);
}

void WinPageView::SetBounds(const Rect& bounds) {
    SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.width, bounds.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinPageView::SetVisible(bool visible) {
    ShowWindow(Handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void WinPageView::FocusView() {
    ::SetFocus(Handle());
}

void WinPageView::Announce(std::u16string_view text) {
    window_->Announce(ToWide(text));
}
