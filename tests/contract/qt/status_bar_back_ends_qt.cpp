#include "platform/qt/base/qt_text.h"
#include "platform/qt/window/qt_status_bar.h"
#include "tests/contract/status_bar_contract.h"

#include <QDate>
#include <QLocale>

namespace {
Rect ToRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

class QtStatusBarUnderTest final : public StatusBarUnderTest {
  public:
    QtStatusBarUnderTest() { window_.resize(800, 400); }
    StatusBar& Port() override { return bar_; }
    Rect Shown() override { return ToRect(Widget().geometry()); }
    std::vector<Rect> Panels() override {
        std::vector<Rect> panels;
        for (const QRect& rect : Widget().PanelRects())
            panels.push_back(ToRect(rect));
        return panels;
    }
    std::u16string DateText() override { return FromQt(Widget().Date()); }
    std::u16string Today() override {
        return FromQt(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
    }

  private:
    StatusPanels& Widget() { return *static_cast<StatusPanels*>(window_.children().front()); }

    QWidget window_;
    QtStatusBar bar_{&window_};
};
} // namespace

std::vector<BackEnd<StatusBarUnderTest>> StatusBarBackEnds() {
    return {MakeBackEnd<StatusBarUnderTest, QtStatusBarUnderTest>("qt")};
}
