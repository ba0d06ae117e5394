#include "formats/rtf/rtf_rows.h"

#include "formats/rtf/rtf_limits.h"

#include <algorithm>

namespace {

constexpr std::int32_t undefinedCellWidth = 1440; // twips, of a cell that has no \cellx

} // namespace

void RtfRowDefinition::Apply(const RtfWordEntry& entry, std::int32_t parameter,
                             const RtfColorTable& colors) {
    switch (entry.word) {
    case RtfWord::RowDefaults: *this = {}; break;
    case RtfWord::RowLeftEdge: leftEdge = ClampRtfTwips(parameter); break;
    case RtfWord::CellGap: cellGap = std::max(0, ClampRtfTwips(parameter)); break;
    case RtfWord::RowDirection: rightToLeft = entry.value != 0; break;
    case RtfWord::MergedLeft: next_.mergedLeft = true; break;
    case RtfWord::MergedAbove: next_.mergedAbove = true; break;
    case RtfWord::CellBackground: next_.background = colors.At(parameter); break;
    case RtfWord::CellVerticalAlignment:
        next_.verticalAlignment = static_cast<VerticalAlignment>(entry.value);
        break;
    case RtfWord::BorderSide: border_ = static_cast<RtfBorderSide>(entry.value); break;
    case RtfWord::BorderStyle:
        ApplyBorder(entry.value != 0 ? RtfBorder::Line : RtfBorder::None);
        break;
    case RtfWord::CellRightEdge:
        next_.rightEdge = ClampRtfTwips(parameter);
        if (cells.size() < maxRtfRowCells) cells.push_back(next_);
        next_ = {};
        border_ = RtfBorderSide::None;
        break;
    default: break;
    }
}

void RtfRowDefinition::ApplyBorder(RtfBorder border) {
    if (border_ >= RtfBorderSide::ParagraphLeft) return;
    (border_ < RtfBorderSide::RowLeft ? next_.borders : borders)[static_cast<int>(border_)] =
        border;
}

bool RtfRowDefinition::HasBorder(RtfBorder cell, RtfBorderSide outer, RtfBorderSide inner,
                                 bool isInside) const {
    const RtfBorder inside = isInside ? borders[static_cast<int>(inner)] : RtfBorder::Unspecified;
    for (const RtfBorder border : {cell, inside, borders[static_cast<int>(outer)]})
        if (border != RtfBorder::Unspecified) return border == RtfBorder::Line;
    return false;
}

void RtfRowBuilder::BeforeParagraphEnd(RtfStory& story, bool inTable) {
    if (inTable) return Open(story);
    if (!cells_.empty()) ConvertToText(story);
    Close();
}

void RtfRowBuilder::Open(const RtfStory& story) {
    if (isOpen_) return;
    isOpen_ = true;
    rowStart_ = story.paragraphStart;
}

void RtfRowBuilder::Close() {
    isOpen_ = false;
    cells_.clear();
    nextDefinition_ = 0;
}

void RtfRowBuilder::ConvertToText(RtfStory& story) {
    for (const OpenCell& cell : cells_)
        story.text[static_cast<std::size_t>(cell.end - 1)] = u'\t';
    story.text[static_cast<std::size_t>(cells_.back().end - 1)] = u'\n';
}

bool RtfRowBuilder::JoinsLastCell(std::size_t index) const {
    if (cells_.empty()) return false;
    const bool isMerged = index < definition.cells.size() && definition.cells[index].mergedLeft;
    return isMerged || cells_.size() == maxRtfRowCells;
}

void RtfRowBuilder::EndCell(RtfStory& story, std::uint32_t charStyle,
                            std::uint32_t paragraphStyle) {
    Open(story);
    const TextPos start = cells_.empty() ? rowStart_ : cells_.back().end;
    const std::size_t index = nextDefinition_++;
    const bool joins = JoinsLastCell(index);
    if (!joins) cells_.push_back({start, start, index});
    OpenCell& cell = cells_.back();
    if (joins && index < definition.cells.size()) ++cell.columnSpan;
    if (joins && start == story.Size()) return; // the usual case: nothing is left in a merged cell
    if (joins) story.text[static_cast<std::size_t>(cell.end - 1)] = u'\n';
    story.EndParagraph(u'\a', charStyle, paragraphStyle);
    cell.end = story.Size();
}

void RtfRowBuilder::EndRow(RtfStory& story, std::uint32_t charStyle, std::uint32_t paragraphStyle) {
    const bool hasOpenCell =
        cells_.empty() ? isOpen_ || !story.AtParagraphStart() : story.Size() > cells_.back().end;
    if (hasOpenCell) EndCell(story, charStyle, paragraphStyle);
    if (cells_.empty()) return;
    if (rows_.size() < maxRtfRows) {
        story.EndParagraph(u'\n', charStyle, paragraphStyle);
        SetBottomBordersAbove();
        rows_.push_back(MakeRow());
    } else {
        ConvertToText(story);
    }
    Close();
}

// The row above is not the table's last one: its lower border is an inner one.
void RtfRowBuilder::SetBottomBordersAbove() {
    if (rows_.empty() || rows_.back().end != rowStart_) return;
    TableRow& above = rows_.back();
    for (const std::size_t cell : unspecifiedBottoms_)
        above.cells[cell].borderBottom = definition.HasBorder(
            RtfBorder::Unspecified, RtfBorderSide::RowBottom, RtfBorderSide::InnerHorizontal, true);
}

void RtfRowBuilder::SetBorders(TableCell& cell, const OpenCell& open, bool isFirstRow) {
    const std::size_t last = open.definition + open.columnSpan - 1u;
    const bool isSpecified = last < definition.cells.size();
    const auto specified = [&](std::size_t index, RtfBorderSide side) {
        return isSpecified ? definition.cells[index].borders[static_cast<int>(side)]
                           : RtfBorder::Unspecified;
    };
    cell.borderLeft = definition.HasBorder(specified(open.definition, RtfBorderSide::Left),
                                           RtfBorderSide::RowLeft, RtfBorderSide::InnerVertical,
                                           &open != &cells_.front());
    cell.borderRight =
        definition.HasBorder(specified(last, RtfBorderSide::Right), RtfBorderSide::RowRight,
                             RtfBorderSide::InnerVertical, &open != &cells_.back());
    cell.borderTop =
        definition.HasBorder(specified(open.definition, RtfBorderSide::Top), RtfBorderSide::RowTop,
                             RtfBorderSide::InnerHorizontal, !isFirstRow);
    const RtfBorder bottom = specified(open.definition, RtfBorderSide::Bottom);
    cell.borderBottom = definition.HasBorder(bottom, RtfBorderSide::RowBottom,
                                             RtfBorderSide::InnerHorizontal, false);
    if (bottom == RtfBorder::Unspecified)
        unspecifiedBottoms_.push_back(static_cast<std::size_t>(&open - cells_.data()));
}

TableRow RtfRowBuilder::MakeRow() {
    TableRow row;
    row.start = rowStart_;
    row.end = cells_.back().end + 1;
    row.leftEdge = definition.leftEdge;
    row.cellGap = definition.cellGap;
    row.rightToLeft = definition.rightToLeft;
    row.cells.reserve(cells_.size());
    unspecifiedBottoms_.clear();
    const bool isFirstRow = rows_.empty() || rows_.back().end != rowStart_;
    std::int32_t left = 0;
    for (const OpenCell& open : cells_) {
        TableCell& cell = row.cells.emplace_back();
        cell.start = open.start;
        cell.end = open.end;
        cell.columnSpan = open.columnSpan;
        cell.rightEdge =
            std::max(left, std::min(left + undefinedCellWidth, maxRtfTwips - row.leftEdge));
        const std::size_t last = open.definition + open.columnSpan - 1u;
        if (last < definition.cells.size()) {
            const RtfCellDefinition& first = definition.cells[open.definition];
            const RtfCellDefinition& end = definition.cells[last];
            cell.rightEdge = std::max(left, end.rightEdge - row.leftEdge);
            cell.mergedAbove = first.mergedAbove;
            cell.verticalAlignment = first.verticalAlignment;
            cell.background = first.background.value;
            cell.autoBackground = first.background.isAutomatic;
        }
        SetBorders(cell, open, isFirstRow);
        left = cell.rightEdge;
    }
    return row;
}
