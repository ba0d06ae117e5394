// Detects a page that hangs or takes too much memory; the engine itself reports only renderers that
// have died.
#pragma once

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>

class QWebEnginePage;

// Memory of a page: an animation may allocate without limit.
class PageMemory {
  public:
    PageMemory(); // for a page created now

    // The renderer's memory, and what this process has grown by: it keeps what is painted.
    bool IsExceeded(std::int64_t pageProcess) const;

  private:
    std::int64_t limit_, baseline_; // bytes; baseline_ of this process
};

class PageMonitor : public QObject {
  public:
    explicit PageMonitor(QWebEnginePage&); // starts at once, also during the load

    bool IsUnresponsive() const { return unresponsive_; }
    // Called from the event loop.
    std::function<void()> onResponsiveChanged;
    std::function<void()> onMemoryExceeded; // the page must be released

  private:
    void OnTick();
    void Ping();
    void OnAnswer();

    QWebEnginePage& page_;
    PageMemory memory_;
    QTimer timer_;
    int unanswered_ = 0; // ticks since the pending ping; 0 if there is none
    bool unresponsive_ = false;
};
