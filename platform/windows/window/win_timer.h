// The timer on Windows.
#pragma once

#include "platform/timer.h"
#include "platform/windows/window/win_native_window.h"

// Drops its ticks while a dialog is open, which disables `owner`: no second handler starts inside
// the one that waits for it.
class WinTimer final : public Timer {
  public:
    explicit WinTimer(HWND owner); // may be null: then it always ticks
    void Start(int milliseconds, std::function<void()> onTick) override;
    void Stop() override;

  private:
    void Tick();

    HWND owner_;
    std::function<void()> onTick_;
    WinNativeWindow window_;
};
