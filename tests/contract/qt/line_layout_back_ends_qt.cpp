#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "tests/contract/line_layout_contract.h"

std::vector<BackEnd<LineLayout>> LineLayoutBackEnds() {
    return {MakeBackEnd<LineLayout, QtLineLayout>("qt")};
}

// Qt 6.4 narrows characters that are not seen, too, and widens marks. Where text of another
// direction is right of a line's last character, QTextLine::cursorToX() forgets all its glyphs but
// one.
ParagraphLimits LimitsOfParagraphs() {
    return {0, 1, false};
}
