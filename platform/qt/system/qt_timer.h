// The timer on Qt.
#pragma once

#include "platform/timer.h"

#include <QTimer>

// Drops its ticks while a dialog is open: no second handler starts inside the one that waits for
// it.
class QtTimer final : public Timer {
  public:
    void Start(int milliseconds, std::function<void()> onTick) override;
    void Stop() override;

  private:
    QTimer timer_;
};
