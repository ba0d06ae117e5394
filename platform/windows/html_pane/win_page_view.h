// Our own HTML view on Windows: a page pane in a window, with no browser control.
#pragma once

#include "platform/windows/html_pane/html_window.h"
#include "platform/windows/window/win_drops.h"
#include "view/html/pane_html_view.h"

class WinPageView final : public PaneHtmlView {
  public:
    // Both outlive the view.
    WinPageView(HWND parent, const Files& files);
    WinPageView(const WinPageView&) = delete;
    WinPageView& operator=(const WinPageView&) = delete;

    HWND Handle() const { return window_->Handle(); }
    // For the message loop: with Ctrl, replaces a key of the numeric keypad by that of the main
    // block.
    void Normalize(MSG& message) const;
    // The keystroke of SendZoomKey, for the window's `onKeyDown`.
    std::function<void(int keyCode, int shift)> onZoomKey;

    void OfferEngineChange(bool offered) override { offersEngineChange_ = offered; }
    PrintAnswer Print(const std::u16string& title) override;
    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void FocusView() override;
    void Announce(std::u16string_view text) override;
    ComPtr<TextProvider> Accessible() { return window_->Accessible(); }

  protected:
    PagePane& Pane() const override { return window_->Pane(); }
    void WakeUp() override { window_->Post(); }
    void ShowNotice(std::u16string_view text) override;
    void ReportZoomKey(bool larger) override;

  private:
    void ShowContextMenu(POINT onScreen);

    std::unique_ptr<HtmlWindow> window_;
    bool offersEngineChange_ = false;
    WinDrops drops_{onFilesDropped};
};
