#include "view/page/page_box_stack.h"

#include "formats/html/html_integer.h"
#include "view/page/collapsed_borders.h"
#include "view/page/page_counters.h"

#include <algorithm>

namespace {
const CssBoxStyle anonymousStyle = [] {
    CssBoxStyle style;
    style.display = CssDisplay::Block;
    return style;
}();
} // namespace

void PageBoxes::SetBackground(HtmlNodeId element, CssColor color) {
    const PageBoxId first = BoxOf(element);
    for (PageBoxId id = first; id != noPageBox && id < boxes_[first].end; ++id) {
        PageBox& box = boxes_[id];
        if (box.node != element || box.isFirstLetter || IsGenerated(box)) continue;
        CssBoxStyle style = *box.style;
        style.background = color;
        box.style = styles_->Find(style).value;
    }
}

PageBoxStack::PageBoxStack(const HtmlTree& tree, const CssPageStyles& styles,
                           const PageWeights& weights)
    : tree_(tree), styles_(styles), weights_(weights) {
    boxes_.counters_ = std::make_shared<PageCounters>(tree, styles);
    boxes_.boxes_.reserve(tree.NodeCount() + tree.NodeCount() / 64 + 16);
    boxes_.boxOfNode_.assign(tree.NodeCount() + 1, noPageBox);
    boxes_.boxes_[noPageBox].text = styles_.Initial().inherited;
    boxes_.boxes_[noPageBox].style = &anonymousStyle;
}

void PageBoxStack::Open(PageBoxKind kind, HtmlNodeId node) {
    PageBox box;
    box.kind = kind;
    box.node = node;
    box.style = node == noHtmlNode ? &anonymousStyle : styles_.Of(node).box;
    box.isTooLong = node != noHtmlNode && weights_.IsTooLong(node);
    box.text = node == noHtmlNode ? Top().text : styles_.Of(node).inherited;
    if (node != noHtmlNode && !boxes_.boxOfNode_[node]) boxes_.boxOfNode_[node] = Next();
    Push(box);
}

void PageBoxStack::OpenGenerated(HtmlNodeId node, CssStyle style, GeneratedPlace place) {
    const CssContent& content = styles_.Content(style.box->content);
    PageBox box;
    box.hasText = std::any_of(content.begin(), content.end(), [](const CssContentItem& item) {
        return item.kind != CssContentItem::Kind::Text || !item.text.empty();
    });
    box.kind = box.hasText ? PageBoxKind::Lines : PageBoxKind::Block;
    box.generatedPlace = place;
    box.node = node;
    box.text = style.inherited;
    box.style = style.box;
    Push(box);
}

void PageBoxStack::OpenRuby(PageBoxKind kind, HtmlNodeId first, HtmlNodeId after, CssStyle style) {
    PageBox box;
    box.kind = kind;
    box.first = first;
    box.after = after;
    box.text = style.inherited;
    box.style = &anonymousStyle;
    Push(box);
}

// It is drawn in its own size, in the line, wherever the text beside it would stand.
void PageBoxStack::AddGeneratedPicture(HtmlNodeId node, CssStyle style,
                                       const CssContentItem& item) {
    CssBoxStyle own = *style.box;
    own.display = CssDisplay::Inline;
    own.position = CssPosition::Static;
    own.floats = CssFloat::None;
    own.width = own.height = own.minWidth = own.minHeight = own.maxWidth = own.maxHeight = {};
    PageBox box;
    box.kind = PageBoxKind::Picture;
    box.node = node;
    box.generated = &item;
    box.text = style.inherited;
    box.style = boxes_.styles_->Find(own).value;
    Push(box);
    Close();
}

void PageBoxStack::AddFirstLetter(HtmlNodeId text, const PageFirstLetter& letter, CssStyle style) {
    boxes_.firstLetters_[text] = letter;
    if (style.box->floats == CssFloat::None) return;
    Top().hasFloats = true;
    PageBox box;
    box.kind = PageBoxKind::Lines;
    box.hasText = box.isFirstLetter = true;
    box.first = box.after = text;
    box.firstUnit = letter.start;
    box.afterUnit = letter.end;
    box.units = letter.end - letter.start;
    box.text = style.inherited;
    box.style = style.box;
    Push(box);
    Close();
}

void PageBoxStack::Push(PageBox box) {
    const PageBoxId id = Next();
    if (!open_.empty()) {
        OpenBox& parent = open_.back();
        box.parent = parent.id;
        if (parent.lastChild != noPageBox) boxes_.boxes_[parent.lastChild].nextSibling = id;
        parent.lastChild = id;
    }
    boxes_.boxes_.push_back(box);
    open_.push_back({id, noPageBox, 0, 0});
}

void PageBoxStack::Close() {
    Top().end = Next();
    open_.pop_back();
}

bool PageBoxStack::IsInLongTable() const {
    const auto table = std::find_if(open_.rbegin(), open_.rend(), [&](const OpenBox& box) {
        return boxes_[box.id].kind == PageBoxKind::Table;
    });
    return table != open_.rend() && boxes_[table->id].isTooLong;
}

bool PageBoxStack::HasMoreUnits(std::uint32_t units) const {
    std::uint32_t all = 0;
    for (PageBoxId box = TopId(); box < Next() && all <= units; ++box)
        all += boxes_[box].units;
    return all > units;
}

void PageBoxStack::FoldLines() {
    PageBox& block = Top();
    const PageBoxId only = TopId() + 1;
    if (block.kind != PageBoxKind::Block || Next() != only + 1) return;
    if (block.style->innerLayout != CssInnerLayout::Flow) return; // whose items are boxes
    const PageBox& lines = boxes_[only];
    if (lines.kind != PageBoxKind::Lines || lines.node != noHtmlNode) return;
    block.kind = PageBoxKind::Lines;
    block.hasText = lines.hasText;
    block.units = lines.units;
    block.first = lines.first;
    block.after = lines.after;
    for (HtmlNodeId id = lines.first; id != noHtmlNode && id != lines.after; id = tree_.Next(id))
        if (boxes_.boxOfNode_[id] == only) boxes_.boxOfNode_[id] = TopId();
    boxes_.boxes_.pop_back();
    open_.back().lastChild = noPageBox;
}

void PageBoxStack::SetStyle(PageBoxId box, const CssBoxStyle& style) {
    boxes_.boxes_[box].style = boxes_.styles_->Find(style).value;
}

void PageBoxStack::CollapseBorders(PageBoxId table) {
    CollapsedBorders(boxes_.boxes_, *boxes_.styles_).Apply(table, GridOf(boxes_, *this, table));
}

std::optional<int> PageBoxStack::Number(PageBoxId box, HtmlName attribute) {
    const HtmlNodeId node = boxes_[box].node;
    return node == noHtmlNode ? std::nullopt : HtmlInteger(tree_[node], attribute);
}
