// The window of the text view: a host for a text pane, and what it tells screen readers.
#pragma once

#include "platform/windows/text_pane/accessibility/text_accessibility.h"
#include "platform/windows/text_pane/pane_host.h"
#include "view/text_pane.h"

class TextWindow final : public PaneHost {
  public:
    explicit TextWindow(HWND parent);
    ~TextWindow();

    static TextWindow* Of(HWND window); // null for another window
    TextPane& Pane() { return pane_; }
    ComPtr<TextProvider> Accessible() { return accessibility_.Provider(Handle()); }
    void Announce(const std::wstring& text) { accessibility_.Announce(text); }

    std::function<void()> onPlaceholderLink;

  private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnPress(Point point) override;
    void OnTextChanged() override;
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;

    TextPane pane_;
    TextAccessibility accessibility_{pane_};
};
