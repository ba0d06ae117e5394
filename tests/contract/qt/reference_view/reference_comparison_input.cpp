// Input events, applied to both views.
#include "tests/contract/qt/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

#include <QScrollBar>
#include <QWheelEvent>

void ReferenceComparison::Scroll() {
    const TextPos position = Somewhere();
    const int pixels = Below(random_, 600) - 300;
    switch (Below(random_, 3)) {
    case 0: View().ScrollLineToTop(position); return reference_.ScrollLineToTop(position);
    case 1: Widget().Pane().Scroller().ScrollBy(pixels); return reference_.ScrollBy(pixels);
    default:
        Widget().Pane().Scroller().ScrollToPosition(position);
        return reference_.ScrollToPosition(position);
    }
}

void ReferenceComparison::Wheel() {
    const int notches = Below(random_, 7) - 3;
    QWheelEvent event(QPointF(5, 5), Widget().mapToGlobal(QPointF(5, 5)), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(Widget().viewport(), &event);
    if (notches != 0) reference_.ScrollLines(-3 * notches);
}

void ReferenceComparison::Click() {
    const QPoint point(Below(random_, Widget().viewport()->width()),
                       Below(random_, Widget().viewport()->height()));
    const bool extend = OneIn(random_, 3);
    bench_.Mouse(QEvent::MouseButtonPress, point, extend ? Qt::ShiftModifier : Qt::NoModifier);
    bench_.Mouse(QEvent::MouseButtonRelease, point);
    const int x = int(point.x() * Ratio()) - margin_ + Widget().horizontalScrollBar()->value();
    const int y = reference_.Top() + int(point.y() * Ratio());
    Follow(reference_.LineNear(x, y), x, extend);
    reference_.preferredX.reset();
}

// The caret of the view must be a possible position for the point; the reference adopts it.
void ReferenceComparison::Follow(const ReferenceLine& line, int x, bool extend) {
    const TextPos position = Widget().Pane().Caret();
    const bool possible = reference_.IsPossible(line, x, position);
    INFO("from ", x, " to ", position, " in", reference_.Describe(line));
    REQUIRE(possible);
    reference_.caret = position;
    if (!extend) reference_.anchor = position;
}

void ReferenceComparison::SelectSome() {
    const TextPos from = Somewhere();
    const TextPos length = std::min(Size() - from, Below(random_, OneIn(random_, 4) ? 5000 : 200));
    View().Select(from, length);
    reference_.anchor = from;
    reference_.caret = from + length;
    reference_.preferredX.reset();
}

void ReferenceComparison::Press() {
    static constexpr int keys[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                                   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                   Qt::Key_Space,  Qt::Key_PageDown};
    const int key = keys[random_() % std::size(keys)];
    const bool vertical = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                          key == Qt::Key_PageDown;
    const bool control = !vertical && key != Qt::Key_Space && OneIn(random_, 4);
    const bool shift = OneIn(random_, 4);
    done_ = "key " + std::to_string(key) + (control ? ", control" : "") + (shift ? ", shift" : "") +
            ", caret " + std::to_string(reference_.caret) + " in" +
            reference_.Describe(Reference().LineOf(reference_.caret));
    REQUIRE(bench_.Press(key, (control ? Qt::ControlModifier : Qt::NoModifier) |
                                  (shift ? Qt::ShiftModifier : Qt::NoModifier)));
    if (key == Qt::Key_Space) return reference_.ScrollPage(!shift);
    if (vertical) return GoVertically(key, shift);
    GoSideways(key, control, shift);
}

void ReferenceComparison::GoSideways(int key, bool control, bool extend) {
    reference_.preferredX.reset();
    const auto [start, end] = std::minmax({reference_.anchor, reference_.caret});
    const bool arrow = key == Qt::Key_Left || key == Qt::Key_Right;
    moved_ = !(arrow && !control && !extend && start != end);
    if (moved_) {
        const auto target = reference_.KeyTarget(key, control);
        reference_.caret = target.value_or(Widget().Pane().Caret());
        if (!extend) reference_.anchor = reference_.caret;
    } else { // collapsing the selection may leave the caret within a grapheme cluster
        reference_.caret = reference_.anchor = key == Qt::Key_Left ? start : end;
    }
    reference_.ShowCaret(false);
}

void ReferenceComparison::GoVertically(int key, bool extend) {
    if (!reference_.preferredX) reference_.preferredX = reference_.CaretBox(reference_.caret).x();
    const int x = *reference_.preferredX;
    const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool down = key == Qt::Key_PageDown || key == Qt::Key_Down;
    const ReferenceLine* line = nullptr;
    if (page)
        line = reference_.TurnPage(down);
    else
        line = down ? &reference_.LineBelow(x) : &reference_.LineAbove(x);
    const bool stays = !page && line->start == Reference().LineOf(reference_.caret).start;
    if (!line)
        reference_.caret = down ? Size() : 0;
    else if (!stays)
        Follow(*line, x, extend);
    if (!extend) reference_.anchor = reference_.caret;
    reference_.ShowCaret(page);
}
