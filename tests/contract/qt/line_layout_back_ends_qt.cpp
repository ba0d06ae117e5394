#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "tests/contract/line_layout_contract.h"

std::vector<BackEnd<LineLayout>> LineLayoutBackEnds() {
    return {MakeBackEnd<LineLayout, QtLineLayout>("qt")};
}

// Qt 6.4 narrows characters that are not seen, too, and widens marks. What no font has as
// a whole, as a syllable or a family, has several glyphs and not always all of them at its place.
// Thai that is turned to right to left is one cluster from its first U+0E33 to its last one, so
// that no line breaks between them, however wide it gets.
ParagraphLimits LimitsOfParagraphs() {
    return {0, 1, false, false};
}
