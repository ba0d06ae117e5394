#include "platform/qt/window/menu_bar_focus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>

namespace {
bool IsMenuBarKey(const QKeyEvent& event) {
    if (event.modifiers() & Qt::ControlModifier) return false;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Alt:
    case Qt::Key_Shift: return true;
    default: break;
    }
    const QString text = event.text();
    return !text.isEmpty() && text.front().isPrint();
}

bool BelongsTo(const QWidget& window, const QObject* menu) {
    while (menu && menu != &window)
        menu = menu->parent();
    return menu;
}
} // namespace

// focusObject() before the bar got the focus would not do: it may be a menu, which is a window of
// its own.
MenuBarFocus::MenuBarFocus(QMenuBar& bar) : bar_(bar) {
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now && now != &bar_ && now->window() == bar_.window()) lastFocus_ = now;
    });
}

bool MenuBarFocus::HandleKey(const QKeyEvent& event) {
    if (!bar_.hasFocus()) return false;
    const bool pressed = event.type() == QEvent::KeyPress;
    if (pressed && !IsMenuBarKey(event)) {
        RestoreFocus();
        return false;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (bar_.hasFocus() && !bar_.activeAction()) RestoreFocus();
        },
        Qt::QueuedConnection);
    return pressed;
}

// The bar may have it although nothing in the program has the focus: the X server takes it from the
// window for a moment as a menu closes, and then Qt gives it back to the widget that had it last.
void MenuBarFocus::RestoreFocus() const {
    if (lastFocus_ && bar_.window()->focusWidget() == &bar_)
        lastFocus_->setFocus(Qt::MenuBarFocusReason);
}

void ActivateFocusedWindow(QWindow* focused) {
    // Some window systems give the focus to the menu, too.
    if (!focused || focused->type() == Qt::Popup || !QApplication::activePopupWidget()) return;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto window = std::ranges::find(windows, focused, &QWidget::windowHandle);
    if (window == windows.end()) return;
    while (QWidget* menu = QApplication::activePopupWidget())
        if (BelongsTo(**window, menu) || !menu->close()) break;
    QApplication::setActiveWindow(*window);
}
