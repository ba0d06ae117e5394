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
    Scroller().ScrollPages(modifiers & Qt::ShiftModifier ? -1 : 1, LineHeight());
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
    MoveCaret(*target, extend);
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown)
        wantedX_ = column;
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
    default: return PageTarget(key == Qt::Key_PageDown ? 1 : -1);
    }
}

// The caret keeps its place in the view while the text moves; where the text cannot move, it goes
// to its end.
TextPos TextWidget::PageTarget(int pages) {
    const QRect caret = CaretRect();
    const int lowest = std::max(0, scroller_.ViewHeight() - LineHeight()); // of a line seen whole
    const int y = caret.isNull() ? 0 : std::clamp(caret.center().y(), 0, lowest);
    const TextHeight before = scroller_.Top();
    scroller_.ScrollPages(pages, LineHeight());
    const TextPos target = PositionAtPoint(QPoint(*wantedX_ - ColumnX(0), y));
    if (scroller_.Top() != before && target != caret_) return target;
    return pages < 0 ? 0 : text_->Length();
}

void TextWidget::MoveCaret(TextPos position, bool extend) {
    Select(extend ? anchor_ : position, position);
    Reveal(caret_);
}

void TextWidget::Reveal(TextPos position) {
    Scroller().Reveal(position);
    QScrollBar& bar = *horizontalScrollBar();
    if (horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOn) {
        const int x = CaretBox(*layouts_.At(position), position).x() - ColumnX(0);
        const int width = viewport()->width(), margin = std::min(width / 4, 4 * LineHeight());
        bar.setMaximum(std::max(bar.maximum(), bar.value() + x + margin - width));
        if (x < margin) bar.setValue(bar.value() + x - margin);
        if (x > width - margin) bar.setValue(bar.value() + x - width + margin);
    }
    ShowScrolled();
}
