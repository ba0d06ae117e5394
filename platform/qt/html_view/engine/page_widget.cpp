#include "platform/qt/html_view/engine/page_widget.h"

#include "platform/html_view.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <utility>

namespace {
bool IsNavigationKey(int key) {
    switch (key) {
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return true;
    default: return false;
    }
}

bool IsFunctionKey(int key) {
    return key >= Qt::Key_F1 && key <= Qt::Key_F35;
}
} // namespace

PageWidget::PageWidget(QWebEnginePage* page, QWidget* parent) : QWebEngineView(parent) {
    setPage(page);
    setAcceptDrops(false); // the panel accepts them
}

PageWidget::~PageWidget() = default;

// The engine renders into a child widget, which receives the input events.
void PageWidget::childEvent(QChildEvent* event) {
    if (event->added()) event->child()->installEventFilter(this);
    QWebEngineView::childEvent(event);
}

bool PageWidget::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: // accepting it would disable shortcuts of the window
        event->ignore();
        return true;
    case QEvent::KeyPress:
        rightPressed_ = false;
        return FilterKey(static_cast<const QKeyEvent&>(*event)) || keysBlocked_;
    case QEvent::InputMethod:
        if (keysBlocked_) return true;
        break;
    case QEvent::Wheel:
        if (!(static_cast<QWheelEvent*>(event)->modifiers() & Qt::ControlModifier)) break;
        event->ignore(); // propagates to the window
        return true;
    case QEvent::MouseButtonPress:
        rightPressed_ = static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
        break;
    case QEvent::KeyRelease:
    case QEvent::MouseButtonRelease:
        if (onInputReleased) QMetaObject::invokeMethod(this, onInputReleased, Qt::QueuedConnection);
        break;
    default: break;
    }
    return QWebEngineView::eventFilter(object, event);
}

bool PageWidget::FilterKey(const QKeyEvent& event) {
    const int key = event.key();
    const bool asksForMenu = key == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    if (!(event.modifiers() & Qt::ControlModifier)) return IsFunctionKey(key) && !asksForMenu;
    if (event.modifiers() & Qt::AltModifier) return !IsNavigationKey(key);
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: onZoomKey(1); break;
    case Qt::Key_Minus:
    case Qt::Key_Underscore: onZoomKey(-1); break;
    case Qt::Key_0: onZoomKey(0); break;
    default: break;
    }
    return !IsNavigationKey(key);
}

void PageWidget::contextMenuEvent(QContextMenuEvent* event) {
    const bool isClick = std::exchange(rightPressed_, false);
    if (isClick) onContextClick(event->pos());
    menu_ = std::make_unique<QMenu>(this);
    // The page reports asynchronously whether the click has cleared the selection.
    copy_ = AddCommand(tr("&Copy"), PageCommand::Copy, !isClick && hasSelection());
    AddCommand(tr("Select &All"), PageCommand::SelectAll, hasText());
    AddCommand(tr("&Find..."), PageCommand::Find, hasText());
    AddCommand(tr("&Open..."), PageCommand::Open, true);
    AddCommand(tr("&Print..."), PageCommand::Print, true);
    if (offersEngineChange()) {
        menu_->addSeparator();
        QAction* browser =
            AddCommand(tr("&Browser View\tCtrl+Shift+B"), PageCommand::ChangeEngine, true);
        browser->setCheckable(true);
        browser->setChecked(true);
    }
    menu_->popup(event->globalPos());
}

void PageWidget::SetHasSelection(bool has) {
    if (menu_ && menu_->isVisible()) copy_->setEnabled(has);
}

QAction* PageWidget::AddCommand(const QString& caption, PageCommand command, bool enabled) {
    QAction* action = menu_->addAction(caption, this, [this, command] { onCommand(command); });
    action->setEnabled(enabled);
    return action;
}
