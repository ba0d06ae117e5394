#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "tests/contract/line_layout_contract.h"

std::vector<BackEnd<LineLayout>> LineLayoutBackEnds() {
    return {MakeBackEnd<LineLayout, QtLineLayout>("qt")};
}
