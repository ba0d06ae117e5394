// A paragraph in lines, laid out by Uniscribe. All x are whole pixels, as GDI draws them.
#pragma once

#include "platform/windows/line_layout/line_breaker.h"

class WinTextLines : public TextLines {
  public:
    WinTextLines(WinFonts&, const ParagraphText&);

    int Count() const override { return static_cast<int>(lines_.size()); }
    const TextLine& Line(int index) const override { return At(index).line; }

    double CaretX(int index, TextPos position) const override;
    TextPos PositionAt(int index, double x) const override;
    TextPos CharacterAt(int index, double x) const override;
    TextExtent CharacterExtent(int index, TextPos position) const override;
    std::vector<TextExtent> Extents(int index, TextPos start, TextPos end) const override;

    TextPos NextPosition(TextPos position) const override;
    TextPos PreviousPosition(TextPos position) const override;
    TextPos LeftOf(TextPos position) const override { return Beside(position, false); }
    TextPos RightOf(TextPos position) const override { return Beside(position, true); }
    TextPos NextWord(TextPos position) const override;
    TextPos PreviousWord(TextPos position) const override;
    CharSpan WordAt(TextPos position) const override;

    void Draw(Canvas&, int line, int left, int baseline, const LinePaint&) const override;

  private:
    const BrokenLine& At(int line) const { return lines_[static_cast<std::size_t>(line)]; }
    std::size_t Limit(TextPos position) const; // to the text
    int LineOf(std::size_t position) const;
    int WidthOf(std::size_t start, std::size_t end) const { return before_[end] - before_[start]; }
    int EdgeX(const VisualPiece&, std::size_t unit) const; // where it begins
    std::size_t CaretIn(const VisualPiece&, double x) const;
    std::size_t CaretFrom(std::size_t unit) const; // at or after it
    std::size_t CaretTo(std::size_t unit) const;   // at or in front of it
    std::vector<TextPos> PlacesByX(int index) const;
    TextPos Beside(TextPos position, bool right) const;

    TextUnits text_;
    ShapedText shaped_;
    std::vector<StyledRun> styles_;
    std::vector<BrokenLine> lines_;
    std::vector<int> before_; // the widths of all units in front of each
};
