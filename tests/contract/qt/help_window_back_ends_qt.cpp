#include "platform/qt/base/qt_text.h"
#include "platform/qt/help/help_list.h"
#include "platform/qt/help/qt_help_window.h"
#include "platform/qt/text_view/text_widget.h"
#include "tests/contract/help_window_contract.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QLineEdit>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

namespace {
HelpWidget* Shown() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* help = dynamic_cast<HelpWidget*>(widget); help && help->isVisible()) return help;
    return nullptr;
}

int QtKey(HelpWindowUnderTest::Key key) {
    using Key = HelpWindowUnderTest::Key;
    switch (key) {
    case Key::Tab: return Qt::Key_Tab;
    case Key::Down: return Qt::Key_Down;
    case Key::Enter: return Qt::Key_Return;
    case Key::Escape: return Qt::Key_Escape;
    }
    return 0;
}

class QtHelpWindowUnderTest final : public HelpWindowUnderTest {
  public:
    HelpWindow& Port() override { return window_; }
    bool IsOpen() override {
        QApplication::processEvents();
        return Shown();
    }
    std::u16string Title() override { return FromQt(Widget().windowTitle()); }
    int RowCount() override { return List().count(); }
    int Row() override { return List().currentRow(); }
    void ChooseRow(int row) override { List().setCurrentRow(row); }
    std::u16string SearchText() override { return FromQt(Search().text()); }
    void Type(const std::u16string& text) override { Search().setText(ToQt(text)); }
    std::u16string PageText() override { return Page().Pane().Text().text; }
    std::u16string SelectedText() override {
        const TextPane& page = Page().Pane();
        return page.Source().Range(page.SelStart(), page.SelEnd());
    }
    void Minimize() override { Widget().showMinimized(); }
    bool IsMinimized() override { return Widget().isMinimized(); }
    void Close() override { Widget().close(); }

    void Press(Key key) override {
        QWindow* window = Widget().windowHandle();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            QWindowSystemInterface::handleKeyEvent(window, type, QtKey(key), Qt::NoModifier);
        QApplication::processEvents();
    }
    Part Focus() override {
        QApplication::processEvents();
        const QWidget* focused = QApplication::focusWidget();
        if (focused == &Search()) return Part::Search;
        if (focused == &List()) return Part::List;
        return focused == &Page() ? Part::Page : Part::None;
    }

  private:
    static HelpWidget& Widget() {
        REQUIRE(Shown());
        return *Shown();
    }
    static HelpList& List() { return *dynamic_cast<HelpList*>(Widget().findChild<QListWidget*>()); }
    static QLineEdit& Search() { return *Widget().findChild<QLineEdit*>(); }
    static TextWidget& Page() {
        TextWidget* page = nullptr;
        for (auto* area : Widget().findChildren<QAbstractScrollArea*>())
            if (auto* view = dynamic_cast<TextWidget*>(area)) page = view;
        REQUIRE(page);
        return *page;
    }

    QtHelpWindow window_;
};
} // namespace

std::vector<BackEnd<HelpWindowUnderTest>> HelpWindowBackEnds() {
    return {MakeBackEnd<HelpWindowUnderTest, QtHelpWindowUnderTest>("qt")};
}
