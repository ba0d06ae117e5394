#include "platform/windows/text_pane/win_text_view.h"

#include "platform/windows/base/text.h"
#include "platform/windows/printing/print_dialog.h"
#include "platform/windows/text_pane/search_pump.h"
#include "view/print_pages.h"

WinTextView::WinTextView(HWND parent) : text_(std::make_unique<TextWindow>(parent)) {
    text_->onContextMenu = [this](POINT point) {
        contextPoint_ = point;
        if (onContextMenu) onContextMenu();
    };
    text_->onDrop = [this](std::vector<std::u16string> paths) {
        drops_.Add(Handle(), std::move(paths));
    };
    text_->onPlaceholderLink = [this] {
        if (onPlaceholderLink) onPlaceholderLink();
    };
    text_->onCopy = [this] {
        if (onCopy) onCopy();
    };
}

TextPos WinTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    SearchPump messages;
    return FindWhile(what, start, options, [&] { return messages.GoesOn(); });
}

std::vector<Heading> WinTextView::Headings() const {
    SearchPump messages;
    return Pane().Headings([&] { return messages.GoesOn(); });
}

PrintAnswer WinTextView::Print(const std::u16string& title) {
    const PrintJob print = [&](LineLayout& lines, PictureStore& pictures, PrintDevice& device,
                               const PageRanges& pageRanges) {
        return PrintPages(PrintedTextOf(Pane(), title, pageRanges), lines, pictures, device);
    };
    return PrintByDialog(GetAncestor(Handle(), GA_ROOT), title, print);
}

void WinTextView::VisitText(const TextVisitor& visit) const {
    SearchPump messages;
    visit(Pane().Source(), [&] { return messages.GoesOn(); });
}

void WinTextView::SetBounds(const Rect& bounds) {
    SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.width, bounds.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinTextView::SetVisible(bool visible) {
    ShowWindow(Handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void WinTextView::SetCursorShape(CursorShape shape) {
    text_->SetCursorShape(shape);
}

void WinTextView::FocusView() {
    ::SetFocus(Handle());
}

void WinTextView::Announce(std::u16string_view text) {
    text_->Announce(ToWide(text));
}

// What the window is called where it is read aloud.
void WinTextView::SetName(std::u16string_view name) {
    SetWindowTextW(Handle(), ToWide(name).c_str());
}
