#include "platform/qt/text_view/accessibility/readable_widget.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/accessibility/accessible_text.h"
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

ReadableWidget::ReadableWidget(QWidget* parent) : PaneWidget(parent) {
    AccessibleText::Install();
}

void ReadableWidget::SetReadable(ReadablePane& pane) {
    readable_ = &pane;
    SetPane(pane);
}

TextPos ReadableWidget::CharacterAtPoint(QPoint point) {
    return readable_->CharacterAtPoint(ToPane(point));
}

QRect ReadableWidget::CharacterRect(TextPos position) {
    return isVisible() ? ToWidget(readable_->CharacterRect(position)) : QRect();
}

QRect ReadableWidget::ObjectRect(std::size_t object) {
    return isVisible() ? ToWidget(readable_->ObjectRect(object)) : QRect();
}

void ReadableWidget::Announce(std::u16string_view text) {
    if (QAccessible::isActive()) setAccessibleDescription(ToQt(text));
}

void ReadableWidget::OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) {
    if (!QAccessible::isActive()) return;
    const TextPos anchor = readable_->Anchor(), caret = readable_->Caret();
    if (caret != caretBefore) Notify(QAccessibleTextCursorEvent(this, caret));
    const auto before = std::minmax(anchorBefore, caretBefore), now = std::minmax(anchor, caret);
    const bool wasOrIs = before.first != before.second || now.first != now.second;
    if (wasOrIs && before != now)
        Notify(QAccessibleTextSelectionEvent(this, now.first, now.second));
}

QString ReadableWidget::AccessibleBeginning() {
    if (!QAccessible::isActive()) return {};
    return ToQt(ReadableText(*readable_, {0, readable_->Source().Length()}, maxEventText));
}

void ReadableWidget::OnTextChanging() {
    oldBeginning_ = AccessibleBeginning();
}

void ReadableWidget::OnTextChanged() {
    const QString oldText = std::exchange(oldBeginning_, {});
    if (!QAccessible::isActive()) return;
    const QString text = AccessibleBeginning();
    if (oldText.isEmpty() && text.isEmpty()) return;
    Notify(QAccessibleTextUpdateEvent(this, 0, oldText, text));
    if (!text.isEmpty()) Notify(QAccessibleEvent(this, QAccessible::DocumentLoadComplete));
}

void ReadableWidget::OnVisibleTextChanged() {
    if (QAccessible::isActive() && !visibleDataTimer_.isActive())
        visibleDataTimer_.start(visibleDataInterval, this);
}

void ReadableWidget::OnObjectFocused() {
    if (!QAccessible::isActive()) return;
    auto* document = dynamic_cast<AccessibleText*>(QAccessible::queryAccessibleInterface(this));
    QAccessibleInterface* object =
        document ? document->Object(readable_->FocusedObject()) : nullptr;
    if (object) Notify(QAccessibleEvent(object, QAccessible::Focus));
}

void ReadableWidget::NotifyVisibleDataChanged() {
    visibleDataTimer_.stop();
    Notify(QAccessibleEvent(this, QAccessible::VisibleDataChanged));
}

void ReadableWidget::focusInEvent(QFocusEvent* event) {
    PaneWidget::focusInEvent(event);
    // QWidget sends a focus event, but not when the focus returns from a popup.
    if (event->reason() == Qt::PopupFocusReason && QAccessible::isActive())
        Notify(QAccessibleEvent(this, QAccessible::Focus));
}

void ReadableWidget::focusOutEvent(QFocusEvent* event) {
    PaneWidget::focusOutEvent(event);
    // What was announced is not said again when the focus returns.
    if (!accessibleDescription().isEmpty()) setAccessibleDescription({});
}

void ReadableWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() == visibleDataTimer_.timerId()) return NotifyVisibleDataChanged();
    PaneWidget::timerEvent(event);
}
