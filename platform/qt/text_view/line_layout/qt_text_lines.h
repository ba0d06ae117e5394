// The lines of a paragraph, laid out by QTextLayout.
#pragma once

#include "platform/qt/text_view/line_layout/lay_out_segments.h"
#include "platform/qt/text_view/line_layout/line_places.h"

#include <optional>

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
    TextPos LeftOf(TextPos position) const override { return Beside(position, false); }
    TextPos RightOf(TextPos position) const override { return Beside(position, true); }
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
    const LayoutSegment& SegmentAt(int line) const {
        return segments_[places_[std::size_t(line)].segment];
    }
    QTextLine At(int line) const;
    void DrawText(QPainter& painter, int line, int left, int baseline,
                  const LinePaint& paint) const;
    void DrawLeader(QPainter& painter, int line, const SegmentLeader& leader, int left,
                    int baseline, const LinePaint& paint) const;
    const LinePlaces& PlacesIn(int line) const;
    const LayoutSegment& SegmentOf(TextPos position) const;     // that starts at or before it
    const LayoutSegment& SegmentBefore(TextPos position) const; // that has the unit before it
    int LineOf(TextPos position) const;
    TextPos LastPosition(int line) const;
    std::vector<TextPos> CaretOrder(int line) const;
    TextPos Beside(TextPos position, bool right) const;

    struct CachedLine {
        int index = 0;
        LinePlaces places;
    };
    std::vector<LayoutSegment> segments_;
    std::vector<Place> places_;                // of each line
    mutable std::optional<CachedLine> cached_; // the last one
    bool rightToLeft_ = false;
};
