#include "tests/contract/whole_view/whole_text.h"

#include "tests/contract/whole_view/whole_paragraph.h"
#include "tests/contract/whole_view/whole_places.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr TextPos piece = 16 * 1024, blankSearch = 256, longestRow = 32 * 1024;
constexpr std::size_t mostJoined = 256;

struct Maker {
    const WholeSetting& setting;
    WholeText whole;
    TextPos at = 0;

    TextPos Size() const { return TextPos(setting.text.size()); }
    void Everything();
    bool Paragraph();
    void Piece(TextPos start, TextPos end, bool first, bool last);
    TextPos Cut(TextPos grid) const;
    std::size_t RowsFrom(std::size_t index) const;
    void Rows(std::size_t index, std::size_t count);
    void Add(const WholePart& part, QPoint origin, QRect cell, bool hidden);
    void EndBlock(TextPos end, int height);
};

// Behind the last break there is one more paragraph.
void Maker::Everything() {
    std::size_t row = 0;
    const auto& rows = setting.document->rows;
    for (bool more = true; more;) {
        while (row < rows.size() && rows[row].start < at)
            ++row;
        const bool atRow = row < rows.size() && rows[row].start == at && !rows[row].cells.empty() &&
                           rows[row].end - rows[row].start <= longestRow;
        if (atRow)
            Rows(row, RowsFrom(row));
        else
            more = Paragraph();
    }
}

// Long ones are cut where they have gone on for a piece's length at a multiple of it. Tells whether
// a break ends it.
bool Maker::Paragraph() {
    const std::size_t found = setting.text.find(u'\n', std::size_t(at));
    const bool hasBreak = found != std::u16string::npos;
    const TextPos start = at, textEnd = hasBreak ? TextPos(found) : Size();
    TextPos from = start;
    for (TextPos grid = piece; grid < textEnd; grid += piece) {
        if (grid - piece < start) continue;
        const TextPos cut = Cut(grid);
        Piece(from, cut, from == start, false);
        EndBlock(cut, whole.paragraphs.back().bottom - whole.height);
        from = cut;
    }
    Piece(from, textEnd, from == start, true);
    at = textEnd + (hasBreak ? 1 : 0);
    EndBlock(at, whole.paragraphs.back().bottom - whole.height);
    return hasBreak;
}

TextPos Maker::Cut(TextPos grid) const {
    const std::u16string& text = setting.text;
    for (TextPos i = grid - 1; i >= grid - blankSearch; --i)
        if (text[std::size_t(i)] == u' ') return i + 1;
    TextPos cut = grid;
    while (cut > grid - blankSearch &&
           (QChar::isLowSurrogate(text[std::size_t(cut)]) ||
            QChar::isMark(text[std::size_t(cut)]) || text[std::size_t(cut)] == u'\u200D'))
        --cut;
    return cut;
}

void Maker::Piece(TextPos start, TextPos end, bool first, bool last) {
    Add({start, end, first, last, setting.breakWidth, setting.viewWidth}, QPoint(0, whole.height),
        QRect(), false);
}

// The part's lines, in as many layouts as it takes.
void Maker::Add(const WholePart& part, QPoint origin, QRect cell, bool hidden) {
    int top = origin.y();
    for (WholeLaidOut& out : LayOutWholePart(setting, part)) {
        WholeParagraph& paragraph = whole.paragraphs.emplace_back();
        paragraph.start = out.start;
        paragraph.end = out.end;
        paragraph.rightToLeft = out.rightToLeft;
        paragraph.hidden = hidden;
        paragraph.origin = QPointF(origin.x(), top) + out.shift;
        paragraph.top = top;
        paragraph.cell = cell;
        paragraph.block = whole.blocks.size();
        paragraph.firstLine = whole.lines.size();
        paragraph.lineCount = out.places.size();
        paragraph.text = std::move(out.text);
        for (std::size_t i = 0; i < out.places.size(); ++i) {
            const WholeSlot& slot = out.places[i];
            const bool last = i + 1 == out.places.size();
            WholeLine line;
            line.start = out.start + slot.start;
            line.end = last ? out.end : out.start + out.places[i + 1].start;
            line.goesOn = !last || (out.goesOn && out.end > line.start);
            line.top = top + (i == 0 ? 0 : slot.top);
            line.bottom = top + (last ? out.height : out.places[i + 1].top);
            line.inkTop = top + slot.top;
            line.inkBottom = top + slot.top + slot.height;
            line.paragraph = whole.paragraphs.size() - 1;
            line.index = int(i);
            whole.lines.push_back(line);
        }
        top += out.height;
        paragraph.bottom = top;
    }
}

void Maker::EndBlock(TextPos end, int height) {
    const TextPos start = whole.blocks.empty() ? 0 : whole.blocks.back().end;
    whole.blocks.push_back({start, end, whole.height, whole.height + height});
    whole.height += height;
}

// How many rows share cells, from this one on, which is the first.
std::size_t Maker::RowsFrom(std::size_t index) const {
    const auto& rows = setting.document->rows;
    const auto joins = [&](std::size_t i) {
        const TableRow& row = rows[i];
        return row.start == rows[i - 1].end && !row.cells.empty() &&
               row.end - row.start <= longestRow &&
               std::any_of(row.cells.begin(), row.cells.end(),
                           [](const TableCell& cell) { return cell.mergedAbove; });
    };
    std::size_t first = index, end = index + 1;
    while (first > 0 && rows[first - 1].end - rows[first - 1].start <= longestRow &&
           !rows[first - 1].cells.empty() && joins(first))
        --first;
    while (end < rows.size() && joins(end))
        ++end;
    const bool together =
        end - first <= mostJoined && rows[end - 1].end - rows[first].start <= longestRow;
    return together ? end - first : 1;
}

void Maker::Rows(std::size_t index, std::size_t count) {
    struct Cell {
        const TableCell* cell = nullptr;
        std::size_t row = 0, lastRow = 0, first = 0, end = 0; // paragraphs
        int left = 0, width = 0, height = 0;
        bool hidden = false;
    };
    const auto& rows = setting.document->rows;
    const int least = setting.Pixels(360), margin = setting.Pixels(30);
    const int most = std::max(1, setting.viewWidth - setting.Hairline());
    std::vector<Cell> cells;
    for (std::size_t r = 0; r < count; ++r) {
        const TableRow& row = rows[index + r];
        std::vector<int> edges{0};
        for (const TableCell& cell : row.cells)
            edges.push_back(std::max(edges.back() + least, setting.Pixels(cell.rightEdge) -
                                                               setting.Pixels(row.leftEdge)));
        const double scale = std::min(1.0, double(most) / edges.back());
        for (int& edge : edges)
            edge = int(std::lround(edge * scale));
        const int room = std::max(0, most - edges.back());
        const int offset = std::clamp(setting.Pixels(row.leftEdge), 0, room);
        const std::size_t above = cells.size();
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            Cell cell{&row.cells[i], r, r};
            cell.width = edges[i + 1] - edges[i];
            cell.left =
                row.rightToLeft ? room - offset + edges.back() - edges[i + 1] : offset + edges[i];
            for (std::size_t c = 0; row.cells[i].mergedAbove && c < above && !cell.hidden; ++c) {
                Cell& other = cells[c];
                if (other.hidden || other.left != cell.left || other.width != cell.width) continue;
                if (other.lastRow + 1 != r) continue;
                other.lastRow = r;
                cell.hidden = true;
            }
            cells.push_back(cell);
        }
    }
    for (Cell& cell : cells) {
        const TableRow& row = rows[index + cell.row];
        const int gap = std::min(
            std::clamp(setting.Pixels(row.cellGap), setting.Hairline(), 4 * least), cell.width / 4);
        const int width = std::max(1, cell.width - 2 * gap);
        const int top = whole.height + margin;
        cell.first = whole.paragraphs.size();
        int y = top;
        TextPos start = cell.cell->start;
        const TextPos cellEnd = cell.hidden ? start : cell.cell->end;
        const auto add = [&](TextPos end) {
            Add({start, end, true, true, width, width}, QPoint(cell.left + gap, y),
                QRect(cell.left, 0, cell.width, 0), cell.hidden);
            y = whole.paragraphs.back().bottom;
            start = end + 1;
        };
        for (TextPos i = start; i < cellEnd; ++i)
            if (setting.text[std::size_t(i)] == u'\n' || setting.text[std::size_t(i)] == u'\a')
                add(i);
        if (whole.paragraphs.size() == cell.first) add(start);
        cell.end = whole.paragraphs.size();
        cell.height = y + margin - whole.height;
    }
    std::vector<int> tops{0};
    for (std::size_t r = 0; r < count; ++r) {
        int bottom = tops.back();
        for (const Cell& cell : cells)
            if (cell.lastRow == r) bottom = std::max(bottom, tops[cell.row] + cell.height);
        tops.push_back(bottom);
    }
    for (const Cell& cell : cells) {
        const int top = tops[cell.row], bottom = tops[cell.lastRow + 1];
        for (std::size_t p = cell.first; p < cell.end; ++p) {
            WholeParagraph& paragraph = whole.paragraphs[p];
            paragraph.origin.ry() += top;
            paragraph.top += top;
            paragraph.bottom += top;
            paragraph.cellNumber = int(&cell - cells.data());
            paragraph.cell.setTop(whole.height + top);
            paragraph.cell.setHeight(bottom - top);
            for (std::size_t l = 0; l < paragraph.lineCount; ++l) {
                WholeLine& line = whole.lines[paragraph.firstLine + l];
                for (int* y : {&line.top, &line.bottom, &line.inkTop, &line.inkBottom})
                    *y += top;
            }
        }
        whole.lines[whole.paragraphs[cell.first].firstLine].top = whole.height + top;
        const WholeParagraph& last = whole.paragraphs[cell.end - 1];
        whole.lines[last.firstLine + last.lineCount - 1].bottom = whole.height + bottom;
    }
    at = rows[index + count - 1].end;
    EndBlock(at, tops.back());
}
} // namespace

int WholeSetting::Pixels(double twips) const {
    return int(std::lround(std::clamp(twips, -31680.0, 31680.0) * pixelsPerTwip));
}

QTextLine WholeLine::Text(const WholeText& text) const {
    return text.ParagraphOf(*this).text->lineAt(index);
}

const WholeLine& WholeText::LineOf(TextPos position) const {
    std::size_t found = 0;
    for (std::size_t i = 0; i < lines.size() && lines[i].start <= position; ++i)
        found = i;
    return lines[found];
}

std::size_t WholeText::BlockAt(int y) const {
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (y < blocks[i].bottom) return i;
    return blocks.size() - 1;
}

const WholeLine& WholeText::LineAt(int y) const {
    const std::size_t block = BlockAt(y);
    const WholeLine* found = nullptr;
    for (const WholeLine& line : lines)
        if (paragraphs[line.paragraph].block == block && line.top <= y)
            if (!found || line.top > found->top) found = &line;
    return *found;
}

double WholeText::X(const WholeLine& line, TextPos position) const {
    const WholeParagraph& paragraph = paragraphs[line.paragraph];
    const int at = std::clamp(position, paragraph.start, paragraph.end) - paragraph.start;
    return paragraph.origin.x() +
           WholeX(line.Text(*this), *paragraph.text, paragraph.rightToLeft, at);
}

WholeText LayOutWhole(const WholeSetting& setting) {
    Maker maker{setting, {}, 0};
    maker.Everything();
    return std::move(maker.whole);
}
