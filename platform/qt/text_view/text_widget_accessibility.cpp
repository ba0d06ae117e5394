// Accessibility events of the text widget, and the rectangles of characters.
#include "platform/qt/text_view/accessibility/accessible_units.h"
#include "platform/qt/text_view/text_widget.h"

#include <QAccessible>
#include <QFocusEvent>

namespace {
// UTF-16 units of the old and the new text; a client that wants more queries it.
constexpr TextPos maxEventText = 4096;
// Milliseconds; the minimum between two events while scrolling.
constexpr int visibleDataInterval = 100;

void Notify(QAccessibleEvent&& event) {
    QAccessible::updateAccessibility(&event);
}
} // namespace

void TextWidget::NotifySelectionChanged(TextPos anchorBefore, TextPos caretBefore) {
    if (!QAccessible::isActive()) return;
    if (caret_ != caretBefore) Notify(QAccessibleTextCursorEvent(this, caret_));
    const auto before = std::minmax(anchorBefore, caretBefore), now = std::minmax(anchor_, caret_);
    const bool wasOrIs = before.first != before.second || now.first != now.second;
    if (wasOrIs && before != now) Notify(QAccessibleTextSelectionEvent(this, SelStart(), SelEnd()));
}

QString TextWidget::AccessibleBeginning() const {
    if (!QAccessible::isActive()) return {};
    return AccessibleTextOf(context_, {0, std::min(text_->Length(), maxEventText)});
}

void TextWidget::NotifyTextChanged(const QString& oldText) {
    if (!QAccessible::isActive()) return;
    const QString text = AccessibleBeginning();
    if (oldText.isEmpty() && text.isEmpty()) return;
    Notify(QAccessibleTextUpdateEvent(this, 0, oldText, text));
    if (!text.isEmpty()) Notify(QAccessibleEvent(this, QAccessible::DocumentLoadComplete));
}

void TextWidget::ScheduleVisibleDataChanged() {
    if (QAccessible::isActive() && !visibleDataTimer_.isActive())
        visibleDataTimer_.start(visibleDataInterval, this);
}

void TextWidget::NotifyVisibleDataChanged() {
    visibleDataTimer_.stop();
    Notify(QAccessibleEvent(this, QAccessible::VisibleDataChanged));
}

void TextWidget::focusInEvent(QFocusEvent* event) {
    RestartBlinking();
    viewport()->update();
    // QWidget sends a focus event, but not when the focus returns from a popup.
    if (event->reason() == Qt::PopupFocusReason && QAccessible::isActive())
        Notify(QAccessibleEvent(this, QAccessible::Focus));
}

// From the first visible block's start to the last one's end. Cached, because some screen readers
// query the characters of a long text one by one.
const TextSpan& TextWidget::VisibleSpan() {
    if (visibleSpan_) return *visibleSpan_;
    const VerticalPos top = Scroller().Top();
    auto layout = layouts_.At(top.block);
    TextSpan visible{layout->block.start, layout->block.end};
    for (int y = layout->height - top.y; y < scroller_.ViewHeight(); y += layout->height) {
        const auto after = layouts_.After(layout);
        if (!after) {
            ++visible.end; // the position behind the last character
            break;
        }
        layout = after;
        visible.end = layout->block.end;
    }
    return visibleSpan_.emplace(visible);
}

QRect TextWidget::CharacterRect(TextPos position) {
    if (!isVisible()) return {};
    const TextSpan& visible = VisibleSpan();
    const QSize line(1, LineHeight());
    if (position < visible.start) return ToWidget({QPoint(0, -2 * line.height()), line});
    const auto top = position < visible.end ? scroller_.BlockTopInView(position) : std::nullopt;
    if (!top) return ToWidget({QPoint(0, Pixels(height()) + line.height()), line});
    return ToWidget(CharacterBox(*layouts_.At(position), position).translated(-ToTextX(0), *top));
}
