#include "view/pane_text_view.h"

#include "common/line_ends.h"
#include "formats/picture_files.h"
#include "formats/plain/plain_text_source.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "view/view_style_overrides.h"

#include <algorithm>

namespace {
template <class Change>
void ChangeStyle(TextPane& pane, const Change& change) {
    ViewStyle style = pane.Style();
    change(style);
    pane.SetStyle(style);
}
} // namespace

void PaneTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Document document;
    document.text = std::move(text);
    SetDocument(std::move(document), true);
}

void PaneTextView::LoadRichText(std::string bytes, int systemCodePage) {
    Document document = ReadRtf(bytes, systemCodePage);
    if (onPictureFile) ReadPictureFiles(document, onPictureFile);
    LoadDocument(std::move(document));
}

void PaneTextView::LoadDocument(Document document) {
    SetDocument(std::move(document), false);
}

void PaneTextView::LoadText(std::shared_ptr<const TextSource> text) {
    ResetFormatting();
    Pane().ShowText(std::move(text));
}

std::uint64_t PaneTextView::MaxTextSize() const {
    return maxPlainTextSize;
}

void PaneTextView::SetDocument(Document document, bool plain) {
    if (document.text.size() > std::size_t(maxTextLength)) document.text.resize(maxTextLength);
    ResetFormatting();
    Pane().ShowText(std::move(document), plain);
}

void PaneTextView::ResetFormatting() {
    ChangeStyle(Pane(), [&](ViewStyle& style) {
        style.fontForAll = false;
        style.alignment.reset();
    });
}

TextPos PaneTextView::TextLength() const {
    return Pane().Source().Length();
}

std::u16string PaneTextView::TextRange(TextPos start, TextPos length) const {
    const TextPos from = std::clamp(start, 0, TextLength());
    return Pane().Source().Range(from, from + std::clamp(length, 0, TextLength() - from));
}

void PaneTextView::Select(TextPos start, TextPos length) {
    const TextPos from = std::clamp(start, 0, TextLength());
    Pane().Select(from, from + std::clamp(length, 0, TextLength() - from));
}

TextPos PaneTextView::SelStart() const {
    return Pane().SelStart();
}

TextPos PaneTextView::SelLength() const {
    return Pane().SelEnd() - Pane().SelStart();
}

TextPos PaneTextView::FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                                const std::function<bool()>& shouldContinue) const {
    return Pane().Source().FindWhile(what, std::clamp(start, 0, TextLength()), options,
                                     shouldContinue);
}

std::string PaneTextView::SelectionAsRtf() const {
    const TextStyle shown = StyleOf(Pane().Style().font, Pane().System());
    const StyleOverrides overrides =
        OverridesOf(Pane().Style(), Pane().IsPlain(), shown.font.family, shown.font.points);
    if (!Pane().IsPlain()) return WriteRtf(Pane().Text(), SelStart(), SelLength(), overrides);
    Document document;
    document.text = TextRange(SelStart(), SelLength());
    return WriteRtf(document, 0, -1, overrides);
}

TextPos PaneTextView::FirstVisibleChar() const {
    return Pane().Scroller().FirstVisibleChar();
}

LineSpan PaneTextView::LineAround(TextPos position) const {
    const auto layout = Pane().Layouts().At(position);
    const LineRef line = LineOf(*layout, position);
    const TextPos start = LineStart(*layout, line);
    return {start, LineEnd(*layout, line) - start};
}

void PaneTextView::ScrollLineToTop(TextPos position) {
    Pane().Scroller().ScrollLineToTop(position);
    Pane().OnScrolled();
}

bool PaneTextView::ScrollDown(int pixels) {
    const VerticalPos before = Pane().Scroller().Top();
    Pane().ScrollBy({0, pixels});
    return Pane().Scroller().Top() != before;
}

void PaneTextView::ScrollIntoViewHorizontally(TextPos start, TextPos length) {
    const TextPos from = std::clamp(start, 0, TextLength());
    Pane().RevealHorizontally(from, from + std::clamp(length, 0, TextLength() - from));
}

void PaneTextView::SetFont(const ViewFont& font) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.font = font; });
}

void PaneTextView::ApplyFontToAll() {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.fontForAll = true; });
}

bool PaneTextView::AutoColor() const {
    return Pane().Style().autoColor;
}

void PaneTextView::SetAutoColor(bool on) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.autoColor = on; });
}

Color PaneTextView::TextColor() const {
    return Pane().Style().textColor;
}

void PaneTextView::SetTextColor(Color color) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.textColor = color; });
}

Color PaneTextView::BackColor() const {
    return Pane().Style().backColor;
}

void PaneTextView::SetBackColor(Color color) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.backColor = color; });
}

void PaneTextView::SetAlignment(Alignment alignment) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.alignment = alignment; });
}

void PaneTextView::SetRightMargin(int twips) {
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.rightMargin = twips; });
}

void PaneTextView::SetMaxLineLength(int letters) {
    const bool before = Pane().Style().maxLineLength > 0, now = letters > 0;
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.maxLineLength = letters; });
    if (before != now && HasText())
        Announce(now ? u"Lines stand in a column." : u"Lines take the whole width.");
}

void PaneTextView::SetUnwrapped(bool on) {
    const bool before = Pane().Style().unwrapped;
    ChangeStyle(Pane(), [&](ViewStyle& style) { style.unwrapped = on; });
    if (before != on && HasText())
        Announce(on ? u"Lines flow on as paragraphs." : u"Lines end as in the file.");
}

void PaneTextView::SetPlaceholder(const Placeholder& placeholder) {
    Pane().SetPlaceholder(placeholder);
}
