#include "view/page/page_box_builder.h"

#include "formats/html/html_integer.h"
#include "formats/html/html_units.h"
#include "view/page/collapsed_borders.h"
#include "view/page/page_weights.h"
#include "view/page/text_cut.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

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

class PageBoxBuilder : private PageNumbers {
  public:
    PageBoxBuilder(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits)
        : tree_(tree), styles_(styles), limits_(limits), weights_(tree, styles, limits.whole) {
        boxes_.boxes_.reserve(tree.NodeCount() + tree.NodeCount() / 64 + 16);
        boxes_.boxOfNode_.assign(tree.NodeCount() + 1, noPageBox);
    }

    PageBoxes Build() {
        boxes_.boxes_[noPageBox].text = styles_.Initial().inherited;
        boxes_.boxes_[noPageBox].style = &anonymousStyle;
        BuildBlock(PageBoxKind::Block, tree_.RootElement());
        for (const PageBoxId table : collapsedTables_)
            CollapsedBorders(boxes_.boxes_, *boxes_.styles_)
                .Apply(table, GridOf(boxes_, *this, table));
        return std::move(boxes_);
    }

  private:
    struct OpenBox {
        PageBoxId id = noPageBox, lastChild = noPageBox;
        PageWeight weight = 0; // of lines
    };

    // What a table has had since it began or was divided.
    struct TablePart {
        PageWeight weight = 0;
        int rows = 0, spannedUntil = 0;
    };

    std::optional<int> Number(PageBoxId box, HtmlName attribute) override {
        const HtmlNodeId node = boxes_[box].node;
        return node == noHtmlNode ? std::nullopt : HtmlInteger(tree_[node], attribute);
    }

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
        box.isTooLong = node != noHtmlNode && weights_.IsTooLong(node);
        box.text = node == noHtmlNode ? Top().text : styles_.Of(node).inherited;
        const PageBoxId id = Next();
        if (!open_.empty()) {
            OpenBox& parent = open_.back();
            box.parent = parent.id;
            if (parent.lastChild != noPageBox) boxes_.boxes_[parent.lastChild].nextSibling = id;
            parent.lastChild = id;
        }
        boxes_.boxes_.push_back(box);
        if (node != noHtmlNode && !boxes_.boxOfNode_[node]) boxes_.boxOfNode_[node] = id;
        open_.push_back({id, noPageBox, 0});
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
            Top().continues = std::exchange(runGoesOn_, false);
        }
        return Top();
    }

    // They end before this node.
    void CloseRun(HtmlNodeId behind) {
        runGoesOn_ = false;
        if (!IsRunOpen()) return;
        Top().behind = behind;
        Close();
    }

    // They are too long and go on in others, from there on.
    void DivideRun(HtmlNodeId behind, std::uint32_t unit) {
        if (!IsRunOpen()) return;
        Top().behindUnit = unit;
        CloseRun(behind);
        runGoesOn_ = true;
    }

    // Before what would make them too long.
    void MakeRoomInRun(HtmlNodeId node, PageWeight weight) {
        if (IsRunOpen() && open_.back().weight + weight > limits_.lines) DivideRun(node, 0);
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
        if (tree_[node].Is(HtmlName::Body) && boxes_[rootPageBox].style->background.IsTransparent())
            boxes_.canvas_ = open_.back().id;
        const HtmlNodeId behind = tree_.NextBehind(node);
        if (Top().style->display == CssDisplay::ListItem) Top().number = NextNumber(node);
        AddGenerated(styles_.Before(node), node);
        VisitChildren(node);
        AddGenerated(styles_.After(node), behind);
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
            counter->second = HtmlInteger(tree_[list], HtmlName::Start).value_or(first);
        }
        const int number = HtmlInteger(tree_[item], HtmlName::Value).value_or(counter->second);
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
            AddText(id, node.Text());
        } else if (node.IsElement() && !IsNotShown(node))
            VisitElement(id, *styles_.Of(id).box);
    }

    void AddText(HtmlNodeId id, std::u16string_view text) {
        const CssWhiteSpace whiteSpace = styles_.Of(tree_[id].parent).inherited->whiteSpace;
        for (std::size_t at = 0; at < text.size();) {
            OpenRun(id);
            const std::size_t end = EndInRun(text, at, whiteSpace);
            if (at == 0 && end > 0) boxes_.boxOfNode_[id] = open_.back().id;
            AddUnits(end - at);
            if (end == text.size()) break;
            DivideRun(id, std::uint32_t(end));
            OpenRun(id).firstUnit = std::uint32_t(end);
            at = end;
        }
        if (Weight() > limits_.GoodLines() && KeepsBreaks(whiteSpace) && text.back() == u'\n')
            DivideRun(tree_.NextBehind(id), 0);
    }

    // How far the text goes in the lines that are open; the start if they are too long already.
    std::size_t EndInRun(std::u16string_view text, std::size_t at, CssWhiteSpace whiteSpace) const {
        const std::size_t room = limits_.lines - std::min(limits_.lines, Weight());
        if (Weight() > limits_.GoodLines() && KeepsBreaks(whiteSpace)) {
            const std::size_t lineBreak = text.substr(0, at + room).find(u'\n', at);
            if (lineBreak != text.npos) return lineBreak + 1;
        }
        if (text.size() - at <= room) return text.size();
        return room == 0 ? at : TextCut(text, at, at + room, whiteSpace);
    }

    PageWeight Weight() const { return open_.back().weight; }

    void AddUnits(std::size_t units) {
        Top().hasText = Top().hasText || units > 0;
        Top().units += std::uint32_t(units);
        open_.back().weight += std::uint32_t(units);
    }

    // Text before or behind what is in an element.
    void AddGenerated(CssStyle style, HtmlNodeId run) {
        if (!style.box) return;
        OpenRun(run).hasText = true;
        for (const CssContentItem& item : styles_.Content(style.box->content))
            open_.back().weight +=
                PageWeight(std::min<std::size_t>(item.text.size(), maxGenerated));
    }

    bool IsEmptyText(HtmlNodeId text) const {
        return Collapses(tree_[text].Text(), styles_.Of(tree_[text].parent).inherited->whiteSpace);
    }

    void VisitElement(HtmlNodeId id, const CssBoxStyle& style) {
        if (style.display == CssDisplay::None) return;
        const bool leavesFlow = IsOutOfFlow(style) || style.floats != CssFloat::None;
        if (leavesFlow && !weights_.IsTooLong(id)) {
            MakeRoomInRun(id, boxInLinesWeight);
            PageBox& run = OpenRun(id);
            run.hasFloats = run.hasFloats || !IsOutOfFlow(style);
            open_.back().weight += boxInLinesWeight;
            return BuildOwn(id, style);
        }
        switch (style.display) {
        case CssDisplay::None: return;
        case CssDisplay::Inline:
            if (IsPicture(id)) break;
            return VisitInline(id);
        case CssDisplay::Contents: return VisitInline(id);
        case CssDisplay::InlineBlock:
        case CssDisplay::InlineTable:
            if (!weights_.IsTooLong(id)) break;
            CloseRun(id);
            return BuildOwn(id, style);
        case CssDisplay::TableColumn:
        case CssDisplay::TableColumnGroup: return; // of no table, or of one in blocks
        default: CloseRun(id); return BuildOwn(id, style);
        }
        MakeRoomInRun(id, boxInLinesWeight);
        OpenRun(id).hasText = true;
        open_.back().weight += boxInLinesWeight;
        BuildOwn(id, style);
    }

    bool IsPicture(HtmlNodeId id) const { return tree_[id].Is(HtmlName::Img); }

    // Left of its text, so that lines begin with the element itself.
    static bool TakesRoomBefore(const CssBoxStyle& style) {
        return style.margin[cssLeft].Of(0) > 0 || style.borderWidth[cssLeft] > 0 ||
               style.padding[cssLeft].Of(0) > 0;
    }

    void VisitInline(HtmlNodeId id) {
        if (tree_[id].Is(HtmlName::Br)) {
            OpenRun(id);
            AddUnits(1);
            boxes_.boxOfNode_[id] = open_.back().id;
            if (Weight() > limits_.GoodLines()) DivideRun(tree_.NextBehind(id), 0);
        } else {
            MakeRoomInRun(id, inlineElementWeight);
            if (TakesRoomBefore(*styles_.Of(id).box)) OpenRun(id);
        }
        if (IsRunOpen()) open_.back().weight += inlineElementWeight;
        AddGenerated(styles_.Before(id), id);
        AddGenerated(styles_.After(id), id);
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
            if (!part && !inRow) {
                DivideTable(weights_.Of(child));
                Open(PageBoxKind::Row, noHtmlNode);
            }
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
        if (weights_.IsTooLong(table) && HasLongRow(table))
            return BuildBlock(PageBoxKind::Block, table);
        const TablePart around = std::exchange(table_, {});
        Open(PageBoxKind::Table, table);
        if (Top().text->borderCollapse == CssBorderCollapse::Collapse)
            collapsedTables_.push_back(open_.back().id);
        BuildRowsOf(table);
        Close();
        table_ = around;
    }

    // Whether a table cannot be divided between its rows.
    bool HasLongRow(HtmlNodeId parent) const {
        PageWeight cells = 0; // that stand in an anonymous row
        bool isLong = false;
        ForChildren(parent, [&](HtmlNodeId child) {
            const CssDisplay display = DisplayOf(child);
            const bool isCell = !IsTablePart(display) || display == CssDisplay::TableCell;
            cells = isCell ? cells + weights_.Of(child) : 0;
            const PageWeight weight = isCell ? cells : weights_.Of(child);
            if (weight <= limits_.whole) return;
            isLong = isLong || !IsRowGroup(display) || HasLongRow(child);
        });
        return isLong;
    }

    static bool IsRowGroup(CssDisplay display) {
        return display == CssDisplay::TableRowGroup || display == CssDisplay::TableHeaderGroup ||
               display == CssDisplay::TableFooterGroup;
    }

    // Before a row: a table that is too long ends and goes on in another one.
    void DivideTable(PageWeight row) {
        if (!IsInLongTable()) return;
        const PageWeight most = limits_.rows * (table_.rows >= table_.spannedUntil ? 1 : 4);
        table_.weight += row;
        ++table_.rows;
        if (table_.rows == 1 || table_.weight <= most) return;
        const HtmlNodeId group = Top().kind == PageBoxKind::RowGroup ? Top().node : noHtmlNode;
        if (group != noHtmlNode) Close();
        const HtmlNodeId table = Top().node;
        Top().isContinued = true;
        Close();
        Open(PageBoxKind::Table, table);
        Top().continues = true;
        if (group != noHtmlNode) Open(PageBoxKind::RowGroup, group);
        table_ = {row, 1, 0};
    }

    void BuildTablePart(HtmlNodeId id, CssDisplay display) {
        if (display == CssDisplay::TableCaption) DivideTable(weights_.Of(id));
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

    bool IsInLongTable() const {
        for (auto box = open_.rbegin(); box != open_.rend(); ++box)
            if (boxes_[box->id].kind == PageBoxKind::Table) return boxes_[box->id].isTooLong;
        return false;
    }

    void BuildRow(HtmlNodeId row) {
        DivideTable(weights_.Of(row));
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
            const int rows = HtmlInteger(tree_[id], HtmlName::Rowspan).value_or(1);
            if (rows > 1)
                table_.spannedUntil = std::max(table_.spannedUntil, table_.rows - 1 + rows);
            const PageBoxId cell = Next();
            BuildBlock(PageBoxKind::Cell, id);
            return HideEmptyCell(cell);
        }
        if (Top().kind == PageBoxKind::Row) Open(PageBoxKind::Cell, noHtmlNode);
        Visit(id);
    }

    // It keeps its room.
    void HideEmptyCell(PageBoxId id) {
        PageBox& cell = boxes_.boxes_[id];
        const bool collapses = cell.text->borderCollapse == CssBorderCollapse::Collapse;
        if (cell.text->emptyCells == CssEmptyCells::Show || collapses || Next() > id + 1) return;
        CssBoxStyle style = *cell.style;
        style.background = cssTransparent;
        style.borderColor.fill(cssTransparent);
        cell.style = boxes_.styles_->Find(style).value;
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
    const PageLimits limits_;
    const PageWeights weights_;
    PageBoxes boxes_;
    std::vector<OpenBox> open_;
    bool runGoesOn_ = false;                       // the next lines are of those before
    TablePart table_;                              // that is open
    std::unordered_map<HtmlNodeId, int> counters_; // the next number of each list
    std::vector<PageBoxId> collapsedTables_;
};

PageBoxes BoxesOf(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits) {
    return PageBoxBuilder(tree, styles, limits).Build();
}
