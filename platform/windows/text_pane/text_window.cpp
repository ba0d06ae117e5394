#include "platform/windows/text_pane/text_window.h"

#include "platform/shared/call_handler.h"

namespace {
constexpr wchar_t ownerProperty[] = L"Norvaset.TextWindow";
} // namespace

TextWindow::TextWindow(HWND parent)
    : PaneHost(L"NorvasetText", parent), pane_(*this, Lines(), Pictures()) {
    SetPropW(Handle(), ownerProperty, this);
    SetPane(pane_);
}

// The base destroys the window, whose messages must not come here any more.
TextWindow::~TextWindow() {
    DestroyWindow(Handle());
}

TextWindow* TextWindow::Of(HWND window) {
    return static_cast<TextWindow*>(GetPropW(window, ownerProperty));
}

std::optional<LRESULT> TextWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCDESTROY: RemovePropW(Handle(), ownerProperty); return std::nullopt;
    case WM_DESTROY: accessibility_.Disconnect(); return 0;
    case WM_GETOBJECT: return accessibility_.AnswerGetObject(Handle(), wParam, lParam);
    default: return std::nullopt;
    }
}

bool TextWindow::OnPress(Point point) {
    if (!pane_.IsPlaceholderLink(point)) return false;
    CallHandler(onPlaceholderLink);
    return true;
}

void TextWindow::OnTextChanged() {
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
    accessibility_.OnTextChanged();
}

void TextWindow::OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) {
    PaneHost::OnSelectionChanged(anchorBefore, caretBefore);
    accessibility_.OnSelectionChanged();
}
