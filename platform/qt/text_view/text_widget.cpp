#include "platform/qt/text_view/text_widget.h"

#include "platform/qt/qt_text.h"
#include "view/reading_units.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QTimerEvent>

#include <utility>

namespace {
// UTF-16 units of the old and the new text; a client that wants more queries it.
constexpr TextPos maxEventText = 4096;
// Milliseconds; the minimum between two events while scrolling.
constexpr int visibleDataInterval = 100;

void Notify(QAccessibleEvent&& event) {
    QAccessible::updateAccessibility(&event);
}
} // namespace

TextWidget::TextWidget(QWidget* parent) : PaneWidget(parent), pane_(*this, Lines(), Pictures()) {
    SetPane(pane_);
}

TextPos TextWidget::CharacterAtPoint(QPoint point) {
    return pane_.CharacterAtPoint(ToPane(point));
}

QRect TextWidget::CharacterRect(TextPos position) {
    return isVisible() ? ToWidget(pane_.CharacterRect(position)) : QRect();
}

bool TextWidget::OnPress(Point point) {
    if (!pane_.IsPlaceholderLink(point)) return false;
    if (onPlaceholderLink) onPlaceholderLink();
    return true;
}

void TextWidget::OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) {
    if (!QAccessible::isActive()) return;
    const TextPos anchor = pane_.Anchor(), caret = pane_.Caret();
    if (caret != caretBefore) Notify(QAccessibleTextCursorEvent(this, caret));
    const auto before = std::minmax(anchorBefore, caretBefore), now = std::minmax(anchor, caret);
    const bool wasOrIs = before.first != before.second || now.first != now.second;
    if (wasOrIs && before != now)
        Notify(QAccessibleTextSelectionEvent(this, now.first, now.second));
}

QString TextWidget::AccessibleBeginning() {
    if (!QAccessible::isActive()) return {};
    return ToQt(ReadableText(pane_, {0, pane_.Source().Length()}, maxEventText));
}

void TextWidget::OnTextChanging() {
    oldBeginning_ = AccessibleBeginning();
}

void TextWidget::OnTextChanged() {
    const QString oldText = std::exchange(oldBeginning_, {});
    if (!QAccessible::isActive()) return;
    const QString text = AccessibleBeginning();
    if (oldText.isEmpty() && text.isEmpty()) return;
    Notify(QAccessibleTextUpdateEvent(this, 0, oldText, text));
    if (!text.isEmpty()) Notify(QAccessibleEvent(this, QAccessible::DocumentLoadComplete));
}

void TextWidget::OnVisibleTextChanged() {
    if (QAccessible::isActive() && !visibleDataTimer_.isActive())
        visibleDataTimer_.start(visibleDataInterval, this);
}

void TextWidget::NotifyVisibleDataChanged() {
    visibleDataTimer_.stop();
    Notify(QAccessibleEvent(this, QAccessible::VisibleDataChanged));
}

void TextWidget::focusInEvent(QFocusEvent* event) {
    PaneWidget::focusInEvent(event);
    // QWidget sends a focus event, but not when the focus returns from a popup.
    if (event->reason() == Qt::PopupFocusReason && QAccessible::isActive())
        Notify(QAccessibleEvent(this, QAccessible::Focus));
}

void TextWidget::focusOutEvent(QFocusEvent* event) {
    PaneWidget::focusOutEvent(event);
    // What was announced is not said again when the focus returns.
    if (!accessibleDescription().isEmpty()) setAccessibleDescription({});
}

void TextWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == visibleDataTimer_.timerId()) return NotifyVisibleDataChanged();
    PaneWidget::timerEvent(event);
}
