#include "platform/qt/text_view/accessibility/accessible_text.h"

#include "platform/qt/text_view/accessibility/accessible_attributes.h"
#include "platform/qt/text_view/text_widget.h"

#include <QScrollBar>

#include <algorithm>

namespace {
// Is asked for every object of the program. Those of the browser engine have no type information
// that could be asked in turn.
QAccessibleInterface* Make(const QString&, QObject* object) {
    if (object->metaObject() != &QAbstractScrollArea::staticMetaObject) return nullptr;
    auto* view = dynamic_cast<TextWidget*>(object);
    return view ? new AccessibleText(*view) : nullptr;
}

TextUnit UnitOf(QAccessible::TextBoundaryType boundary) {
    switch (boundary) {
    case QAccessible::WordBoundary: return TextUnit::Word;
    case QAccessible::SentenceBoundary: return TextUnit::Sentence;
    case QAccessible::LineBoundary: return TextUnit::Line;
    case QAccessible::ParagraphBoundary: return TextUnit::Paragraph;
    default: return TextUnit::Character;
    }
}

// Before a character that takes two units, not between them.
TextPos BeforeCharacter(const TextSource& text, TextPos position) {
    const bool inside = position > 0 && position < text.Length() &&
                        QChar::isLowSurrogate(text.UnitAt(position)) &&
                        QChar::isHighSurrogate(text.UnitAt(position - 1));
    return inside ? position - 1 : position;
}
} // namespace

AccessibleText::AccessibleText(TextWidget& view) : QAccessibleWidget(&view) {}

void AccessibleText::Install() {
    QAccessible::installFactory(Make);
}

TextWidget& AccessibleText::View() const {
    return *static_cast<TextWidget*>(widget());
}

// A text that takes no keyboard is a message, which a screen reader says when its dialog opens.
QAccessible::Role AccessibleText::role() const {
    return View().focusPolicy() == Qt::NoFocus ? QAccessible::StaticText : QAccessible::Document;
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

int AccessibleText::childCount() const {
    return int(ScrollBars().size());
}

QAccessibleInterface* AccessibleText::child(int index) const {
    const auto bars = ScrollBars();
    const bool known = index >= 0 && index < std::ssize(bars);
    return known ? QAccessible::queryAccessibleInterface(bars[std::size_t(index)]) : nullptr;
}

int AccessibleText::indexOfChild(const QAccessibleInterface* child) const {
    const auto bars = ScrollBars();
    const auto bar = std::ranges::find(bars, child ? child->object() : nullptr);
    return bar == bars.end() ? -1 : int(bar - bars.begin());
}

void AccessibleText::selection(int index, int* start, int* end) const {
    const bool known = index == 0 && selectionCount() == 1;
    *start = known ? View().SelStart() : 0;
    *end = known ? View().SelEnd() : 0;
}

int AccessibleText::selectionCount() const {
    return View().SelStart() < View().SelEnd() ? 1 : 0;
}

void AccessibleText::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void AccessibleText::removeSelection(int index) {
    if (index == 0) View().Select(View().Caret(), View().Caret());
}

void AccessibleText::setSelection(int index, int start, int end) {
    if (index != 0) return;
    View().Select(PlaceInText(start), PlaceInText(end));
    View().Reveal(View().Caret());
}

int AccessibleText::cursorPosition() const {
    return View().Caret();
}

void AccessibleText::setCursorPosition(int offset) {
    const TextPos place = PlaceInText(offset);
    View().Select(place, place);
    View().Reveal(place);
}

int AccessibleText::characterCount() const {
    return View().Source().Length();
}

std::optional<TextPos> AccessibleText::Place(int offset) const {
    if (offset == -1) return characterCount();
    if (offset == -2) return cursorPosition();
    if (offset < 0 || offset > characterCount()) return std::nullopt;
    return offset;
}

TextPos AccessibleText::PlaceInText(int offset) const {
    const TextPos nearest = offset < 0 ? 0 : characterCount();
    return BeforeCharacter(View().Source(), Place(offset).value_or(nearest));
}

QString AccessibleText::text(int start, int end) const {
    const TextPos nearestStart = start < 0 ? 0 : characterCount();
    const TextPos nearestEnd = end < 0 ? 0 : characterCount();
    const auto [from, to] = std::minmax({Place(start).value_or(nearestStart), //
                                         Place(end).value_or(nearestEnd)});
    if (to - from <= maxAnswerLength) return ToldText(View().Layouts().Context(), {from, to});
    const TextPos cut = BeforeCharacter(View().Source(), from + maxAnswerLength);
    return ToldText(View().Layouts().Context(), {from, cut});
}

TextSpan AccessibleText::StretchAt(TextPos position, QAccessible::TextBoundaryType type) const {
    if (type != QAccessible::NoBoundary) return UnitAt(View().Layouts(), position, UnitOf(type));
    const TextSource& text = View().Source();
    const TextPos start = position / maxAnswerLength * maxAnswerLength;
    const TextPos end = std::min(text.Length() - start, maxAnswerLength) + start;
    return {BeforeCharacter(text, start), BeforeCharacter(text, end)};
}

QString AccessibleText::Tell(std::optional<TextSpan> stretch, int* start, int* end) const {
    *start = stretch ? stretch->start : -1;
    *end = stretch ? stretch->end : -1;
    return stretch ? ToldText(View().Layouts().Context(), *stretch) : QString();
}

QString AccessibleText::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                         int* end) const {
    const auto place = Place(offset);
    const TextPos behind = place ? StretchAt(*place, type).start : 0;
    return Tell(behind > 0 ? std::optional(StretchAt(behind - 1, type)) : std::nullopt, start, end);
}

QString AccessibleText::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                        int* end) const {
    const auto place = Place(offset);
    const TextPos next = place ? StretchAt(*place, type).end : characterCount();
    const bool more = next < characterCount();
    return Tell(more ? std::optional(StretchAt(next, type)) : std::nullopt, start, end);
}

QString AccessibleText::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                     int* end) const {
    const auto place = Place(offset);
    return Tell(place ? std::optional(StretchAt(*place, type)) : std::nullopt, start, end);
}

QString AccessibleText::attributes(int offset, int* start, int* end) const {
    const auto place = Place(offset);
    *start = *end = -1;
    if (!place) return {};
    const TextPos last = std::max(0, characterCount() - 1);
    const auto told = AttributesAt(View().Layouts(), std::min(*place, last), View().palette());
    *start = told.span.start;
    *end = told.span.end;
    return told.text;
}

void AccessibleText::scrollToSubstring(int start, int end) {
    View().Reveal(PlaceInText(end));
    View().Reveal(PlaceInText(start));
}

QRect AccessibleText::characterRect(int offset) const {
    const auto place = Place(offset);
    if (!place) return {};
    const QRect box = View().CharacterRect(*place);
    return box.isNull() ? box : QRect(View().viewport()->mapToGlobal(box.topLeft()), box.size());
}

int AccessibleText::offsetAtPoint(const QPoint& point) const {
    const QPoint inside = View().viewport()->mapFromGlobal(point);
    if (!View().viewport()->rect().contains(inside)) return -1;
    return View().CharacterAtPoint(inside);
}
