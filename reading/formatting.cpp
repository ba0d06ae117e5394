#include "reading/formatting.h"

#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"

namespace {
// Runs a change of the whole text.
template <typename Change>
void ApplyToWholeText(TextView& view, Scrolling scrolling, Change change) {
    if (scrolling == Scrolling::Leave) return change(); // the top takes a layout
    const TextPos caret = view.SelStart(), top = FirstVisibleChar(view);
    change();
    view.Select(caret, 0);
    view.ScrollLineToTop(top);
}
} // namespace

void ApplyFont(TextView& view, const ViewFont& font, Scrolling scrolling) {
    ApplyToWholeText(view, scrolling, [&] {
        view.SetFont(font);
        view.ApplyFontToAll();
    });
}

void ApplyTextColor(TextView& view, Color color, bool keepFileColors, Scrolling scrolling) {
    if (view.AutoColor() != keepFileColors) view.SetAutoColor(keepFileColors);
    if (keepFileColors) return;
    ApplyToWholeText(view, scrolling, [&] { view.SetTextColor(color); });
}

void ApplyAlignment(TextView& view, MenuArray& alignItems, int index, Scrolling scrolling) {
    if (index < 0 || index >= alignItems.Count()) index = 0;
    ApplyToWholeText(view, scrolling, [&] { view.SetAlignment(static_cast<Alignment>(index)); });
    CheckRadioItem(index, alignItems);
}

void SetWordWrap(TextView& view, const Window& window, MenuItem& wrapItem, bool wrap) {
    constexpr int widePixels = 32768; // no line is as long
    wrapItem.checked = wrap;
    view.SetRightMargin(wrap ? 0 : RoundToEven(widePixels * window.TwipsPerPixelX()));
}

void SetColumn(TextView& view, MenuItem& columnItem, bool on) {
    constexpr int letters = 75; // typographers count 45 to 75
    columnItem.checked = on;
    view.SetMaxLineLength(on ? letters : 0);
}

void SetUnwrapped(TextView& view, MenuItem& unwrapItem, bool on) {
    unwrapItem.checked = on;
    view.SetUnwrapped(on);
}
