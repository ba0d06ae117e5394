// The scroll position: the line at the top of the view. Stored as a character position, so that it
// survives a new layout.
#pragma once

#include "view/text_layouts.h"

#include <algorithm>
#include <optional>

// A vertical position in the text: pixels from the top of the block that starts at `block`.
struct VerticalPos {
    TextPos block = 0;
    int y = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): in what the compiler makes
    auto operator<=>(const VerticalPos&) const = default;
};

class TextScroller {
  public:
    explicit TextScroller(TextLayouts& layouts); // must outlive this object
    void SetViewHeight(int pixels) { viewHeight_ = std::max(1, pixels); }
    int ViewHeight() const { return viewHeight_; }
    void LayoutsChanged() { maxTopValid_ = false; }
    // After a resize: if the text was scrolled to its end, the last line stays at the bottom.
    void KeepEndAtBottom();

    // Even if the text below does not fill the view.
    void ScrollLineToTop(TextPos position);
    TextPos FirstVisibleChar(); // of the first line of which at least half is visible

    // Scrolling by the user, between the first line at the top and the last one at the bottom.
    void ScrollBy(int pixels);
    void ScrollLines(int lines, int lineHeight); // aligned to a line's top
    // By a page, aligned to a line's top. No line is skipped: at least one line of that height
    // stays in view.
    void ScrollPage(bool down, int lineHeight);
    void Reveal(TextPos position); // scrolls as little as possible

    // Whether the line of `position` is higher than the view and partly visible.
    bool IsTallAndVisible(TextPos position);
    void ScrollTo(VerticalPos top); // to the view's top edge

    VerticalPos Top();
    VerticalPos Moved(VerticalPos from, int pixels); // clamped to the text
    TextPos LineStartAt(VerticalPos height);
    // `below` pixels from the view's top edge, moved into the nearest line that is fully visible.
    VerticalPos NearestWholeLine(int below);
    // Pixels from the view's top edge to the top of the block that contains `position`; none if no
    // part of that block is visible.
    std::optional<int> BlockTopInView(TextPos position);

    // For the scroll bar: vertical positions as text positions, interpolated within a line.
    TextPos TopAsPosition();
    TextPos BottomAsPosition(); // of the view's bottom edge
    TextPos MaxTopAsPosition();
    void ScrollToPosition(TextPos position);

  private:
    struct Line {
        VerticalPos top, bottom;
        int height = 0;
    };
    Line LineAt(VerticalPos height);
    VerticalPos MaxTop(); // with the last line at the bottom of the view
    TextPos AsPosition(VerticalPos height);

    TextLayouts& layouts_;
    TextPos position_ = 0; // a character of the top line
    int hiddenPixels_ = 0; // pixels of that line above the view
    bool pinned_ = true;   // set by ScrollLineToTop, which may leave room below the text
    int viewHeight_ = 1;
    VerticalPos maxTop_; // valid if maxTopValid_
    bool maxTopValid_ = false;
};
