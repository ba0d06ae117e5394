// Termination signals as events of the event loop.
#pragma once

#include <QObject>

#include <functional>

// SIGTERM, SIGINT and SIGHUP call `onSignal` from the event loop instead of terminating the
// process, unless the parent process has set them to be ignored. One instance at a time.
class ExitSignals final : public QObject {
  public:
    explicit ExitSignals(std::function<void()> onSignal);
};
