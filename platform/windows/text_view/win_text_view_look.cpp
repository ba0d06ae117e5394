// The look of the text view. Where the control can change it in place it does; the line on top
// stays.
#include "platform/windows/text_view/win_text_view.h"

void WinTextView::SetFont(const ViewFont& font) {
    if (font == look_.font) return;
    look_.font = font;
    if (plain_ || look_.fontForAll)
        KeepingTop([this] { control_->FormatAll(FontFormat(look_.font)); });
    else if (!NamesOwnFonts(document_))
        Refill();
}

void WinTextView::ApplyFontToAll() {
    look_.fontForAll = true;
    if (!plain_) KeepingTop([this] { control_->FormatAll(FontFormat(look_.font)); });
}

void WinTextView::SetAutoColor(bool on) {
    if (on == look_.autoColor) return;
    look_.autoColor = on;
    Recolor();
}

void WinTextView::SetTextColor(Color color) {
    if (color == look_.textColor) return;
    look_.textColor = color;
    if (!look_.autoColor) Recolor();
}

void WinTextView::SetBackColor(Color color) {
    const auto before = ReadableAutoColor(look_.backColor);
    look_.backColor = color;
    control_->SetBackColor(color);
    if (look_.autoColor && ReadableAutoColor(color) != before) Recolor();
}

// The colours that a file gives can only be had from the file.
void WinTextView::Recolor() {
    if (look_.autoColor && !plain_) return Refill();
    KeepingTop([this] { control_->FormatAll(ColorFormat(look_)); });
}

void WinTextView::SetAlignment(Alignment alignment) {
    const bool asItIs = plain_ && alignment == look_.alignment.value_or(Alignment::Left);
    look_.alignment = alignment;
    if (asItIs) return;
    KeepingTop([&] {
        const CHARRANGE selection = control_->Selection();
        control_->Select({0, -1});
        control_->FormatSelectedParagraphs(AlignmentFormat(alignment));
        control_->Select(selection);
    });
}

void WinTextView::SetRightMargin(int twips) {
    if (twips == look_.rightMargin) return;
    KeepingTop([&] {
        look_.rightMargin = twips;
        control_->SetRightMargin(twips);
    });
}
