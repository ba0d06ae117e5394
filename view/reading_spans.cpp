#include "view/reading_spans.h"

#include "view/style_runs.h"

#include <algorithm>
#include <iterator>

namespace {
bool EndsCellParagraph(char16_t unit) {
    return unit == u'\n' || unit == u'\a';
}

TextSpan CellParagraphAt(const TextSource& text, const TableRow& row, TextPos position) {
    const std::u16string units = text.Range(row.start, row.end);
    if (units.empty()) return {row.start, row.end};
    const auto begin = units.begin(), last = units.end() - 1;
    const auto at = std::min(begin + (position - row.start), last - (units.size() > 1 ? 1 : 0));
    const auto end = std::find_if(at, last, EndsCellParagraph);
    const auto start = std::find_if(std::reverse_iterator(at), units.rend(), EndsCellParagraph);
    const auto after = static_cast<TextPos>(end - begin) + 1;
    const bool isLastCell = end + 1 == last;
    return {row.start + static_cast<TextPos>(start.base() - begin),
            std::min(row.end, row.start + after + (isLastCell ? 1 : 0))};
}
} // namespace

TextSpan ReadingParagraphAt(TextLayouts& layouts, TextPos position) {
    const TextBlock block = BlockAt(layouts.Text(), layouts.Context().document.rows, position);
    if (block.rows.empty()) return {block.start, block.end};
    const auto after =
        std::upper_bound(block.rows.begin() + 1, block.rows.end(), position,
                         [](TextPos at, const TableRow& row) { return at < row.start; });
    return CellParagraphAt(layouts.Text(), *(after - 1), position);
}

TextSpan ReadingLineAt(TextLayouts& layouts, TextPos position) {
    const auto layout = layouts.At(position);
    const LineRef line = LineOf(*layout, position);
    const auto& paragraphs = layout->paragraphs;
    const TextPos start = LineStart(*layout, line);
    if (line.line + 1 < paragraphs[line.paragraph].LineCount())
        return {start, LineEnd(*layout, line)};
    const std::size_t next = line.paragraph + 1;
    return {start, next < paragraphs.size() ? paragraphs[next].start : layout->block.end};
}

TextSpan StyleSpanAt(const LayoutContext& context, TextPos position) {
    const TextPos length = context.text->Length();
    if (context.plain) return {0, length};
    const auto& runs = context.document.charRuns;
    const std::size_t run = RunAt(runs, position);
    return {runs[run].start, run + 1 == runs.size() ? length : runs[run + 1].start};
}
