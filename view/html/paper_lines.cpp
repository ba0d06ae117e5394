#include "view/html/paper_lines.h"

#include "common/contrast.h"

StyleHandle PaperLines::Prepare(const TextStyle& style) {
    constexpr Color paper = 0xFFFFFF;
    TextStyle printed = style;
    printed.background.reset();
    if (printed.color) printed.color = ReadableOn(paper, *printed.color);
    return lines_.Prepare(printed);
}
