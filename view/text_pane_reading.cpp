// What assistive technology asks of a text pane.
#include "view/reading_spans.h"
#include "view/shown_lines.h"
#include "view/text_pane.h"

#include <algorithm>

void TextPane::ScrollLineToTop(TextPos position) {
    Scroller().ScrollLineToTop(position);
    OnScrolled();
}

TextSpan TextPane::VisibleText() {
    return ShownSpan(*this);
}

std::vector<Rect> TextPane::VisibleBoxes(TextSpan span) {
    return ShownBoxes(*this, span);
}

TextSpan TextPane::ReadingParagraph(TextPos position) {
    return ReadingParagraphAt(Layouts(), position);
}

TextSpan TextPane::ReadingLine(TextPos position) {
    return ReadingLineAt(Layouts(), position);
}

TextSpan TextPane::StyleSpan(TextPos position) {
    return StyleSpanAt(Layouts().Context(), position);
}

TextPos TextPane::ReadingPageEnd(TextPos position) {
    TextScroller& scroller = Scroller();
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const VerticalPos below =
        scroller.Moved({layout->block.start, LineTop(*layout, line)}, scroller.ViewHeight());
    if (below.y >= layouts_.At(below.block)->height) return layouts_.Text().Length();
    // A line that is higher than the screen is a page.
    return std::max(scroller.LineStartAt(below), ReadingLine(position).end);
}

TextPos TextPane::ReadingPageStart(TextPos position) {
    TextScroller& scroller = Scroller();
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const VerticalPos above =
        scroller.Moved({layout->block.start, LineTop(*layout, line)}, -scroller.ViewHeight());
    const auto first = layouts_.At(above.block);
    const LineRef cut = LineAtHeight(*first, above.y);
    const bool whole = LineTop(*first, cut) >= above.y;
    const TextPos start = LineStart(*first, cut);
    const TextPos page = whole ? start : ReadingLine(start).end;
    return std::min(page, ReadingLine(position - 1).start);
}
