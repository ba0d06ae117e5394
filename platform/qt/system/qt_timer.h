// The timer on Qt.
#pragma once

#include "platform/timer.h"

#include <QTimer>

// Drops ticks while a modal dialog is open, so that no second handler starts within the one that
// waits for the dialog.
class QtTimer final : public Timer {
  public:
    void Start(int milliseconds, std::function<void()> onTick) override;
    void Stop() override;

  private:
    QTimer timer_;
};
