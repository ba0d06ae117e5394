#include "view/page/page_layouter.h"

#include "view/page/block_flow.h"
#include "view/page/table_layout.h"
#include "view/page/text_raise.h"

#include <algorithm>
#include <cmath>

namespace {
// CSS pixels; of a picture that cannot be read and has no size.
constexpr int missingPicture = 24;
// Many more than the boxes of what is laid out in one go.
constexpr std::size_t maxExtents = 32 * 1024;

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
} // namespace

bool HasVisibleBox(const PageBox& box) {
    if (box.node == noHtmlNode) return false;
    const auto& borders = box.style->borderWidth;
    return !box.style->background.IsTransparent() ||
           std::any_of(borders.begin(), borders.end(), [](float width) { return width > 0; });
}

bool StandsAlone(const PageBox& box) {
    if (box.kind == PageBoxKind::Picture || box.kind == PageBoxKind::Table) return true;
    if (box.parent == noPageBox || box.isTooLong) return false; // the page, or as much of it
    const CssBoxStyle& style = *box.style;
    const auto isSet = [](const CssLength& length) {
        return length.kind == CssLength::Kind::Pixels;
    };
    return style.flowRoot || isSet(style.height) || isSet(style.minHeight) ||
           isSet(style.maxHeight);
}

bool IsFlowLeaf(const PageBoxes& boxes, PageBoxId id) {
    return boxes.IsEmpty(id) || boxes[id].kind == PageBoxKind::Lines || StandsAlone(boxes[id]);
}

// Of a block whose lines have this one. The height of a cell is its row's, in which its content is
// placed.
double PageLayouter::ContentHeight(const PageBox& box, double natural) const {
    if (box.kind == PageBoxKind::Cell) return natural;
    const double given = measure_.GivenHeight(*box.style);
    // Nothing scrolls but the page as a whole, and nothing covers what follows: a height is the
    // least one.
    const double height = given >= 0 ? given : measure_.LimitHeight(*box.style, natural);
    const bool isWhole = given >= 0 || box.style->overflow != CssOverflow::Visible;
    return isWhole ? std::max(height, natural) : height;
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
    content->height = ContentHeight(box, flow.Bottom());
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
    Size natural = content_.PictureSize(id);
    if (natural.IsEmpty())
        if (const auto alternative = content_.AlternativeOf(id))
            return AlternativeSize(id, containing, *alternative);
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

// What stands for a picture is as wide as its text, unless the picture has a size of its own.
Size PageLayouter::AlternativeSize(PageBoxId id, double containing,
                                   const InlineContent& alternative) {
    const CssBoxStyle& style = *boxes_[id].style;
    double width = measure_.GivenWidth(style, containing);
    if (width < 0) {
        const WidthExtent extent = ExtentOf(lines_, alternative);
        width =
            containing > 0 ? std::min(extent.max, std::max(extent.min, containing)) : extent.max;
        width = measure_.LimitWidth(style, containing, width);
    }
    double height = measure_.GivenHeight(style);
    if (height < 0) {
        FloatContext none;
        height = LayOutInline(lines_, alternative, {0, width}, 0, none).bottom;
    }
    return {int(std::lround(width)), int(std::lround(height))};
}

void PageLayouter::AddAlternative(PageBoxId id, double left, double top, Size size,
                                  std::shared_ptr<const InlineContent> alternative,
                                  PageFragment& fragment) {
    FloatContext none;
    InlineLayout layout = LayOutInline(lines_, *alternative, {left, left + size.width}, top, none);
    std::erase_if(layout.lines, [&](const InlineLine& line) {
        return line.top > top && line.top + line.height > top + size.height;
    });
    if (!layout.lines.empty())
        fragment.lines.push_back({id, std::move(alternative), std::move(layout)});
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
    auto alternative = content_.PictureSize(id).IsEmpty() ? content_.AlternativeOf(id) : nullptr;
    if (alternative)
        AddAlternative(id, left, insets.Top(), size, std::move(alternative), *fragment);
    else
        fragment->pictures.push_back(
            {id, left, insets.Top(), double(size.width), double(size.height)});
    return fragment;
}

PlacedPart PageLayouter::PartOf(PageBoxId id, double containing) {
    const CssBoxStyle& style = *boxes_[id].style;
    return {measure_.Margin(style, cssLeft, containing), measure_.Margin(style, cssTop, containing),
            LayOutShrunk(id, containing)};
}

// Of its part, when its place is known.
void PageLayouter::ShiftRelative(PageBoxId id, double containing, PlacedPart& part) const {
    const PageBox& box = boxes_[id];
    const auto shift = measure_.RelativeShift(*box.style, *boxes_[box.parent].text, containing);
    part.left += shift.x;
    part.top += shift.y;
}

// Above the baseline of its lines.
double PageLayouter::RaiseOf(const PageBox& box, const InlineContent& lines) const {
    const double fontSize = boxes_[box.parent].text->fontSize * measure_.Scale();
    switch (box.style->verticalAlign) {
    case CssVerticalAlign::Super: return fontSize * superscript;
    case CssVerticalAlign::Sub: return -fontSize * subscript;
    case CssVerticalAlign::Length: break;
    default: return 0;
    }
    // A percentage is of the box's own line height; that of the lines is nearly always the same.
    const double lineHeight = lines.strutLineHeight.value_or(lines_.Metrics(*lines.strut).Height());
    return measure_.Length(box.style->verticalShift, lineHeight);
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
    const double baseline = LastBaseline(fragment);
    if (baseline >= 0) atom.belowBaseline = fragment.height - baseline + below;
    atom.align = AlignOf(style.verticalAlign);
    atom.raise = RaiseOf(box, *content.content);
    content.content->text.boxes.push_back({place.at, int(std::ceil(atom.width))});
    content.content->atoms.push_back(atom);
    ShiftRelative(place.box, containing, part);
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
    ShiftRelative(place.box, containing, part);
    content.floats.push_back(std::move(part));
}

double PageLayouter::IndentOf(PageBoxId lines, double containing) const {
    const PageBox& box = boxes_[lines];
    return box.continues ? 0 : measure_.Length(box.text->textIndent, containing);
}

LinesContent PageLayouter::ContentOf(PageBoxId lines, double containing) {
    LinesText text = content_.TextOf(lines);
    LinesContent result;
    result.content = std::move(text.content);
    result.content->textIndent = IndentOf(lines, containing);
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

std::vector<double>& PageLayouter::SharedColumns(HtmlNodeId table, double available) {
    if (columns_.table != table || columns_.available != available)
        columns_ = {table, available, {}};
    return columns_.widths;
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
    const WidthExtent extent = MeasureContent(id);
    if (extents_.size() >= maxExtents) extents_.clear();
    return extents_[id] = extent;
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
    text.content->textIndent = IndentOf(lines, 0);
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
