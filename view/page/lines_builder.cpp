#include "view/page/lines_builder.h"

#include "formats/html/html_units.h"
#include "view/layout_cost.h"
#include "view/page/first_letter.h"
#include "view/page/text_cut.h"

#include <algorithm>
#include <utility>

namespace {
bool Collapses(std::u16string_view text, CssWhiteSpace whiteSpace) {
    switch (whiteSpace) {
    case CssWhiteSpace::Normal:
    case CssWhiteSpace::NoWrap: return std::all_of(text.begin(), text.end(), IsHtmlSpace);
    case CssWhiteSpace::PreLine:
        return std::all_of(text.begin(), text.end(),
                           [](char16_t unit) { return IsHtmlSpace(unit) && unit != u'\n'; });
    case CssWhiteSpace::Pre:
    case CssWhiteSpace::PreWrap:
    case CssWhiteSpace::BreakSpaces: break;
    }
    return false;
}

// Left of its text, so that lines begin with the element itself.
bool TakesRoomBefore(const CssBoxStyle& style) {
    return style.margin[cssLeft].Of(0) > 0 || style.borderWidth[cssLeft] > 0 ||
           style.padding[cssLeft].Of(0) > 0;
}
} // namespace

PageBox& LinesBuilder::Open(HtmlNodeId node) {
    if (!IsOpen()) {
        boxes_.Open(PageBoxKind::Lines, noHtmlNode);
        boxes_.Top().first = node;
        boxes_.Top().continues = std::exchange(continues_, false);
    }
    return boxes_.Top();
}

void LinesBuilder::Close(HtmlNodeId after) {
    continues_ = false;
    if (!IsOpen()) return;
    boxes_.Top().after = after;
    boxes_.Close();
}

// They are too long and go on in others, from there on.
void LinesBuilder::Divide(HtmlNodeId after, std::uint32_t unit) {
    if (!IsOpen()) return;
    boxes_.Top().afterUnit = unit;
    Close(after);
    continues_ = true;
}

// Before what would make them too long.
void LinesBuilder::MakeRoom(HtmlNodeId node, PageWeight weight) {
    if (IsOpen() && boxes_.Weight() + weight > limits_.lines) Divide(node, 0);
}

void LinesBuilder::AddText(HtmlNodeId id) {
    const std::u16string_view text = tree_[id].Text();
    const CssWhiteSpace whiteSpace = styles_.Of(tree_[id].parent).inherited->whiteSpace;
    AddFirstLetter(id);
    for (std::size_t at = 0; at < text.size();) {
        Open(id);
        const std::size_t end = TextEnd(text, at, whiteSpace);
        if (at == 0 && end > 0) boxes_.SetBoxOf(id);
        AddUnits(end - at);
        if (end == text.size()) break;
        Divide(id, std::uint32_t(end));
        Open(id).firstUnit = std::uint32_t(end);
        at = end;
    }
    if (IsLong() && KeepsBreaks(whiteSpace) && text.back() == u'\n') Divide(tree_.NextAfter(id), 0);
}

void LinesBuilder::AddFirstLetter(HtmlNodeId id) {
    if (letterOf_ == noHtmlNode) return;
    const LetterSpan span = FindFirstLetter(tree_[id].Text());
    if (span.IsEmpty() || span.end > limits_.lines / 4) return;
    Open(id);
    boxes_.AddFirstLetter(id, {letterOf_, std::uint32_t(span.start), std::uint32_t(span.end)},
                          styles_.FirstLetter(letterOf_));
    ForgetFirstLetter();
}

// How far the text goes in the lines that are open; the start if they are too long already.
std::size_t LinesBuilder::TextEnd(std::u16string_view text, std::size_t at,
                                  CssWhiteSpace whiteSpace) const {
    const std::size_t room = RoomFor(text.substr(at));
    if (IsLong() && KeepsBreaks(whiteSpace)) {
        const std::size_t lineBreak = text.substr(0, at + room).find(u'\n', at);
        if (lineBreak != text.npos) return lineBreak + 1;
    }
    if (text.size() - at <= room) return text.size();
    return room == 0 ? at : TextCut(text, at, at + room, whiteSpace);
}

// Text that a system takes long for gets less room.
std::size_t LinesBuilder::RoomFor(std::u16string_view text) const {
    const std::size_t room = limits_.lines - std::min(limits_.lines, boxes_.Weight());
    const std::size_t end = std::min(room, text.size());
    for (std::size_t at = 0; at + densePiece < end; at += densePiece)
        if (IsDense(text.substr(at, densePiece))) return at + densePiece;
    return room;
}

void LinesBuilder::AddUnits(std::size_t units) {
    PageBox& lines = boxes_.Top();
    lines.hasText = lines.hasText || units > 0;
    lines.units += std::uint32_t(units);
    boxes_.Weight() += std::uint32_t(units);
}

void LinesBuilder::AddBreak(HtmlNodeId element) {
    ForgetFirstLetter();
    Open(element);
    AddUnits(1);
    boxes_.SetBoxOf(element);
    if (IsLong()) Divide(tree_.NextAfter(element), 0);
    if (IsOpen()) boxes_.Weight() += inlineElementWeight;
}

void LinesBuilder::AddBox(HtmlNodeId element, const CssBoxStyle& style, PageWeight within) {
    MakeRoom(element, boxInLinesWeight);
    if (IsOpen() && boxes_.WeightWithin() + within > limits_.whole / 2) Divide(element, 0);
    PageBox& lines = Open(element);
    if (IsOutOfFlow(style) || style.floats != CssFloat::None)
        lines.hasFloats = lines.hasFloats || !IsOutOfFlow(style) || HasVerticalInset(style);
    else
        lines.hasText = true;
    boxes_.Weight() += boxInLinesWeight;
    boxes_.WeightWithin() += within;
}

void LinesBuilder::AddRuby(HtmlNodeId first, PageWeight within) {
    MakeRoom(first, rubyWeight);
    if (IsOpen() && boxes_.WeightWithin() + within > limits_.whole / 2) Divide(first, 0);
    Open(first).hasText = true;
    boxes_.Weight() += rubyWeight;
    boxes_.WeightWithin() += within;
}

void LinesBuilder::AddInline(HtmlNodeId element) {
    MakeRoom(element, inlineElementWeight);
    if (TakesRoomBefore(*styles_.Of(element).box)) Open(element);
    if (IsOpen()) boxes_.Weight() += inlineElementWeight;
}

void LinesBuilder::AddGenerated(CssStyle style, HtmlNodeId first) {
    if (!style.box) return;
    Open(first).hasText = true;
    ForgetFirstLetter(); // which would be one of these
    for (const CssContentItem& item : styles_.Content(style.box->content))
        boxes_.Weight() += PageWeight(std::min<std::size_t>(item.text.size(), maxGenerated));
}

void LinesBuilder::AddGeneratedPictures(CssStyle style, HtmlNodeId element) {
    if (!style.box || !IsOpen()) return;
    for (const CssContentItem& item : styles_.Content(style.box->content))
        if (item.kind == CssContentItem::Kind::Picture) {
            boxes_.AddGeneratedPicture(element, style, item);
            boxes_.Weight() += boxInLinesWeight;
        }
}

bool LinesBuilder::IsEmptyText(HtmlNodeId text) const {
    return Collapses(tree_[text].Text(), styles_.Of(tree_[text].parent).inherited->whiteSpace);
}
