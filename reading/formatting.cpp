#include "reading/formatting.h"

#include "app/main_form.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"

namespace {
// Runs a change of the whole text; the caret and the line at the top stay where they are.
template <typename Change>
void ApplyToWholeText(TextView& view, bool noRestore, Change change) {
    const TextPos caret = view.SelStart(), top = FirstVisibleChar(view);
    change();
    if (noRestore) return;
    view.Select(caret, 0);
    view.ScrollLineToTop(top);
}
} // namespace

void ApplyFont(MainForm& form, bool noRestore) {
    TextView& view = *form.ports.textView;
    ApplyToWholeText(view, noRestore, [&] {
        view.SetFont(form.viewFont);
        view.ApplyFontToAll();
    });
}

void ApplyTextColor(MainForm& form, Color color, bool noRestore) {
    TextView& view = *form.ports.textView;
    const bool keepFileColors = form.menu.mOptionsFileColor[0].checked;
    form.textColor = color;
    if (view.AutoColor() != keepFileColors) view.SetAutoColor(keepFileColors);
    if (keepFileColors) return;
    ApplyToWholeText(view, noRestore, [&] { view.SetTextColor(color); });
}

void ApplyAlignment(MainForm& form, int index, bool noRestore) {
    TextView& view = *form.ports.textView;
    if (index < 0 || index >= form.menu.mViewAlign.Count()) index = 0;
    ApplyToWholeText(view, noRestore, [&] { view.SetAlignment(static_cast<Alignment>(index)); });
    CheckRadioItem(index, form.menu.mViewAlign);
}

void SetWordWrap(MainForm& form, bool wrap) {
    constexpr int widePixels = 32768; // no line is as long
    form.menu.mViewWordWrap[0].checked = wrap;
    const double twips = widePixels * form.ports.window->TwipsPerPixelX();
    form.ports.textView->SetRightMargin(wrap ? 0 : RoundToEven(twips));
}
