#include "platform/qt/window/qt_window.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/pane/dropped_paths.h"
#include "platform/qt/window/accessible_roles.h"
#include "platform/qt/window/key_codes.h"
#include "platform/qt/window/menu_bar_focus.h"
#include "platform/qt/window/window_activation.h"
#include "platform/qt/window/window_icon.h"
#include "platform/shared/call_handler.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QFrame>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {
constexpr double defaultFontSize = 12; // points
constexpr double twipsPerInch = 1440;
constexpr int upperEdge = 3; // pixels, where the mouse brings the menu bar of a full screen

void CloseMenus() {
    while (QWidget* menu = QApplication::activePopupWidget())
        if (!menu->close()) break;
}
} // namespace

QtWindow::QtWindow()
    : inner_(new QWidget(this)), panel_(new QFrame(inner_)), views_(new QWidget(panel_)),
      exitSignals_([this] { CloseFromSystem(); }) {
    InstallAccessibleRoles();
    panel_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    settleTimer_.setSingleShot(true);
    settleTimer_.callOnTimeout([this] { Settle(); });
    menuBarTimer_.callOnTimeout([this] { HideUnusedMenuBar(); });
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { CloseFromSystem(); });
    setAcceptDrops(true);
    SetDefaultGeometry();
}

QtWindow::~QtWindow() = default;

void QtWindow::SetMenuBar(QMenuBar* menuBar) {
    menuBar_ = menuBar;
    menuBarFocus_ = std::make_unique<MenuBarFocus>(*menuBar);
    LayOut();
}

void QtWindow::RestoreViewFocus() {
    if (menuBarFocus_) menuBarFocus_->RestoreFocus();
}

void QtWindow::SetEvents(WindowEvents events) {
    events_ = std::move(events);
}

void QtWindow::Open() {
    show();
    activateWindow(); // without a window manager no window gets the focus by itself
    windowHandle()->installEventFilter(this);
    if (requested_) StartSettling();
    QMetaObject::invokeMethod(
        this, [this] { CallHandler(events_.onShown); }, Qt::QueuedConnection);
    SetIconWhenIdle(*this);
}

void QtWindow::Close() {
    close();
}

void QtWindow::BringToFront(const std::u16string& activation) {
    CloseMenus();
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    const QWidget* dialog = QApplication::activeModalWidget();
    raise();
    ActivateWindow(dialog ? *dialog->windowHandle() : *windowHandle(), ToQt(activation).toUtf8());
}

// Desktops mark the title of a window that is not the active one.
void QtWindow::Alert() {
    QApplication::beep();
    QApplication::alert(this);
}

void QtWindow::CloseFromSystem() {
    CloseMenus();
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        dialog->close();
        // The handler that waits for the dialog continues first, and may open another one.
        QTimer::singleShot(0, this, &QtWindow::CloseFromSystem);
        return;
    }
    close();
}

WindowState QtWindow::State() const {
    if (isMinimized()) return WindowState::Minimized;
    const bool filled = isMaximized() || (isFullScreen() && !fullScreen_);
    return filled ? WindowState::Maximized : WindowState::Normal;
}

void QtWindow::SetState(WindowState state) {
    switch (state) {
    case WindowState::Normal: setWindowState(Qt::WindowNoState); break;
    case WindowState::Minimized: setWindowState(windowState() | Qt::WindowMinimized); break;
    case WindowState::Maximized: setWindowState(Qt::WindowMaximized); break;
    }
}

double QtWindow::TwipsPerPixelX() const {
    return twipsPerInch / logicalDpiX();
}

double QtWindow::TwipsPerPixelY() const {
    return twipsPerInch / logicalDpiY();
}

void QtWindow::SetTitle(std::u16string_view title) {
    // Qt replaces "[*]" in a title by the modified marker, and "[*][*]" by "[*]".
    setWindowTitle(ToQt(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void QtWindow::ApplySystemFont() {
    setFont(QApplication::font("QMenu"));
}

double QtWindow::TextWidth(std::u16string_view text) const {
    return QFontMetricsF(font()).horizontalAdvance(ToQt(text));
}

ViewFont QtWindow::DefaultViewFont() const {
    const QFontInfo serif(QFont("Serif")); // resolves the alias to the installed family
    ViewFont viewFont;
    viewFont.name = FromQt(serif.family());
    viewFont.size = defaultFontSize;
    return viewFont;
}

void QtWindow::moveEvent(QMoveEvent*) {
    ScheduleAdjustForFrame();
    NotifyResize();
}

void QtWindow::resizeEvent(QResizeEvent*) {
    ScheduleAdjustForFrame();
    SettleAtSizeOfCompositor();
    LayOut();
}

void QtWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    if (!isFullScreen()) fullScreen_ = false; // also when the window manager ends it
    LayOut();
    NotifyResize();
}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!std::exchange(unloaded_, true)) CallHandler(events_.onUnload);
}

// The views ignore Ctrl+wheel.
void QtWindow::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return event->ignore();
    zoomRemainder_ += event->angleDelta().y();
    const int steps = zoomRemainder_ / QWheelEvent::DefaultDeltasPerStep;
    zoomRemainder_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) CallHandler(events_.onZoom, steps);
}

void QtWindow::dragEnterEvent(QDragEnterEvent* event) {
    const bool isOfPage = event->source(); // a link or a picture of it is no file to open
    if (!isOfPage) AcceptFileDrag(*event);
}

void QtWindow::dropEvent(QDropEvent* event) {
    if (const auto paths = AcceptFileDrop(*event); !paths.empty())
        CallHandler(onFilesDropped, paths);
}

// Key events of the QWindow arrive here before the focus widget sees them.
bool QtWindow::eventFilter(QObject* object, QEvent* event) {
    if (object == windowHandle() && event->type() == QEvent::WindowUnblocked) Reactivate();
    // Precedes the menu key's own press, which takes the focus back from the menu bar.
    if (object == windowHandle() && event->type() == QEvent::ContextMenu &&
        !QApplication::activePopupWidget())
        RestoreViewFocus();
    const bool mouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel;
    if (object == windowHandle() && mouse) CallHandler(events_.onMouse);
    if (object == windowHandle() && event->type() == QEvent::MouseMove && IsFullScreen() &&
        static_cast<const QMouseEvent&>(*event).position().y() < upperEdge)
        ShowMenuBar();
    if (object == windowHandle() &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease))
        return HandleKey(static_cast<const QKeyEvent&>(*event));
    return QWidget::eventFilter(object, event);
}

// Without a window manager no window becomes active after a dialog of ours has been closed.
void QtWindow::Reactivate() {
    if (QGuiApplication::applicationState() != Qt::ApplicationActive) return;
    const auto activate = [this] {
        if (!QApplication::activeModalWidget()) activateWindow();
    };
    QMetaObject::invokeMethod(this, activate, Qt::QueuedConnection);
}

bool QtWindow::HandleKey(const QKeyEvent& event) {
    const bool pressed = event.type() == QEvent::KeyPress;
    const int shift = ShiftMaskOf(event.modifiers());
    if (pressed && event.key() == Qt::Key_F4 && shift == AltKey) {
        // Received only if no window manager handles the key, or an open menu has grabbed the
        // keyboard.
        CloseFromSystem();
        return true;
    }
    if (pressed && event.key() == Qt::Key_Alt && IsFullScreen()) ShowMenuBar();
    if (QApplication::activePopupWidget()) return false; // the menu has grabbed the keyboard
    if (menuBarFocus_ && menuBarFocus_->HandleKey(event)) return false;
    const int code = KeyCodeOf(event);
    if (code == 0) return false;
    if (pressed) {
        pressedKey_ = {code, shift};
        CallHandler(events_.onKeyDown, code, shift);
    } else if (!event.isAutoRepeat()) { // auto-repeat sends release events, too
        // A release of "Ctrl++" is reported with Ctrl even if Ctrl was released first.
        const int pressedShift = code == pressedKey_.code ? pressedKey_.shift : 0;
        CallHandler(events_.onKeyUp, code, shift | pressedShift);
    }
    return false;
}

int QtWindow::KeyCodeOf(const QKeyEvent& event) const {
    const int code = VirtualKeyCode(event.key(), event.modifiers(), event.nativeScanCode());
    const bool inPage = std::ranges::any_of(pageWidgets_, [this](const QWidget* page) {
        return page == focusWidget() || page->isAncestorOf(focusWidget());
    });
    const bool zooms = inPage && event.modifiers() & Qt::ControlModifier;
    return zooms ? MainBlockZoomKey(code) : code;
}

void QtWindow::SendKeyDown(int code, int shift) {
    CallHandler(events_.onKeyDown, code, shift);
}
