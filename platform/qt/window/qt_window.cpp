#include "platform/qt/window/qt_window.h"

#include "platform/qt/handler.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/window/accessible_roles.h"
#include "platform/qt/window/bar_keyboard.h"
#include "platform/qt/window/key_codes.h"
#include "platform/qt/window/window_icon.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QFrame>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int panelBorder = 2;     // pixels; the core's layout of the views counts on it
constexpr int settlingTime = 300;  // milliseconds; window managers answer within a few
constexpr int stateDelay = 50;     // milliseconds
constexpr int notch = 120;         // of a wheel, in eighths of a degree
constexpr double readingSize = 12; // points
constexpr double twipsPerInch = 1440;
constexpr double usualDpi = 96;

std::vector<Rect> Screens() {
    std::vector<Rect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect free = screen->availableGeometry();
        screens.push_back({free.x(), free.y(), free.width(), free.height()});
    }
    return screens;
}

bool KnowsPlaces() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

QtWindow::QtWindow()
    : inner_(new QWidget(this)), panel_(new QFrame(inner_)), views_(new QWidget(panel_)),
      exitSignals_([this] { CloseFromSystem(); }) {
    InstallAccessibleParts();
    panel_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    settling_.setSingleShot(true);
    settling_.callOnTimeout([this] { Settle(); });
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { CloseFromSystem(); });
    TakeDefaultPlace();
}

QtWindow::~QtWindow() = default;

// A page of comfortable width in the middle of the screen.
void QtWindow::TakeDefaultPlace() {
    QRect place(0, 0, 860, 960);
    const QRect available = screen()->availableGeometry();
    place.setSize(place.size().boundedTo(available.size() * 0.9));
    place.moveCenter(available.center());
    corner_ = place.topLeft();
    setGeometry(place);
}

void QtWindow::AdoptMenuBar(QMenuBar* menuBar) {
    menuBar_ = menuBar;
    barKeyboard_ = std::make_unique<BarKeyboard>(*menuBar);
    LayOut();
}

void QtWindow::TakeKeyboardFromBar() {
    if (barKeyboard_) barKeyboard_->GiveBack();
}

void QtWindow::LayOut() {
    const int menuHeight = menuBar_ ? menuBar_->heightForWidth(width()) : 0;
    if (menuBar_) menuBar_->setGeometry(0, 0, width(), menuHeight);
    const QRect innerArea(0, menuHeight, width(), std::max(0, height() - menuHeight));
    if (innerArea == inner_->geometry()) return;
    inner_->setGeometry(innerArea);
    ReportResize();
}

void QtWindow::SetEvents(WindowEvents events) {
    events_ = std::move(events);
}

void QtWindow::Open() {
    show();
    activateWindow(); // a screen without a window manager gives the keyboard to nobody unasked
    windowHandle()->installEventFilter(this);
    if (asked_) settling_.start(settlingTime);
    QMetaObject::invokeMethod(
        this, [this] { CallHandler(events_.onShown); }, Qt::QueuedConnection);
    ShowIconWhenIdle(*this);
}

void QtWindow::Close() {
    close();
}

void QtWindow::CloseFromSystem() {
    while (QWidget* menu = QApplication::activePopupWidget())
        if (!menu->close()) break;
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        dialog->close();
        // The handler that waits for the dialog comes first, and may open another.
        QTimer::singleShot(0, this, &QtWindow::CloseFromSystem);
        return;
    }
    close();
}

WindowState QtWindow::State() const {
    if (isMinimized()) return WindowState::Minimized;
    return isMaximized() || isFullScreen() ? WindowState::Maximized : WindowState::Normal;
}

void QtWindow::SetState(WindowState state) {
    switch (state) {
    case WindowState::Normal: setWindowState(Qt::WindowNoState); break;
    case WindowState::Minimized: setWindowState(windowState() | Qt::WindowMinimized); break;
    case WindowState::Maximized: setWindowState(Qt::WindowMaximized); break;
    }
}

Rect QtWindow::Bounds() const {
    return asked_ ? *asked_ : BoundsAsAsked(instead_, RealBounds());
}

Rect QtWindow::RealBounds() const {
    QRect frame = windowHandle() ? windowHandle()->frameGeometry() : geometry();
    if (!KnowsPlaces()) frame.moveTopLeft(corner_);
    return {frame.x(), frame.y(), frame.width(), frame.height()};
}

void QtWindow::Move(const Rect& bounds) {
    asked_ = bounds;
    instead_.reset();
    inside_ = insideBefore_ = QSize();
    shown_ = ReachablePlace(bounds, Screens(), logicalDpiX() / usualDpi);
    corner_ = QPoint(bounds.left, bounds.top);
    framed_ = FrameMargins();
    MoveInside(framed_);
    if (isVisible())
        settling_.start(settlingTime);
    else
        LayOut(); // a hidden window hears of its size only when it is shown
}

QMargins QtWindow::FrameMargins() const {
    return windowHandle() ? windowHandle()->frameMargins() : QMargins();
}

void QtWindow::MoveInside(const QMargins& frame) {
    const QSize inside(std::max(shown_.width - frame.left() - frame.right(), 1),
                       std::max(shown_.height - frame.top() - frame.bottom(), 1));
    const QPoint corner(shown_.left, shown_.top);
    if (!isVisible()) {
        move(corner); // of the frame, once there is one
        resize(inside);
        return;
    }
    // Only asked for: a widget that is given a size believes it, and a window manager that refuses
    // (those that tile do) has nothing new to tell. So the size comes by the window.
    QWindow& window = *windowHandle();
    insideBefore_ = std::exchange(inside_, inside);
    if (frame.isNull()) {
        window.setFramePosition(corner);
        window.resize(inside);
    } else {
        window.setGeometry(QRect(corner + QPoint(frame.left(), frame.top()), inside));
    }
}

// The frame becomes known only when the window manager has put it around the window.
void QtWindow::AllowForFrame() {
    if (!asked_ || !isVisible() || State() != WindowState::Normal) return;
    if (const QMargins frame = FrameMargins(); std::exchange(framed_, frame) != frame)
        MoveInside(frame);
}

// Another size that is asked for while one is taken in leaves the window half painted.
void QtWindow::AllowForFrameSoon() {
    if (asked_) QMetaObject::invokeMethod(this, &QtWindow::AllowForFrame, Qt::QueuedConnection);
}

// From now on the window is where it is, whatever was asked.
void QtWindow::Settle() {
    if (asked_ && FrameMargins() != framed_ && State() == WindowState::Normal) {
        AllowForFrame();
        settling_.start(settlingTime);
        return;
    }
    if (!asked_) return;
    // The window manager may have followed the wishes in another order: as one of the same size as
    // it has given by itself, the last was none.
    if (insideBefore_ != inside_ && size() == std::exchange(insideBefore_, inside_)) {
        MoveInside(framed_);
        settling_.start(settlingTime);
        return;
    }
    const Rect asked = *std::exchange(asked_, {});
    if (shown_ != asked) instead_ = {asked, RealBounds()};
    if (asked != Bounds()) ReportResize();
}

int QtWindow::InnerWidth() const {
    return inner_->width();
}

int QtWindow::InnerHeight() const {
    return inner_->height();
}

double QtWindow::TwipsPerPixelX() const {
    return twipsPerInch / logicalDpiX();
}

double QtWindow::TwipsPerPixelY() const {
    return twipsPerInch / logicalDpiY();
}

void QtWindow::SetTitle(std::u16string_view title) {
    // Qt reads "[*]" in a title as the place of its mark for changed documents, and "[*][*]" as the
    // text.
    setWindowTitle(ToQt(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void QtWindow::ApplySystemFont() {
    setFont(QApplication::font("QMenu"));
}

double QtWindow::TextWidth(std::u16string_view text) const {
    return QFontMetricsF(font()).horizontalAdvance(ToQt(text));
}

void QtWindow::SetPanelBounds(const Rect& bounds) {
    panel_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
    views_->setGeometry(panel_->rect().marginsRemoved(
        QMargins(panelBorder, panelBorder, panelBorder, panelBorder)));
}

ViewFont QtWindow::DefaultViewFont() const {
    const QFontInfo serif(QFont("Serif")); // the face in use behind the alias
    ViewFont viewFont;
    viewFont.name = FromQt(serif.family());
    viewFont.size = readingSize;
    return viewFont;
}

void QtWindow::moveEvent(QMoveEvent*) {
    AllowForFrameSoon();
    ReportResize();
}

void QtWindow::resizeEvent(QResizeEvent*) {
    AllowForFrameSoon();
    LayOut();
}

void QtWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) ReportResize();
}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!std::exchange(unloaded_, true)) CallHandler(events_.onUnload);
}

// The views leave a wheel with Ctrl to the window.
void QtWindow::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return event->ignore();
    zoomRest_ += event->angleDelta().y();
    const int steps = zoomRest_ / notch;
    zoomRest_ -= steps * notch;
    if (steps != 0) CallHandler(events_.onZoom, steps);
}

// Keys pass here before the view that has the focus sees them.
bool QtWindow::eventFilter(QObject* object, QEvent* event) {
    if (object == windowHandle() && event->type() == QEvent::WindowUnblocked) TakeKeyboardBack();
    if (object == windowHandle() &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease))
        return KeyEvent(static_cast<const QKeyEvent&>(*event));
    return QWidget::eventFilter(object, event);
}

// When a dialog of ours has gone, no window has the keyboard on a screen without a window manager.
void QtWindow::TakeKeyboardBack() {
    if (QGuiApplication::applicationState() != Qt::ApplicationActive) return;
    const auto activate = [this] {
        if (!QApplication::activeModalWidget()) activateWindow();
    };
    QMetaObject::invokeMethod(this, activate, Qt::QueuedConnection);
}

bool QtWindow::KeyEvent(const QKeyEvent& event) {
    const bool pressed = event.type() == QEvent::KeyPress;
    const int shift = ShiftMaskOf(event.modifiers());
    if (pressed && event.key() == Qt::Key_F4 && shift == AltKey) {
        // Comes here only where no window manager takes the key, or cannot because a menu is open.
        CloseFromSystem();
        return true;
    }
    if (QApplication::activePopupWidget()) return false; // an open menu has the keyboard
    if (barKeyboard_ && barKeyboard_->Takes(event)) return false;
    const int code = CodeOf(event);
    if (code == 0) return false;
    if (pressed) {
        heldKey_ = {code, shift};
        CallHandler(events_.onKeyDown, code, shift);
    } else if (!event.isAutoRepeat()) { // a held key goes up once
        // "Ctrl and +" is that also for a hand that lets Ctrl go first.
        const int heldShift = code == heldKey_.code ? heldKey_.shift : 0;
        CallHandler(events_.onKeyUp, code, shift | heldShift);
    }
    return false;
}

int QtWindow::CodeOf(const QKeyEvent& event) const {
    const int code = VirtualKeyCode(event.key(), event.modifiers(), event.nativeScanCode());
    const bool zooms =
        page_ && page_->isAncestorOf(focusWidget()) && event.modifiers() & Qt::ControlModifier;
    return zooms ? MainBlockZoomKey(code) : code;
}

void QtWindow::TellKeyDown(int code, int shift) {
    CallHandler(events_.onKeyDown, code, shift);
}

// Some window managers send the size of a maximised window before they say that it is maximised.
// Such a size must not be taken for the window's own, so it is reported a moment later.
void QtWindow::ReportResize() {
    const bool mayBeMaximized =
        !asked_ && isVisible() && State() == WindowState::Normal &&
        windowHandle()->frameGeometry().contains(screen()->availableGeometry());
    if (mayBeMaximized)
        QTimer::singleShot(stateDelay, this, [this] { CallHandler(events_.onResize); });
    else
        CallHandler(events_.onResize);
}
