// Input events, applied to both views.
#include "tests/contract/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

void ReferenceComparison::Scroll() {
    const TextPos position = Somewhere();
    const int pixels = Below(random_, 600) - 300;
    switch (Below(random_, 3)) {
    case 0: view_.ScrollLineToTop(position); return reference_.ScrollLineToTop(position);
    case 1: Pane().Scroller().ScrollBy(pixels); return reference_.ScrollBy(pixels);
    default:
        Pane().Scroller().ScrollToPosition(position);
        return reference_.ScrollToPosition(position);
    }
}

void ReferenceComparison::Wheel() {
    const int notches = Below(random_, 7) - 3;
    Pane().ScrollLines(-3 * notches);
    reference_.ScrollLines(-3 * notches);
}

void ReferenceComparison::Click() {
    const Point point{Below(random_, Room().width), Below(random_, Room().height)};
    const bool extend = OneIn(random_, 3);
    const int x = Pane().ToTextX(point.x);
    const int y = reference_.Top() + point.y;
    Pane().Click(point, 1, extend);
    Pane().EndDrag();
    Follow(reference_.LineNear(x, y), x, extend);
    reference_.preferredX.reset();
}

// The caret of the view must be a possible position for the point; the reference adopts it.
void ReferenceComparison::Follow(const ReferenceLine& line, int x, bool extend) {
    const TextPos position = Pane().Caret();
    const bool possible = reference_.IsPossible(line, x, position);
    INFO("from ", x, " to ", position, " in", reference_.Describe(line));
    REQUIRE(possible);
    reference_.caret = position;
    if (!extend) reference_.anchor = position;
}

void ReferenceComparison::SelectSome() {
    const TextPos from = Somewhere();
    const TextPos length =
        std::min(Length() - from, Below(random_, OneIn(random_, 4) ? 5000 : 200));
    view_.Select(from, length);
    reference_.anchor = from;
    reference_.caret = from + length;
    reference_.preferredX.reset();
}

void ReferenceComparison::Press() {
    static constexpr PaneKey keys[] = {
        PaneKey::Left,     PaneKey::Right, PaneKey::Up,  PaneKey::Down,  PaneKey::PageUp,
        PaneKey::PageDown, PaneKey::Home,  PaneKey::End, PaneKey::Space, PaneKey::PageDown};
    const PaneKey key = keys[random_() % std::size(keys)];
    const bool vertical = key == PaneKey::Up || key == PaneKey::Down || key == PaneKey::PageUp ||
                          key == PaneKey::PageDown;
    const bool control = !vertical && key != PaneKey::Space && OneIn(random_, 4);
    const bool shift = OneIn(random_, 4);
    done_ = "key " + std::to_string(int(key)) + (control ? ", control" : "") +
            (shift ? ", shift" : "") + ", caret " + std::to_string(reference_.caret) + " in" +
            reference_.Describe(Reference().LineOf(reference_.caret));
    REQUIRE(Pane().Press(key, shift, control));
    if (key == PaneKey::Space) return reference_.ScrollPage(!shift);
    if (vertical) return GoVertically(key, shift);
    GoSideways(key, control, shift);
}

void ReferenceComparison::GoSideways(PaneKey key, bool control, bool extend) {
    reference_.preferredX.reset();
    const auto [start, end] = std::minmax({reference_.anchor, reference_.caret});
    const bool arrow = key == PaneKey::Left || key == PaneKey::Right;
    moved_ = !(arrow && !control && !extend && start != end);
    if (moved_) {
        const auto target = reference_.KeyTarget(key, control);
        reference_.caret = target.value_or(Pane().Caret());
        if (!extend) reference_.anchor = reference_.caret;
    } else { // collapsing the selection may leave the caret within a grapheme cluster
        reference_.caret = reference_.anchor = key == PaneKey::Left ? start : end;
    }
    reference_.ShowCaret(false);
}

void ReferenceComparison::GoVertically(PaneKey key, bool extend) {
    if (!reference_.preferredX) reference_.preferredX = reference_.CaretBox(reference_.caret).left;
    const int x = *reference_.preferredX;
    const bool page = key == PaneKey::PageUp || key == PaneKey::PageDown;
    const bool down = key == PaneKey::PageDown || key == PaneKey::Down;
    const ReferenceLine* line = nullptr;
    if (page)
        line = reference_.TurnPage(down);
    else
        line = down ? &reference_.LineBelow(x) : &reference_.LineAbove(x);
    const bool stays = !page && line->start == Reference().LineOf(reference_.caret).start;
    if (!line)
        reference_.caret = down ? Length() : 0;
    else if (!stays)
        Follow(*line, x, extend);
    if (!extend) reference_.anchor = reference_.caret;
    reference_.ShowCaret(page);
}
