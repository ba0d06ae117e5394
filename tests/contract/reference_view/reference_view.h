// The expected behaviour of the text view: scroll position, caret, and the effect of keys and
// scrolling. Lengths are device pixels.
#pragma once

#include "tests/contract/reference_view/reference_text.h"
#include "view/view_pane.h"

#include <optional>

class ReferenceView {
  public:
    ReferenceSettings settings;
    int viewHeight = 1, lineHeight = 1; // of lines in the view's font
    TextPos anchor = 0, caret = 0;
    std::optional<int> preferredX;

    void Load(); // applies the settings and starts at the top
    void Relayout();
    const ReferenceText& Reference() const { return reference_; }

    int Top() const;
    TextPos FirstVisible() const;
    Rect CaretBox(TextPos position) const;

    void ScrollLineToTop(TextPos position);
    void ScrollBy(int pixels);
    void ScrollLines(int lines);
    void ScrollPage(bool down);
    void ScrollToPosition(TextPos position);
    void Reveal(TextPos position);
    void KeepEndAtBottom();

    // The line that a click or a vertical movement leads to, and whether a position is possible for
    // it. In a bidirectional line any position is.
    const ReferenceLine& LineNear(int x, int y) const;
    bool IsPossible(const ReferenceLine& line, int x, TextPos position) const;
    TextPos LastCaretPosition(const ReferenceLine& line) const;
    bool IsUnidirectional(const ReferenceLine& line) const;
    // Its text, and the positions of its characters.
    std::string Describe(const ReferenceLine& line) const;

    // Not for vertical keys; none if any position is possible.
    std::optional<TextPos> KeyTarget(PaneKey key, bool control) const;
    const ReferenceLine& LineAbove(int x) const;
    const ReferenceLine& LineBelow(int x) const;
    // Scrolls a page; returns the caret's new line, or null if it moves to the start or end of the
    // text.
    const ReferenceLine* TurnPage(bool down);
    void ShowCaret(bool afterPage);

  private:
    int MaxTop() const { return std::max(0, reference_.height - viewHeight); }
    int Moved(int y) const { return std::clamp(y, 0, reference_.height); }
    void SetTop(int y);
    TextPos Next(bool forward, bool words) const;
    const ReferenceLine& LineIn(const ReferenceParagraph& paragraph, int y) const;

    ReferenceText reference_;
    TextPos topChar_ = 0;
    int hidden_ = 0;
    bool placed_ = true;
};
