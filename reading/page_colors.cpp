#include "reading/page_colors.h"

#include "common/colors.h"
#include "common/contrast.h"

std::optional<std::uint32_t> ReadableTextColor(const PageColors& own, std::uint32_t background) {
    const Color text = SwapColorOrder(own.text), readers = SwapColorOrder(background);
    const bool asOnItsOwn =
        Contrast(text, readers) >= Contrast(text, SwapColorOrder(own.background));
    if (IsReadable(text, readers) || asOnItsOwn) return std::nullopt;
    return LegibleOn(readers); // black and white are the same in either order
}

void PaintPage(HtmlView& page, Color background) {
    const std::uint32_t color = SwapColorOrder(background);
    page.SetBackColor(color);
    page.SetTextColor(ReadableTextColor(page.OwnColors(), color));
}
