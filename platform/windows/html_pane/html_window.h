// The window of our own view of pages: that of a page pane, with a page's keys.
#pragma once

#include "platform/windows/text_pane/readable_window.h"
#include "view/html/page_pane.h"

class HtmlWindow final : public ReadableWindow {
  public:
    HtmlWindow(HWND parent, const Files& files); // initially hidden
    ~HtmlWindow() override;

    PagePane& Pane() { return pane_; }
    void SetNotice(std::wstring text); // over the page; "" for none
    void Post();                       // `onPosted` is called from the message loop

    std::function<bool(int keyCode)> onZoomKey;              // with Ctrl; whether it is one
    std::function<bool(int keyCode, bool shift)> onOtherKey; // Tab and Return
    std::function<void()> onPosted;

  private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnKey(int key) override;
    void PaintOver(HDC context) override;
    void OnTextChanged() override;

    PagePane pane_;
    std::wstring notice_;
};
