#include "platform/none/none_window.h"

void NoneWindow::Close() {
    if (closed) return;
    closed = true;
    if (events_.onUnload) events_.onUnload();
}

void NoneWindow::BringToFront(const std::u16string& activation) {
    activations.push_back(activation);
    if (state_ == WindowState::Minimized) SetState(WindowState::Normal);
}

void NoneWindow::SetState(WindowState state) {
    if (state == state_) return;
    state_ = state;
    if (events_.onResize) events_.onResize();
}

void NoneWindow::Move(const Rect& bounds) {
    ++moves;
    const Rect before = Bounds(), shown = ReachablePlace(bounds, screens, 15 / twipsPerPixel);
    const bool changes = shown != shown_ || bounds != before;
    shown_ = shown;
    instead_.reset();
    if (shown != bounds) instead_ = {bounds, shown};
    if (changes && events_.onResize) events_.onResize();
}

void NoneWindow::SetFullScreen(bool on) {
    if (on == IsFullScreen()) return;
    if (on) {
        beneath_ = shown_;
        shown_ = screens.front();
    } else {
        shown_ = *beneath_;
        beneath_.reset();
    }
    if (events_.onResize) events_.onResize();
}

void NoneWindow::DragTo(const Rect& bounds) {
    if (bounds == shown_) return;
    shown_ = bounds;
    if (events_.onResize) events_.onResize();
}

double NoneWindow::TextWidth(std::u16string_view text) const {
    double width = 0;
    for (const char16_t unit : text)
        width += unit == u' ' ? 3 : unit == u'M' ? 9 : unit == u'i' ? 2 : 6;
    return width;
}

ViewFont NoneWindow::DefaultViewFont() const {
    ViewFont font;
    font.name = u"Plain";
    font.size = 10;
    return font;
}
