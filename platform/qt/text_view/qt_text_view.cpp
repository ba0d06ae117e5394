#include "platform/qt/text_view/qt_text_view.h"

#include "common/line_ends.h"
#include "formats/plain/plain_text_source.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "platform/qt/text_view/event_pump.h"
#include "platform/qt/text_view/text_widget.h"
#include "platform/shared/view_style_overrides.h"

#include <algorithm>

namespace {
template <class Change>
void ChangeStyle(TextWidget& widget, const Change& change) {
    ViewStyle style = widget.CurrentStyle();
    change(style);
    widget.SetViewStyle(style);
}
} // namespace

QtTextView::QtTextView(QWidget* parent) : widget_(new TextWidget(parent)) {
    widget_->onContextMenu = [this] {
        if (onContextMenu) onContextMenu();
    };
    widget_->onFilesDropped = [this](const std::vector<std::u16string>& paths) {
        if (onFilesDropped) onFilesDropped(paths);
    };
}

QtTextView::~QtTextView() {
    delete widget_;
}

QWidget* QtTextView::Widget() const {
    return widget_;
}

QPoint QtTextView::ContextMenuPoint() const {
    return widget_->ContextMenuPoint();
}

int QtTextView::LayoutsMade() const {
    return widget_->Layouts().LayoutsMade();
}

void QtTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Document document;
    document.text = std::move(text);
    SetDocument(std::move(document), true);
}

void QtTextView::LoadRichText(std::string bytes, int systemCodePage) {
    LoadDocument(ReadRtf(bytes, systemCodePage));
}

void QtTextView::LoadDocument(Document document) {
    SetDocument(std::move(document), false);
}

void QtTextView::LoadText(std::shared_ptr<const TextSource> text) {
    ResetFormatting();
    widget_->ShowText(std::move(text));
}

std::uint64_t QtTextView::MaxTextSize() const {
    return maxPlainTextSize;
}

void QtTextView::SetDocument(Document document, bool plain) {
    if (document.text.size() > std::size_t(maxTextLength)) document.text.resize(maxTextLength);
    ResetFormatting();
    widget_->ShowText(std::move(document), plain);
}

void QtTextView::ResetFormatting() {
    ChangeStyle(*widget_, [&](ViewStyle& style) {
        style.fontForAll = false;
        style.alignment.reset();
    });
}

TextPos QtTextView::TextLength() const {
    return widget_->Source().Length();
}

std::u16string QtTextView::TextRange(TextPos start, TextPos length) const {
    const TextPos from = std::clamp(start, 0, TextLength());
    return widget_->Source().Range(from, from + std::clamp(length, 0, TextLength() - from));
}

void QtTextView::Select(TextPos start, TextPos length) {
    const TextPos from = std::clamp(start, 0, TextLength());
    widget_->Select(from, from + std::clamp(length, 0, TextLength() - from));
}

TextPos QtTextView::SelStart() const {
    return widget_->SelStart();
}

TextPos QtTextView::SelLength() const {
    return widget_->SelEnd() - widget_->SelStart();
}

TextPos QtTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    EventPump events;
    return widget_->Source().FindWhile(what, std::clamp(start, 0, TextLength()), options,
                                       [&events] { return events.ProcessEvents(); });
}

std::string QtTextView::SelectionAsRtf() const {
    const ViewStyle& style = widget_->CurrentStyle();
    const QFont font = MakeFont(style.font);
    const StyleOverrides overrides =
        OverridesOf(style, widget_->IsPlain(), font.family().toStdU16String(), font.pointSizeF());
    if (!widget_->IsPlain()) return WriteRtf(widget_->Text(), SelStart(), SelLength(), overrides);
    Document document;
    document.text = TextRange(SelStart(), SelLength());
    return WriteRtf(document, 0, -1, overrides);
}

TextPos QtTextView::FirstVisibleChar() const {
    return widget_->Scroller().FirstVisibleChar();
}

LineSpan QtTextView::LineAround(TextPos position) const {
    const auto layout = widget_->Layouts().At(position);
    const LineRef line = LineOf(*layout, position);
    const TextPos start = LineStart(*layout, line);
    return {start, LineEnd(*layout, line) - start};
}

void QtTextView::ScrollLineToTop(TextPos position) {
    widget_->Scroller().ScrollLineToTop(position);
    widget_->OnScrolled();
}

void QtTextView::ScrollIntoViewHorizontally(TextPos start, TextPos length) {
    const TextPos from = std::clamp(start, 0, TextLength());
    widget_->RevealHorizontally(from, from + std::clamp(length, 0, TextLength() - from));
}

void QtTextView::SetFont(const ViewFont& font) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.font = font; });
}

void QtTextView::ApplyFontToAll() {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.fontForAll = true; });
}

bool QtTextView::AutoColor() const {
    return widget_->CurrentStyle().autoColor;
}

void QtTextView::SetAutoColor(bool on) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.autoColor = on; });
}

Color QtTextView::TextColor() const {
    return widget_->CurrentStyle().textColor;
}

void QtTextView::SetTextColor(Color color) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.textColor = color; });
}

Color QtTextView::BackColor() const {
    return widget_->CurrentStyle().backColor;
}

void QtTextView::SetBackColor(Color color) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.backColor = color; });
}

void QtTextView::SetAlignment(Alignment alignment) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.alignment = alignment; });
}

void QtTextView::SetRightMargin(int twips) {
    ChangeStyle(*widget_, [&](ViewStyle& style) { style.rightMargin = twips; });
}

void QtTextView::SetBounds(const Rect& bounds) {
    widget_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
}

void QtTextView::SetVisible(bool visible) {
    widget_->setVisible(visible);
}

void QtTextView::SetPointer(Pointer pointer) {
    widget_->viewport()->setCursor(pointer == Pointer::Hourglass ? Qt::WaitCursor
                                                                 : Qt::IBeamCursor);
}

void QtTextView::FocusView() {
    widget_->setFocus();
}

void QtTextView::SetName(std::u16string_view name) {
    widget_->setAccessibleName(QStringView(name).toString());
}
