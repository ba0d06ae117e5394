// The window of the text view: that of a text pane.
#pragma once

#include "platform/windows/text_pane/readable_window.h"
#include "view/text_pane.h"

class TextWindow final : public ReadableWindow {
  public:
    explicit TextWindow(HWND parent);
    ~TextWindow() override;

    static TextWindow* Of(HWND window); // null for another window
    TextPane& Pane() { return pane_; }

    std::function<void()> onPlaceholderLink;

  private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnPress(Point point) override;

    TextPane pane_;
};
