// A window for a pane whose text assistive technology can read.
#pragma once

#include "platform/windows/text_pane/accessibility/text_accessibility.h"
#include "platform/windows/text_pane/pane_host.h"

#include <optional>

class ReadableWindow : public PaneHost {
  public:
    ComPtr<TextProvider> Accessible() { return accessibility_->Provider(Handle()); }
    void Announce(const std::wstring& text) { accessibility_->Announce(text); }

  protected:
    using PaneHost::PaneHost;
    void SetReadable(ReadablePane& pane); // once, by the constructor of the derived class

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnTextChanged() override;
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnObjectFocused() override { accessibility_->OnObjectFocused(); }

  private:
    std::optional<TextAccessibility> accessibility_;
};
