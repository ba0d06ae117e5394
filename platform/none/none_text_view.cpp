#include "platform/none/none_text_view.h"

#include "common/find_text.h"
#include "common/line_ends.h"
#include "common/string_text.h"
#include "common/utf.h"
#include "formats/picture_files.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "view/view_style_overrides.h"

#include <algorithm>

void NoneTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Document document;
    document.text = std::move(text);
    Load(std::move(document), true);
}

void NoneTextView::LoadRichText(std::string bytes, int systemCodePage) {
    Document document = ReadRtf(bytes, systemCodePage);
    if (onPictureFile) ReadPictureFiles(document, onPictureFile);
    Load(std::move(document), false);
}

void NoneTextView::Load(Document document, bool isPlain) {
    document_ = std::move(document);
    isPlain_ = isPlain;
    style_.fontForAll = false;
    style_.alignment.reset();
    selStart_ = selLength_ = anchor_ = 0;
    scrolledX_ = 0;
    ++loads;
}

TextPos NoneTextView::TextLength() const {
    return static_cast<TextPos>(document_.text.size());
}

TextPos NoneTextView::Clamp(TextPos position) const {
    return std::clamp(position, 0, TextLength());
}

std::u16string NoneTextView::TextRange(TextPos start, TextPos length) const {
    const TextPos from = Clamp(start);
    return document_.text.substr(from, std::clamp(length, 0, TextLength() - from));
}

void NoneTextView::Select(TextPos start, TextPos length) {
    selStart_ = Clamp(start);
    selLength_ = std::clamp(length, 0, TextLength() - selStart_);
}

TextPos NoneTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    cursorsOfFinds.push_back(cursor_);
    if (whileFinding) {
        whileFinding();
        return findGivenUp;
    }
    const std::size_t found =
        FindText(document_.text, what, static_cast<std::size_t>(Clamp(start)), options);
    return found == std::u16string::npos ? -1 : static_cast<TextPos>(found);
}

void NoneTextView::VisitText(const TextVisitor& visit) const {
    ++visits;
    visit(StringText(document_.text), [] { return true; });
}

std::string NoneTextView::SelectionAsRtf() const {
    const double points = style_.font.size > 0 ? style_.font.size : 12;
    return WriteRtf(document_, selStart_, selLength_,
                    OverridesOf(style_, isPlain_, style_.font.name, points));
}

void NoneTextView::ApplyFontToAll() {
    style_.fontForAll = true;
    ++fontApplications;
}

TextPos NoneTextView::Columns() const {
    const int pixels = style_.rightMargin > 0 ? style_.rightMargin / 15 : bounds_.width;
    return std::max(2, pixels / CellWidth);
}

LineSpan NoneTextView::LineAround(TextPos position) const {
    const TextPos at = Clamp(position);
    const auto paragraphBreak =
        at == 0 ? std::u16string::npos : document_.text.rfind(u'\n', at - 1);
    TextPos start =
        paragraphBreak == std::u16string::npos ? 0 : static_cast<TextPos>(paragraphBreak) + 1;
    const TextPos end =
        static_cast<TextPos>(std::min(document_.text.find(u'\n', at), document_.text.size()));
    for (;;) {
        TextPos next = start + Columns();
        if (next < end && IsLowSurrogate(document_.text[next])) --next;
        if (next > at || next >= end) return {start, std::min(next, end) - start};
        start = next;
    }
}

void NoneTextView::ScrollLineToTop(TextPos position) {
    anchor_ = LineAround(position).start;
    ++scrolls;
}

int NoneTextView::X(TextPos position) const {
    return (Clamp(position) - LineAround(position).start) * CellWidth - scrolledX_;
}

void NoneTextView::ScrollIntoViewHorizontally(TextPos start, TextPos length) {
    const LineSpan line = LineAround(start);
    const TextPos from = Clamp(start) - line.start;
    const TextPos to = std::min(from + std::clamp(length, 0, TextLength()), line.length);
    const int left = from * CellWidth, right = std::max(left + CellWidth, to * CellWidth);
    if (left >= scrolledX_ && right <= scrolledX_ + bounds_.width) return;
    scrolledX_ = std::max(0, std::min(left, right - bounds_.width));
}

int NoneTextView::Percent() const {
    TextPos end = anchor_;
    for (int row = 0; row < std::max(1, bounds_.height / CellHeight); ++row) {
        const LineSpan line = LineAround(end);
        end = line.start + line.length + 1;
        if (end > TextLength()) return 100;
        if (document_.text[static_cast<std::size_t>(end) - 1] != u'\n') --end; // it is wrapped
    }
    return static_cast<int>(std::int64_t{100} * anchor_ / TextLength());
}

void NoneTextView::ScrollToPercent(int percent) {
    ScrollLineToTop(static_cast<TextPos>(std::int64_t{TextLength()} * percent / 100));
}

bool NoneTextView::ScrollDown(int pixels) {
    if (Percent() == 100) return false;
    for (int i = 0; i < pixels; ++i) {
        const LineSpan line = LineAround(anchor_);
        ScrollLineToTop(line.start + line.length + 1);
    }
    return true;
}
