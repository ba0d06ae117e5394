// Mouse, wheel and drop events of the text widget.
#include "platform/qt/text_view/dropped_paths.h"
#include "platform/qt/text_view/text_widget.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int linesPerNotch = 3;       // per wheel step
constexpr int autoScrollInterval = 40; // milliseconds
} // namespace

void TextWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPoint point = event->position().toPoint();
    const int clickTime = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    const bool third =
        sinceDoubleClick_.isValid() && sinceDoubleClick_.elapsed() < clickTime &&
        (point - mouse_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    sinceDoubleClick_.invalidate();
    mouse_ = point;
    const TextPos position = PositionAtPoint(point);
    if (third) return SelectUnit(position, Granularity::Paragraph);
    granularity_ = Granularity::Character;
    if (event->modifiers() & Qt::ShiftModifier)
        Select(anchor_, position);
    else
        Select(position, position);
    dragStart_ = {anchor_, anchor_};
}

void TextWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    mouse_ = event->position().toPoint();
    sinceDoubleClick_.start();
    SelectUnit(PositionAtPoint(mouse_), Granularity::Word);
}

TextSpan TextWidget::UnitAround(TextPos position) {
    switch (granularity_) {
    case Granularity::Word: return WordAround(Layouts(), position);
    case Granularity::Paragraph: return ParagraphAround(Layouts(), position);
    case Granularity::Character: break;
    }
    return {position, position};
}

void TextWidget::SelectUnit(TextPos position, Granularity granularity) {
    granularity_ = granularity;
    dragStart_ = UnitAround(position);
    Select(dragStart_.start, dragStart_.end);
}

// By words or paragraphs if the drag started with a double or triple click.
void TextWidget::ExtendByMouse(QPoint point) {
    const TextSpan unit = UnitAround(PositionAtPoint(point));
    if (unit.start < dragStart_.start)
        Select(dragStart_.end, unit.start);
    else
        Select(dragStart_.start, std::max(unit.end, dragStart_.end));
}

void TextWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return event->ignore();
    mouse_ = event->position().toPoint();
    ExtendByMouse(mouse_);
    const bool outside = !viewport()->rect().contains(mouse_);
    if (outside && !autoScroll_.isActive()) autoScroll_.start(autoScrollInterval, this);
    if (!outside) autoScroll_.stop();
}

void TextWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    autoScroll_.stop();
}

// The speed grows with the distance from the viewport.
void TextWidget::AutoScroll() {
    const QRect inside = viewport()->rect();
    const int below = std::max(0, mouse_.y() - inside.bottom()) - std::max(0, -mouse_.y());
    const int right = std::max(0, mouse_.x() - inside.right()) - std::max(0, -mouse_.x());
    Scroller().ScrollBy(Pixels(below));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + Pixels(right));
    ExtendByMouse(mouse_);
    OnScrolled();
}

// A click outside the selection moves the caret first.
void TextWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse)
        return RequestContextMenu(CaretRect().bottomLeft());
    const TextPos position = PositionAtPoint(event->pos());
    if (position < SelStart() || position >= SelEnd()) Select(position, position);
    RequestContextMenu(event->pos());
}

void TextWidget::RequestContextMenu(QPoint point) {
    const QRect inside = viewport()->rect(); // the caret may be out of view
    contextPoint_ = viewport()->mapToGlobal(QPoint(std::clamp(point.x(), 0, inside.right()),
                                                   std::clamp(point.y(), 0, inside.bottom())));
    if (onContextMenu) onContextMenu();
}

// Ctrl+wheel propagates to the window.
void TextWidget::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) return event->ignore();
    const QPoint pixels = event->pixelDelta(), angle = event->angleDelta();
    if (!pixels.isNull()) {
        Scroller().ScrollBy(-Pixels(pixels.y()));
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - Pixels(pixels.x()));
    } else if (std::abs(angle.x()) > std::abs(angle.y())) {
        const int step =
            angle.x() * linesPerNotch * LineHeight() / QWheelEvent::DefaultDeltasPerStep;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - step);
    } else {
        ScrollByWheel(angle.y());
    }
    OnScrolled();
    event->accept();
}

void TextWidget::ScrollByWheel(int angle) {
    wheelRemainder_ += angle * linesPerNotch;
    const int lines = wheelRemainder_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRemainder_ -= lines * QWheelEvent::DefaultDeltasPerStep;
    if (lines != 0) Scroller().ScrollLines(-lines, LineHeight());
}

// The scroll bar scrolls by lines like the text.
bool TextWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != verticalScrollBar() || event->type() != QEvent::Wheel)
        return QAbstractScrollArea::eventFilter(watched, event);
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
}

void TextWidget::dragEnterEvent(QDragEnterEvent* event) {
    AcceptFileDrag(*event);
}

void TextWidget::dragMoveEvent(QDragMoveEvent* event) {
    AcceptFileDrag(*event);
}

void TextWidget::dropEvent(QDropEvent* event) {
    const auto paths = AcceptFileDrop(*event);
    if (!paths.empty() && onFilesDropped) onFilesDropped(paths);
}
