#include "platform/qt/window/qt_window.h"
#include "tests/contract/window_contract.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

namespace {

constexpr int longerThanItSettles = 400; // milliseconds

Rect ToRect(const QRect& rectangle) {
    return {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()};
}

class QtUnderTest final : public WindowUnderTest {
  public:
    Window& Get() override { return window_; }
    Rect Shown() override { return ToRect(window_.windowHandle()->frameGeometry()); }
    std::vector<Rect> Screens() override {
        std::vector<Rect> screens;
        for (const QScreen* screen : QGuiApplication::screens())
            screens.push_back(ToRect(screen->availableGeometry()));
        return screens;
    }
    void DragTo(const Rect& to) override {
        QWindow& window = *window_.windowHandle();
        const QRect frame(to.left, to.top, to.width, to.height);
        window.setGeometry(frame.marginsRemoved(window.frameMargins()));
    }
    // A timer started later than the window's fires later.
    void Settle() override {
        bool over = false;
        QTimer::singleShot(longerThanItSettles, [&] { over = true; });
        while (!over)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

  private:
    QtWindow window_;
};

} // namespace

std::vector<WindowBackEnd> WindowBackEnds() {
    return {{"none", MakeNoneWindow}, {"qt", [] { return std::make_unique<QtUnderTest>(); }}};
}
