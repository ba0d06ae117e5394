#include "view/one_line.h"

namespace {
std::unique_ptr<TextLines> LayOut(LineLayout& lines, const StyleHandle& style,
                                  std::u16string text) {
    constexpr int wide = 1 << 20; // pixels; it does not break
    ParagraphText paragraph;
    paragraph.text = std::move(text);
    paragraph.runs.push_back({0, style});
    paragraph.width = wide;
    return lines.BreakLines(paragraph);
}
} // namespace

std::unique_ptr<TextLines> LayOutOneLine(LineLayout& lines, const StyleHandle& style,
                                         const std::u16string& text, int width) {
    auto line = LayOut(lines, style, text);
    if (line->Line(0).width <= width) return line;
    for (TextPos end = line->PositionAt(0, width); end > 0; end = line->PreviousPosition(end)) {
        auto shorter =
            LayOut(lines, style, text.substr(0, static_cast<std::size_t>(end)) + u'\u2026');
        if (shorter->Line(0).width <= width) return shorter;
    }
    return LayOut(lines, style, u"");
}
