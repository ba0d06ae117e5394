// The keys of the text widget. A key that it does not use goes on to the window.
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

// The Menu key comes as an event of its own.
bool TextWidget::MenuKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key != Qt::Key_F10 || modifiers != Qt::ShiftModifier) return false;
    AskForContextMenu(CaretRect().bottomLeft());
    return true;
}

bool TextWidget::ScrollKey(int key, Qt::KeyboardModifiers modifiers) {
    if (key != Qt::Key_Space || (modifiers & ~Qt::ShiftModifier)) return false;
    Scroller().ScrollPage(!(modifiers & Qt::ShiftModifier), LineHeight());
    ShowScrolled();
    return true;
}

bool TextWidget::CaretKey(int key, Qt::KeyboardModifiers modifiers) {
    if (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)) return false;
    const bool extend = modifiers & Qt::ShiftModifier, control = modifiers & Qt::ControlModifier;
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    Fit();
    if (sideways && !control && !extend && anchor_ != caret_) { // first gives the selection up
        MoveCaret(key == Qt::Key_Left ? SelStart() : SelEnd(), false);
        return true;
    }
    const auto target = KeyTarget(key, control);
    if (!target) return false;
    const std::optional<int> column = wantedX_;
    const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    // A page within a line too high for the view may show it without the caret.
    const bool shown = page && scroller_.IsHighAndSeen(*target);
    const TextHeight top = scroller_.Top();
    MoveCaret(*target, extend);
    if (shown) scroller_.ShowHeight(top);
    if (page || key == Qt::Key_Up || key == Qt::Key_Down) wantedX_ = column;
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
    if (!wantedX_) wantedX_ = CaretBox(*layouts_.At(caret_), caret_).x();
    switch (key) {
    case Qt::Key_Up: return CaretUp(layouts_, caret_, *wantedX_);
    case Qt::Key_Down: return CaretDown(layouts_, caret_, *wantedX_);
    default: return PageTarget(key == Qt::Key_PageDown);
    }
}

// The caret keeps its place in the view while the text moves; where the text cannot move, it goes
// to its end.
TextPos TextWidget::PageTarget(bool down) {
    const auto caret = CaretInView();
    const int lowest = std::max(0, scroller_.ViewHeight() - 1);
    const int y = caret ? std::clamp(caret->center().y(), 0, lowest) : 0;
    const TextHeight before = scroller_.Top();
    scroller_.ScrollPage(down, LineHeight());
    const TextHeight height = scroller_.InWholeLine(y);
    const TextPos target = PositionAt(*layouts_.At(height.block), QPoint(*wantedX_, height.y));
    if (scroller_.Top() != before) return target;
    return down ? text_->Length() : 0;
}

void TextWidget::MoveCaret(TextPos position, bool extend) {
    Select(extend ? anchor_ : position, position);
    Reveal(caret_);
}

// How much of a line is shown beside what is scrolled to.
int TextWidget::RoomBeside() const {
    return std::min(ViewWidth() / 4, 4 * LineHeight());
}

// The painting knows how far there is anything to the right; until then it may be more.
void TextWidget::ScrollToX(int x) {
    QScrollBar& bar = *horizontalScrollBar();
    bar.setMaximum(std::max(bar.maximum(), x));
    bar.setValue(x);
}

void TextWidget::Reveal(TextPos position) {
    Scroller().Reveal(position);
    if (horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOn) {
        const int x = CaretBox(*layouts_.At(position), position).x() - ColumnX(0);
        const int value = horizontalScrollBar()->value(), room = RoomBeside();
        if (x < room) ScrollToX(value + x - room);
        if (x > ViewWidth() - room) ScrollToX(value + x - ViewWidth() + room);
    }
    ShowScrolled();
}

void TextWidget::RevealHorizontally(TextPos start, TextPos end) {
    const auto layout = Layouts().At(start);
    if (horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOn) return;
    const LineRef line = LineOf(*layout, start);
    const TextPos last = std::min(end, LineEnd(*layout, line));
    const int from = CaretX(*layout, line, start) - ColumnX(0);
    const int to = CaretX(*layout, line, last) - ColumnX(0);
    const auto [left, right] = std::minmax(from, to);
    const int width = ViewWidth(), room = RoomBeside();
    if (left >= 0 && right < width) return;
    const bool endsLeft = to < from && right - left > width - 2 * room;
    const int toLeft = left - room, toRight = right + room - width;
    ScrollToX(horizontalScrollBar()->value() + (endsLeft ? toRight : std::min(toLeft, toRight)));
    ShowScrolled();
}
