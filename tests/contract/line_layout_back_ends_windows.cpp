#include "platform/windows/line_layout/win_line_layout.h"
#include "tests/contract/line_layout_contract.h"

std::vector<BackEnd<LineLayout>> LineLayoutBackEnds() {
    return {MakeBackEnd<LineLayout, WinLineLayout>("windows")};
}

ParagraphLimits LimitsOfParagraphs() {
    return {};
}
