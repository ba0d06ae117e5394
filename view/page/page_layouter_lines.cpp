#include "view/page/page_layouter.h"

#include "view/page/text_raise.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double hidingIndent = 500; // CSS pixels; narrower columns hang farther out

VerticalAlign AlignOf(CssVerticalAlign align) {
    switch (align) {
    case CssVerticalAlign::Middle: return VerticalAlign::Middle;
    case CssVerticalAlign::BaselineMiddle: return VerticalAlign::BaselineMiddle;
    case CssVerticalAlign::Top:
    case CssVerticalAlign::TextTop: return VerticalAlign::Top;
    case CssVerticalAlign::Bottom:
    case CssVerticalAlign::TextBottom: return VerticalAlign::Bottom;
    default: return VerticalAlign::Baseline;
    }
}
} // namespace

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

// Above the baseline of its lines.
double PageLayouter::RaiseOf(const PageBox& box, const InlineContent& lines) const {
    const double fontSize = boxes_[box.parent].text->fontSize * measure_.Scale();
    switch (box.style->verticalAlign) {
    case CssVerticalAlign::Super: return Superscript(fontSize, measure_.Scale());
    case CssVerticalAlign::Sub: return -Subscript(fontSize, measure_.Scale());
    case CssVerticalAlign::Length: break;
    default: return 0;
    }
    // A percentage is of the box's own line height; that of the lines is nearly always the same.
    const double lineHeight = lines.strutLineHeight.value_or(lines_.Metrics(*lines.strut).Height());
    return measure_.Length(box.style->verticalShift, lineHeight);
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
    if (box.continues) return 0;
    // One that goes beyond an edge hides the text, for a picture that stands behind it.
    const double indent = measure_.Length(box.text->textIndent, containing);
    const bool hides = indent < -std::max(containing, hidingIndent * measure_.Scale()) ||
                       (containing > 0 && indent >= containing);
    return hides ? 0 : indent;
}
