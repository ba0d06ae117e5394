// The status bar on Windows.
#pragma once

#include "platform/status_bar.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_timer.h"

class WinStatusBar final : public StatusBar {
  public:
    explicit WinStatusBar(HWND parent); // which destroys the control

    HWND Handle() const { return bar_; }

    void SetPanels(const std::vector<StatusPanel>&) override;
    int Height() const override { return height_; }
    void SetHeight(int pixels) override;
    void SetBounds(const Rect&) override;

  private:
    void FitFont();
    void LayOutPanels();
    void ShowDate();
    int PanelWidth(const StatusPanel&) const; // pixels; the minimum for a spring panel

    HWND bar_;
    int height_ = 18, width_ = 0;
    int fontDpi_ = 0; // of font_
    WinFont font_;
    std::vector<StatusPanel> panels_;
    std::wstring date_;
    WinTimer dateTimer_;
};
