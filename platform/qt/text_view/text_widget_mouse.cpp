// The mouse, the wheel and drops of the text widget.
#include "platform/qt/text_view/dropped_paths.h"
#include "platform/qt/text_view/text_widget.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int linesPerNotch = 3, notch = 120; // of a wheel, in eighths of a degree
constexpr int autoScrollInterval = 40;        // milliseconds

const QString uriList = QStringLiteral("text/uri-list");
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
    firstUnit_ = {anchor_, anchor_};
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
    firstUnit_ = UnitAround(position);
    Select(firstUnit_.start, firstUnit_.end);
}

// By whole words or paragraphs when the drag began with a double or triple click.
void TextWidget::ExtendByMouse(QPoint point) {
    const TextSpan unit = UnitAround(PositionAtPoint(point));
    if (unit.start < firstUnit_.start)
        Select(firstUnit_.end, unit.start);
    else
        Select(firstUnit_.start, std::max(unit.end, firstUnit_.end));
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

// The further outside the mouse is held, the faster.
void TextWidget::AutoScroll() {
    const QRect inside = viewport()->rect();
    const int below = std::max(0, mouse_.y() - inside.bottom()) - std::max(0, -mouse_.y());
    const int right = std::max(0, mouse_.x() - inside.right()) - std::max(0, -mouse_.x());
    Scroller().ScrollBy(Pixels(below));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + Pixels(right));
    ExtendByMouse(mouse_);
    ShowScrolled();
}

// A click outside the selection moves the caret there first.
void TextWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse)
        return AskForContextMenu(CaretRect().bottomLeft());
    const TextPos position = PositionAtPoint(event->pos());
    if (position < SelStart() || position >= SelEnd()) Select(position, position);
    AskForContextMenu(event->pos());
}

void TextWidget::AskForContextMenu(QPoint point) {
    const QRect inside = viewport()->rect(); // the caret may be elsewhere
    contextPoint_ = viewport()->mapToGlobal(QPoint(std::clamp(point.x(), 0, inside.right()),
                                                   std::clamp(point.y(), 0, inside.bottom())));
    if (onContextMenu) onContextMenu();
}

// Ctrl with the wheel is the window's business.
void TextWidget::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) return event->ignore();
    const QPoint pixels = event->pixelDelta(), angle = event->angleDelta();
    if (!pixels.isNull()) {
        Scroller().ScrollBy(-Pixels(pixels.y()));
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - Pixels(pixels.x()));
    } else if (std::abs(angle.x()) > std::abs(angle.y())) {
        const int step = angle.x() * linesPerNotch * LineHeight() / notch;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - step);
    } else {
        ScrollByWheel(angle.y());
    }
    ShowScrolled();
    event->accept();
}

void TextWidget::ScrollByWheel(int angle) {
    wheelRest_ += angle * linesPerNotch;
    const int lines = wheelRest_ / notch;
    wheelRest_ -= lines * notch;
    if (lines != 0) Scroller().ScrollLines(-lines, LineHeight());
}

// The wheel does the same over the scroll bar as over the text.
bool TextWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != verticalScrollBar() || event->type() != QEvent::Wheel)
        return QAbstractScrollArea::eventFilter(watched, event);
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
}

void TextWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(uriList)) event->acceptProposedAction();
}

void TextWidget::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasFormat(uriList)) event->acceptProposedAction();
}

void TextWidget::dropEvent(QDropEvent* event) {
    const auto paths = DroppedPaths(event->mimeData()->data(uriList));
    if (paths.empty()) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (onFilesDropped) onFilesDropped(paths);
}
