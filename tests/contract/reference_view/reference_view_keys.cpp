// Where keys move the caret.
#include "tests/contract/reference_view/reference_view.h"

#include <algorithm>

std::optional<TextPos> ReferenceView::KeyTarget(PaneKey key, bool control) const {
    const ReferenceLine& line = reference_.LineOf(caret);
    switch (key) {
    case PaneKey::Home: return control ? 0 : line.start;
    case PaneKey::End: return control ? TextPos(settings.text.size()) : LastCaretPosition(line);
    case PaneKey::Left:
    case PaneKey::Right: break;
    default: return std::nullopt;
    }
    const bool forward = (key == PaneKey::Right) != reference_.ParagraphOf(line).rightToLeft;
    const TextPos target = Next(forward, control);
    const bool known = IsUnidirectional(line) && IsUnidirectional(reference_.LineOf(target));
    return known ? std::optional(target) : std::nullopt;
}

TextPos ReferenceView::Next(bool forward, bool words) const {
    const std::size_t index = reference_.LineOf(caret).paragraph;
    const auto& all = reference_.paragraphs;
    const ReferenceParagraph& paragraph = all[index];
    const int at = std::clamp(caret, paragraph.start, paragraph.end) - paragraph.start;
    const TextLines& text = *paragraph.text;
    if (forward) {
        const TextPos to = words ? text.NextWord(at) : text.NextPosition(at);
        if (to != at) return paragraph.start + to;
        return index + 1 < all.size() ? all[index + 1].start : paragraph.end;
    }
    const TextPos to = words ? text.PreviousWord(at) : text.PreviousPosition(at);
    if (to != at) return paragraph.start + to;
    if (index == 0) return paragraph.start;
    const ReferenceParagraph& before = all[index - 1];
    if (before.end < paragraph.start || before.end == before.start) return before.end;
    const TextPos end = before.end - before.start;
    return before.start +
           (words ? before.text->PreviousWord(end) : before.text->PreviousPosition(end));
}

const ReferenceLine& ReferenceView::LineAbove(int x) const {
    const ReferenceLine& line = reference_.LineOf(caret);
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    const std::size_t index = std::size_t(&line - reference_.lines.data());
    const auto sameCell = [&](const ReferenceParagraph& other) {
        return other.block == paragraph.block && other.cellNumber == paragraph.cellNumber;
    };
    if (index > 0 && sameCell(reference_.ParagraphOf(reference_.lines[index - 1])))
        return reference_.lines[index - 1];
    const int top = !paragraph.cell ? reference_.blocks[paragraph.block].top : paragraph.cell->top;
    return top > 0 ? LineNear(x, top - 1) : line;
}

const ReferenceLine& ReferenceView::LineBelow(int x) const {
    const ReferenceLine& line = reference_.LineOf(caret);
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    const std::size_t index = std::size_t(&line - reference_.lines.data());
    const auto sameCell = [&](const ReferenceParagraph& other) {
        return other.block == paragraph.block && other.cellNumber == paragraph.cellNumber;
    };
    if (index + 1 < reference_.lines.size() &&
        sameCell(reference_.ParagraphOf(reference_.lines[index + 1])))
        return reference_.lines[index + 1];
    const int bottom =
        !paragraph.cell ? reference_.blocks[paragraph.block].bottom : Bottom(*paragraph.cell);
    return bottom < reference_.height ? LineNear(x, bottom) : line;
}

const ReferenceLine* ReferenceView::TurnPage(bool down) {
    const Rect box = CaretBox(caret);
    const ReferenceBlock& block =
        reference_.blocks[reference_.ParagraphOf(reference_.LineOf(caret)).block];
    const int from = Top();
    const bool visible = block.bottom > from && block.top < from + viewHeight;
    const int center = box.top - from + (box.height - 1) / 2;
    const int y = visible ? std::clamp(center, 0, viewHeight - 1) : 0;
    ScrollPage(down);
    if (Top() == from) return nullptr;
    int at = Moved(Top() + y);
    const ReferenceLine& line = reference_.LineAt(at);
    if (line.bottom > Moved(Top() + viewHeight) && line.top > Top())
        at = line.top - 1;
    else if (line.top < Top() && line.Height() < viewHeight)
        at = line.bottom;
    return &LineNear(*preferredX, at);
}

void ReferenceView::ShowCaret(bool afterPage) {
    const ReferenceLine& line = reference_.LineOf(caret);
    const bool highAndSeen =
        line.Height() > viewHeight && line.bottom > Top() && line.top < Moved(Top() + viewHeight);
    if (afterPage && highAndSeen)
        SetTop(Top());
    else
        Reveal(caret);
}
