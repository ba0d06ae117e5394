#include "platform/windows/text_view/win_text_view.h"

#include "common/find_text.h"
#include "formats/rtf_reader.h"
#include "formats/rtf_writer.h"
#include "platform/windows/text_view/control_text.h"

#include <algorithm>

WinTextView::WinTextView(HWND parent) : parent_(parent) {
    input_.onContextMenu = [this](POINT point) {
        contextPoint_ = point;
        if (onContextMenu) onContextMenu();
    };
    input_.onFilesDropped = [this](const std::vector<std::u16string>& paths) {
        if (onFilesDropped) onFilesDropped(paths);
    };
    input_.onZoomWheel = [this](int steps) {
        if (onZoomWheel) onZoomWheel(steps);
    };
    Load({}, true);
}

WinTextView::~WinTextView() = default;

HWND WinTextView::Handle() const {
    return control_->Handle();
}

void WinTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Document document;
    document.text = std::move(text);
    Load(std::move(document), true);
}

// Not the file's own bytes: our reader decides what the text of a book is, as on every system, and
// hostile files end there.
void WinTextView::LoadRichText(std::string bytes, int systemCodePage) {
    Load(ReadRtf(bytes, systemCodePage), false);
}

void WinTextView::Load(Document document, bool plain) {
    document_ = std::move(document);
    plain_ = plain;
    look_.fontForAll = false;
    look_.alignment.reset();
    Fill();
    ShowTop(0, true);
}

// Format and size first, so that the text is laid out once.
void WinTextView::Fill() {
    auto fresh = std::make_unique<RichEdit>(parent_);
    AttachInput(*fresh, input_);
    Place(*fresh);
    fresh->SetBackColor(look_.backColor);
    fresh->SetRightMargin(look_.rightMargin);
    fresh->FormatAll(FontFormat(look_.font));
    fresh->FormatAll(ColorFormat(look_));
    if (plain_)
        fresh->StreamPlain(ToControlText(document_.text));
    else
        fresh->StreamRtf(WriteRtf(Dressed(document_, look_)));
    const bool same = plain_ && fresh->Length() == TextLength();
    map_ = same ? TextMap() : TextMap(document_.text, fresh->Text());
    fresh->Select({0, 0});
    roomBelow_ = 0;

    const bool focused = control_ && control_->Handle() && GetFocus() == control_->Handle();
    if (visible_) ShowWindow(fresh->Handle(), SW_SHOWNA);
    if (focused) SetFocus(fresh->Handle());
    control_ = std::move(fresh);
}

// The same text in another look, where the control has no way back to what the file says.
void WinTextView::Refill() {
    const TextPos start = SelStart(), length = SelLength();
    const Top top = CurrentTop();
    Fill();
    ShowTop(top.position, top.asked);
    Select(start, length);
}

void WinTextView::Place(RichEdit& control) const {
    SetWindowPos(control.Handle(), nullptr, bounds_.left, bounds_.top, bounds_.width,
                 bounds_.height, SWP_NOZORDER | SWP_NOACTIVATE);
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
    KeepingScroll([&] { control_->Select({map_.ToControl(from), map_.ToControl(to)}); });
}

TextPos WinTextView::SelStart() const {
    return Clamp(map_.ToBook(control_->Selection().cpMin));
}

TextPos WinTextView::SelLength() const {
    const CHARRANGE range = control_->Selection();
    if (range.cpMax <= range.cpMin) return 0;
    return Clamp(map_.ToBook(range.cpMax - 1) + 1) - SelStart(); // without what is left out there
}

TextPos WinTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    const auto from = static_cast<std::size_t>(Clamp(start));
    const std::size_t found = FindText(document_.text, what, from, options);
    return found == std::u16string_view::npos ? -1 : static_cast<TextPos>(found);
}

// By our own writer: the same on every system, and without the control's marks.
std::string WinTextView::SelectionAsRtf() const {
    if (!plain_) return WriteRtf(document_, SelStart(), SelLength());
    Document selected;
    selected.text = TextRange(SelStart(), SelLength());
    TextLook look = look_;
    look.fontForAll = look.autoColor = true;
    look.backColor = 0xFFFFFF;
    look.alignment.reset();
    return WriteRtf(Dressed(std::move(selected), look));
}

void WinTextView::SetBounds(const Rect& bounds) {
    if (bounds == bounds_) return;
    KeepingTop([&] {
        bounds_ = bounds;
        Place(*control_);
    });
}

void WinTextView::SetVisible(bool visible) {
    visible_ = visible;
    ShowWindow(control_->Handle(), visible ? SW_SHOWNA : SW_HIDE);
}

void WinTextView::SetPointer(Pointer pointer) {
    input_.pointer = pointer;
    ShowPointer(control_->Handle());
}

void WinTextView::FocusView() {
    ::SetFocus(control_->Handle());
}
