// Menus and key events on Qt.
#include "platform/qt/window/model_menu.h"
#include "platform/qt/window/qt_menu_bar.h"
#include "platform/qt/window/qt_window.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QWheelEvent>
#include <QWindow>

#include <string>
#include <vector>

namespace {
// A menu of a heading, a separator and three bookmarks, of which the second is the default item.
struct Bench {
    QtWindow window;
    MenuArray top{"top", {MenuItem{u"&Marks", u""}}, {}};
    MenuArray heading{"heading", {MenuItem{u"Go to:", u""}, MenuItem{u"-", u""}}, {}};
    MenuArray marks{
        "marks", {MenuItem{u"one\tF2", u""}, MenuItem{u"two", u""}, MenuItem{u"three", u""}}, {}};
    std::vector<std::string> log;
    QtMenuBar bar{window, [] { return QPoint(20, 30); }};

    Bench() {
        heading[0].heading = true;
        marks[1].isDefault = true;
        marks[2].enabled = false;
        top.children = {&heading, &marks};
        MenuEvents events;
        events.onOpening = [this](MenuArray& array) { log.push_back("opening " + array.name); };
        events.onClick = [this](MenuArray& array, int index) {
            log.push_back(array.name + ' ' + std::to_string(index));
        };
        bar.Attach({&top}, events);
        window.Open();
    }
    static QMenu* Shown() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static void CheckItems(const QMenu& menu) {
        const QList<QAction*> items = menu.actions();
        REQUIRE(items.size() == 5);
        CHECK(items[0]->font().bold());
        CHECK_FALSE(items[0]->isEnabled());
        CHECK(items[1]->isSeparator());
        CHECK(items[2]->text() == "one\tF2");
        CHECK(items[2]->shortcut().isEmpty());
        CHECK_FALSE(items[2]->font().bold());
        CHECK(items[3]->font().bold());
        CHECK(items[3]->isEnabled());
        CHECK_FALSE(items[4]->isEnabled());
    }
};
} // namespace

TEST_CASE("qt menu bar: a menu shown by a command opens after it, as by a click") {
    Bench bench;
    bench.bar.ShowMenu(bench.top);
    CHECK_FALSE(Bench::Shown());
    CHECK(bench.log.empty());
    QApplication::processEvents();
    REQUIRE(Bench::Shown());
    CHECK(bench.log == std::vector<std::string>{"opening top"});
    Bench::CheckItems(*Bench::Shown());
    Bench::Shown()->close();
}

TEST_CASE("qt menu bar: one Escape leaves a menu shown by a command") {
    Bench bench;
    QLineEdit view(bench.window.ViewArea());
    view.show();
    view.setFocus();
    QApplication::processEvents();
    for (int i = 0; i < 2; ++i) {
        bench.bar.ShowMenu(bench.top);
        QApplication::processEvents();
        QMenu* menu = Bench::Shown();
        REQUIRE(menu);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(menu, &escape);
        QApplication::processEvents();
        CHECK_FALSE(Bench::Shown());
        CHECK(QApplication::focusWidget() == &view);
    }
}

TEST_CASE(
    "qt menu bar: the view has the focus after Escape, also when the window is active later") {
    Bench bench;
    QLineEdit view(bench.window.ViewArea());
    view.show();
    view.setFocus();
    QApplication::processEvents();
    bench.bar.ShowMenu(bench.top);
    QApplication::processEvents();
    REQUIRE(Bench::Shown());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(Bench::Shown(), &escape);
    QApplication::setActiveWindow(nullptr); // as X servers do for a moment when a menu closes
    QApplication::processEvents();
    QApplication::setActiveWindow(&bench.window);
    CHECK(QApplication::focusWidget() == &view);
}

TEST_CASE("qt menu bar: a menu requested twice opens once") {
    Bench bench;
    bench.bar.ShowMenu(bench.top);
    bench.bar.ShowMenu(bench.top);
    QApplication::processEvents();
    REQUIRE(Bench::Shown());
    CHECK(bench.log.size() == 1);
    Bench::Shown()->close();
}

TEST_CASE("qt menu bar: a window that gets the focus closes an open menu") {
    QWidget help;
    QLineEdit field(&help);
    field.setFocus();
    help.show(); // the window manager activates it later
    Bench bench;
    QApplication::processEvents();
    REQUIRE(QApplication::activeWindow() == &bench.window);
    bench.bar.ShowMenu(bench.top);
    QApplication::processEvents();
    REQUIRE(Bench::Shown());
    help.activateWindow();
    QApplication::processEvents();
    CHECK_FALSE(Bench::Shown());
    CHECK(QApplication::activeWindow() == &help);
    CHECK(field.hasFocus());
}

TEST_CASE("qt menu bar: a menu stays open when its own window gets the focus later") {
    Bench bench;
    bench.bar.ShowMenu(bench.top);
    QApplication::processEvents();
    REQUIRE(Bench::Shown());
    QMenu* menu = Bench::Shown();
    bench.window.windowHandle()->requestActivate();
    QApplication::processEvents();
    CHECK(Bench::Shown() == menu);
    CHECK(QApplication::activeWindow() == &bench.window);
    menu->close();
}

TEST_CASE("qt menu bar: a context menu opens at once, where it was requested") {
    Bench bench;
    bench.bar.ShowContextMenu({&bench.heading, &bench.marks});
    REQUIRE(Bench::Shown());
    CHECK(Bench::Shown()->pos() == QPoint(20, 30));
    CHECK(bench.log.empty());
    Bench::CheckItems(*Bench::Shown());
    QAction* second = Bench::Shown()->actions()[3];
    Bench::Shown()->setActiveAction(second);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(Bench::Shown(), &enter);
    CHECK_FALSE(Bench::Shown());
    CHECK(bench.log == std::vector<std::string>{"marks 1"});
}

TEST_CASE("qt window: Ctrl+wheel zooms by wheel steps") {
    QtWindow window;
    std::vector<int> steps;
    WindowEvents events;
    events.onZoom = [&](int by) { steps.push_back(by); };
    window.SetEvents(events);
    const auto turn = [&](int angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(9, 9), QPointF(9, 9), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&window, &event);
    };
    turn(120, Qt::ControlModifier);
    turn(-240, Qt::ControlModifier);
    turn(120, Qt::NoModifier);
    for (int i = 0; i < 8; ++i)
        turn(30, Qt::ControlModifier); // a high-resolution wheel
    CHECK(steps == std::vector<int>{1, -2, 1, 1});
}

TEST_CASE("qt window: a shortcut arrives once, whatever the keyboard's layout") {
    Bench bench;
    std::vector<std::pair<int, int>> keys;
    WindowEvents events;
    events.onKeyDown = [&](int code, int shift) { keys.emplace_back(code, shift); };
    bench.window.SetEvents(events);
    const auto press = [&](int key, quint32 scanCode) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier, scanCode, 0, 0);
        QApplication::sendEvent(bench.window.windowHandle(), &event);
    };
    constexpr quint32 placeOfC = 54, placeOfComma = 59;
    press(Qt::Key_C, placeOfC);
    press(0x0421, placeOfC);        // Cyrillic
    press(0x05D1, placeOfC);        // Hebrew
    press(Qt::Key_C, placeOfComma); // a Latin layout with other positions
    CHECK(keys == std::vector<std::pair<int, int>>(4, {'C', CtrlKey}));
}

TEST_CASE("qt menu bar: the focus returns to the view, and the bar uses its own keys only") {
    Bench bench;
    std::vector<int> keysDown;
    WindowEvents events;
    events.onKeyDown = [&](int code, int) { keysDown.push_back(code); };
    bench.window.SetEvents(events);
    QWidget view(bench.window.InnerArea());
    view.setFocusPolicy(Qt::StrongFocus);
    view.show();
    QApplication::processEvents(); // the window is activated
    auto* bar = bench.window.findChild<QMenuBar*>();
    const auto pressInBar = [&](int key, Qt::KeyboardModifiers modifiers) {
        view.setFocus();
        bar->setFocus(Qt::MenuBarFocusReason);
        REQUIRE(bar->hasFocus());
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            QApplication::sendEvent(bench.window.windowHandle(), &event);
        }
    };
    pressInBar(Qt::Key_PageDown, Qt::NoModifier);
    CHECK(view.hasFocus());
    pressInBar(Qt::Key_Plus, Qt::ControlModifier);
    CHECK(view.hasFocus());
    CHECK(keysDown == std::vector<int>{34, PlusKey});

    // As after Alt and a letter pressed while the bar has the focus: Qt would return the focus
    // there.
    for (int i = 0; i < 2; ++i) {
        pressInBar(Qt::Key_Escape, Qt::NoModifier);
        QApplication::processEvents();
        CHECK(view.hasFocus());
    }
    CHECK(keysDown.size() == 2);
}

TEST_CASE("qt menu bar: a user's long text is elided in the middle, its title stays") {
    QMenu menu;
    const QFontMetrics metrics(menu.font());
    const auto widthOf = [&](QString caption) {
        return metrics.horizontalAdvance(caption.replace("&&", "&").remove('\t'));
    };
    MenuItem item{u"[today] (12K) /books/" + std::u16string(400, u'x') + u"/a & b.txt\t= The Title",
                  u""};
    item.literal = true;
    const QString shown = ElidedCaption(item, menu.font(), 600);
    CHECK(shown.startsWith("[today] (12K)"));
    CHECK(shown.endsWith("/a && b.txt\t= The Title"));
    CHECK(shown.contains(u'\u2026'));
    CHECK(widthOf(shown) <= 600);
    item.caption = u"/books/a & b.txt";
    CHECK(ElidedCaption(item, menu.font(), 600) == "/books/a && b.txt");
    item.literal = false;
    item.caption = u"&Open\tCtrl+O";
    CHECK(ElidedCaption(item, menu.font(), 1) == "&Open\tCtrl+O");
}
