#include "platform/windows/text_view/win_text_view.h"

#include "common/find_text.h"
#include "common/line_ends.h"
#include "formats/picture_files.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "view/view_style_overrides.h"
#include "platform/windows/portable/text_map.h"

#include <algorithm>

WinTextView::WinTextView(HWND parent) : parent_(parent) {
    input_.onContextMenu = [this](POINT point) {
        contextPoint_ = point;
        if (onContextMenu) onContextMenu();
    };
    input_.onDrop = [this](HWND control, std::vector<std::u16string> paths) {
        drops_.Add(control, std::move(paths));
    };
    input_.onCopy = [this] {
        if (onCopy) onCopy();
    };
    input_.onRefill = [this] { Control(); };
    Control();
}

WinTextView::~WinTextView() = default;

void WinTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Document document;
    document.text = std::move(text);
    Load(std::move(document), true);
}

// The control never gets the file's own RTF: our reader gives the same text on every system, and
// stops hostile files.
void WinTextView::LoadRichText(std::string bytes, int systemCodePage) {
    Document document = ReadRtf(bytes, systemCodePage);
    if (onPictureFile) ReadPictureFiles(document, onPictureFile);
    Load(std::move(document), false);
}

void WinTextView::Load(Document document, bool plain) {
    document_ = std::move(document);
    plain_ = plain;
    style_.fontForAll = false;
    style_.alignment.reset();
    top_ = {};
    selStart_ = selEnd_ = 0;
    filled_ = false;
    PostRefill(control_->Handle());
}

RichEdit& WinTextView::Control() const {
    if (!filled_) Fill();
    return *control_;
}

void WinTextView::Fill() const {
    const std::unique_ptr<RichEdit> old = std::move(control_);
    control_ = std::make_unique<RichEdit>(parent_);
    filled_ = true;
    FillControl();
    control_->Select({map_.ToControl(selStart_), map_.ToControl(selEnd_)});
    ShowTop(top_.position, top_.requested);
    AttachInput(*control_, input_);
    ShowInPlaceOf(old.get());
}

// Formats and size first, so that the text is laid out once.
void WinTextView::FillControl() const {
    control_->SetBounds(bounds_);
    control_->SetBackColor(style_.backColor);
    control_->SetRightMargin(style_.rightMargin);
    control_->SetDefaultFormat(FontFormat(style_.font));
    control_->SetDefaultFormat(ColorFormat(style_));
    StreamDocument();
    const bool same = plain_ && control_->Length() == TextLength();
    map_ = same ? TextMap() : TextMap(document_.text, control_->Text());
    spaceBelow_ = 0;
}

// Only RTF can carry an alignment.
void WinTextView::StreamDocument() const {
    if (!plain_) return control_->StreamRtf(StyledRtf(document_, style_));
    if (style_.alignment.value_or(Alignment::Left) == Alignment::Left)
        return control_->StreamPlain(document_.text);
    Document document;
    document.text = ToControlText(document_.text);
    std::replace(document.text.begin(), document.text.end(), u'\r', u'\n');
    ViewStyle style = style_;
    style.fontForAll = true;
    control_->StreamRtf(StyledRtf(document, style));
}

void WinTextView::ShowInPlaceOf(const RichEdit* old) const {
    const bool focused = old && old->Handle() && GetFocus() == old->Handle();
    if (visible_) ShowWindow(control_->Handle(), SW_SHOWNA);
    if (focused) ::SetFocus(control_->Handle());
}

// The same text in another style.
void WinTextView::Refill() {
    if (!filled_) return;
    selStart_ = SelStart();
    selEnd_ = selStart_ + SelLength();
    top_ = CurrentTop();
    filled_ = false;
    PostRefill(control_->Handle());
}

TextPos WinTextView::TextLength() const {
    return static_cast<TextPos>(document_.text.size());
}

TextPos WinTextView::Clamp(TextPos position) const {
    return std::clamp(position, 0, TextLength());
}

std::u16string WinTextView::TextRange(TextPos start, TextPos length) const {
    const TextPos from = Clamp(start);
    return document_.text.substr(from, std::clamp(length, 0, TextLength() - from));
}

void WinTextView::Select(TextPos start, TextPos length) {
    const TextPos from = Clamp(start), to = from + std::clamp(length, 0, TextLength() - from);
    RichEdit& control = Control();
    PreserveScroll([&] { control.Select({map_.ToControl(from), map_.ToControl(to)}); });
}

TextPos WinTextView::SelStart() const {
    return Clamp(map_.ToBook(Control().Selection().cpMin));
}

TextPos WinTextView::SelLength() const {
    const CHARRANGE range = Control().Selection();
    if (range.cpMax <= range.cpMin) return 0;
    return Clamp(map_.ToBook(range.cpMax - 1) + 1) -
           SelStart(); // without what the control omits there
}

TextPos WinTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    const auto from = static_cast<std::size_t>(Clamp(start));
    const std::size_t found = FindText(document_.text, what, from, options);
    return found == std::u16string_view::npos ? -1 : static_cast<TextPos>(found);
}

// By our own writer, as on every system: without the control's own marks.
std::string WinTextView::SelectionAsRtf() const {
    const StyleOverrides overrides =
        OverridesOf(style_, plain_, FaceName(style_.font), PointSize(style_.font));
    if (!plain_) return WriteRtf(document_, SelStart(), SelLength(), overrides);
    Document selected;
    selected.text = TextRange(SelStart(), SelLength());
    return WriteRtf(selected, 0, -1, overrides);
}

void WinTextView::SetBounds(const Rect& bounds) {
    if (bounds == bounds_) return;
    bounds_ = bounds;
    if (!filled_) return;
    const Top top = CurrentTop();
    const RedrawPause pause(*control_);
    control_->SetBounds(bounds_);
    ShowTop(top.position, top.requested);
}

void WinTextView::SetVisible(bool visible) {
    visible_ = visible;
    ShowWindow(Control().Handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void WinTextView::SetPointer(Pointer pointer) {
    input_.pointer = pointer;
    UpdateCursor(control_->Handle());
}

void WinTextView::FocusView() {
    ::SetFocus(control_->Handle());
}
