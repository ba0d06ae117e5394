#include "formats/rtf/rtf_write_text.h"

#include <algorithm>

namespace {

std::string BorderWords(const TableCell& cell) {
    std::string rtf;
    if (cell.borderTop) rtf += "\\clbrdrt\\brdrs\\brdrw10";
    if (cell.borderLeft) rtf += "\\clbrdrl\\brdrs\\brdrw10";
    if (cell.borderBottom) rtf += "\\clbrdrb\\brdrs\\brdrw10";
    if (cell.borderRight) rtf += "\\clbrdrr\\brdrs\\brdrw10";
    return rtf;
}

TextPos LeftEdge(const TableRow& row, const TableCell& cell) {
    const auto index = &cell - row.cells.data();
    return index == 0 ? 0 : row.cells[static_cast<std::size_t>(index - 1)].rightEdge;
}

} // namespace

void RtfTextWriter::WriteRow(Rows row) {
    rtf_ += RowWords(row);
    for (const TableCell& cell : row->cells)
        WriteCellText(cell);
    WriteText(row->end - 1, row->end - 1, true, "\\row\n");
}

void RtfTextWriter::WriteCellText(const TableCell& cell) {
    for (TextPos at = cell.start; at < cell.end;) {
        const TextPos last = ParagraphEnd(at, cell.end - 1);
        const bool endsCell = last == cell.end - 1;
        WriteText(at, last, true, endsCell ? "\\cell\n" : "\\par\n");
        at = last + 1;
    }
    for (int merged = 1; merged < cell.columnSpan; ++merged)
        rtf_ += "\\cell\n";
}

std::string RtfTextWriter::RowWords(Rows row) const {
    std::string rtf = "\\trowd\\trgaph" + std::to_string(row->cellGap) + "\\trleft" +
                      std::to_string(row->leftEdge);
    if (row->rightToLeft) rtf += "\\rtlrow";
    for (const TableCell& cell : row->cells) {
        const std::int32_t left = row->leftEdge + LeftEdge(*row, cell);
        const std::int32_t width = row->leftEdge + cell.rightEdge - left;
        for (int part = 1; part <= cell.columnSpan; ++part) {
            if (cell.columnSpan > 1) rtf += part == 1 ? "\\clmgf" : "\\clmrg";
            if (cell.mergedAbove) rtf += "\\clvmrg";
            if (IsMergedBelow(row, cell)) rtf += "\\clvmgf";
            if (cell.verticalAlignment == VerticalAlignment::Center) rtf += "\\clvertalc";
            if (cell.verticalAlignment == VerticalAlignment::Bottom) rtf += "\\clvertalb";
            rtf += BorderWords(cell);
            if (!cell.autoBackground)
                rtf += "\\clcbpat" + std::to_string(tables_.ColorNumber(cell.background));
            // Where the merged cells were divided is not known; they are as good as equal.
            rtf += "\\cellx" + std::to_string(left + width * part / cell.columnSpan);
        }
    }
    return rtf + '\n';
}

// Whether this cell is the first of some merged vertically.
bool RtfTextWriter::IsMergedBelow(Rows row, const TableCell& cell) const {
    const Rows next = row + 1;
    if (cell.mergedAbove || next == document_.rows.end() || next->start != row->end) return false;
    return std::any_of(next->cells.begin(), next->cells.end(), [&](const TableCell& below) {
        return below.mergedAbove && below.rightEdge == cell.rightEdge;
    });
}
