#include "view/page/lines_reader.h"

#include "view/page/bidi_isolation.h"
#include "view/page/list_marker.h"
#include "view/page/page_background.h"
#include "view/page/page_box_builder.h"
#include "view/page/page_weights.h"

#include <algorithm>
#include <cmath>

namespace {
// Around each block of lines of a page in visual order, which no element changes: blocks alone have
// the direction that the page says.
constexpr std::u16string_view leftToRightOverride = u"\u202D", endOfOverride = u"\u202C";

// Something to be drawn behind its text.
bool HasDecoration(CssStyle style) {
    const CssBoxStyle& box = *style.box;
    if (box.display != CssDisplay::Inline) return false;
    if (style.inherited->visibility != CssVisibility::Visible) return false;
    return IsDrawn(box.background) || std::any_of(box.borderWidth.begin(), box.borderWidth.end(),
                                                  [](float width) { return width > 0; });
}
} // namespace

LinesReader::LinesReader(const HtmlTree& tree, const CssPageStyles& styles, const PageBoxes& boxes,
                         PageFonts& fonts, PageBoxId lines)
    : tree_(tree), styles_(styles), boxes_(boxes), fonts_(fonts), id_(lines), lines_(boxes[lines]),
      generated_(tree, styles), writer_(fonts, *boxes[lines].text),
      nextBox_(boxes.FirstChild(lines)) {
    PageBoxId box = lines;
    while (boxes[box].node == noHtmlNode)
        box = boxes[box].parent;
    container_ = boxes[box].node;
    background_ = BackgroundOf(boxes, lines);
    writer_.Content().needsText = tree.Quirks() != HtmlQuirks::None;
}

LinesText LinesReader::Read() {
    if (tree_.IsVisualOrder()) AddControls(leftToRightOverride);
    AddMarkerInside();
    if (lines_.first != noHtmlNode && lines_.first != container_ &&
        (lines_.first != lines_.behind || lines_.behindUnit > 0))
        OpenAround(lines_.first);
    if (lines_.first == lines_.behind && lines_.behindUnit > 0) {
        AddUpTo(lines_.behind, lines_.firstUnit, lines_.behindUnit);
    } else if (lines_.first == container_) {
        AddGenerated(styles_.Before(container_), container_);
        const HtmlNodeId child = tree_[container_].firstChild;
        if (child == noHtmlNode) AddGenerated(styles_.After(container_), container_);
        ReadFrom(child);
    } else if (lines_.first == lines_.behind) {
        AddGenerated(styles_.After(container_), container_);
    } else {
        ReadFrom(lines_.first);
    }
    while (!open_.empty())
        CloseDecoration(open_.back().element, false);
    if (tree_.IsVisualOrder()) AddControls(endOfOverride);
    return {writer_.Finish(), std::move(places_)};
}

// In document order, up to the node behind the lines.
void LinesReader::ReadFrom(HtmlNodeId id) {
    while (id != noHtmlNode && id != lines_.behind) {
        const bool within = Enter(id);
        const HtmlNodeId next = within ? tree_.Next(id) : tree_.NextBehind(id);
        Leave(within ? id : tree_[id].parent, next);
        id = next;
    }
    if (lines_.behindUnit > 0) AddUpTo(lines_.behind, 0, lines_.behindUnit);
}

void LinesReader::AddUpTo(HtmlNodeId text, std::size_t from, std::size_t end) {
    const PageFirstLetter* letter = lines_.isFirstLetter ? nullptr : boxes_.FirstLetterIn(text);
    if (!letter || from > letter->start || end < letter->end) return AddUnits(text, from, end);
    AddUnits(text, from, letter->start);
    if (nextBox_ != noPageBox && boxes_[nextBox_].isFirstLetter)
        AddBox();
    else
        AddFirstLetter(text, *letter);
    AddUnits(text, letter->end, end);
}

void LinesReader::AddUnits(HtmlNodeId text, std::size_t from, std::size_t end) {
    const HtmlNode& node = tree_[text];
    const CssInheritedStyle& style =
        lines_.isFirstLetter ? *lines_.text : *styles_.Of(node.parent).inherited;
    writer_.SetNode(text);
    writer_.AddText(node.Text().substr(0, end), style, PlaceOf(node.parent), from);
    writer_.SetNode(noHtmlNode);
}

void LinesReader::AddFirstLetter(HtmlNodeId text, const PageFirstLetter& letter) {
    const CssStyle style = styles_.FirstLetter(letter.block);
    const HtmlNode& node = tree_[text];
    TextPlace place = PlaceOf(node.parent);
    AddOwnPlace(style, styles_.Of(node.parent), fonts_, place);
    if (IsDrawn(style.box->background)) place.background = style.box->background.Bgr();
    OpenDecoration(noHtmlNode, style, true, place);
    AddSide(*style.box, cssLeft);
    writer_.SetNode(text);
    writer_.AddText(node.Text().substr(0, letter.end), *style.inherited, place, letter.start);
    writer_.SetNode(noHtmlNode);
    AddSide(*style.box, cssRight);
    CloseDecoration(noHtmlNode, true);
}

// Whether what is in the node is read next.
bool LinesReader::Enter(HtmlNodeId id) {
    const HtmlNode& node = tree_[id];
    if (node.IsText()) {
        AddUpTo(id, id == lines_.first ? lines_.firstUnit : 0, node.length);
        return false;
    }
    if (!node.IsElement() || IsNotShown(node)) return false;
    if (IsNotShown(*styles_.Of(id).box)) return false;
    if (nextBox_ != noPageBox && boxes_[nextBox_].node == id && !boxes_[nextBox_].generated) {
        AddBox();
        return false;
    }
    if (node.Is(HtmlName::Br)) {
        writer_.SetNode(id);
        writer_.AddBreak(0);
        writer_.SetNode(noHtmlNode);
        AddClear(styles_.Of(id).box->clear);
    }
    if (!tree_.IsVisualOrder()) AddControls(OpeningControls(styles_.Of(id)));
    OpenDecoration(id, styles_.Of(id), true, PlaceOf(id));
    AddSide(*styles_.Of(id).box, cssLeft);
    AddGenerated(styles_.Before(id), id);
    return true;
}

void LinesReader::AddControls(std::u16string_view controls) {
    if (lines_.hasText) writer_.AddControls(controls);
}

void LinesReader::AddClear(CssClear clear) {
    if (clear == CssClear::None) return;
    writer_.Content().clears.push_back(
        {writer_.Length(), clear != CssClear::Right, clear != CssClear::Left});
}

// What an element takes on a side in its line: margin, border and padding.
void LinesReader::AddSide(const CssBoxStyle& style, CssSide side) {
    if (style.display != CssDisplay::Inline || !lines_.hasText) return;
    const float css =
        style.margin[side].Of(0) + style.borderWidth[side] + style.padding[side].Of(0);
    const int width = int(std::lround(fonts_.Pixels(css)));
    if (width > 0) writer_.AddGap(width, side == cssLeft);
}

// The elements that the first of these lines goes on with.
void LinesReader::OpenAround(HtmlNodeId node) {
    std::vector<HtmlNodeId> around;
    while ((node = tree_[node].parent) != container_ && node != noHtmlNode)
        around.push_back(node);
    for (auto element = around.rbegin(); element != around.rend(); ++element)
        if (tree_[*element].IsElement())
            OpenDecoration(*element, styles_.Of(*element), false, PlaceOf(*element));
}

void LinesReader::OpenDecoration(HtmlNodeId element, CssStyle style, bool begins,
                                 const TextPlace& place) {
    if (!HasDecoration(style) || !lines_.hasText) return;
    const FontMetrics metrics = fonts_.Metrics(*style.inherited);
    auto& decorations = writer_.Content().decorations;
    open_.push_back({element, decorations.size()});
    decorations.push_back({writer_.Length(), writer_.Length(), style.box, metrics.ascent,
                           metrics.descent, place.raise + place.shift, begins, false});
}

void LinesReader::CloseDecoration(HtmlNodeId element, bool ends) {
    if (open_.empty() || open_.back().element != element) return;
    InlineDecoration& decoration = writer_.Content().decorations[open_.back().decoration];
    decoration.end = writer_.Length();
    decoration.ends = ends;
    open_.pop_back();
}

// The elements that end before the next node, from this one outwards.
void LinesReader::Leave(HtmlNodeId element, HtmlNodeId next) {
    const HtmlNodeId around = next == noHtmlNode ? noHtmlNode : tree_[next].parent;
    for (; element != noHtmlNode && element != around; element = tree_[element].parent) {
        AddGenerated(styles_.After(element), element);
        if (element == container_) return;
        AddSide(*styles_.Of(element).box, cssRight);
        CloseDecoration(element, true);
        if (!tree_.IsVisualOrder()) AddControls(ClosingControls(styles_.Of(element)));
    }
}

void LinesReader::AddBox() {
    const PageBox& box = boxes_[nextBox_];
    const bool inLine = !IsOutOfFlow(*box.style) && box.style->floats == CssFloat::None;
    places_.push_back({writer_.Length(), nextBox_, inLine});
    if (inLine) {
        const HtmlNodeId around = box.generated ? box.node : tree_[box.node].parent;
        const bool isFollowed = !box.generated && tree_[box.node].nextSibling != noHtmlNode;
        writer_.AddObject(*lines_.text, box.generated ? noHtmlNode : box.node,
                          !writer_.WrapsIn(*styles_.Of(around).inherited), isFollowed);
    }
    nextBox_ = box.nextSibling;
}

// The marker of a list's item, where it is part of its first line.
void LinesReader::AddMarkerInside() {
    const PageBoxId item = lines_.node != noHtmlNode ? id_ : lines_.parent;
    if (boxes_[item].style->display != CssDisplay::ListItem) return;
    if (boxes_[item].text->listStylePosition != CssListStylePosition::Inside) return;
    if (item != id_ && boxes_.FirstChild(item) != id_) return;
    const std::u16string marker = ListMarker(boxes_[item].text->listStyleType, boxes_[item].number);
    if (!marker.empty())
        writer_.AddText(marker + u" ", *boxes_[item].text, {.background = background_});
}

// Before or behind what is in an element.
void LinesReader::AddGenerated(CssStyle style, HtmlNodeId element) {
    if (!style.box) return;
    TextPlace place = PlaceOf(element);
    AddOwnPlace(style, styles_.Of(element), fonts_, place);
    if (IsDrawn(style.box->background)) place.background = style.box->background.Bgr();
    OpenDecoration(noHtmlNode, style, true, place);
    AddSide(*style.box, cssLeft);
    for (const CssContentItem& item : styles_.Content(style.box->content))
        if (item.kind != CssContentItem::Kind::Picture)
            writer_.AddText(generated_.Of(item, element).substr(0, maxGenerated), *style.inherited,
                            place);
        else if (nextBox_ != noPageBox && boxes_[nextBox_].generated == &item)
            AddBox();
    AddSide(*style.box, cssRight);
    CloseDecoration(noHtmlNode, true);
}

// Of the text that stands in an element.
TextPlace LinesReader::PlaceOf(HtmlNodeId element) {
    TextPlace place;
    for (; tree_[element].IsElement() && element != container_ && IsInline(element);
         element = tree_[element].parent) {
        AddOwnPlace(styles_.Of(element), styles_.Of(tree_[element].parent), fonts_, place);
        const CssColor background = styles_.Of(element).box->background;
        if (!place.background && IsDrawn(background)) place.background = background.Bgr();
    }
    if (!place.background) place.background = background_;
    return place;
}

bool LinesReader::IsInline(HtmlNodeId element) const {
    const CssDisplay display = styles_.Of(element).box->display;
    return display == CssDisplay::Inline || display == CssDisplay::Contents;
}
