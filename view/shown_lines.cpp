#include "view/shown_lines.h"

#include "view/reading_spans.h"

#include <algorithm>

namespace {
constexpr int maxCharacters = 4096; // of a line; more are narrower than pixels

struct ShownLine {
    const BlockLayout& layout;
    LineRef line;
    int blockTop = 0; // in the view
    TextSpan span;    // up to the next line
};

template <class Take>
void ForEachShownLine(TextPane& pane, Take take) {
    TextLayouts& layouts = pane.Layouts();
    TextScroller& scroller = pane.Scroller();
    const VerticalPos top = scroller.Top();
    auto layout = layouts.At(top.block);
    for (int y = -top.y; layout && y < scroller.ViewHeight(); layout = layouts.After(layout)) {
        for (std::size_t i = 0; i < layout->paragraphs.size(); ++i) {
            for (int line = 0; line < layout->paragraphs[i].LineCount(); ++line) {
                const LineRef ref{i, line};
                if (y + LineTop(*layout, ref) >= scroller.ViewHeight()) break;
                if (y + LineBottom(*layout, ref) <= 0) continue;
                take({*layout, ref, y, ReadingLineAt(layouts, LineStart(*layout, ref))});
            }
        }
        y += layout->height;
    }
}

Rect BoxOf(const ShownLine& shown, TextSpan part) {
    const ParagraphLayout& paragraph = shown.layout.paragraphs[shown.line.paragraph];
    Rect box = CharacterBox(shown.layout, part.start);
    TextPos at = part.start;
    for (int i = 0; i < maxCharacters; ++i) {
        const TextPos next = paragraph.NextCaretPosition(at);
        if (next <= at || next >= std::min(part.end, paragraph.end)) break;
        at = next;
        box = Joined(box, CharacterBox(shown.layout, at));
    }
    box.width = std::max(1, box.width);
    return box;
}
} // namespace

TextSpan ShownSpan(TextPane& pane) {
    TextSpan all{pane.Source().Length(), 0};
    ForEachShownLine(pane, [&all](const ShownLine& shown) {
        all.start = std::min(all.start, shown.span.start);
        all.end = std::max(all.end, shown.span.end);
    });
    return {std::min(all.start, all.end), all.end};
}

std::vector<Rect> ShownBoxes(TextPane& pane, TextSpan span) {
    std::vector<Rect> boxes;
    ForEachShownLine(pane, [&](const ShownLine& shown) {
        const TextSpan part{std::max(span.start, shown.span.start),
                            std::min(span.end, shown.span.end)};
        if (part.start >= part.end) return;
        const Rect box = Moved(BoxOf(shown, part), {-pane.ToTextX(0), shown.blockTop});
        const Rect room{0, 0, pane.Width(), pane.Scroller().ViewHeight()};
        const Rect visible = Intersection(box, room);
        if (visible.width > 0 && visible.height > 0) boxes.push_back(visible);
    });
    return boxes;
}
