#include "view/page/table_builder.h"

#include "formats/html/html_integer.h"

#include <algorithm>
#include <utility>

namespace {
bool IsTablePart(CssDisplay display) {
    return display >= CssDisplay::TableRowGroup && display <= CssDisplay::TableCaption;
}

bool IsRowGroup(CssDisplay display) {
    return display == CssDisplay::TableRowGroup || display == CssDisplay::TableHeaderGroup ||
           display == CssDisplay::TableFooterGroup;
}
} // namespace

CssDisplay TableBuilder::DisplayOf(HtmlNodeId id) const {
    return tree_[id].IsElement() ? styles_.Of(id).box->display : CssDisplay::Inline;
}

void TableBuilder::Build(HtmlNodeId table) {
    if (weights_.IsTooLong(table) && HasLongRow(table))
        return blocks_.BuildBlock(PageBoxKind::Block, table);
    BuildTable(table, {tree_[table].firstChild, noHtmlNode}, tree_.NextAfter(table));
}

void TableBuilder::BuildTable(HtmlNodeId table, HtmlSiblings parts, HtmlNodeId after) {
    const Part around = std::exchange(part_, {});
    boxes_.Open(PageBoxKind::Table, table);
    if (boxes_.Top().text->borderCollapse == CssBorderCollapse::Collapse)
        collapsed_.push_back(boxes_.TopId());
    BuildRows(table, parts, after);
    boxes_.Close();
    part_ = around;
}

void TableBuilder::BuildAnonymous(HtmlSiblings parts) {
    const HtmlNodeId parent = tree_[parts.first].parent;
    const bool isToTheEnd = parts.after == noHtmlNode;
    BuildTable(noHtmlNode, parts, isToTheEnd ? tree_.NextAfter(parent) : parts.after);
}

TableParts TableBuilder::PartsFrom(HtmlNodeId first) const {
    const CssDisplay around = DisplayOf(tree_[first].parent);
    TableParts parts{{first, tree_[first].nextSibling}};
    if (!IsTablePart(DisplayOf(first)) || around == CssDisplay::Table || IsTablePart(around))
        return parts;
    PageWeight weight = 0;
    for (HtmlNodeId id = first; id != noHtmlNode; id = tree_[id].nextSibling) {
        const CssDisplay display = DisplayOf(id);
        const bool isColumn =
            display == CssDisplay::TableColumn || display == CssDisplay::TableColumnGroup;
        const bool isBlank = tree_[id].IsText() ? lines_.IsEmptyText(id) : !IsShownPart(id);
        if (!IsTablePart(display) && !isBlank) break;
        weight += weights_.Of(id);
        if (IsTablePart(display)) parts.nodes.after = tree_[id].nextSibling;
        parts.makeTable = parts.makeTable || (IsTablePart(display) && !isColumn);
    }
    if (weight > limits_.whole) parts.makeTable = false;
    return parts;
}

void TableBuilder::CollapseBorders() {
    for (const PageBoxId table : collapsed_)
        boxes_.CollapseBorders(table);
}

// Whether a table cannot be divided between its rows.
bool TableBuilder::HasLongRow(HtmlNodeId parent) const {
    PageWeight cells = 0; // that stand in an anonymous row
    bool isLong = false;
    ForChildren(tree_, parent, [&](HtmlNodeId child) {
        const CssDisplay display = DisplayOf(child);
        const bool isCell = !IsTablePart(display) || display == CssDisplay::TableCell;
        cells = isCell ? cells + weights_.Of(child) : 0;
        const PageWeight weight = isCell ? cells : weights_.Of(child);
        if (weight <= limits_.whole) return;
        isLong = isLong || !IsRowGroup(display) || HasLongRow(child);
    });
    return isLong;
}

// Blanks between the parts of a table are nothing.
bool TableBuilder::IsShownPart(HtmlNodeId id) const {
    const HtmlNode& node = tree_[id];
    if (node.IsText()) return lines_.IsOpen() || !lines_.IsEmptyText(id);
    return node.IsElement() && styles_.Of(id).box->display != CssDisplay::None;
}

// What `content` puts into a table as a cell, such as the number of an item that is one.
bool TableBuilder::IsShownCell(CssStyle generated) const {
    return generated.box && generated.box->display == CssDisplay::TableCell &&
           !IsOutOfFlow(*generated.box) && generated.box->floats == CssFloat::None &&
           !styles_.Content(generated.box->content).empty();
}

void TableBuilder::BuildGeneratedCell(HtmlNodeId table, CssStyle style, GeneratedPlace place,
                                      HtmlNodeId at) {
    CloseCell(at);
    if (boxes_.Top().kind != PageBoxKind::Row) boxes_.Open(PageBoxKind::Row, noHtmlNode);
    boxes_.Open(PageBoxKind::Cell, noHtmlNode);
    blocks_.BuildGenerated(table, style, place, at);
    CloseCell(at);
}

// Parts of a table, or of a group of rows where that is noHtmlNode. Cells, and what does not belong
// there, stand in a row of their own, as many as come together.
void TableBuilder::BuildRows(HtmlNodeId table, HtmlSiblings parts, HtmlNodeId after) {
    const bool isTable = table != noHtmlNode;
    const CssStyle first = isTable ? styles_.Before(table) : CssStyle{};
    const CssStyle last = isTable ? styles_.After(table) : CssStyle{};
    bool inRow = IsShownCell(first);
    if (inRow) BuildGeneratedCell(table, first, GeneratedPlace::Before, parts.first);
    ForEach(tree_, parts, [&](HtmlNodeId child) {
        if (!IsShownPart(child)) return;
        const CssDisplay display = DisplayOf(child);
        const bool part = IsTablePart(display) && display != CssDisplay::TableCell;
        if (part && inRow) CloseRow(child);
        if (!part && !inRow) {
            Divide(weights_.Of(child));
            boxes_.Open(PageBoxKind::Row, noHtmlNode);
        }
        inRow = !part;
        if (part)
            BuildPart(child, display);
        else
            BuildCell(child);
    });
    const bool endsWithCell = IsShownCell(last);
    if (endsWithCell) BuildGeneratedCell(table, last, GeneratedPlace::After, after);
    if (inRow || endsWithCell) CloseRow(after);
}

void TableBuilder::BuildPart(HtmlNodeId id, CssDisplay display) {
    if (display == CssDisplay::TableCaption) Divide(weights_.Of(id));
    switch (display) {
    case CssDisplay::TableCaption: return blocks_.BuildBlock(PageBoxKind::Caption, id);
    case CssDisplay::TableColumn: return BuildColumn(id);
    case CssDisplay::TableColumnGroup: return BuildColumns(id);
    case CssDisplay::TableRow: return BuildRow(id);
    default: break;
    }
    boxes_.Open(PageBoxKind::RowGroup, id);
    BuildRows(noHtmlNode, {tree_[id].firstChild, noHtmlNode}, tree_.NextAfter(id));
    boxes_.Close();
}

void TableBuilder::BuildRow(HtmlNodeId row) {
    Divide(weights_.Of(row));
    boxes_.Open(PageBoxKind::Row, row);
    ForChildren(tree_, row, [&](HtmlNodeId child) {
        if (IsShownPart(child)) BuildCell(child);
    });
    CloseRow(tree_.NextAfter(row));
}

// A cell, or a part of one that has no element.
void TableBuilder::BuildCell(HtmlNodeId id) {
    if (DisplayOf(id) == CssDisplay::TableCell) {
        CloseCell(id);
        const int rows = HtmlInteger(tree_[id], HtmlName::Rowspan).value_or(1);
        if (rows > 1) part_.spannedUntil = std::max(part_.spannedUntil, part_.rows - 1 + rows);
        const PageBoxId cell = boxes_.Next();
        blocks_.BuildBlock(PageBoxKind::Cell, id);
        return HideEmptyCell(cell);
    }
    if (boxes_.Top().kind == PageBoxKind::Row) boxes_.Open(PageBoxKind::Cell, noHtmlNode);
    blocks_.Visit(id);
}

// It keeps its room.
void TableBuilder::HideEmptyCell(PageBoxId id) {
    const PageBox& cell = boxes_[id];
    const bool collapses = cell.text->borderCollapse == CssBorderCollapse::Collapse;
    if (cell.text->emptyCells == CssEmptyCells::Show || collapses || boxes_.Next() > id + 1) return;
    CssBoxStyle style = *cell.style;
    style.background = cssTransparent;
    style.borderColor.fill(cssTransparent);
    boxes_.SetStyle(id, style);
}

void TableBuilder::CloseCell(HtmlNodeId after) {
    lines_.Close(after);
    if (boxes_.Top().kind == PageBoxKind::Cell) boxes_.Close();
}

void TableBuilder::CloseRow(HtmlNodeId after) {
    CloseCell(after);
    boxes_.Close();
}

void TableBuilder::BuildColumns(HtmlNodeId columns) {
    boxes_.Open(PageBoxKind::Columns, columns);
    ForChildren(tree_, columns, [&](HtmlNodeId child) {
        if (DisplayOf(child) == CssDisplay::TableColumn) BuildColumn(child);
    });
    boxes_.Close();
}

void TableBuilder::BuildColumn(HtmlNodeId column) {
    boxes_.Open(PageBoxKind::Column, column);
    boxes_.Close();
}

// Before a row: a table that is too long ends and continues in another one.
void TableBuilder::Divide(PageWeight row) {
    if (!boxes_.IsInLongTable()) return;
    const PageWeight maxWeight = limits_.rows * (part_.rows >= part_.spannedUntil ? 1 : 4);
    part_.weight += row;
    ++part_.rows;
    if (part_.rows == 1 || part_.weight <= maxWeight) return;
    const HtmlNodeId group =
        boxes_.Top().kind == PageBoxKind::RowGroup ? boxes_.Top().node : noHtmlNode;
    if (group != noHtmlNode) boxes_.Close();
    const HtmlNodeId table = boxes_.Top().node;
    boxes_.Top().isContinued = true;
    boxes_.Close();
    boxes_.Open(PageBoxKind::Table, table);
    boxes_.Top().continues = true;
    if (group != noHtmlNode) boxes_.Open(PageBoxKind::RowGroup, group);
    part_ = {row, 1, 0};
}
