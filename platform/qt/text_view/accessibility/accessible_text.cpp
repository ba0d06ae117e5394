#include "platform/qt/text_view/accessibility/accessible_text.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/accessibility/accessible_attributes.h"
#include "platform/qt/text_view/accessibility/accessible_object.h"
#include "platform/qt/text_view/accessibility/readable_widget.h"

#include <QScrollBar>

#include <algorithm>

namespace {
// Called for every object. The metaObject() of the browser engine's objects is compared only,
// because they lack the type information for a cast.
QAccessibleInterface* CreateInterface(const QString&, QObject* object) {
    if (object->metaObject() != &QAbstractScrollArea::staticMetaObject) return nullptr;
    auto* view = dynamic_cast<ReadableWidget*>(object);
    return view ? new AccessibleText(*view) : nullptr;
}

ReadingUnit UnitOf(QAccessible::TextBoundaryType boundary) {
    switch (boundary) {
    case QAccessible::WordBoundary: return ReadingUnit::Word;
    case QAccessible::SentenceBoundary: return ReadingUnit::Sentence;
    case QAccessible::LineBoundary: return ReadingUnit::Line;
    case QAccessible::ParagraphBoundary: return ReadingUnit::Paragraph;
    default: return ReadingUnit::Character;
    }
}

// The start of the character, if the position is between two surrogates.
TextPos CharacterStart(const TextSource& text, TextPos position) {
    const bool inside = position > 0 && position < text.Length() &&
                        QChar::isLowSurrogate(text.UnitAt(position)) &&
                        QChar::isHighSurrogate(text.UnitAt(position - 1));
    return inside ? position - 1 : position;
}
} // namespace

AccessibleText::AccessibleText(ReadableWidget& view) : QAccessibleWidget(&view) {}

AccessibleText::~AccessibleText() {
    ForgetObjects();
}

void AccessibleText::Install() {
    QAccessible::installFactory(CreateInterface);
}

ReadableWidget& AccessibleText::View() const {
    return *static_cast<ReadableWidget*>(widget());
}

ReadablePane& AccessibleText::Pane() const {
    return View().Readable();
}

// A view without a focus policy shows a message, which screen readers read when the dialog opens.
QAccessible::Role AccessibleText::role() const {
    if (View().focusPolicy() == Qt::NoFocus) return QAccessible::StaticText;
    return View().IsPage() ? QAccessible::WebDocument : QAccessible::Document;
}

QAccessible::State AccessibleText::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
}

QString AccessibleText::text(QAccessible::Text kind) const {
    const QString own = QAccessibleWidget::text(kind);
    const bool isMessage = kind == QAccessible::Name && role() == QAccessible::StaticText;
    return own.isEmpty() && isMessage ? text(0, characterCount()).trimmed() : own;
}

void* AccessibleText::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

std::vector<QWidget*> AccessibleText::ScrollBars() const {
    std::vector<QWidget*> shown;
    for (QScrollBar* bar : {View().horizontalScrollBar(), View().verticalScrollBar()})
        if (bar->isVisible()) shown.push_back(bar->parentWidget());
    return shown;
}

void AccessibleText::ForgetObjects() const {
    for (const auto& [index, id] : objects_)
        QAccessible::deleteAccessibleInterface(id);
    objects_.clear();
}

// Those of a version before are nothing any more: see AccessibleObject::isValid.
QAccessibleInterface* AccessibleText::Object(std::size_t index) const {
    if (objectsVersion_ != Pane().ObjectsVersion()) ForgetObjects();
    objectsVersion_ = Pane().ObjectsVersion();
    if (index >= Pane().Objects().size()) return nullptr;
    const auto known = objects_.find(index);
    if (known != objects_.end()) return QAccessible::accessibleInterface(known->second);
    auto* object = new AccessibleObject(View(), index);
    objects_[index] = QAccessible::registerAccessibleInterface(object); // which owns it
    return object;
}

int AccessibleText::childCount() const {
    return int(ReadingChildren(Pane().Objects()).size() + ScrollBars().size());
}

QAccessibleInterface* AccessibleText::child(int index) const {
    if (index < 0) return nullptr;
    const auto objects = ReadingChildren(Pane().Objects());
    if (std::size_t(index) < objects.size()) return Object(objects[std::size_t(index)]);
    const auto bars = ScrollBars();
    const std::size_t bar = std::size_t(index) - objects.size();
    return bar < bars.size() ? QAccessible::queryAccessibleInterface(bars[bar]) : nullptr;
}

int AccessibleText::indexOfChild(const QAccessibleInterface* child) const {
    const auto objects = ReadingChildren(Pane().Objects());
    if (const auto* object = dynamic_cast<const AccessibleObject*>(child)) {
        const auto at = std::ranges::find(objects, object->Index());
        return at == objects.end() ? -1 : int(at - objects.begin());
    }
    const auto bars = ScrollBars();
    const auto bar = std::ranges::find(bars, child ? child->object() : nullptr);
    return bar == bars.end() ? -1 : int(objects.size()) + int(bar - bars.begin());
}

void AccessibleText::selection(int index, int* start, int* end) const {
    const bool exists = index == 0 && selectionCount() == 1;
    *start = exists ? Pane().SelStart() : 0;
    *end = exists ? Pane().SelEnd() : 0;
}

int AccessibleText::selectionCount() const {
    return Pane().SelStart() < Pane().SelEnd() ? 1 : 0;
}

void AccessibleText::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void AccessibleText::removeSelection(int index) {
    if (index == 0) Pane().Select(Pane().Caret(), Pane().Caret());
}

void AccessibleText::setSelection(int index, int start, int end) {
    if (index != 0) return;
    Pane().Select(ClampedPosition(start), ClampedPosition(end));
    Pane().Reveal(Pane().Caret());
}

int AccessibleText::cursorPosition() const {
    return Pane().Caret();
}

void AccessibleText::setCursorPosition(int offset) {
    const TextPos position = ClampedPosition(offset);
    Pane().Select(position, position);
    Pane().Reveal(position);
}

int AccessibleText::characterCount() const {
    return Pane().Source().Length();
}

std::optional<TextPos> AccessibleText::PositionOf(int offset) const {
    if (offset == -1) return characterCount();
    if (offset == -2) return cursorPosition();
    if (offset < 0 || offset > characterCount()) return std::nullopt;
    return offset;
}

TextPos AccessibleText::ClampedPosition(int offset) const {
    const TextPos limit = offset < 0 ? 0 : characterCount();
    return CharacterStart(Pane().Source(), PositionOf(offset).value_or(limit));
}

QString AccessibleText::text(int start, int end) const {
    const TextPos startLimit = start < 0 ? 0 : characterCount();
    const TextPos endLimit = end < 0 ? 0 : characterCount();
    const auto [from, to] = std::minmax({PositionOf(start).value_or(startLimit), //
                                         PositionOf(end).value_or(endLimit)});
    return ToQt(ReadableText(Pane(), {from, to}));
}

TextSpan AccessibleText::SpanAt(TextPos position, QAccessible::TextBoundaryType type) const {
    if (type != QAccessible::NoBoundary) return ReadingUnits(Pane()).At(position, UnitOf(type));
    const TextSource& text = Pane().Source();
    const TextPos start = position / maxReadingReach * maxReadingReach;
    const TextPos end = std::min(text.Length() - start, maxReadingReach) + start;
    return {CharacterStart(text, start), CharacterStart(text, end)};
}

QString AccessibleText::SpanText(std::optional<TextSpan> span, int* start, int* end) const {
    *start = span ? span->start : -1;
    *end = span ? span->end : -1;
    return span ? ToQt(ReadableText(Pane(), *span)) : QString();
}

QString AccessibleText::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                         int* end) const {
    const auto position = PositionOf(offset);
    const TextPos before = position ? SpanAt(*position, type).start : 0;
    return SpanText(before > 0 ? std::optional(SpanAt(before - 1, type)) : std::nullopt, start,
                    end);
}

QString AccessibleText::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                        int* end) const {
    const auto position = PositionOf(offset);
    const TextPos next = position ? SpanAt(*position, type).end : characterCount();
    const bool more = next < characterCount();
    return SpanText(more ? std::optional(SpanAt(next, type)) : std::nullopt, start, end);
}

QString AccessibleText::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                     int* end) const {
    const auto position = PositionOf(offset);
    return SpanText(position ? std::optional(SpanAt(*position, type)) : std::nullopt, start, end);
}

QString AccessibleText::attributes(int offset, int* start, int* end) const {
    const auto position = PositionOf(offset);
    *start = *end = -1;
    if (!position) return {};
    const TextPos last = std::max(0, characterCount() - 1);
    const auto attributes = AttributesAt(Pane(), std::min(*position, last));
    *start = attributes.span.start;
    *end = attributes.span.end;
    return attributes.text;
}

void AccessibleText::scrollToSubstring(int start, int end) {
    Pane().Reveal(ClampedPosition(end));
    Pane().Reveal(ClampedPosition(start));
}

QRect AccessibleText::characterRect(int offset) const {
    const auto position = PositionOf(offset);
    if (!position) return {};
    const QRect box = View().CharacterRect(*position);
    return box.isNull() ? box : QRect(View().viewport()->mapToGlobal(box.topLeft()), box.size());
}

int AccessibleText::offsetAtPoint(const QPoint& point) const {
    const QPoint inside = View().viewport()->mapFromGlobal(point);
    if (!View().viewport()->rect().contains(inside)) return -1;
    return View().CharacterAtPoint(inside);
}
