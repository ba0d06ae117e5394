#include "platform/qt/bar_keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>

namespace {
bool IsBarKey(const QKeyEvent& event) {
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
    const QString letter = event.text();
    return !letter.isEmpty() && letter.front().isPrint();
}
} // namespace

// Not what had it just before the bar: that may be a menu, a window of its own.
BarKeyboard::BarKeyboard(QMenuBar& bar) : bar_(bar) {
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now && now != &bar_ && now->window() == bar_.window()) view_ = now;
    });
}

bool BarKeyboard::Takes(const QKeyEvent& event) {
    if (!bar_.hasFocus()) return false;
    const bool pressed = event.type() == QEvent::KeyPress;
    if (pressed && !IsBarKey(event)) {
        GiveBack();
        return false;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (bar_.hasFocus() && !bar_.activeAction()) GiveBack();
        },
        Qt::QueuedConnection);
    return pressed;
}

// The bar may have it although nothing in the program has the focus: the X server takes it from the
// window for a moment as a menu closes, and then Qt gives it back to the widget that had it last.
void BarKeyboard::GiveBack() const {
    if (view_ && bar_.window()->focusWidget() == &bar_) view_->setFocus(Qt::MenuBarFocusReason);
}
