// The answers of the headless line layout about a paragraph in lines.
#pragma once

#include "platform/none/none_line_breaker.h"

class NoneCanvas;

class NoneTextLines : public TextLines {
  public:
    NoneTextLines(const ParagraphText&, NoneClusters, std::vector<NoneLine>);

    int Count() const override { return int(lines_.size()); }
    const TextLine& Line(int index) const override { return At(index).line; }

    double CaretX(int line, TextPos position) const override;
    TextPos PositionAt(int index, double x) const override;
    TextPos CharacterAt(int index, double x) const override;
    TextExtent CharacterExtent(int line, TextPos position) const override;
    std::vector<TextExtent> Extents(int index, TextPos start, TextPos end) const override;

    TextPos NextPosition(TextPos position) const override;
    TextPos PreviousPosition(TextPos position) const override;
    TextPos LeftOf(TextPos position) const override { return Beside(position, false); }
    TextPos RightOf(TextPos position) const override { return Beside(position, true); }
    TextPos NextWord(TextPos position) const override;
    TextPos PreviousWord(TextPos position) const override;
    CharSpan WordAt(TextPos position) const override;

    // Only what a NoneCanvas records, and the backgrounds of styles.
    void Draw(Canvas&, int index, int left, int baseline, const LinePaint&) const override;

  private:
    const NoneLine& At(int index) const { return lines_[std::size_t(index)]; }
    const NoneCluster& Cluster(std::size_t index) const { return clusters_.all[index]; }
    TextPos Length() const { return TextPos(clusters_.text.size()); }
    int LineOf(TextPos position) const;
    // The cluster around a position that is moved into the line; the line's end at the end.
    std::size_t IndexIn(const NoneLine&, TextPos position) const;
    double CaretX(const NoneLine&, std::size_t index) const;
    std::size_t EndOfPlaces(int line) const;
    // Clusters that the caret can stand in front of, from left to right; the count at the text's
    // end.
    std::vector<std::size_t> CaretPlaces(int index) const;
    TextPos Beside(TextPos position, bool right) const;
    void DrawLeaders(NoneCanvas&, const NoneLine&, int left, int baseline, const LinePaint&) const;
    void FillBackgrounds(Canvas&, const NoneLine&, int left, int baseline, const Rect& clip) const;

    NoneClusters clusters_;
    std::vector<NoneLine> lines_;
    std::vector<StyledRun> runs_; // keeps the styles
    bool rightToLeft_ = false;
};
