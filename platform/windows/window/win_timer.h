// The timer on Windows.
#pragma once

#include "platform/timer.h"
#include "platform/windows/base/win_native_window.h"

// Ticks are dropped while `owner` is disabled by a modal dialog: no handler starts inside the one
// that waits for the dialog.
class WinTimer final : public Timer {
  public:
    explicit WinTimer(HWND owner); // may be null
    void Start(int milliseconds, std::function<void()> onTick) override;
    void Stop() override;

  private:
    void Tick();

    HWND owner_;
    std::function<void()> onTick_;
    WinNativeWindow window_;
};
