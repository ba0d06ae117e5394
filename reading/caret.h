// The caret, the selection and the top line of the text view, also in right-to-left charsets.
#pragma once

#include "platform/text_view.h"

#include <optional>
#include <string>

bool IsRightToLeftCharset(int charset); // 177, 178, 179

// Puts the caret at `position`, when given, and brings its line to the top, and the caret or the
// selection into view where the line is wider than that.
void ScrollCaretToTop(TextView&, std::optional<TextPos> position = std::nullopt);

// The first character of the top visible line: the reading position.
TextPos FirstVisibleChar(const TextView&);

// Whether the view reports the caret of this charset counted from the line's other end.
bool CountsMirrored(const TextView&, int charset);

// The caret; where the view counts mirrored, the selection's end mirrored back within its line.
TextPos LogicalCaretPos(const TextView&, int charset);

// The selected text, taken from the logical caret.
std::u16string SelectedTextLogical(const TextView&, int charset);
