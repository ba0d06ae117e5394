// The lines of a paragraph, laid out by QTextLayout.
#pragma once

#include "platform/qt/text_view/line_layout/layout_segment.h"

class QtTextLines : public TextLines {
  public:
    QtTextLines(const ParagraphText& paragraph, QPaintDevice& device);

    const std::vector<LayoutSegment>& Segments() const { return segments_; }
    int Count() const override { return int(places_.size()); }
    const TextLine& Line(int index) const override;

    double CaretX(int line, TextPos position) const override;
    TextPos PositionAt(int line, double x) const override;
    TextPos CharacterAt(int line, double x) const override;
    TextExtent CharacterExtent(int line, TextPos position) const override;
    std::vector<TextExtent> Extents(int line, TextPos start, TextPos end) const override;

    TextPos NextPosition(TextPos position) const override;
    TextPos PreviousPosition(TextPos position) const override;
    TextPos LeftOf(TextPos position) const override;
    TextPos RightOf(TextPos position) const override;
    TextPos NextWord(TextPos position) const override;
    TextPos PreviousWord(TextPos position) const override;
    CharSpan WordAt(TextPos position) const override;

    void Draw(Canvas& canvas, int line, int left, int baseline,
              const LinePaint& paint) const override;

  private:
    // A line of a segment.
    struct Place {
        std::size_t segment = 0;
        int line = 0;
    };
    // A line as QTextLayout has it. Positions are relative to the segment, 0 of x is `shift`.
    struct LaidOut {
        const LayoutSegment& segment;
        const QTextLayout& layout;
        QTextLine line;
        double shift = 0;
    };
    using Step = int (QTextLayout::*)(int) const;

    LaidOut At(int line) const;
    const LayoutSegment& SegmentOf(TextPos position) const;     // that starts at or before it
    const LayoutSegment& SegmentBefore(TextPos position) const; // that has the unit before it
    int LineOf(TextPos position) const;
    TextPos LastPosition(int line) const;
    TextPos VisibleEnd(int line) const; // where trailing spaces of a wrapped line begin
    TextExtent WholeExtent(int line) const;
    std::vector<TextExtent> CharacterExtents(int line, TextPos start, TextPos end) const;
    TextPos ReportedAt(int line, double x, QTextLine::CursorPosition kind) const;
    TextPos VisualStep(TextPos from, Step step, bool forward) const;

    std::vector<LayoutSegment> segments_;
    std::vector<Place> places_; // of each line
    bool rightToLeft_ = false;
};
