#include "platform/windows/text_pane/text_window.h"

#include "platform/shared/call_handler.h"

namespace {
constexpr wchar_t ownerProperty[] = L"Norvaset.TextWindow";
} // namespace

TextWindow::TextWindow(HWND parent)
    : ReadableWindow(L"NorvasetText", parent), pane_(*this, Lines(), Pictures()) {
    SetPropW(Handle(), ownerProperty, this);
    SetReadable(pane_);
}

// The base destroys the window, whose messages must not come here any more.
TextWindow::~TextWindow() {
    DestroyWindow(Handle());
}

TextWindow* TextWindow::Of(HWND window) {
    return static_cast<TextWindow*>(GetPropW(window, ownerProperty));
}

std::optional<LRESULT> TextWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) RemovePropW(Handle(), ownerProperty);
    return ReadableWindow::OnMessage(message, wParam, lParam);
}

bool TextWindow::OnPress(Point point) {
    if (!pane_.IsPlaceholderLink(point)) return false;
    CallHandler(onPlaceholderLink);
    return true;
}
