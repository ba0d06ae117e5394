#include "view/page/box_edges.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_rare_style.h"

#include <algorithm>

namespace {
bool HasSize(const CssLength& length) {
    return !length.IsAuto() && !length.IsOfContent();
}

// Where a block that is narrower than its room stands in it, as a share of what is free.
double FreeShare(const CssBoxStyle& style, const CssInheritedStyle& around) {
    const bool autoLeft = style.margin[cssLeft].IsAuto(),
               autoRight = style.margin[cssRight].IsAuto();
    if (autoLeft || autoRight) return autoLeft && autoRight ? 0.5 : autoLeft ? 1 : 0;
    switch (around.textAlign) {
    case CssTextAlign::HtmlCenter: return 0.5;
    case CssTextAlign::HtmlRight: return 1;
    case CssTextAlign::HtmlLeft: return 0;
    default: return around.direction == CssDirection::RightToLeft ? 1 : 0;
    }
}
} // namespace

double BoxMeasure::Length(const CssLength& length, double whole) const {
    if (length.kind == CssLength::Kind::Percent) return whole * length.value / 100;
    if (length.kind == CssLength::Kind::Sum)
        return length.value * scale_ + whole * length.hundredths / 10'000;
    return length.kind == CssLength::Kind::Pixels ? length.value * scale_ : 0;
}

BoxInsets BoxMeasure::Insets(const CssBoxStyle& style, double containing) const {
    return {style.borderWidth[cssTop] * scale_, Length(style.padding[cssTop], containing),
            Length(style.padding[cssBottom], containing), style.borderWidth[cssBottom] * scale_};
}

double BoxMeasure::SideInsets(const CssBoxStyle& style, double containing) const {
    return (style.borderWidth[cssLeft] + style.borderWidth[cssRight]) * scale_ +
           Length(style.padding[cssLeft], containing) + Length(style.padding[cssRight], containing);
}

double BoxMeasure::SideMargins(const CssBoxStyle& style, double containing) const {
    return Margin(style, cssLeft, containing) + Margin(style, cssRight, containing);
}

double BoxMeasure::ContentSize(const CssLength& length, double whole, double insets,
                               const CssBoxStyle& style) const {
    const double size = Length(length, whole);
    return std::max(0.0, style.boxSizing == CssBoxSizing::BorderBox ? size - insets : size);
}

double BoxMeasure::GivenWidth(const CssBoxStyle& style, double containing) const {
    if (!HasSize(style.width)) return -1;
    const double insets = SideInsets(style, containing);
    return LimitWidth(style, containing, ContentSize(style.width, containing, insets, style));
}

double BoxMeasure::LimitWidth(const CssBoxStyle& style, double containing, double width) const {
    const double insets = SideInsets(style, containing);
    if (HasSize(style.maxWidth))
        width = std::min(width, ContentSize(style.maxWidth, containing, insets, style));
    if (HasSize(style.minWidth))
        width = std::max(width, ContentSize(style.minWidth, containing, insets, style));
    return width;
}

double BoxMeasure::GivenHeight(const CssBoxStyle& style) const {
    if (style.height.kind != CssLength::Kind::Pixels) return -1;
    const double insets = Insets(style, 0).Top() + Insets(style, 0).Bottom();
    return LimitHeight(style, ContentSize(style.height, 0, insets, style));
}

double BoxMeasure::LimitHeight(const CssBoxStyle& style, double height) const {
    const double insets = Insets(style, 0).Top() + Insets(style, 0).Bottom();
    if (style.maxHeight.kind == CssLength::Kind::Pixels)
        height = std::min(height, ContentSize(style.maxHeight, 0, insets, style));
    if (style.minHeight.kind == CssLength::Kind::Pixels)
        height = std::max(height, ContentSize(style.minHeight, 0, insets, style));
    return height;
}

double BoxMeasure::HeightByShape(const CssBoxStyle& style, double containing,
                                 double contentWidth) const {
    const double ratio = style.rare->aspectRatio;
    if (ratio <= 0) return 0;
    const bool isOfBorders = style.boxSizing == CssBoxSizing::BorderBox;
    const BoxInsets insets = Insets(style, containing);
    const double width = contentWidth + (isOfBorders ? SideInsets(style, containing) : 0);
    const double height = width / ratio - (isOfBorders ? insets.Top() + insets.Bottom() : 0);
    return std::clamp(height, 0.0, maxCssPixels * scale_);
}

// Of two sides that say different things that of the start and the top holds; percentages of a
// height are nothing where the height follows from the content.
BoxMeasure::Shift BoxMeasure::RelativeShift(const CssBoxStyle& style,
                                            const CssInheritedStyle& around,
                                            double containing) const {
    if (style.position != CssPosition::Relative) return {};
    const auto& inset = style.inset;
    const bool rightToLeft = around.direction == CssDirection::RightToLeft;
    const bool byRight = inset[cssLeft].IsAuto() || (rightToLeft && !inset[cssRight].IsAuto());
    const auto vertical = [&](CssSide side) {
        return inset[side].kind == CssLength::Kind::Pixels ? Length(inset[side], 0) : 0;
    };
    return {byRight ? -Length(inset[cssRight], containing) : Length(inset[cssLeft], containing),
            inset[cssTop].IsAuto() ? -vertical(cssBottom) : vertical(cssTop)};
}

BoxEdges BoxMeasure::InFlow(const CssBoxStyle& style, const CssInheritedStyle& around,
                            InlineEdges room) const {
    const double given = GivenWidth(style, room.Width());
    if (given >= 0) return OfWidth(style, around, room, given);
    const double filling =
        room.Width() - SideMargins(style, room.Width()) - SideInsets(style, room.Width());
    const double width = LimitWidth(style, room.Width(), std::max(0.0, filling));
    return OfWidth(style, around, room, width);
}

BoxEdges BoxMeasure::OfWidth(const CssBoxStyle& style, const CssInheritedStyle& around,
                             InlineEdges room, double contentWidth) const {
    const double containing = room.Width();
    BoxEdges edges;
    edges.marginLeft = Margin(style, cssLeft, containing);
    edges.marginRight = Margin(style, cssRight, containing);
    const double free = containing - contentWidth - SideInsets(style, containing) -
                        edges.marginLeft - edges.marginRight;
    const bool rightToLeft = around.direction == CssDirection::RightToLeft;
    const double share = free > 0 ? FreeShare(style, around) : rightToLeft ? 1 : 0;
    edges.border.left = room.left + edges.marginLeft + free * share;
    edges.content.left = edges.border.left + InsetLeft(style, containing);
    edges.content.right = edges.content.left + contentWidth;
    edges.border.right = edges.border.left + SideInsets(style, containing) + contentWidth;
    return edges;
}
