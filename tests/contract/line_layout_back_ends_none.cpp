#include "platform/none/none_line_layout.h"
#include "tests/contract/line_layout_contract.h"

std::vector<BackEnd<LineLayout>> LineLayoutBackEnds() {
    return {MakeBackEnd<LineLayout, NoneLineLayout>("none")};
}

ParagraphLimits LimitsOfParagraphs() {
    return {};
}
