// Whether a page answers, and keeps within its memory. The engine tells of a page that has died,
// but of none that hangs or eats up the machine.
#pragma once

#include "platform/qt/html_view/engine/page_memory.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QWebEnginePage;

class PageWatch : public QObject {
  public:
    explicit PageWatch(QWebEnginePage&); // from now on, also while the page loads

    bool IsSilent() const { return silent_; }
    // From the event loop.
    std::function<void()> onChange;   // it is silent now, or is no longer
    std::function<void()> onTooLarge; // and shall be given up

  private:
    void Tick();
    void Ask();
    void Hear();

    QWebEnginePage& page_;
    PageMemory memory_;
    QTimer ticks_;
    int unanswered_ = 0; // ticks since the question that waits for its answer, 0 without one
    bool silent_ = false;
};
