// What the reader does, done to both.
#include "tests/contract/qt/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

#include <QScrollBar>
#include <QWheelEvent>

void Held::Scroll() {
    const TextPos position = Somewhere();
    const int pixels = Below(random_, 600) - 300;
    switch (Below(random_, 3)) {
    case 0: View().ScrollLineToTop(position); return whole_.ShowLine(position);
    case 1: Widget().Scroller().ScrollBy(pixels); return whole_.ScrollBy(pixels);
    default: Widget().Scroller().ScrollToChar(position); return whole_.ScrollToChar(position);
    }
}

void Held::Wheel() {
    const int notches = Below(random_, 7) - 3;
    QWheelEvent event(QPointF(5, 5), Widget().mapToGlobal(QPointF(5, 5)), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(Widget().viewport(), &event);
    if (notches != 0) whole_.ScrollLines(-3 * notches);
}

void Held::Click() {
    const QPoint point(Below(random_, Widget().viewport()->width()),
                       Below(random_, Widget().viewport()->height()));
    const bool extend = OneIn(random_, 3);
    bench_.Mouse(QEvent::MouseButtonPress, point, extend ? Qt::ShiftModifier : Qt::NoModifier);
    bench_.Mouse(QEvent::MouseButtonRelease, point);
    const int x = int(point.x() * Ratio()) - margin_ + Widget().horizontalScrollBar()->value();
    const int y = whole_.Top() + int(point.y() * Ratio());
    Follow(whole_.LineNear(x, y), x, extend);
    whole_.wantedX.reset();
}

// The caret goes where the view has put it, which must be a place meant by the point.
void Held::Follow(const WholeLine& line, int x, bool extend) {
    const TextPos position = Widget().Caret();
    const bool mayBe = whole_.MayBe(line, x, position);
    INFO("from ", x, " to ", position, " in", whole_.Describe(line));
    REQUIRE(mayBe);
    whole_.caret = position;
    if (!extend) whole_.anchor = position;
}

void Held::SelectSome() {
    const TextPos from = Somewhere();
    const TextPos length = std::min(Size() - from, Below(random_, OneIn(random_, 4) ? 5000 : 200));
    View().Select(from, length);
    whole_.anchor = from;
    whole_.caret = from + length;
    whole_.wantedX.reset();
}

void Held::Press() {
    static constexpr int keys[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                                   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                   Qt::Key_Space,  Qt::Key_PageDown};
    const int key = keys[random_() % std::size(keys)];
    const bool vertical = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                          key == Qt::Key_PageDown;
    const bool control = !vertical && key != Qt::Key_Space && OneIn(random_, 4);
    const bool shift = OneIn(random_, 4);
    done_ = "key " + std::to_string(key) + (control ? ", control" : "") + (shift ? ", shift" : "") +
            ", caret " + std::to_string(whole_.caret) + " in" +
            whole_.Describe(Whole().LineOf(whole_.caret));
    REQUIRE(bench_.Press(key, (control ? Qt::ControlModifier : Qt::NoModifier) |
                                  (shift ? Qt::ShiftModifier : Qt::NoModifier)));
    if (key == Qt::Key_Space) return whole_.ScrollPage(!shift);
    if (vertical) return GoVertically(key, shift);
    GoSideways(key, control, shift);
}

void Held::GoSideways(int key, bool control, bool extend) {
    whole_.wantedX.reset();
    const auto [start, end] = std::minmax({whole_.anchor, whole_.caret});
    const bool arrow = key == Qt::Key_Left || key == Qt::Key_Right;
    moved_ = !(arrow && !control && !extend && start != end);
    if (moved_) {
        const auto target = whole_.KeyTarget(key, control);
        whole_.caret = target.value_or(Widget().Caret());
        if (!extend) whole_.anchor = whole_.caret;
    } else { // the selection is given up, and may have been within a character
        whole_.caret = whole_.anchor = key == Qt::Key_Left ? start : end;
    }
    whole_.ShowCaret(false);
}

void Held::GoVertically(int key, bool extend) {
    if (!whole_.wantedX) whole_.wantedX = whole_.CaretBox(whole_.caret).x();
    const int x = *whole_.wantedX;
    const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool down = key == Qt::Key_PageDown || key == Qt::Key_Down;
    const WholeLine* line = nullptr;
    if (page)
        line = whole_.TurnPage(down);
    else
        line = down ? &whole_.LineBelow(x) : &whole_.LineAbove(x);
    const bool stays = !page && line->start == Whole().LineOf(whole_.caret).start;
    if (!line)
        whole_.caret = down ? Size() : 0;
    else if (!stays)
        Follow(*line, x, extend);
    if (!extend) whole_.anchor = whole_.caret;
    whole_.ShowCaret(page);
}
