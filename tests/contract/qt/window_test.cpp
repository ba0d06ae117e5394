// The main window and its menus.
#include "platform/qt/window/qt_menu_bar.h"
#include "platform/qt/window/qt_window.h"
#include "tests/contract/qt/event_loop.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

#include <csignal>

namespace {

struct Keys {
    std::vector<std::pair<int, int>> down, up;
};

void ListenTo(QtWindow& window, Keys& keys, int& unloads) {
    WindowEvents events;
    events.onUnload = [&] { ++unloads; };
    events.onKeyDown = [&](int code, int shift) { keys.down.emplace_back(code, shift); };
    events.onKeyUp = [&](int code, int shift) { keys.up.emplace_back(code, shift); };
    window.SetEvents(events);
}

void Send(QtWindow& window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(type, key, modifiers);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

MenuArray Array(std::initializer_list<const char16_t*> captions) {
    MenuArray array;
    for (const char16_t* caption : captions)
        array.items.emplace_back().caption = caption;
    return array;
}

QMenu* FirstMenu(QtWindow& window) {
    return window.findChild<QMenuBar*>()->actions().constFirst()->menu();
}

} // namespace

TEST_CASE("window: it is where it was moved, before and after it is shown") {
    QtWindow window;
    window.Move({40, 30, 500, 400});
    CHECK(window.Bounds() == Rect{40, 30, 500, 400});
    CHECK(window.InnerWidth() == 500);
    CHECK(window.InnerHeight() == 400);
    window.Open();
    window.Move({60, 50, 420, 300});
    CHECK(window.Bounds() == Rect{60, 50, 420, 300});
    CHECK(Becomes([&] { return window.InnerWidth() == window.width(); }));
    CHECK(window.State() == WindowState::Normal);
}

TEST_CASE("window: sizes that no screen has do no harm") {
    QtWindow window;
    for (const Rect bounds :
         {Rect{0, 0, 0, 0}, Rect{-9, -9, -500, -1}, Rect{0, 0, 2000000000, 9}}) {
        window.Move(bounds);
        CHECK(window.InnerWidth() >= 1);
        CHECK(window.InnerWidth() <= 16384);
    }
}

TEST_CASE("window: closing is reported once, also if the system requests it") {
    QtWindow window;
    Keys keys;
    int unloads = 0;
    ListenTo(window, keys, unloads);
    window.Open();
    std::raise(SIGTERM);
    CHECK(Becomes([&] { return unloads == 1 && !window.isVisible(); }));
    window.Close();
    CHECK(unloads == 1);
}

TEST_CASE("window: a termination signal cancels an open dialog first") {
    QtWindow window;
    Keys keys;
    int unloads = 0;
    ListenTo(window, keys, unloads);
    window.Open();
    QDialog dialog(&window);
    std::raise(SIGHUP);
    CHECK(dialog.exec() == QDialog::Rejected);
    CHECK(unloads == 0); // the handler that waits for the dialog returns first
    CHECK(Becomes([&] { return unloads == 1; }));
}

TEST_CASE("window: keys are reported with their codes, an auto-repeated one is released once") {
    QtWindow window;
    Keys keys;
    int unloads = 0;
    ListenTo(window, keys, unloads);
    window.Open();
    Send(window, QEvent::KeyPress, Qt::Key_F2, Qt::AltModifier);
    Send(window, QEvent::KeyRelease, Qt::Key_F2, Qt::AltModifier);
    Send(window, QEvent::KeyPress, Qt::Key_Equal, Qt::ControlModifier);
    Send(window, QEvent::KeyRelease, Qt::Key_Equal, Qt::NoModifier); // Ctrl was released first
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window.windowHandle(), &repeated);
    CHECK(keys.down == std::vector<std::pair<int, int>>{{113, AltKey}, {PlusKey, CtrlKey}});
    CHECK(keys.up == std::vector<std::pair<int, int>>{{113, AltKey}, {PlusKey, CtrlKey}});
}

TEST_CASE("window: a title shows its brackets and stars") {
    QtWindow window;
    window.Open();
    window.SetTitle(u"a [*] b");
    CHECK(window.windowHandle()->title() == "a [*] b");
}

TEST_CASE("menu bar: a menu shows what the model says when it opens") {
    QtWindow window;
    QtMenuBar menuBar(window, [] { return QPoint(); });
    MenuArray file = Array({u"&File"}), list = Array({u"old"}), line = Array({u"-"});
    MenuArray remove = Array({u"&Remove"}), removeList = Array({u"x"});
    remove.children = {&removeList};
    file.children = {&list, &line, &remove};
    std::vector<std::pair<MenuArray*, int>> clicks;
    MenuEvents events;
    events.onOpening = [&](MenuArray& opened) {
        CHECK(&opened == &file);
        list = Array({u"Heading", u"a && b & c\tnote", u"gone", u"grey"});
        list[0].heading = true;
        list[1].literal = list[1].checked = true;
        list[2].visible = false;
        list[3].enabled = false;
    };
    events.onClick = [&](MenuArray& array, int index) { clicks.emplace_back(&array, index); };
    menuBar.Attach({&file}, events);
    window.Open();

    QMenu* menu = FirstMenu(window);
    CHECK(menu->actions().isEmpty()); // created on demand only
    menu->popup(QPoint(0, 0));
    const QList<QAction*> actions = menu->actions();
    REQUIRE(actions.size() == 5);
    CHECK(!actions[0]->isEnabled());
    CHECK(actions[0]->font().bold());
    CHECK(actions[1]->text() == "a &&&& b && c\tnote");
    CHECK(actions[1]->isChecked());
    CHECK(!actions[2]->isEnabled());
    CHECK(actions[3]->isSeparator());
    REQUIRE(actions[4]->menu() != nullptr);
    actions[1]->trigger();
    CHECK(clicks == std::vector<std::pair<MenuArray*, int>>{{&list, 1}});
    menu->close();
}

TEST_CASE("menu bar: every item of a long list can be chosen, and the widest decides the width") {
    QtWindow window;
    QtMenuBar menuBar(window, [] { return QPoint(); });
    MenuArray file = Array({u"&File"}), list;
    for (int i = 0; i < 5000; ++i)
        list.items.emplace_back().caption = u"book";
    list[4321].caption = u"a book with a title that is much longer than all the others have";
    file.children = {&list};
    int clicked = -1;
    MenuEvents events;
    events.onClick = [&](MenuArray&, int index) { clicked = index; };
    menuBar.Attach({&file}, events);
    window.Open();
    QMenu* menu = FirstMenu(window);
    menu->popup(QPoint(0, 0));
    REQUIRE(menu->actions().size() == 5000);
    CHECK(menu->width() > window.TextWidth(list[4321].caption));
    menu->actions()[17]->trigger();
    CHECK(clicked == 17);
    menu->close();
}
