#include "view/page/page_background.h"

namespace {
constexpr std::uint8_t halfOpaque = 128;
constexpr Color white = 0xFFFFFF;
} // namespace

bool IsDrawn(CssColor color) {
    return color.alpha >= halfOpaque;
}

Color BackgroundOf(const PageBoxes& boxes, PageBoxId box) {
    for (; box != noPageBox; box = boxes[box].parent)
        if (const CssColor color = boxes[box].style->background; IsDrawn(color)) return color.Bgr();
    return white;
}
