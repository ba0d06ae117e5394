// Key events of the pane widget. Unused keys propagate to the window.
#include "platform/qt/text_view/pane/pane_widget.h"

#include <QKeyEvent>

#include <optional>

namespace {
std::optional<PaneKey> PaneKeyOf(int key) {
    switch (key) {
    case Qt::Key_Left: return PaneKey::Left;
    case Qt::Key_Right: return PaneKey::Right;
    case Qt::Key_Up: return PaneKey::Up;
    case Qt::Key_Down: return PaneKey::Down;
    case Qt::Key_PageUp: return PaneKey::PageUp;
    case Qt::Key_PageDown: return PaneKey::PageDown;
    case Qt::Key_Home: return PaneKey::Home;
    case Qt::Key_End: return PaneKey::End;
    case Qt::Key_Space: return PaneKey::Space;
    default: return std::nullopt;
    }
}
} // namespace

void PaneWidget::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    const auto key = PaneKeyOf(event->key());
    const bool known = key && !(modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier));
    const bool used =
        known && pane_->Press(*key, modifiers & Qt::ShiftModifier, modifiers & Qt::ControlModifier);
    event->setAccepted(used || MenuKey(event->key(), modifiers));
}

// The Menu key sends a context menu event.
bool PaneWidget::MenuKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key != Qt::Key_F10 || modifiers != Qt::ShiftModifier) return false;
    RequestContextMenu(CaretRect().bottomLeft());
    return true;
}
