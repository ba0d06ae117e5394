// The geometry of the main window: frame, requested and actual bounds, and the areas inside.
#include "platform/qt/window/qt_window.h"

#include "platform/shared/call_handler.h"

#include <QApplication>
#include <QCursor>
#include <QFrame>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {
constexpr int panelBorder = 2;            // pixels; the core's layout of the views includes it
constexpr int settleTime = 300;           // milliseconds; window managers answer within a few
constexpr int stateChangeDelay = 50;      // milliseconds
constexpr int menuBarCheckInterval = 100; // milliseconds
constexpr double defaultDpi = 96;

std::vector<Rect> Screens() {
    std::vector<Rect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect available = screen->availableGeometry();
        screens.push_back({available.x(), available.y(), available.width(), available.height()});
    }
    return screens;
}

bool ReportsPositions() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

// A comfortable page width, centred on the screen.
void QtWindow::SetDefaultGeometry() {
    QRect geometry(0, 0, 860, 960);
    const QRect available = screen()->availableGeometry();
    geometry.setSize(geometry.size().boundedTo(available.size() * 0.9));
    geometry.moveCenter(available.center());
    assumedCorner_ = geometry.topLeft();
    setGeometry(geometry);
}

void QtWindow::LayOut() {
    const int menuHeight = menuBar_ ? menuBar_->heightForWidth(width()) : 0;
    // Above the upper edge, not hidden: a hidden one knows no keys.
    const bool away = IsFullScreen() && !menuBarTimer_.isActive();
    if (menuBar_) menuBar_->setGeometry(0, away ? -menuHeight : 0, width(), menuHeight);
    if (menuBar_ && IsFullScreen()) menuBar_->raise();
    const int top = IsFullScreen() ? 0 : menuHeight;
    const QRect innerArea(0, top, width(), std::max(0, height() - top));
    if (innerArea == inner_->geometry()) return;
    inner_->setGeometry(innerArea);
    NotifyResize();
}

void QtWindow::SetFullScreen(bool on) {
    menuBarTimer_.stop();
    settleTimer_.stop(); // a place asked for just before would end the full screen
    requested_.reset();
    fullScreen_ = on;
    setWindowState(on ? windowState() | Qt::WindowFullScreen
                      : windowState() & ~Qt::WindowFullScreen);
}

bool QtWindow::IsMenuBarUsed() const {
    const bool pointed = menuBar_->rect().contains(menuBar_->mapFromGlobal(QCursor::pos()));
    const bool altDown = QGuiApplication::queryKeyboardModifiers() & Qt::AltModifier;
    // It keeps the focus after its menu was closed.
    const bool entered = menuBar_->hasFocus() && menuBar_->activeAction();
    return pointed || altDown || entered || QApplication::activePopupWidget();
}

void QtWindow::ShowMenuBar() {
    if (!menuBar_ || menuBarTimer_.isActive()) return;
    menuBarTimer_.start(menuBarCheckInterval);
    LayOut();
}

void QtWindow::HideUnusedMenuBar() {
    if (IsFullScreen() && IsMenuBarUsed()) return;
    menuBarTimer_.stop();
    RestoreViewFocus();
    LayOut();
}

Rect QtWindow::Bounds() const {
    return requested_ ? *requested_ : RequestedBounds(shownInstead_, FrameBounds());
}

Rect QtWindow::FrameBounds() const {
    QRect frame = windowHandle() ? windowHandle()->frameGeometry() : geometry();
    if (!ReportsPositions()) frame.moveTopLeft(assumedCorner_);
    return {frame.x(), frame.y(), frame.width(), frame.height()};
}

void QtWindow::Move(const Rect& bounds) {
    requested_ = bounds;
    shownInstead_.reset();
    clientSize_ = previousClientSize_ = QSize();
    reachable_ = ReachablePlace(bounds, Screens(), logicalDpiX() / defaultDpi);
    assumedCorner_ = QPoint(bounds.left, bounds.top);
    assumedFrame_ = FrameMargins();
    SetClientGeometry(assumedFrame_);
    if (isVisible())
        StartSettling();
    else
        LayOut(); // a hidden window gets no resize event
}

QMargins QtWindow::FrameMargins() const {
    return windowHandle() ? windowHandle()->frameMargins() : QMargins();
}

void QtWindow::StartSettling() {
    settleTimer_.start(settleTime);
}

void QtWindow::SetClientGeometry(const QMargins& frame) {
    const QSize clientSize(std::max(reachable_.width - frame.left() - frame.right(), 1),
                           std::max(reachable_.height - frame.top() - frame.bottom(), 1));
    const QPoint corner(reachable_.left, reachable_.top);
    if (!isVisible()) {
        move(corner); // position of the frame, even before there is one
        resize(clientSize);
        return;
    }
    // Through QWindow, because QWidget::resize() changes the size at once, and a tiling window
    // manager that refuses the new size sends no event to correct it.
    QWindow& window = *windowHandle();
    previousClientSize_ = std::exchange(clientSize_, clientSize);
    if (frame.isNull()) {
        window.setFramePosition(corner);
        window.resize(clientSize);
    } else {
        window.setGeometry(QRect(corner + QPoint(frame.left(), frame.top()), clientSize));
    }
}

// The frame margins are known only after the window manager has reparented the window.
void QtWindow::AdjustForFrame() {
    if (!requested_ || !isVisible() || IsFullScreen() || State() != WindowState::Normal) return;
    if (const QMargins frame = FrameMargins(); std::exchange(assumedFrame_, frame) != frame)
        SetClientGeometry(frame);
}

// Queued: a resize request from within a resize event leaves the window partly unpainted.
void QtWindow::ScheduleAdjustForFrame() {
    if (requested_)
        QMetaObject::invokeMethod(this, &QtWindow::AdjustForFrame, Qt::QueuedConnection);
}

// On Wayland a size other than the one asked for is the compositor's own word, and holds: nothing
// comes after it, as from a window manager that is still putting the window into its frame.
void QtWindow::SettleAtSizeOfCompositor() {
    if (!requested_ || ReportsPositions() || !isVisible()) return;
    if (IsFullScreen() || State() != WindowState::Normal || FrameMargins() != assumedFrame_) return;
    const Rect frame = FrameBounds();
    if (frame.width != reachable_.width || frame.height != reachable_.height) Settle();
}

// From here on the actual geometry counts.
void QtWindow::Settle() {
    if (requested_ && FrameMargins() != assumedFrame_ && State() == WindowState::Normal) {
        AdjustForFrame();
        StartSettling();
        return;
    }
    if (!requested_) return;
    // Window managers may reorder requests: a request for the size that the window manager is about
    // to set by itself is dropped.
    if (previousClientSize_ != clientSize_ &&
        size() == std::exchange(previousClientSize_, clientSize_)) {
        SetClientGeometry(assumedFrame_);
        StartSettling();
        return;
    }
    const Rect requested = *std::exchange(requested_, {});
    if (reachable_ != requested) shownInstead_ = {requested, FrameBounds()};
    if (requested != Bounds()) NotifyResize();
}

int QtWindow::InnerWidth() const {
    return inner_->width();
}

int QtWindow::InnerHeight() const {
    return inner_->height();
}

void QtWindow::SetPanelBounds(const Rect& bounds) {
    panel_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
    views_->setGeometry(panel_->rect().marginsRemoved(
        QMargins(panelBorder, panelBorder, panelBorder, panelBorder)));
}

// Some window managers send the size of a maximised window before its state. That size must not be
// stored as the normal one, so it is reported after a delay.
void QtWindow::NotifyResize() {
    const bool mayBeMaximized =
        !requested_ && isVisible() && State() == WindowState::Normal &&
        windowHandle()->frameGeometry().contains(screen()->availableGeometry());
    if (mayBeMaximized)
        QTimer::singleShot(stateChangeDelay, this, [this] { CallHandler(events_.onResize); });
    else
        CallHandler(events_.onResize);
}
