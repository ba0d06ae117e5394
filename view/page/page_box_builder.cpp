#include "view/page/page_box_builder.h"

#include "formats/html/html_units.h"
#include "view/page/html_number.h"

#include <algorithm>
#include <unordered_map>

namespace {
const CssBoxStyle anonymousStyle = [] {
    CssBoxStyle style;
    style.display = CssDisplay::Block;
    return style;
}();

// Whether a text alone makes no line.
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
} // namespace

bool IsNotShown(const HtmlNode& node) {
    if (node.nameSpace == HtmlNamespace::Svg) return true;
    if (node.nameSpace != HtmlNamespace::Html) return false;
    switch (node.name) {
    case HtmlName::Audio:
    case HtmlName::Canvas:
    case HtmlName::Embed:
    case HtmlName::Iframe:
    case HtmlName::Input:
    case HtmlName::Select:
    case HtmlName::Textarea:
    case HtmlName::Video: return true;
    default: return false;
    }
}

class PageBoxBuilder {
  public:
    PageBoxBuilder(const HtmlTree& tree, const CssPageStyles& styles)
        : tree_(tree), styles_(styles) {
        boxes_.boxes_.reserve(tree.NodeCount() / 2 + 2);
        boxes_.boxOfNode_.assign(tree.NodeCount() + 1, noPageBox);
    }

    PageBoxes Build() {
        boxes_.boxes_[noPageBox].text = styles_.Initial().inherited;
        boxes_.boxes_[noPageBox].style = &anonymousStyle;
        BuildBlock(PageBoxKind::Block, tree_.RootElement());
        return std::move(boxes_);
    }

  private:
    struct OpenBox {
        PageBoxId id = noPageBox, lastChild = noPageBox;
    };

    PageBox& Top() { return boxes_.boxes_[open_.back().id]; }
    PageBoxId Next() const { return boxes_.End(); }
    bool IsRunOpen() const {
        return !open_.empty() && boxes_[open_.back().id].kind == PageBoxKind::Lines;
    }

    void Open(PageBoxKind kind, HtmlNodeId node) {
        PageBox box;
        box.kind = kind;
        box.node = node;
        box.style = node == noHtmlNode ? &anonymousStyle : styles_.Of(node).box;
        box.text = node == noHtmlNode ? Top().text : styles_.Of(node).inherited;
        const PageBoxId id = Next();
        if (!open_.empty()) {
            OpenBox& parent = open_.back();
            box.parent = parent.id;
            if (parent.lastChild != noPageBox) boxes_.boxes_[parent.lastChild].nextSibling = id;
            parent.lastChild = id;
        }
        boxes_.boxes_.push_back(box);
        if (node != noHtmlNode) boxes_.boxOfNode_[node] = id;
        open_.push_back({id, noPageBox});
    }

    void Close() {
        Top().end = Next();
        open_.pop_back();
    }

    // Lines begin with this node, unless they have begun.
    PageBox& OpenRun(HtmlNodeId node) {
        if (!IsRunOpen()) {
            Open(PageBoxKind::Lines, noHtmlNode);
            Top().first = node;
        }
        return Top();
    }

    // They end before this node.
    void CloseRun(HtmlNodeId behind) {
        if (!IsRunOpen()) return;
        Top().behind = behind;
        Close();
    }

    // A block of nothing but text is the box of its lines.
    void FoldLines() {
        PageBox& block = Top();
        const PageBoxId only = open_.back().id + 1;
        if (block.kind != PageBoxKind::Block || Next() != only + 1) return;
        const PageBox& lines = boxes_[only];
        if (lines.kind != PageBoxKind::Lines || lines.node != noHtmlNode) return;
        block.kind = PageBoxKind::Lines;
        block.hasText = lines.hasText;
        block.units = lines.units;
        block.first = lines.first;
        block.behind = lines.behind;
        for (HtmlNodeId id = lines.first; id != noHtmlNode && id != lines.behind;
             id = tree_.Next(id))
            if (boxes_.boxOfNode_[id] == only) boxes_.boxOfNode_[id] = open_.back().id;
        boxes_.boxes_.pop_back();
        open_.back().lastChild = noPageBox;
    }

    void BuildBlock(PageBoxKind kind, HtmlNodeId node) {
        Open(kind, node);
        const HtmlNodeId behind = tree_.NextBehind(node);
        if (Top().style->display == CssDisplay::ListItem) Top().number = NextNumber(node);
        if (styles_.Before(node).box) OpenRun(node).hasText = true;
        VisitChildren(node);
        if (styles_.After(node).box) OpenRun(behind).hasText = true;
        CloseRun(behind);
        FoldLines();
        Close();
    }

    // Items are counted in the element that they stand in.
    int NextNumber(HtmlNodeId item) {
        const HtmlNodeId list = tree_[item].parent;
        const auto [counter, isFirst] = counters_.try_emplace(list);
        const bool reversed = tree_[list].Attribute(HtmlName::Reversed) != nullptr;
        if (isFirst) {
            const int first = reversed ? CountItems(list) : 1;
            counter->second = HtmlNumber(tree_[list], HtmlName::Start).value_or(first);
        }
        const int number = HtmlNumber(tree_[item], HtmlName::Value).value_or(counter->second);
        counter->second = reversed ? number - 1 : number + 1;
        return number;
    }

    int CountItems(HtmlNodeId list) const {
        int items = 0;
        ForChildren(list, [&](HtmlNodeId child) {
            if (DisplayOf(child) == CssDisplay::ListItem) ++items;
        });
        return items;
    }

    template <typename Do>
    void ForChildren(HtmlNodeId parent, Do work) const {
        for (HtmlNodeId child = tree_[parent].firstChild; child != noHtmlNode;
             child = tree_[child].nextSibling)
            work(child);
    }

    void VisitChildren(HtmlNodeId node) {
        ForChildren(node, [&](HtmlNodeId child) { Visit(child); });
    }

    void Visit(HtmlNodeId id) {
        const HtmlNode& node = tree_[id];
        if (node.IsText() && !IsEmptyText(id)) {
            PageBox& lines = OpenRun(id);
            lines.hasText = true;
            lines.units += std::uint32_t(node.Text().size());
            boxes_.boxOfNode_[id] = open_.back().id;
        } else if (node.IsElement() && !IsNotShown(node))
            VisitElement(id, *styles_.Of(id).box);
    }

    bool IsEmptyText(HtmlNodeId text) const {
        return Collapses(tree_[text].Text(), styles_.Of(tree_[text].parent).inherited->whiteSpace);
    }

    void VisitElement(HtmlNodeId id, const CssBoxStyle& style) {
        if (style.display == CssDisplay::None) return;
        if (IsOutOfFlow(style) || style.floats != CssFloat::None) {
            PageBox& run = OpenRun(id);
            run.hasFloats = run.hasFloats || !IsOutOfFlow(style);
            return BuildOwn(id, style);
        }
        switch (style.display) {
        case CssDisplay::None: return;
        case CssDisplay::Inline:
            if (IsPicture(id)) break;
            return VisitInline(id);
        case CssDisplay::Contents: return VisitInline(id);
        case CssDisplay::InlineBlock:
        case CssDisplay::InlineTable: break;
        default: CloseRun(id); return BuildOwn(id, style);
        }
        OpenRun(id).hasText = true;
        BuildOwn(id, style);
    }

    bool IsPicture(HtmlNodeId id) const { return tree_[id].Is(HtmlName::Img); }

    // Left of its text, so that lines begin with the element itself.
    static bool TakesRoomBefore(const CssBoxStyle& style) {
        return style.margin[cssLeft].Of(0) > 0 || style.borderWidth[cssLeft] > 0 ||
               style.padding[cssLeft].Of(0) > 0;
    }

    void VisitInline(HtmlNodeId id) {
        if (tree_[id].Is(HtmlName::Br) || styles_.Before(id).box || styles_.After(id).box)
            OpenRun(id).hasText = true;
        else if (TakesRoomBefore(*styles_.Of(id).box))
            OpenRun(id);
        if (tree_[id].Is(HtmlName::Br)) boxes_.boxOfNode_[id] = open_.back().id;
        VisitChildren(id);
    }

    void BuildOwn(HtmlNodeId id, const CssBoxStyle& style) {
        if (IsPicture(id)) {
            Open(PageBoxKind::Picture, id);
            return Close();
        }
        if (style.display == CssDisplay::Table || style.display == CssDisplay::InlineTable)
            return BuildTable(id);
        BuildBlock(PageBoxKind::Block, id);
    }

    // Blanks between the parts of a table are nothing.
    bool IsShownPart(HtmlNodeId id) const {
        const HtmlNode& node = tree_[id];
        if (node.IsText()) return IsRunOpen() || !IsEmptyText(id);
        return node.IsElement() && styles_.Of(id).box->display != CssDisplay::None;
    }

    CssDisplay DisplayOf(HtmlNodeId id) const {
        return tree_[id].IsElement() ? styles_.Of(id).box->display : CssDisplay::Inline;
    }

    // Parts of a table or of a group of rows. Cells, and what does not belong there, stand in a row
    // of their own, as many as come together.
    void BuildRowsOf(HtmlNodeId parent) {
        bool inRow = false;
        ForChildren(parent, [&](HtmlNodeId child) {
            if (!IsShownPart(child)) return;
            const CssDisplay display = DisplayOf(child);
            const bool part = IsTablePart(display) && display != CssDisplay::TableCell;
            if (part && inRow) CloseRow(child);
            if (!part && !inRow) Open(PageBoxKind::Row, noHtmlNode);
            inRow = !part;
            if (part)
                BuildTablePart(child, display);
            else
                BuildCell(child);
        });
        if (inRow) CloseRow(tree_.NextBehind(parent));
    }

    static bool IsTablePart(CssDisplay display) {
        return display >= CssDisplay::TableRowGroup && display <= CssDisplay::TableCaption;
    }

    void BuildTable(HtmlNodeId table) {
        Open(PageBoxKind::Table, table);
        BuildRowsOf(table);
        Close();
    }

    void BuildTablePart(HtmlNodeId id, CssDisplay display) {
        switch (display) {
        case CssDisplay::TableCaption: return BuildBlock(PageBoxKind::Caption, id);
        case CssDisplay::TableColumn: return BuildColumn(id);
        case CssDisplay::TableColumnGroup: return BuildColumns(id);
        case CssDisplay::TableRow: return BuildRow(id);
        default: break;
        }
        Open(PageBoxKind::RowGroup, id);
        BuildRowsOf(id);
        Close();
    }

    void BuildRow(HtmlNodeId row) {
        Open(PageBoxKind::Row, row);
        ForChildren(row, [&](HtmlNodeId child) {
            if (IsShownPart(child)) BuildCell(child);
        });
        CloseRow(tree_.NextBehind(row));
    }

    // A cell, or a part of one that has no element.
    void BuildCell(HtmlNodeId id) {
        if (DisplayOf(id) == CssDisplay::TableCell) {
            CloseCell(id);
            return BuildBlock(PageBoxKind::Cell, id);
        }
        if (Top().kind == PageBoxKind::Row) Open(PageBoxKind::Cell, noHtmlNode);
        Visit(id);
    }

    void CloseCell(HtmlNodeId behind) {
        CloseRun(behind);
        if (Top().kind == PageBoxKind::Cell) Close();
    }

    void CloseRow(HtmlNodeId behind) {
        CloseCell(behind);
        Close();
    }

    void BuildColumns(HtmlNodeId columns) {
        Open(PageBoxKind::Columns, columns);
        ForChildren(columns, [&](HtmlNodeId child) {
            if (DisplayOf(child) == CssDisplay::TableColumn) BuildColumn(child);
        });
        Close();
    }

    void BuildColumn(HtmlNodeId column) {
        Open(PageBoxKind::Column, column);
        Close();
    }

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    PageBoxes boxes_;
    std::vector<OpenBox> open_;
    std::unordered_map<HtmlNodeId, int> counters_; // the next number of each list
};

PageBoxes BoxesOf(const HtmlTree& tree, const CssPageStyles& styles) {
    return PageBoxBuilder(tree, styles).Build();
}
