// Which line is at the top of the view. Kept as a character, so it stays when lines break
// elsewhere.
#pragma once

#include "platform/qt/text_view/layout/text_layouts.h"

#include <optional>

// A height in the text: pixels from the top of the block that starts at `block`.
struct TextHeight {
    TextPos block = 0;
    int y = 0;
    auto operator<=>(const TextHeight&) const = default;
};

class TextScroller {
  public:
    explicit TextScroller(TextLayouts& layouts); // observed
    void SetViewHeight(int pixels) { viewHeight_ = std::max(1, pixels); }
    int ViewHeight() const { return viewHeight_; }
    void LayoutsChanged() { bottomKnown_ = false; }
    // After a change of size: where the reader had scrolled to the end, the last line stays at the
    // bottom instead of going up with the top.
    void SettleAtEnd();

    // The line of `position` exactly at the top, also where the text below does not fill the view.
    void ShowLine(TextPos position);
    TextPos FirstVisibleChar(); // of the first line that is seen at least by half

    // The reader's own scrolling: between the first line at the top and the last one at the bottom.
    void ScrollBy(int pixels);
    void ScrollLines(int lines, int lineHeight); // by so many lines of that height, to a line's top
    // A page up or down, to a line's top, so that nothing is passed unseen: one line of that height
    // stays in view, more where lines are higher.
    void ScrollPage(bool down, int lineHeight);
    void Reveal(TextPos position); // by the least that shows the line of `position`

    // Whether the line of `position` is higher than the view and a part of it is seen.
    bool IsHighAndSeen(TextPos position);
    void ShowHeight(TextHeight top); // at the view's top edge

    TextHeight Top();
    TextHeight Moved(TextHeight from, int pixels); // kept within the text
    TextPos LineStartAt(TextHeight height);
    // So many pixels below the view's top edge, or in the nearest line that is seen whole.
    TextHeight InWholeLine(int below);
    // Pixels from the view's top edge to the top of the block that holds `position`; none when no
    // part of the block is seen.
    std::optional<int> ViewTopOf(TextPos position);

    // For a scroll bar: heights as characters, a part of a line as a part of its characters.
    TextPos TopAsChar();
    TextPos BottomAsChar(); // of the view's lower edge
    TextPos LastTopAsChar();
    void ScrollToChar(TextPos position);

  private:
    struct Line {
        TextHeight top, bottom;
        int height = 0;
    };
    Line LineAt(TextHeight height);
    TextHeight LastTop(); // with the text's last line at the bottom of the view
    TextPos AsChar(TextHeight height);

    TextLayouts& layouts_;
    TextPos position_ = 0; // a character of the top line
    int hidden_ = 0;       // pixels of that line above the view's edge
    bool placed_ = true;   // by ShowLine, which may leave room below the text
    int viewHeight_ = 1;
    TextHeight lastTop_; // as long as bottomKnown_
    bool bottomKnown_ = false;
};
