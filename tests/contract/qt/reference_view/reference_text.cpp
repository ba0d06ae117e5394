#include "tests/contract/qt/reference_view/reference_text.h"

#include "tests/contract/qt/reference_view/reference_positions.h"

#include <algorithm>
#include <cmath>

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
