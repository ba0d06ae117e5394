#include "tests/contract/reference_view/reference_text.h"

#include <algorithm>
#include <cmath>

int ReferenceSettings::Pixels(double twips) const {
    return int(std::lround(std::clamp(twips, -31680.0, 31680.0) * pixelsPerTwip));
}

const ReferenceLine& ReferenceText::LineOf(TextPos position) const {
    std::size_t found = 0;
    for (std::size_t i = 0; i < lines.size() && lines[i].start <= position; ++i)
        found = i;
    return lines[found];
}

std::size_t ReferenceText::BlockAt(int y) const {
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (y < blocks[i].bottom) return i;
    return blocks.size() - 1;
}

const ReferenceLine& ReferenceText::LineAt(int y) const {
    const std::size_t block = BlockAt(y);
    const ReferenceLine* found = &lines.front(); // replaced by the first line of the block
    for (const ReferenceLine& line : lines) {
        if (paragraphs[line.paragraph].block != block || line.top > y) continue;
        const bool inBlock = paragraphs[found->paragraph].block == block;
        if (!inBlock || line.top > found->top) found = &line;
    }
    return *found;
}

double ReferenceText::XInParagraph(const ReferenceLine& line, TextPos position) const {
    const ReferenceParagraph& paragraph = paragraphs[line.paragraph];
    const int at = std::clamp(position, paragraph.start, paragraph.end) - paragraph.start;
    return line.left + paragraph.text->CaretX(line.index, at);
}
