// Style of the text view. A change fills a new control: faster than EM_SETCHARFORMAT in some
// versions, and the only way back to the file's own formatting.
#include "platform/windows/text_view/win_text_view.h"

void WinTextView::SetFont(const ViewFont& font) {
    if (font == style_.font) return;
    style_.font = font;
    if (plain_ || style_.fontForAll || !NamesOwnFonts(document_)) Refill();
}

void WinTextView::ApplyFontToAll() {
    if (style_.fontForAll) return;
    style_.fontForAll = true;
    if (!plain_) Refill();
}

void WinTextView::SetAutoColor(bool on) {
    if (on == style_.autoColor) return;
    style_.autoColor = on;
    Refill();
}

void WinTextView::SetTextColor(Color color) {
    if (color == style_.textColor) return;
    style_.textColor = color;
    if (!style_.autoColor) Refill();
}

void WinTextView::SetBackColor(Color color) {
    const auto before = ReadableAutoColor(style_.backColor);
    style_.backColor = color;
    control_->SetBackColor(color);
    if (style_.autoColor && ReadableAutoColor(color) != before) Refill();
}

void WinTextView::SetAlignment(Alignment alignment) {
    const bool asItIs = alignment == style_.alignment ||
                        (plain_ && alignment == Alignment::Left && !style_.alignment);
    style_.alignment = alignment;
    if (!asItIs) Refill();
}

void WinTextView::SetRightMargin(int twips) {
    if (twips == style_.rightMargin) return;
    style_.rightMargin = twips;
    Refill();
}
