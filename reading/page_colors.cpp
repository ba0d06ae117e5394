#include "reading/page_colors.h"

#include "common/contrast.h"

std::optional<Color> ReadableTextColor(const PageColors& own, Color background) {
    const bool asOnItsOwn = Contrast(own.text, background) >= Contrast(own.text, own.background);
    if (IsReadable(own.text, background) || asOnItsOwn) return std::nullopt;
    return LegibleOn(background);
}

void PaintPage(HtmlView& page, Color background) {
    page.SetBackColor(background);
    page.SetTextColor(ReadableTextColor(page.OwnColors(), background));
}
