// Whether a page answers. The engine tells of a page that has died, but of none that hangs.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QWebEnginePage;

class PageWatch : public QObject {
  public:
    explicit PageWatch(QWebEnginePage&); // from now on, also while the page loads

    bool IsSilent() const { return silent_; }
    std::function<void()> onChange; // from the event loop: it is silent now, or is no longer

  private:
    void Tick();
    void Ask();
    void Hear();

    QWebEnginePage& page_;
    QTimer ticks_;
    int unanswered_ = 0; // ticks since the question that waits for its answer, 0 without one
    bool silent_ = false;
};
