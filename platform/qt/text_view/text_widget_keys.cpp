// Key events of the text widget. Unused keys propagate to the window.
#include "platform/qt/text_view/text_widget.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

void TextWidget::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    const int key = event->key();
    event->setAccepted(ScrollKey(key, modifiers) || MenuKey(key, modifiers) ||
                       CaretKey(key, modifiers));
}

// The Menu key sends a context menu event.
bool TextWidget::MenuKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key != Qt::Key_F10 || modifiers != Qt::ShiftModifier) return false;
    RequestContextMenu(CaretRect().bottomLeft());
    return true;
}

bool TextWidget::ScrollKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key != Qt::Key_Space || (modifiers & ~Qt::ShiftModifier)) return false;
    Scroller().ScrollPage(!(modifiers & Qt::ShiftModifier), LineHeight());
    OnScrolled();
    return true;
}

bool TextWidget::CaretKey(int key, Qt::KeyboardModifiers modifiers) {
    if (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)) return false;
    const bool extend = modifiers & Qt::ShiftModifier, control = modifiers & Qt::ControlModifier;
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    UpdateLayoutSize();
    if (sideways && !control && !extend && anchor_ != caret_) { // collapses the selection
        MoveCaret(key == Qt::Key_Left ? SelStart() : SelEnd(), false);
        return true;
    }
    const auto target = KeyTarget(key, control);
    if (!target) return false;
    const std::optional<int> column = preferredX_;
    const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    // Paging within a line higher than the view may leave the caret out of view.
    const bool shown = page && scroller_.IsTallAndVisible(*target);
    const VerticalPos top = scroller_.Top();
    MoveCaret(*target, extend);
    if (shown) scroller_.ScrollTo(top);
    if (page || key == Qt::Key_Up || key == Qt::Key_Down) preferredX_ = column;
    return true;
}

std::optional<TextPos> TextWidget::KeyTarget(int key, bool control) {
    switch (key) {
    case Qt::Key_Left: return control ? WordLeft(layouts_, caret_) : CaretLeft(layouts_, caret_);
    case Qt::Key_Right: return control ? WordRight(layouts_, caret_) : CaretRight(layouts_, caret_);
    case Qt::Key_Home: return control ? 0 : CaretHome(layouts_, caret_);
    case Qt::Key_End: return control ? text_->Length() : CaretEnd(layouts_, caret_);
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (control) return std::nullopt;
        return VerticalTarget(key);
    default: return std::nullopt;
    }
}

TextPos TextWidget::VerticalTarget(int key) {
    if (!preferredX_) preferredX_ = CaretBox(*layouts_.At(caret_), caret_).x();
    switch (key) {
    case Qt::Key_Up: return CaretUp(layouts_, caret_, *preferredX_);
    case Qt::Key_Down: return CaretDown(layouts_, caret_, *preferredX_);
    default: return PageTarget(key == Qt::Key_PageDown);
    }
}

// The caret keeps its place in the view while the text scrolls; if the text cannot scroll, it moves
// to the start or end.
TextPos TextWidget::PageTarget(bool down) {
    const auto caret = CaretInView();
    const int lowest = std::max(0, scroller_.ViewHeight() - 1);
    const int y = caret ? std::clamp(caret->center().y(), 0, lowest) : 0;
    const VerticalPos before = scroller_.Top();
    scroller_.ScrollPage(down, LineHeight());
    const VerticalPos height = scroller_.NearestWholeLine(y);
    const TextPos target = PositionAt(*layouts_.At(height.block), QPoint(*preferredX_, height.y));
    if (scroller_.Top() != before) return target;
    return down ? text_->Length() : 0;
}

void TextWidget::MoveCaret(TextPos position, bool extend) {
    Select(extend ? anchor_ : position, position);
    Reveal(caret_);
}

// Space that stays visible beside a position scrolled to.
int TextWidget::SideMargin() const {
    return std::min(ViewWidth() / 4, 4 * LineHeight());
}

// Painting determines the horizontal range; until then it may be too small.
void TextWidget::ScrollToX(int x) {
    QScrollBar& bar = *horizontalScrollBar();
    bar.setMaximum(std::max(bar.maximum(), x));
    bar.setValue(x);
}

void TextWidget::Reveal(TextPos position) {
    Scroller().Reveal(position);
    if (horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOn) {
        const int x = CaretBox(*layouts_.At(position), position).x() - ToTextX(0);
        const int value = horizontalScrollBar()->value(), room = SideMargin();
        if (x < room) ScrollToX(value + x - room);
        if (x > ViewWidth() - room) ScrollToX(value + x - ViewWidth() + room);
    }
    OnScrolled();
}

void TextWidget::RevealHorizontally(TextPos start, TextPos end) {
    const auto layout = Layouts().At(start);
    if (horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOn) return;
    const LineRef line = LineOf(*layout, start);
    const TextPos last = std::min(end, LineEnd(*layout, line));
    const int from = CaretX(*layout, line, start) - ToTextX(0);
    const int to = CaretX(*layout, line, last) - ToTextX(0);
    const auto [left, right] = std::minmax(from, to);
    const int width = ViewWidth(), room = SideMargin();
    if (left >= 0 && right < width) return;
    const bool endsLeft = to < from && right - left > width - 2 * room;
    const int toLeft = left - room, toRight = right + room - width;
    ScrollToX(horizontalScrollBar()->value() + (endsLeft ? toRight : std::min(toLeft, toRight)));
    OnScrolled();
}
