// What assistive technology is told by the text widget unasked, and where characters are for it.
#include "platform/qt/text_view/accessibility/accessible_units.h"
#include "platform/qt/text_view/text_widget.h"

#include <QAccessible>
#include <QFocusEvent>

namespace {
constexpr TextPos toldOfOtherText = 4096; // units of the old and the new text in an event
constexpr int seenInterval = 100; // milliseconds at least between two events while scrolling

void Tell(QAccessibleEvent&& event) {
    QAccessible::updateAccessibility(&event);
}
} // namespace

void TextWidget::TellSelection(TextPos anchorBefore, TextPos caretBefore) {
    if (!QAccessible::isActive()) return;
    if (caret_ != caretBefore) Tell(QAccessibleTextCursorEvent(this, caret_));
    const auto before = std::minmax(anchorBefore, caretBefore), now = std::minmax(anchor_, caret_);
    const bool wasOrIs = before.first != before.second || now.first != now.second;
    if (wasOrIs && before != now) Tell(QAccessibleTextSelectionEvent(this, SelStart(), SelEnd()));
}

// A listener that wants more of a long text asks for it.
QString TextWidget::ToldBeginning() const {
    if (!QAccessible::isActive()) return {};
    return ToldText(context_, {0, std::min(text_->Length(), toldOfOtherText)});
}

void TextWidget::TellOtherText(const QString& toldBefore) {
    if (!QAccessible::isActive()) return;
    const QString told = ToldBeginning();
    if (toldBefore.isEmpty() && told.isEmpty()) return;
    Tell(QAccessibleTextUpdateEvent(this, 0, toldBefore, told));
    if (!told.isEmpty()) Tell(QAccessibleEvent(this, QAccessible::DocumentLoadComplete));
}

void TextWidget::TellSeenSoon() {
    if (QAccessible::isActive() && !tellSeen_.isActive()) tellSeen_.start(seenInterval, this);
}

void TextWidget::TellSeen() {
    tellSeen_.stop();
    Tell(QAccessibleEvent(this, QAccessible::VisibleDataChanged));
}

void TextWidget::focusInEvent(QFocusEvent* event) {
    RestartBlinking();
    viewport()->update();
    // Qt tells of the keyboard's coming here, but not of its coming back from a menu.
    if (event->reason() == Qt::PopupFocusReason && QAccessible::isActive())
        Tell(QAccessibleEvent(this, QAccessible::Focus));
}

// The blocks that are seen, from the first one's start to the last one's end. Kept, because some
// listeners ask for a long text's characters one by one.
const TextSpan& TextWidget::SeenBlocks() {
    if (seenBlocks_) return *seenBlocks_;
    const TextHeight top = Scroller().Top();
    auto layout = layouts_.At(top.block);
    TextSpan seen{layout->block.start, layout->block.end};
    for (int y = layout->height - top.y; y < scroller_.ViewHeight(); y += layout->height) {
        const auto after = layouts_.After(layout);
        if (!after) {
            ++seen.end; // the caret's place behind the last character
            break;
        }
        layout = after;
        seen.end = layout->block.end;
    }
    return seenBlocks_.emplace(seen);
}

QRect TextWidget::CharacterRect(TextPos position) {
    if (!isVisible()) return {};
    const TextSpan& seen = SeenBlocks();
    const QSize line(1, LineHeight());
    if (position < seen.start) return InWidget({QPoint(0, -2 * line.height()), line});
    const auto top = position < seen.end ? scroller_.ViewTopOf(position) : std::nullopt;
    if (!top) return InWidget({QPoint(0, Pixels(height()) + line.height()), line});
    return InWidget(CharacterBox(*layouts_.At(position), position).translated(-ColumnX(0), *top));
}
