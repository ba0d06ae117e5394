#include "view/page/page_layouter.h"

#include "view/page/block_flow.h"
#include "view/page/table_layout.h"

#include <algorithm>
#include <cmath>

namespace {
// CSS pixels; of a picture that cannot be read and has no size.
constexpr int missingPicture = 24;

VerticalAlign AlignOf(CssVerticalAlign align) {
    switch (align) {
    case CssVerticalAlign::Middle: return VerticalAlign::Middle;
    case CssVerticalAlign::Top:
    case CssVerticalAlign::TextTop: return VerticalAlign::Top;
    case CssVerticalAlign::Bottom:
    case CssVerticalAlign::TextBottom: return VerticalAlign::Bottom;
    default: return VerticalAlign::Baseline;
    }
}

void SortBoxes(std::vector<InlineBox>& boxes) {
    std::sort(boxes.begin(), boxes.end(),
              [](const InlineBox& a, const InlineBox& b) { return a.at < b.at; });
}

void AddToBaseline(const PageFragment& fragment, double top, double& baseline) {
    for (const PlacedLines& lines : fragment.lines)
        baseline = std::max(baseline, top + lines.layout.lines.back().baseline);
    for (const PlacedPart& part : fragment.parts)
        AddToBaseline(*part.fragment, top + part.top, baseline);
}
} // namespace

double LastBaseline(const PageFragment& fragment) {
    double baseline = -1;
    AddToBaseline(fragment, 0, baseline);
    return baseline;
}

bool HasVisibleBox(const PageBox& box) {
    if (box.node == noHtmlNode) return false;
    const auto& borders = box.style->borderWidth;
    return !box.style->background.IsTransparent() ||
           std::any_of(borders.begin(), borders.end(), [](float width) { return width > 0; });
}

bool StandsAlone(const PageBox& box) {
    if (box.kind == PageBoxKind::Picture || box.kind == PageBoxKind::Table) return true;
    if (box.parent == noPageBox) return false; // the page
    const CssBoxStyle& style = *box.style;
    const auto isSet = [](const CssLength& length) {
        return length.kind == CssLength::Kind::Pixels;
    };
    return style.flowRoot || isSet(style.height) || isSet(style.minHeight) ||
           isSet(style.maxHeight);
}

bool IsFlowLeaf(const PageBox& box) {
    return box.kind == PageBoxKind::Lines || StandsAlone(box);
}

PageFragmentPtr PageLayouter::LayOutBlock(PageBoxId id, double contentWidth, double containing) {
    const PageBox& box = boxes_[id];
    const BoxInsets insets = measure_.Insets(*box.style, containing);
    const double left = measure_.InsetLeft(*box.style, containing);
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = contentWidth + measure_.SideInsets(*box.style, containing);
    if (HasVisibleBox(box)) fragment->boxes.push_back({id, 0, 0, fragment->width, 0, false, false});
    auto content = std::make_shared<PageFragment>();
    BlockFlow flow(*this, id, {0, contentWidth}, *content);
    flow.LayOutContent();
    flow.Finish();
    content->width = contentWidth;
    const double given = measure_.GivenHeight(*box.style);
    // Nothing scrolls but the page as a whole, and nothing covers what follows: a height is the
    // least one.
    content->height = std::max(given, measure_.LimitHeight(*box.style, flow.Bottom()));
    if (given >= 0 || box.style->overflow != CssOverflow::Visible)
        content->height = std::max(content->height, flow.Bottom());
    fragment->height = insets.Top() + content->height + insets.Bottom();
    for (PlacedBox& placed : fragment->boxes)
        placed.height = fragment->height;
    fragment->parts.push_back({left, insets.Top(), std::move(content)});
    return fragment;
}

PageFragmentPtr PageLayouter::LayOutShrunk(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    if (box.kind == PageBoxKind::Picture) return LayOutPicture(id, containing);
    const double margins = measure_.SideMargins(*box.style, containing);
    if (box.kind == PageBoxKind::Table) return LayOutTable(*this, id, containing - margins);
    double width = measure_.GivenWidth(*box.style, containing);
    if (width < 0) {
        const WidthExtent extent = ContentExtent(id);
        const double room = containing - margins - measure_.SideInsets(*box.style, containing);
        width = std::ceil(std::min(extent.max, std::max(extent.min, room)));
        width = measure_.LimitWidth(*box.style, containing, width);
    }
    return LayOutBlock(id, width, containing);
}

Size PageLayouter::PictureContentSize(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    const Size natural = content_.PictureSize(id);
    const double scale = measure_.Scale();
    double width = measure_.GivenWidth(*box.style, containing);
    double height = measure_.GivenHeight(*box.style);
    const double naturalWidth = (natural.IsEmpty() ? missingPicture : natural.width) * scale;
    const double naturalHeight = (natural.IsEmpty() ? missingPicture : natural.height) * scale;
    const double ratio = naturalHeight / naturalWidth;
    if (width < 0) {
        const double asked = height >= 0 ? height / ratio : naturalWidth;
        width = measure_.LimitWidth(*box.style, containing, asked);
        if (height >= 0 && width != asked) height = width * ratio;
    }
    if (height < 0) height = measure_.LimitHeight(*box.style, width * ratio);
    return {int(std::lround(width)), int(std::lround(height))};
}

PageFragmentPtr PageLayouter::LayOutPicture(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    const Size size = PictureContentSize(id, containing);
    const BoxInsets insets = measure_.Insets(*box.style, containing);
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = size.width + measure_.SideInsets(*box.style, containing);
    fragment->height = insets.Top() + size.height + insets.Bottom();
    if (HasVisibleBox(box))
        fragment->boxes.push_back({id, 0, 0, fragment->width, fragment->height, false, false});
    const double left = measure_.InsetLeft(*box.style, containing);
    fragment->pictures.push_back({id, left, insets.Top(), double(size.width), double(size.height)});
    return fragment;
}

PlacedPart PageLayouter::PartOf(PageBoxId id, double containing) {
    const CssBoxStyle& style = *boxes_[id].style;
    return {measure_.Margin(style, cssLeft, containing), measure_.Margin(style, cssTop, containing),
            LayOutShrunk(id, containing)};
}

void PageLayouter::AddAtom(const LinesText::Place& place, double containing,
                           LinesContent& content) {
    const PageBox& box = boxes_[place.box];
    const CssBoxStyle& style = *box.style;
    PlacedPart part = PartOf(place.box, containing);
    const PageFragment& fragment = *part.fragment;
    const double below = measure_.Margin(style, cssBottom, containing);
    InlineAtom atom;
    atom.at = place.at;
    atom.width = fragment.width + measure_.SideMargins(style, containing);
    atom.height = part.top + fragment.height + below;
    const double baseline = box.kind == PageBoxKind::Picture ? -1 : LastBaseline(fragment);
    if (baseline >= 0) atom.belowBaseline = fragment.height - baseline + below;
    atom.align = AlignOf(style.verticalAlign);
    if (style.verticalAlign == CssVerticalAlign::Length)
        atom.raise = measure_.Length(style.verticalShift, 0);
    content.content->text.boxes.push_back({place.at, int(std::ceil(atom.width))});
    content.content->atoms.push_back(atom);
    content.atoms.push_back(std::move(part));
}

void PageLayouter::AddFloat(const LinesText::Place& place, double containing,
                            LinesContent& content) {
    const CssBoxStyle& style = *boxes_[place.box].style;
    PlacedPart part = PartOf(place.box, containing);
    const double width = part.fragment->width + measure_.SideMargins(style, containing);
    const double below = measure_.Margin(style, cssBottom, containing);
    const FloatSide side = style.floats == CssFloat::Left ? FloatSide::Left : FloatSide::Right;
    content.content->floats.push_back(
        {place.at, side, width, part.top + part.fragment->height + below,
         style.clear == CssClear::Left || style.clear == CssClear::Both,
         style.clear == CssClear::Right || style.clear == CssClear::Both});
    content.floats.push_back(std::move(part));
}

LinesContent PageLayouter::ContentOf(PageBoxId lines, double containing) {
    LinesText text = content_.TextOf(lines);
    LinesContent result;
    result.content = std::move(text.content);
    result.content->textIndent = measure_.Length(boxes_[lines].text->textIndent, containing);
    for (const LinesText::Place& place : text.boxes) {
        const CssBoxStyle& style = *boxes_[place.box].style;
        if (IsOutOfFlow(style))
            result.positioned.push_back(place);
        else if (place.hasUnit)
            AddAtom(place, containing, result);
        else
            AddFloat(place, containing, result);
    }
    SortBoxes(result.content->text.boxes);
    return result;
}

WidthExtent PageLayouter::ExtentOfBox(PageBoxId id) {
    const CssBoxStyle& style = *boxes_[id].style;
    WidthExtent extent;
    const double given = measure_.GivenWidth(style, 0);
    if (boxes_[id].kind == PageBoxKind::Picture)
        extent.min = extent.max = PictureContentSize(id, 0).width;
    else if (style.width.kind == CssLength::Kind::Pixels && given >= 0 &&
             boxes_[id].kind != PageBoxKind::Cell) // whose table may be too narrow for it
        extent.min = extent.max = given;
    else
        extent = ContentExtent(id);
    const double sides = measure_.SideInsets(style, 0) + measure_.SideMargins(style, 0);
    return {extent.min + sides, extent.max + sides};
}

WidthExtent PageLayouter::ContentExtent(PageBoxId id) {
    const auto known = extents_.find(id);
    if (known != extents_.end()) return known->second;
    return extents_[id] = MeasureContent(id);
}

WidthExtent PageLayouter::MeasureContent(PageBoxId id) {
    const PageBox& box = boxes_[id];
    if (box.kind == PageBoxKind::Lines) return LinesExtent(id);
    if (box.kind == PageBoxKind::Table) return TableExtentOf(*this, id);
    WidthExtent widest;
    for (PageBoxId child = boxes_.FirstChild(id); child != noPageBox;
         child = boxes_[child].nextSibling) {
        const WidthExtent extent = ExtentOfBox(child);
        widest = {std::max(widest.min, extent.min), std::max(widest.max, extent.max)};
    }
    return widest;
}

// With the boxes in the lines as narrow as they can be, and as wide as they ask for.
WidthExtent PageLayouter::LinesExtent(PageBoxId lines) {
    const LinesText text = content_.TextOf(lines);
    text.content->textIndent = measure_.Length(boxes_[lines].text->textIndent, 0);
    if (text.boxes.empty()) return ExtentOf(lines_, *text.content);
    const std::vector<InlineBox> gaps = text.content->text.boxes;
    const auto measure = [&](double WidthExtent::*width) {
        text.content->text.boxes = gaps;
        text.content->floats.clear();
        for (const LinesText::Place& place : text.boxes) {
            if (IsOutOfFlow(*boxes_[place.box].style)) continue;
            const double box = ExtentOfBox(place.box).*width;
            if (place.hasUnit)
                text.content->text.boxes.push_back({place.at, int(std::ceil(box))});
            else
                text.content->floats.push_back({place.at, FloatSide::Left, box, 0, false, false});
        }
        SortBoxes(text.content->text.boxes);
        return ExtentOf(lines_, *text.content).*width;
    };
    return {measure(&WidthExtent::min), measure(&WidthExtent::max)};
}
