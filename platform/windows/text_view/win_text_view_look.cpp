// The look of the text view. A change of the whole text is made by filling a fresh control: cheaper
// than in place in some controls, and the only way back to what the file says.
#include "platform/windows/text_view/win_text_view.h"

void WinTextView::SetFont(const ViewFont& font) {
    if (font == look_.font) return;
    look_.font = font;
    if (plain_ || look_.fontForAll || !NamesOwnFonts(document_)) Refill();
}

void WinTextView::ApplyFontToAll() {
    if (look_.fontForAll) return;
    look_.fontForAll = true;
    if (!plain_) Refill();
}

void WinTextView::SetAutoColor(bool on) {
    if (on == look_.autoColor) return;
    look_.autoColor = on;
    Refill();
}

void WinTextView::SetTextColor(Color color) {
    if (color == look_.textColor) return;
    look_.textColor = color;
    if (!look_.autoColor) Refill();
}

void WinTextView::SetBackColor(Color color) {
    const auto before = ReadableAutoColor(look_.backColor);
    look_.backColor = color;
    control_->SetBackColor(color);
    if (look_.autoColor && ReadableAutoColor(color) != before) Refill();
}

void WinTextView::SetAlignment(Alignment alignment) {
    const bool asItIs = alignment == look_.alignment ||
                        (plain_ && alignment == Alignment::Left && !look_.alignment);
    look_.alignment = alignment;
    if (!asItIs) Refill();
}

void WinTextView::SetRightMargin(int twips) {
    if (twips == look_.rightMargin) return;
    look_.rightMargin = twips;
    Refill();
}
