#include "reading/caret.h"

#include <algorithm>

bool IsRightToLeftCharset(int charset) {
    return charset >= 177 && charset <= 179;
}

void ScrollCaretToTop(TextView& view, std::optional<TextPos> position) {
    if (position) view.Select(*position, 0);
    view.ScrollLineToTop(view.SelStart());
    view.ScrollIntoViewHorizontally(view.SelStart(), view.SelLength());
}

TextPos FirstVisibleChar(const TextView& view) {
    return view.FirstVisibleChar();
}

bool CountsMirrored(const TextView& view, int charset) {
    return IsRightToLeftCharset(charset) && view.MirrorsRightToLeft();
}

TextPos LogicalCaretPos(const TextView& view, int charset) {
    const TextPos caret = view.SelStart();
    if (!CountsMirrored(view, charset)) return caret;
    const LineSpan line = view.LineAround(caret);
    const TextPos selectionEnd = caret + view.SelLength();
    return line.start + line.length + (line.start - selectionEnd);
}

std::u16string SelectedTextLogical(const TextView& view, int charset) {
    if (!CountsMirrored(view, charset)) return view.TextRange(view.SelStart(), view.SelLength());
    // The mirrored position plus one counts characters from 1, so it is a start counted from 0.
    return view.TextRange(std::max<TextPos>(LogicalCaretPos(view, charset), 0), view.SelLength());
}
