#include "view/page/multi_columns.h"

#include "formats/css/css_rare_style.h"
#include "view/page/block_flow.h"
#include "view/page/column_breaks.h"

#include <algorithm>
#include <cmath>

namespace {
double GapOf(const BoxMeasure& measure, const PageBox& box, double width) {
    const CssLength& gap = box.style->rare->columnGap;
    return gap.IsAuto() ? box.text->fontSize * measure.Scale() : measure.Length(gap, width);
}

class ColumnLayouter {
  public:
    ColumnLayouter(PageLayouter& layouter, PageBoxId container, double width,
                   std::optional<InlineEdges> positioned)
        : layouter_(layouter), container_(container), box_(layouter.Box(container)),
          style_(*box_.style->rare), width_(width), positioned_(positioned) {
        const BoxMeasure& measure = layouter_.Measure();
        const double em = box_.text->fontSize * measure.Scale();
        gap_ = GapOf(measure, box_, width);
        const double narrowest = std::max(em, measure.Length(style_.columnWidth, width));
        const double maxCount = std::max(1.0, std::floor((width + gap_) / (narrowest + gap_)));
        const bool isCounted = style_.columnCount >= 1;
        count_ = std::size_t(isCounted ? std::min(double(style_.columnCount), maxCount) : maxCount);
        columnWidth_ = (width + gap_) / double(count_) - gap_;
    }

    double Run(PageFragment& result) {
        if (count_ > 1 && LayOut(result)) return top_;
        result = {};
        top_ = 0;
        count_ = 1;
        columnWidth_ = width_;
        LayOut(result);
        return top_;
    }

  private:
    // Stretches of columns, and what stands across all of them between these. False where they
    // are too high.
    bool LayOut(PageFragment& result) {
        if (box_.kind == PageBoxKind::Lines) return AddStretch(container_, container_, result);
        PageBoxId from = container_ + 1;
        for (PageBoxId child = layouter_.Boxes().FirstChild(container_);
             count_ > 1 && child != noPageBox; child = layouter_.Box(child).nextSibling) {
            if (layouter_.Box(child).style->rare->columnSpan != CssColumnSpan::All) continue;
            if (!AddStretch(from, child, result)) return false;
            AddAcross(child, result);
            from = layouter_.Box(child).end;
        }
        return AddStretch(from, box_.end, result);
    }

    // All of a container of lines, or the boxes from one up to another.
    double Flow(PageBoxId from, PageBoxId end, double width, PageFragment& text) {
        BlockFlow flow(layouter_, container_, {0, width}, text, positioned_);
        if (from == container_)
            flow.LayOutContent();
        else
            flow.LayOut(from, end);
        flow.Finish();
        return flow.Bottom();
    }

    void AddAcross(PageBoxId box, PageFragment& result) {
        const FragmentMark before = EndOf(result);
        const double height = Flow(box, layouter_.Box(box).end, width_, result);
        MoveSince(before, 0, top_, result);
        top_ += height;
    }

    bool AddStretch(PageBoxId from, PageBoxId end, PageFragment& result) {
        if (from == end && from != container_) return true;
        PageFragment text;
        const double height = Flow(from, end, columnWidth_, text);
        auto chunks = ColumnChunksOf(text, layouter_.Boxes(), container_);
        if (count_ == 1 || chunks.empty()) {
            Add(std::move(text), result);
            top_ += height;
            return true;
        }
        chunks.front().top = std::min(chunks.front().top, 0.0); // its margin holds
        const ColumnBreaks breaks = Balanced(chunks, count_, height);
        if (breaks.height > maxColumnHeight * layouter_.Measure().Scale()) return false;
        breaks_ = &breaks.columns;
        MoveIntoColumns(text);
        AddRules(breaks.height, text);
        Add(std::move(text), result);
        top_ += breaks.height;
        return true;
    }

    std::size_t ColumnOf(double height) const {
        std::size_t column = breaks_->size() - 1;
        while (column > 0 && height < (*breaks_)[column].top)
            --column;
        return column;
    }
    double Left(std::size_t column) const {
        const bool rightToLeft = box_.text->direction == CssDirection::RightToLeft;
        return double(rightToLeft ? count_ - 1 - column : column) * (columnWidth_ + gap_);
    }

    template <class Placed>
    void Move(Placed& placed, double middle) const {
        const std::size_t column = ColumnOf(middle);
        placed.left += Left(column);
        placed.top -= (*breaks_)[column].top;
    }

    void MoveIntoColumns(PageFragment& text) const {
        for (PlacedLines& lines : text.lines)
            for (InlineLine& line : lines.layout.lines) {
                const double top = line.top;
                Move(line, top + line.height / 2);
                line.baseline += line.top - top;
            }
        for (PlacedPart& part : text.parts)
            Move(part, part.top + part.fragment->height / 2);
        for (PlacedImage& picture : text.pictures)
            Move(picture, picture.top + picture.height / 2);
        std::vector<PlacedBox> divided;
        for (const PlacedBox& box : text.boxes)
            Divide(box, divided);
        text.boxes = std::move(divided);
    }

    // In the middle of each gap that has text on both sides.
    void AddRules(double height, PageFragment& text) const {
        const double width = style_.columnRuleWidth * layouter_.Measure().Scale();
        for (std::size_t i = 1; width > 0 && i < breaks_->size(); ++i) {
            PlacedBox rule;
            rule.box = container_;
            rule.isColumnRule = true;
            rule.left = std::min(Left(i - 1), Left(i)) + columnWidth_ + (gap_ - width) / 2;
            rule.width = width;
            rule.height = height;
            text.boxes.push_back(rule);
        }
    }

    // A part of the box in each column that it is in.
    void Divide(const PlacedBox& box, std::vector<PlacedBox>& divided) const {
        const double bottom = box.top + box.height;
        const std::size_t first = ColumnOf(box.top);
        for (std::size_t i = first; i < breaks_->size(); ++i) {
            const ColumnChunk& column = (*breaks_)[i];
            const bool isLast = i + 1 == breaks_->size() || bottom <= (*breaks_)[i + 1].top;
            PlacedBox part = box;
            part.beginsAbove = box.beginsAbove || i > first;
            part.endsBelow = box.endsBelow || !isLast;
            const double top = std::max(box.top, column.top);
            part.left += Left(i);
            part.top = top - column.top;
            part.height = std::max(0.0, (isLast ? bottom : column.bottom) - top);
            divided.push_back(part);
            if (isLast) return;
        }
    }

    void Add(PageFragment text, PageFragment& result) const {
        MoveSince({}, 0, top_, text);
        const auto append = [](auto& all, auto& added) {
            std::move(added.begin(), added.end(), std::back_inserter(all));
        };
        append(result.boxes, text.boxes);
        append(result.pictures, text.pictures);
        append(result.lines, text.lines);
        append(result.parts, text.parts);
    }

    PageLayouter& layouter_;
    const PageBoxId container_;
    const PageBox& box_;
    const CssRareStyle& style_;
    const double width_;
    const std::optional<InlineEdges> positioned_;
    double gap_ = 0, columnWidth_ = 0;
    std::size_t count_ = 1;
    double top_ = 0;                                   // of what is next
    const std::vector<ColumnChunk>* breaks_ = nullptr; // of the stretch that is added
};
} // namespace

bool HasColumns(const PageBox& box) {
    const bool isBlock = box.kind == PageBoxKind::Block || box.kind == PageBoxKind::Lines;
    return isBlock && box.style->rare->HasColumns() &&
           box.style->innerLayout == CssInnerLayout::Flow;
}

double LayOutInColumns(PageLayouter& layouter, PageBoxId container, double width,
                       std::optional<InlineEdges> positioned, PageFragment& result) {
    return ColumnLayouter(layouter, container, width, positioned).Run(result);
}

WidthExtent ExtentInColumns(const PageLayouter& layouter, PageBoxId container, WidthExtent column) {
    const PageBox& box = layouter.Box(container);
    const CssRareStyle& style = *box.style->rare;
    if (style.columnCount < 1) return column;
    const double gap = GapOf(layouter.Measure(), box, 0);
    constexpr float manyColumns = 100;
    const double count = std::min(style.columnCount, manyColumns);
    return {column.min, column.max * count + gap * (count - 1)};
}
