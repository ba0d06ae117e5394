#include "platform/qt/text_view/event_pump.h"

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

EventPump::EventPump() {
    sinceLast_.start();
}

bool EventPump::ProcessEvents() {
    constexpr qint64 interval = 100; // milliseconds
    if (cancelled_ || processing_ || sinceLast_.elapsed() < interval) return !cancelled_;
    processing_ = true;
    qApp->installEventFilter(this);
    QCoreApplication::processEvents();
    qApp->removeEventFilter(this);
    processing_ = false;
    sinceLast_.restart();
    return !cancelled_;
}

bool EventPump::eventFilter(QObject*, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    cancelled_ = cancelled_ || escape || event->type() == QEvent::Close;
    return IsInput(event->type());
}
