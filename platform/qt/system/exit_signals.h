// The system's signals to end, as an event of the event loop.
#pragma once

#include <QObject>

#include <functional>

// From construction on, SIGTERM, SIGINT and SIGHUP call `onSignal` in the event loop instead of
// ending the process; one that the parent process had ignored stays ignored. At most one object
// lives at a time.
class ExitSignals final : public QObject {
  public:
    explicit ExitSignals(std::function<void()> onSignal);
};
