// The help window on Windows.
#pragma once

#include "platform/help_window.h"

#include <memory>

class HelpFrame;

class WinHelpWindow final : public HelpWindow {
  public:
    WinHelpWindow();
    ~WinHelpWindow() override;
    void Show(const HelpContents&, int page) override;
    bool Raise() override;

  private:
    std::unique_ptr<HelpFrame> frame_; // null until it is first shown
};
