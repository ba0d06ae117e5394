// Keeps the window responsive during a long computation.
#pragma once

#include <QElapsedTimer>
#include <QObject>

// Paints the window while one exists and ProcessEvents() is called often. Escape and closing the
// window cancel the computation; other key and mouse events are discarded.
class EventPump : public QObject {
  public:
    EventPump();

    bool ProcessEvents();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QElapsedTimer sinceLast_;
    bool cancelled_ = false, processing_ = false;
};
