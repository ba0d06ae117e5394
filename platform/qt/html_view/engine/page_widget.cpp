#include "platform/qt/html_view/engine/page_widget.h"

#include "platform/html_view.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include <utility>

namespace {
constexpr std::size_t maxHeldKeys = 200; // events; more are not pressed on purpose

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
    return FilterInput(*event) || QWebEngineView::eventFilter(object, event);
}

// Until that child exists this widget has the focus itself.
bool PageWidget::event(QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    return (isKey && holdsKeys_ && FilterInput(*event)) || QWebEngineView::event(event);
}

bool PageWidget::FilterInput(QEvent& event) {
    switch (event.type()) {
    case QEvent::ShortcutOverride: // accepting it would disable shortcuts of the window
        event.ignore();
        return true;
    case QEvent::KeyPress: {
        rightPressed_ = false;
        const auto& key = static_cast<const QKeyEvent&>(event);
        return FilterKey(key) || keysBlocked_ || HoldKey(key);
    }
    case QEvent::InputMethod: return keysBlocked_;
    case QEvent::Wheel:
        if (!(static_cast<QWheelEvent&>(event).modifiers() & Qt::ControlModifier)) break;
        event.ignore(); // propagates to the window
        return true;
    case QEvent::MouseButtonPress:
        rightPressed_ = static_cast<QMouseEvent&>(event).button() == Qt::RightButton;
        break;
    case QEvent::KeyRelease:
        if (HoldKey(static_cast<const QKeyEvent&>(event))) return true;
        [[fallthrough]];
    case QEvent::MouseButtonRelease:
        if (onInputReleased) QMetaObject::invokeMethod(this, onInputReleased, Qt::QueuedConnection);
        break;
    default: break;
    }
    return false;
}

// The engine drops keys that come before the document, and scripts that bring a page to its place
// may overtake or be overtaken by them.
bool PageWidget::HoldKey(const QKeyEvent& event) {
    if (holdsKeys_ && heldKeys_.size() < maxHeldKeys) heldKeys_.emplace_back(event.clone());
    return holdsKeys_;
}

void PageWidget::SendHeldKeys() {
    holdsKeys_ = false;
    QWidget* const input = focusProxy() ? focusProxy() : this;
    for (const auto& key : std::exchange(heldKeys_, {}))
        QCoreApplication::sendEvent(input, key.get());
}

void PageWidget::SetKeysBlocked(bool blocked) {
    keysBlocked_ = blocked;
    heldKeys_.clear();
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
