#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QPixmap>
#include <QTimerEvent>
#include <QWidget>

#include <new>

namespace {
class Failing : public QWidget {
  public:
    int events = 0;

  protected:
    void paintEvent(QPaintEvent*) override {
        ++events;
        throw std::bad_alloc();
    }
    void timerEvent(QTimerEvent*) override {
        ++events;
        throw 1;
    }
};
} // namespace

TEST_CASE("application: an event whose handler throws is handled, and the program goes on") {
    Failing widget;
    QTimerEvent timer(1);
    CHECK_NOTHROW(QCoreApplication::sendEvent(&widget, &timer));
    CHECK(widget.events == 1);
    CHECK_NOTHROW(widget.grab()); // paints it
    CHECK(widget.events == 2);
}
