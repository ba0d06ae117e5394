// What the text view must show and do, told from the whole text: where it is scrolled to, where the
// caret is, and what keys and scrolling change. Heights and widths in the screen's pixels.
#pragma once

#include "tests/contract/qt/reference_view/reference_text.h"

#include <optional>

class WholeView {
  public:
    WholeSetting setting;
    int viewHeight = 1, lineHeight = 1; // lines of the view's own font
    TextPos anchor = 0, caret = 0;
    std::optional<int> wantedX;

    void Load(); // what is set, from its start
    void Relayout();
    const WholeText& Whole() const { return whole_; }

    int Top() const;
    TextPos FirstVisible() const;
    QRect CaretBox(TextPos position) const;

    void ShowLine(TextPos position);
    void ScrollBy(int pixels);
    void ScrollLines(int lines);
    void ScrollPage(bool down);
    void ScrollToChar(TextPos position);
    void Reveal(TextPos position);
    void SettleAtEnd();

    // The line that a click or a vertical key at a point leads to, and whether a position is the
    // one that is meant in it. Where a line goes both ways any place in it may be.
    const WholeLine& LineNear(int x, int y) const;
    bool MayBe(const WholeLine& line, int x, TextPos position) const;
    TextPos LastPlace(const WholeLine& line) const;
    bool GoesOneWay(const WholeLine& line) const;
    std::string Describe(const WholeLine& line) const; // its text, and where its characters are

    // A key that is not vertical; none where any place may be meant.
    std::optional<TextPos> KeyTarget(int key, bool control) const;
    const WholeLine& LineAbove(int x) const;
    const WholeLine& LineBelow(int x) const;
    // Scrolls a page; the line in which the caret is then, or none where it goes to the text's end.
    const WholeLine* TurnPage(bool down);
    void ShowCaret(bool afterPage);

  private:
    int LastTop() const { return std::max(0, whole_.height - viewHeight); }
    int Moved(int y) const { return std::clamp(y, 0, whole_.height); }
    void SetTop(int y);
    TextPos Next(bool forward, QTextLayout::CursorMode mode) const;
    const WholeLine& LineIn(const WholeParagraph& paragraph, int y) const;

    WholeText whole_;
    TextPos topChar_ = 0;
    int hidden_ = 0;
    bool placed_ = true;
};
