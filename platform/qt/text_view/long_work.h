// Work that may take long while the window is to stay alive.
#pragma once

#include <QElapsedTimer>
#include <QObject>

// While one lives the window is drawn whenever the work asks whether it goes on. Escape ends the
// work and so does closing the window; other keys and the mouse are lost.
class LongWork : public QObject {
  public:
    LongWork();

    bool GoesOn();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QElapsedTimer sinceEvents_;
    bool ended_ = false, takingEvents_ = false;
};
