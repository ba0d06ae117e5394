#include "platform/qt/text_view/long_work.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {
bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop: return true;
    default: return false;
    }
}
} // namespace

LongWork::LongWork() {
    sinceEvents_.start();
}

bool LongWork::GoesOn() {
    constexpr qint64 patience = 100; // milliseconds
    if (ended_ || takingEvents_ || sinceEvents_.elapsed() < patience) return !ended_;
    takingEvents_ = true;
    qApp->installEventFilter(this);
    QCoreApplication::processEvents();
    qApp->removeEventFilter(this);
    takingEvents_ = false;
    sinceEvents_.restart();
    return !ended_;
}

bool LongWork::eventFilter(QObject*, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    ended_ = ended_ || escape || event->type() == QEvent::Close;
    return IsInput(event->type());
}
