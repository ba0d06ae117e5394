#include "tests/contract/reference_view/reference_builder.h"

#include "common/string_text.h"
#include "common/unicode.h"
#include "common/utf.h"
#include "view/layout_cost.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr TextPos piece = 16 * 1024, densePart = 2 * 1024, blankSearch = 256;
} // namespace

// After the final break there is an empty paragraph.
void ReferenceBuilder::Everything() {
    std::size_t row = 0;
    const auto& rows = settings.document->rows;
    for (bool more = true; more;) {
        while (row < rows.size() && rows[row].start < at)
            ++row;
        const bool atRow = row < rows.size() && rows[row].start == at;
        if (atRow && IsReferenceRow(rows[row]))
            AddReferenceRows(*this, row);
        else
            more = Paragraph();
    }
}

// Cuts long paragraphs at multiples of the piece length, and dense pieces further. Returns whether
// a paragraph break follows.
bool ReferenceBuilder::Paragraph() {
    const std::size_t found = settings.text.find(u'\n', std::size_t(at));
    const bool hasBreak = found != std::u16string::npos;
    const TextPos start = at, textEnd = hasBreak ? TextPos(found) : Size();
    const StringText source(settings.text);
    TextPos from = start, pieceStart = start;
    for (TextPos grid = densePart; grid < textEnd; grid += densePart) {
        const bool endsPiece = grid % piece == 0 && grid - piece >= start;
        const bool endsPart =
            grid - densePart >= pieceStart && IsDenseBefore(source, *settings.document, grid);
        if (!endsPiece && !endsPart) continue;
        const TextPos cut = Cut(grid);
        if (endsPiece) pieceStart = cut;
        Piece(from, cut, from == start, false);
        EndBlock(cut, whole.paragraphs.back().bottom - whole.height);
        from = cut;
    }
    Piece(from, textEnd, from == start, true);
    at = textEnd + (hasBreak ? 1 : 0);
    EndBlock(at, whole.paragraphs.back().bottom - whole.height);
    return hasBreak;
}

TextPos ReferenceBuilder::Cut(TextPos grid) const {
    const std::u16string& text = settings.text;
    for (TextPos i = grid - 1; i >= grid - blankSearch; --i)
        if (text[std::size_t(i)] == u' ') return i + 1;
    TextPos cut = grid;
    while (cut > grid - blankSearch &&
           (IsLowSurrogate(text[std::size_t(cut)]) || IsMarkOrFormat(text[std::size_t(cut)])))
        --cut;
    return cut;
}

void ReferenceBuilder::Piece(TextPos start, TextPos end, bool first, bool last) {
    Add({start, end, first, last, settings.breakWidth, settings.viewWidth}, {0, whole.height},
        std::nullopt, false);
}

void ReferenceBuilder::Add(const ReferencePart& part, Point origin, std::optional<Rect> cell,
                           bool hidden) {
    const int top = origin.y;
    ReferenceLayout out = LayOutReferencePart(settings, part);
    ReferenceParagraph& paragraph = whole.paragraphs.emplace_back();
    paragraph.start = out.start;
    paragraph.end = out.end;
    paragraph.rightToLeft = out.rightToLeft;
    paragraph.hidden = hidden;
    paragraph.origin = origin;
    paragraph.top = top;
    paragraph.cell = cell;
    paragraph.block = whole.blocks.size();
    paragraph.firstLine = whole.lines.size();
    paragraph.lineCount = out.places.size();
    paragraph.text = std::move(out.text);
    for (std::size_t i = 0; i < out.places.size(); ++i) {
        const ReferenceSlot& slot = out.places[i];
        const bool last = i + 1 == out.places.size();
        ReferenceLine line;
        line.start = out.start + slot.start;
        line.end = last ? out.end : out.start + out.places[i + 1].start;
        line.isContinued = !last || (!part.last && out.end > line.start);
        line.top = top + (i == 0 ? 0 : slot.top);
        line.bottom = top + (last ? out.height : out.places[i + 1].top);
        line.inkTop = top + slot.top;
        line.inkBottom = top + slot.top + slot.height;
        line.paragraph = whole.paragraphs.size() - 1;
        line.index = int(i);
        line.left = slot.left;
        line.baseline = top + slot.baseline;
        whole.lines.push_back(line);
    }
    paragraph.bottom = top + out.height;
}

void ReferenceBuilder::EndBlock(TextPos end, int height) {
    const TextPos start = whole.blocks.empty() ? 0 : whole.blocks.back().end;
    whole.blocks.push_back({start, end, whole.height, whole.height + height});
    whole.height += height;
}

ReferenceText LayOutReference(const ReferenceSettings& settings) {
    ReferenceBuilder maker{settings, {}, 0};
    maker.Everything();
    return std::move(maker.whole);
}
