#include "view/page/lines_reader.h"

#include "view/page/bidi_isolation.h"
#include "view/page/box_generation.h"
#include "view/page/page_background.h"

#include <algorithm>

namespace {
// Around each block of lines of a page in visual order, which no element changes: blocks alone have
// the direction that the page says.
constexpr std::u16string_view leftToRightOverride = u"\u202D", endOfOverride = u"\u202C";

CssInheritedStyle InFirstLine(CssInheritedStyle style, const CssInheritedStyle& block,
                              const CssInheritedStyle& line) {
    const auto take = [&](auto... members) {
        ((style.*members = style.*members == block.*members ? line.*members : style.*members), ...);
    };
    using Style = CssInheritedStyle;
    take(&Style::fontSize, &Style::families, &Style::lineHeight, &Style::letterSpacing,
         &Style::wordSpacing, &Style::fontWeight, &Style::fontStyle, &Style::fontCaps,
         &Style::textTransform);
    if (style.color == block.color && style.autoColor == block.autoColor) {
        style.color = line.color;
        style.autoColor = line.autoColor;
    }
    style.decorations |= line.decorations;
    return style;
}
} // namespace

LinesReader::LinesReader(const HtmlTree& tree, const CssPageStyles& styles, const PageBoxes& boxes,
                         PageFonts& fonts, PageBoxId lines)
    : tree_(tree), styles_(styles), boxes_(boxes), fonts_(fonts), id_(lines), lines_(boxes[lines]),
      generated_(tree, styles, boxes.Counters()), writer_(fonts, *boxes[lines].text),
      nextBox_(boxes.FirstChild(lines)) {
    PageBoxId box = lines;
    while (boxes[box].node == noHtmlNode)
        box = boxes[box].parent;
    container_ = boxes[box].node;
    background_ = BackgroundOf(boxes, lines);
    writer_.Content().needsText = tree.Quirks() != HtmlQuirks::None;
}

LinesText LinesReader::Read() {
    ReadAll();
    LinesText text{writer_.Finish(), std::move(places_)};
    // The space before them may have gone with the end.
    const auto end = TextPos(text.content->text.text.size());
    for (LinesText::Place& place : text.boxes)
        place.at = std::min(place.at, end);
    return text;
}

std::shared_ptr<const InlineFirstLine> LinesReader::ReadFirstLine(CssStyle firstLine) {
    firstLine_ = firstLine.inherited;
    ReadAll();
    const auto content = writer_.Finish();
    auto line = std::make_shared<InlineFirstLine>();
    line->text = std::move(content->text.text);
    line->styles = std::move(content->text.runs);
    line->runs = std::move(content->runs);
    return line;
}

CssStyle LinesReader::FirstLineStyle() const {
    if (lines_.continues || IsGenerated(lines_) || lines_.isFirstLetter) return {};
    const bool isFirst = lines_.node != noHtmlNode || boxes_.FirstChild(lines_.parent) == id_;
    return isFirst ? styles_.FirstLine(container_) : CssStyle{};
}

void LinesReader::ReadAll() {
    if (tree_.IsVisualOrder()) AddControls(leftToRightOverride);
    AddMarker();
    if (lines_.first != noHtmlNode && lines_.first != container_ &&
        (lines_.first != lines_.after || lines_.afterUnit > 0))
        OpenAround(lines_.first);
    if (lines_.generatedPlace != GeneratedPlace::None) {
        AddContent({lines_.text, lines_.style}, container_, lines_.generatedPlace,
                   {.background = background_});
    } else if (lines_.first == lines_.after && lines_.afterUnit > 0) {
        AddUpTo(lines_.after, lines_.firstUnit, lines_.afterUnit);
    } else if (lines_.first == container_) {
        AddGenerated(styles_.Before(container_), container_, GeneratedPlace::Before);
        const HtmlNodeId child = tree_[container_].firstChild;
        if (child == noHtmlNode)
            AddGenerated(styles_.After(container_), container_, GeneratedPlace::After);
        ReadFrom(child);
    } else if (lines_.first == lines_.after) {
        AddGenerated(styles_.After(container_), container_, GeneratedPlace::After);
    } else {
        ReadFrom(lines_.first);
    }
    while (!open_.empty())
        CloseDecoration(open_.back().element, InlineEdge::Elsewhere);
    if (tree_.IsVisualOrder()) AddControls(endOfOverride);
}

// What texts in an element have. In a block's first line they take from its style what they have
// from the block itself.
const CssInheritedStyle& LinesReader::StyleIn(HtmlNodeId element) {
    const CssInheritedStyle& own = *styles_.Of(element).inherited;
    return firstLine_
               ? fonts_.Keep(InFirstLine(own, *styles_.Of(container_).inherited, *firstLine_))
               : own;
}

// In document order, up to the node after the lines.
void LinesReader::ReadFrom(HtmlNodeId id) {
    while (id != noHtmlNode && id != lines_.after) {
        if (IsRubyAt(id)) {
            const HtmlNodeId after = boxes_[nextBox_].after;
            AddRuby();
            Leave(tree_[id].parent, after);
            id = after;
            continue;
        }
        const bool within = Enter(id);
        const HtmlNodeId next = within ? tree_.Next(id) : tree_.NextAfter(id);
        Leave(within ? id : tree_[id].parent, next);
        id = next;
    }
    if (lines_.afterUnit > 0) AddUpTo(lines_.after, 0, lines_.afterUnit);
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
    const CssInheritedStyle& style = lines_.isFirstLetter ? *lines_.text : StyleIn(node.parent);
    writer_.SetNode(text);
    writer_.AddText(node.Text().substr(0, end), style, PlaceOf(node.parent), from);
    writer_.SetNode(noHtmlNode);
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
    if (nextBox_ != noPageBox && boxes_[nextBox_].node == id && !IsGenerated(boxes_[nextBox_])) {
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
    OpenDecoration(id, styles_.Of(id), InlineEdge::Here, PlaceOf(id));
    AddSide(*styles_.Of(id).box, cssLeft);
    AddGenerated(styles_.Before(id), id, GeneratedPlace::Before);
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

// The elements that end before the next node, from this one outwards.
void LinesReader::Leave(HtmlNodeId element, HtmlNodeId next) {
    const HtmlNodeId around = next == noHtmlNode ? noHtmlNode : tree_[next].parent;
    for (; element != noHtmlNode && element != around; element = tree_[element].parent) {
        AddGenerated(styles_.After(element), element, GeneratedPlace::After);
        if (element == container_) return;
        AddSide(*styles_.Of(element).box, cssRight);
        CloseDecoration(element, InlineEdge::Here);
        if (!tree_.IsVisualOrder()) AddControls(ClosingControls(styles_.Of(element)));
    }
}

void LinesReader::AddBox() {
    const PageBox& box = boxes_[nextBox_];
    const bool inLine = !IsOutOfFlow(*box.style) && box.style->floats == CssFloat::None;
    TextPos at = writer_.Length();
    if (inLine) {
        const bool isGenerated = IsGenerated(box);
        const HtmlNodeId around = isGenerated ? box.node : tree_[box.node].parent;
        const bool isFollowed = !isGenerated && tree_[box.node].nextSibling != noHtmlNode;
        const bool joins = !writer_.WrapsIn(*styles_.Of(around).inherited);
        at = writer_.AddObject(*lines_.text, isGenerated ? noHtmlNode : box.node, joins,
                               joins && isFollowed);
    }
    places_.push_back({at, nextBox_, inLine});
    nextBox_ = box.nextSibling;
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
