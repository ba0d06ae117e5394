#include "view/page/flow_leaf.h"

#include "formats/css/css_rare_style.h"

bool StandsAlone(const PageBox& box) {
    if (box.kind == PageBoxKind::Picture || box.kind == PageBoxKind::Table) return true;
    if (box.parent == noPageBox || box.isTooLong) return false; // the page, or as much of it
    if (box.isFieldset || box.isLegend) return true;
    const CssBoxStyle& style = *box.style;
    const auto isSet = [](const CssLength& length) {
        return length.kind == CssLength::Kind::Pixels;
    };
    return style.flowRoot || isSet(style.height) || isSet(style.minHeight) ||
           isSet(style.maxHeight) || style.rare->aspectRatio > 0;
}

bool IsFlowLeaf(const PageBoxes& boxes, PageBoxId id) {
    return boxes.IsEmpty(id) || boxes[id].kind == PageBoxKind::Lines || StandsAlone(boxes[id]);
}
