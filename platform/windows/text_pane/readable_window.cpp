#include "platform/windows/text_pane/readable_window.h"

void ReadableWindow::SetReadable(ReadablePane& pane) {
    accessibility_.emplace(pane);
    SetPane(pane);
}

std::optional<LRESULT> ReadableWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!accessibility_) return std::nullopt; // while it is made
    switch (message) {
    case WM_DESTROY: accessibility_->Disconnect(); return 0;
    case WM_GETOBJECT: return accessibility_->AnswerGetObject(Handle(), wParam, lParam);
    default: return std::nullopt;
    }
}

void ReadableWindow::OnTextChanged() {
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
    accessibility_->OnTextChanged();
}

void ReadableWindow::OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) {
    PaneHost::OnSelectionChanged(anchorBefore, caretBefore);
    accessibility_->OnSelectionChanged();
}
