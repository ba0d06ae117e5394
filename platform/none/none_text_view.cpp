#include "platform/none/none_text_view.h"

#include "common/find_text.h"
#include "common/line_ends.h"
#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"

#include <algorithm>

void NoneTextView::LoadPlainText(std::u16string text) {
    UnifyLineEnds(text);
    Load(std::move(text));
}

void NoneTextView::LoadRichText(std::string bytes, int systemCodePage) {
    Load(ReadRtf(bytes, systemCodePage).text);
}

void NoneTextView::Load(std::u16string text) {
    text_ = std::move(text);
    selStart_ = selLength_ = anchor_ = 0;
    scrolledX_ = 0;
    ++loads;
}

TextPos NoneTextView::TextLength() const {
    return static_cast<TextPos>(text_.size());
}

TextPos NoneTextView::Clamp(TextPos position) const {
    return std::clamp(position, 0, TextLength());
}

std::u16string NoneTextView::TextRange(TextPos start, TextPos length) const {
    const TextPos from = Clamp(start);
    return text_.substr(from, std::clamp(length, 0, TextLength() - from));
}

void NoneTextView::Select(TextPos start, TextPos length) {
    selStart_ = Clamp(start);
    selLength_ = std::clamp(length, 0, TextLength() - selStart_);
}

TextPos NoneTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    pointersOfFinds.push_back(pointer_);
    if (whileFinding) {
        whileFinding();
        return findGivenUp;
    }
    const std::size_t found =
        FindText(text_, what, static_cast<std::size_t>(Clamp(start)), options);
    return found == std::u16string::npos ? -1 : static_cast<TextPos>(found);
}

std::string NoneTextView::SelectionAsRtf() const {
    Document document;
    document.text = text_;
    return WriteRtf(document, selStart_, selLength_);
}

TextPos NoneTextView::Columns() const {
    const int pixels = rightMargin_ > 0 ? rightMargin_ / 15 : bounds_.width;
    return std::max(2, pixels / CellWidth);
}

LineSpan NoneTextView::LineAround(TextPos position) const {
    const TextPos at = Clamp(position);
    const auto paragraphBreak = at == 0 ? std::u16string::npos : text_.rfind(u'\n', at - 1);
    TextPos start =
        paragraphBreak == std::u16string::npos ? 0 : static_cast<TextPos>(paragraphBreak) + 1;
    const TextPos end = static_cast<TextPos>(std::min(text_.find(u'\n', at), text_.size()));
    for (;;) {
        TextPos next = start + Columns();
        if (next < end && IsLowSurrogate(text_[next])) --next;
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
