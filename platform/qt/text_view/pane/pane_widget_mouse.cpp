// Mouse, wheel and drop events of the pane widget.
#include "platform/qt/text_view/pane/dropped_paths.h"
#include "platform/qt/text_view/pane/pane_widget.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int linesPerNotch = 3; // per wheel step
} // namespace

void PaneWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPoint point = event->position().toPoint();
    if (OnPress(ToPane(point))) return;
    const int clickTime = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    const bool third =
        sinceDoubleClick_.isValid() && sinceDoubleClick_.elapsed() < clickTime &&
        (point - mouse_).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    sinceDoubleClick_.invalidate();
    mouse_ = point;
    pane_->Click(ToPane(point), third ? 3 : 1, event->modifiers() & Qt::ShiftModifier);
}

void PaneWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    mouse_ = event->position().toPoint();
    sinceDoubleClick_.start();
    pane_->Click(ToPane(mouse_), 2, false);
}

void PaneWidget::SetCursorShape(Qt::CursorShape shape) {
    pointer_ = shape;
    viewport()->setCursor(shape);
}

void PaneWidget::UpdatePointer(Point point) {
    const Qt::CursorShape shape = pane_->IsLink(point) ? Qt::PointingHandCursor : pointer_;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

void PaneWidget::mouseMoveEvent(QMouseEvent* event) {
    UpdatePointer(ToPane(event->position().toPoint()));
    if (!(event->buttons() & Qt::LeftButton)) return event->ignore();
    mouse_ = event->position().toPoint();
    pane_->DragTo(ToPane(mouse_));
}

void PaneWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    pane_->EndDrag();
}

// A click outside the selection moves the caret first.
void PaneWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse)
        return RequestContextMenu(CaretRect().bottomLeft());
    pane_->PrepareContextMenu(ToPane(event->pos()));
    RequestContextMenu(event->pos());
}

void PaneWidget::RequestContextMenu(QPoint point) {
    const QRect inside = viewport()->rect(); // the caret may be out of view
    contextPoint_ = viewport()->mapToGlobal(QPoint(std::clamp(point.x(), 0, inside.right()),
                                                   std::clamp(point.y(), 0, inside.bottom())));
    if (onContextMenu) onContextMenu();
}

// Ctrl+wheel propagates to the window.
void PaneWidget::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) return event->ignore();
    const QPoint pixels = event->pixelDelta(), angle = event->angleDelta();
    if (!pixels.isNull()) {
        pane_->ScrollBy({-ToPixels(pixels.x()), -ToPixels(pixels.y())});
    } else if (std::abs(angle.x()) > std::abs(angle.y())) {
        const int step =
            angle.x() * linesPerNotch * pane_->LineHeight() / QWheelEvent::DefaultDeltasPerStep;
        pane_->ScrollBy({-step, 0});
    } else {
        ScrollByWheel(angle.y());
    }
    pane_->ShowScrollLabel();
    event->accept();
}

void PaneWidget::ScrollByWheel(int angle) {
    wheelRemainder_ += angle * linesPerNotch;
    const int lines = wheelRemainder_ / QWheelEvent::DefaultDeltasPerStep;
    wheelRemainder_ -= lines * QWheelEvent::DefaultDeltasPerStep;
    if (lines != 0) pane_->ScrollLines(-lines);
}

// The scroll bar scrolls by lines like the text.
bool PaneWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != verticalScrollBar() || event->type() != QEvent::Wheel)
        return QAbstractScrollArea::eventFilter(watched, event);
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
}

void PaneWidget::dragEnterEvent(QDragEnterEvent* event) {
    AcceptFileDrag(*event);
}

void PaneWidget::dragMoveEvent(QDragMoveEvent* event) {
    AcceptFileDrag(*event);
}

void PaneWidget::dropEvent(QDropEvent* event) {
    const auto paths = AcceptFileDrop(*event);
    if (!paths.empty() && onFilesDropped) onFilesDropped(paths);
}
