#include "view/page/flex_layout.h"

#include "view/page/item_layout.h"
#include "view/page/side_boxes.h"

#include <algorithm>

namespace {
bool IsColumn(const CssBoxStyle& style) {
    return style.rare->flexDirection >= CssFlexDirection::Column;
}

class FlexLayouter {
  public:
    FlexLayouter(PageLayouter& layouter, PageBoxId container, double width,
                 std::optional<InlineEdges> positioned, PageFragment& result)
        : layouter_(layouter), measure_(layouter.Measure()), container_(container),
          style_(*layouter.Box(container).style), width_(width), result_(result),
          layout_(layouter, container, width, positioned) {}

    double Run() {
        std::vector<Item> items = Items();
        if (IsColumn(style_)) return LayOutColumn(items);
        const double gap = measure_.Length(style_.rare->columnGap, width_);
        const bool wraps = style_.rare->flexWrap != CssFlexWrap::NoWrap;
        std::vector<FlexSpan> lines = FlexLines(Sizes(items), width_, gap, wraps);
        if (isUpwards_) std::reverse(lines.begin(), lines.end());
        double top = 0;
        for (const FlexSpan span : lines) {
            if (top > 0) top += measure_.Length(style_.rare->rowGap, 0);
            const bool isOnly = span.end - span.start == items.size();
            top += LayOutRow({items.begin() + long(span.start), items.begin() + long(span.end)},
                             top, isOnly ? GivenHeight() : 0);
        }
        return top;
    }

    std::vector<ItemPlace> RowOf(PageBoxId id) {
        if (IsColumn(style_)) return {};
        const std::vector<Item> items = Items();
        const std::vector<FlexSize> sizes = Sizes(items);
        const double gap = measure_.Length(style_.rare->columnGap, width_);
        const bool wraps = style_.rare->flexWrap != CssFlexWrap::NoWrap;
        for (const FlexSpan span : FlexLines(sizes, width_, gap, wraps)) {
            const std::vector<FlexPlace> places =
                FlexPlaces({sizes.begin() + long(span.start), sizes.begin() + long(span.end)},
                           width_, gap, style_.rare->justifyContent);
            std::vector<ItemPlace> row;
            for (std::size_t i = 0; i < places.size(); ++i)
                row.push_back({items[span.start + i].id, {LeftOf(places[i]), places[i].width}});
            if (std::ranges::find(row, id, &ItemPlace::item) != row.end()) return row;
        }
        return {};
    }

  private:
    struct Item {
        PageBoxId id = noPageBox;
        FlexSize size; // of the margin box
        double sides = 0;
        PageFragmentPtr fragment;
    };

    std::vector<Item> Items() {
        std::vector<Item> items;
        for (const PageBoxId id : layout_.Items())
            items.push_back(ItemOf(id));
        if (style_.rare->flexDirection == CssFlexDirection::ColumnReverse)
            std::reverse(items.begin(), items.end());
        return items;
    }

    Item ItemOf(PageBoxId id) {
        const CssBoxStyle& style = *layouter_.Box(id).style;
        Item item;
        item.id = id;
        const double insets = measure_.SideInsets(style, width_);
        item.sides = layout_.Sides(id);
        if (IsColumn(style_)) return item;
        const WidthExtent extent = Extent(id);
        const double given = measure_.GivenWidth(style, width_);
        double basis = given >= 0 ? given : extent.max;
        if (!style.rare->flexBasis.IsAuto() && !style.rare->flexBasis.IsOfContent())
            basis = std::max(0.0, measure_.Length(style.rare->flexBasis, width_) -
                                      (style.boxSizing == CssBoxSizing::BorderBox ? insets : 0));
        const double content = layout_.MayBeNarrow(id) ? 0 : extent.min;
        const double min = given >= 0 ? std::min(given, content) : content;
        item.size.min = measure_.LimitWidth(style, width_, min) + item.sides;
        item.size.max = measure_.LimitWidth(style, width_, 1e9) + item.sides;
        item.size.basis = basis + item.sides;
        item.size.grow = style.rare->flexGrow;
        item.size.shrink = style.rare->flexShrink * basis;
        item.size.autoLeft = style.margin[isFromRight_ ? cssRight : cssLeft].IsAuto();
        item.size.autoRight = style.margin[isFromRight_ ? cssLeft : cssRight].IsAuto();
        return item;
    }

    // Of the content.
    WidthExtent Extent(PageBoxId id) {
        if (IsLongItem(layouter_.Boxes(), id)) return layouter_.LongItemExtent(id);
        if (layouter_.Box(id).kind != PageBoxKind::Picture) return layouter_.ContentExtent(id);
        const CssBoxStyle& style = *layouter_.Box(id).style;
        const double width = layouter_.LayOutPicture(id, width_)->width;
        return {width - measure_.SideInsets(style, width_),
                width - measure_.SideInsets(style, width_)};
    }

    static std::vector<FlexSize> Sizes(const std::vector<Item>& items) {
        std::vector<FlexSize> sizes;
        sizes.reserve(items.size());
        for (const Item& item : items)
            sizes.push_back(item.size);
        return sizes;
    }

    double GivenHeight() const {
        const double given = measure_.GivenHeight(style_);
        return given >= 0 ? given : measure_.LimitHeight(style_, 0);
    }

    // Places in a row are counted from where it begins.
    double LeftOf(const FlexPlace& place) const {
        return isFromRight_ ? width_ - place.left - place.width : place.left;
    }

    // Returns the height.
    double LayOutRow(std::vector<Item> items, double top, double minHeight) {
        const double gap = measure_.Length(style_.rare->columnGap, width_);
        const std::vector<FlexPlace> places =
            FlexPlaces(Sizes(items), width_, gap, style_.rare->justifyContent);
        double baseline = 0, below = 0;
        for (std::size_t i = 0; i < items.size(); ++i) {
            items[i].fragment = layout_.LayOut(items[i].id, LeftOf(places[i]), places[i].width);
            const double above =
                Alignment(items[i]) == CssAlignItems::Baseline ? BaselineOf(items[i]) : 0;
            baseline = std::max(baseline, above);
            below = std::max(below, OuterHeight(items[i]) - above);
        }
        const double height = std::max(minHeight, baseline + below);
        for (std::size_t i = 0; i < items.size(); ++i)
            Place(items[i], LeftOf(places[i]), top + Align(items[i], height, baseline));
        return height;
    }

    CssAlignItems Alignment(const Item& item) const {
        const CssAlignItems align = layout_.Alignment(item.id);
        if (!isUpwards_) return align;
        return align == CssAlignItems::Start ? CssAlignItems::End
               : align == CssAlignItems::End ? CssAlignItems::Start
                                             : align;
    }

    // Of the first line, from the top of the margin box; of what has no line its bottom.
    double BaselineOf(const Item& item) const {
        const double baseline = FirstBaseline(*item.fragment);
        if (baseline < 0) return OuterHeight(item);
        return measure_.Margin(*layouter_.Box(item.id).style, cssTop, width_) + baseline;
    }

    // How far below the top of a row of that height its margin box stands.
    double Align(Item& item, double height, double baseline) const {
        const double free = height - OuterHeight(item);
        switch (Alignment(item)) {
        case CssAlignItems::Center: return free / 2;
        case CssAlignItems::End: return free;
        case CssAlignItems::Baseline: return baseline - BaselineOf(item);
        case CssAlignItems::Stretch:
            item.fragment = layout_.StretchedTo(item.id, item.fragment, height);
            break;
        default: break;
        }
        return 0;
    }

    double OuterHeight(const Item& item) const { return layout_.Height(item.id, *item.fragment); }

    void Place(Item& item, double left, double top) {
        layout_.Place(item.id, std::move(item.fragment), left, top, result_);
    }

    // Those that are not stretched are as wide as their content.
    double LayOutColumn(std::vector<Item>& items) {
        std::vector<double> lefts;
        double height =
            measure_.Length(style_.rare->rowGap, 0) * double(items.empty() ? 0 : items.size() - 1);
        for (Item& item : items) {
            lefts.push_back(LayOutInColumn(item));
            height += OuterHeight(item);
        }
        double free = std::max(0.0, GivenHeight() - height);
        const double ofMargin = free / std::max(1, AutoMargins(items)); // they take it before all
        if (AutoMargins(items) > 0) free = 0;
        const bool isUpwards = style_.rare->flexDirection == CssFlexDirection::ColumnReverse;
        const CssJustifyContent justify = style_.rare->justifyContent;
        const CssJustifyContent atBottom =
            isUpwards ? CssJustifyContent::Start : CssJustifyContent::End;
        double top = justify == CssJustifyContent::Center ? free / 2
                     : justify == atBottom                ? free
                                                          : 0;
        const double first = top;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const double outer = OuterHeight(items[i]);
            const CssSides<CssLength>& margin = layouter_.Box(items[i].id).style->margin;
            if (margin[cssTop].IsAuto()) top += ofMargin;
            Place(items[i], lefts[i], top);
            if (margin[cssBottom].IsAuto()) top += ofMargin;
            top += outer + measure_.Length(style_.rare->rowGap, 0);
        }
        return std::max(first + height, GivenHeight());
    }

    // Above and below items.
    int AutoMargins(const std::vector<Item>& items) const {
        int count = 0;
        for (const Item& item : items)
            for (const CssSide side : {cssTop, cssBottom})
                count += layouter_.Box(item.id).style->margin[side].IsAuto();
        return count;
    }

    // Returns the left edge of its margin box.
    double LayOutInColumn(Item& item) {
        const PageBox& box = layouter_.Box(item.id);
        const BoxEdges edges = layouter_.EdgesInFlow(item.id, container_, {0, width_});
        const bool isStretched =
            Alignment(item) == CssAlignItems::Stretch && box.kind != PageBoxKind::Picture &&
            box.kind != PageBoxKind::Table && !box.style->margin[cssLeft].IsAuto() &&
            !box.style->margin[cssRight].IsAuto();
        if (isStretched) {
            item.fragment = layout_.LayOut(item.id, 0, edges.content.Width() + item.sides);
            return edges.border.left - edges.marginLeft;
        }
        item.fragment = layouter_.LayOutShrunk(item.id, width_);
        const double free =
            width_ - item.fragment->width - measure_.SideMargins(*box.style, width_);
        const bool left = box.style->margin[cssLeft].IsAuto(),
                   right = box.style->margin[cssRight].IsAuto();
        if (left || right) return std::max(0.0, left && right ? free / 2 : left ? free : 0);
        if (Alignment(item) == CssAlignItems::Center) return std::max(0.0, free / 2);
        const bool isAtEnd = Alignment(item) == CssAlignItems::End;
        return isAtEnd != isRightToLeft_ ? std::max(0.0, free) : 0;
    }

    PageLayouter& layouter_;
    const BoxMeasure& measure_;
    const PageBoxId container_;
    const CssBoxStyle& style_;
    const double width_;
    PageFragment& result_;
    ItemLayout layout_;
    const bool isRightToLeft_ =
        layouter_.Box(container_).text->direction == CssDirection::RightToLeft;
    const bool isFromRight_ =
        isRightToLeft_ != (style_.rare->flexDirection == CssFlexDirection::RowReverse);
    // Rows stand one above the other.
    const bool isUpwards_ = !IsColumn(style_) && style_.rare->flexWrap == CssFlexWrap::WrapReverse;
};
} // namespace

double LayOutFlex(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result) {
    return FlexLayouter(layouter, container, width, positioned, result).Run();
}

std::vector<ItemPlace> FlexRowOf(PageLayouter& layouter, PageBoxId container, double width,
                                 PageBoxId item) {
    PageFragment none;
    return FlexLayouter(layouter, container, width, {}, none).RowOf(item);
}

WidthExtent FlexExtentOf(PageLayouter& layouter, PageBoxId container) {
    const CssBoxStyle& style = *layouter.Box(container).style;
    const double gap = layouter.Measure().Length(style.rare->columnGap, 0);
    WidthExtent whole;
    for (PageBoxId id = layouter.Boxes().FirstChild(container); id != noPageBox;
         id = layouter.Box(id).nextSibling) {
        const WidthExtent extent = layouter.ExtentOfBox(id);
        whole.min = std::max(whole.min, extent.min); // they may stand below each other
        whole.max = IsColumn(style) ? std::max(whole.max, extent.max)
                                    : whole.max + extent.max + (whole.max > 0 ? gap : 0);
    }
    return whole;
}
