// Positions within lines.
#include "common/unicode.h"
#include "common/utf.h"
#include "tests/contract/reference_view/reference_view.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <tuple>

namespace {
bool IsLeftwards(BidiClass direction) {
    return direction == BidiClass::R || direction == BidiClass::AL;
}

// By the last strong character.
bool EndsLeftwards(std::u16string_view text) {
    for (std::size_t i = text.size(); i-- > 0;) {
        const BidiClass direction = BidiClassOf(text[i]);
        if (IsLeftwards(direction)) return true;
        if (direction == BidiClass::L && !IsSurrogate(text[i])) return false;
    }
    return false;
}

// Whether the direction is certain among characters of that direction.
bool MayGo(char16_t unit, bool rightToLeft) {
    if (IsSurrogate(unit)) return false;
    switch (BidiClassOf(unit)) {
    case BidiClass::L:
    case BidiClass::EN: return !rightToLeft;
    case BidiClass::R:
    case BidiClass::AL: return rightToLeft;
    case BidiClass::ES:
    case BidiClass::ET:
    case BidiClass::CS:
    case BidiClass::B:
    case BidiClass::S:
    case BidiClass::WS:
    case BidiClass::ON:
    case BidiClass::NSM:
    case BidiClass::BN: return true;
    default: return false; // digits of right-to-left scripts, and direction controls
    }
}
} // namespace

const ReferenceLine& ReferenceView::LineIn(const ReferenceParagraph& paragraph, int y) const {
    std::size_t found = paragraph.firstLine;
    for (std::size_t i = found; i < paragraph.firstLine + paragraph.lineCount; ++i) {
        const int top = reference_.lines[i].inkTop;
        if (i == paragraph.firstLine || top <= y) found = i;
    }
    return reference_.lines[found];
}

const ReferenceLine& ReferenceView::LineNear(int x, int y) const {
    y = Moved(y);
    const std::size_t block = reference_.BlockAt(y);
    const auto distance = [](int at, int from, int to) {
        return at < from ? from - at : at >= to ? at - to + 1 : 0;
    };
    const ReferenceParagraph* nearest = nullptr;
    std::tuple minDistance(0, 0, 0);
    for (const ReferenceParagraph& paragraph : reference_.paragraphs) {
        if (paragraph.block != block || paragraph.hidden) continue;
        std::tuple each(0, 0, distance(y, paragraph.top, paragraph.bottom));
        if (const auto& cell = paragraph.cell) {
            std::get<0>(each) = distance(y, cell->top, Bottom(*cell));
            std::get<1>(each) = distance(x, cell->left, Right(*cell));
        }
        if (nearest && each >= minDistance) continue;
        nearest = &paragraph;
        minDistance = each;
    }
    return LineIn(*nearest, y);
}

TextPos ReferenceView::LastCaretPosition(const ReferenceLine& line) const {
    if (!line.isContinued) return line.end;
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    return paragraph.start + paragraph.text->PreviousPosition(line.end - paragraph.start);
}

bool ReferenceView::IsUnidirectional(const ReferenceLine& line) const {
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    const std::u16string_view text = settings.text;
    const auto from = std::size_t(paragraph.start), start = std::size_t(line.start);
    // Digits have the direction of the text before them.
    if (!paragraph.rightToLeft && EndsLeftwards(text.substr(from, start - from))) return false;
    const auto own = text.substr(start, std::size_t(line.end) - start);
    return std::all_of(own.begin(), own.end(),
                       [&](char16_t unit) { return MayGo(unit, paragraph.rightToLeft); });
}

std::string ReferenceView::Describe(const ReferenceLine& line) const {
    std::string text;
    for (TextPos at = line.start; at <= line.end; ++at) {
        const bool inside = at < TextPos(settings.text.size());
        const char16_t unit = inside ? settings.text[std::size_t(at)] : u'\0';
        text += " " + std::to_string(at);
        char code[16];
        std::snprintf(code, sizeof code, "(%x)%.1f", unsigned(unit), reference_.X(line, at));
        text += code;
    }
    return text;
}

bool ReferenceView::IsPossible(const ReferenceLine& line, int x, TextPos position) const {
    const TextPos last = LastCaretPosition(line);
    if (last < line.start)
        return position == last; // the line has only marks of a letter in the line above
    if (position < line.start || position > last) return false;
    if (!IsUnidirectional(line)) return true;
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    double minDistance = std::numeric_limits<double>::max();
    for (TextPos each = line.start; each <= last; ++each)
        if (paragraph.text->IsPosition(each - paragraph.start))
            minDistance = std::min(minDistance, std::abs(reference_.X(line, each) - x));
    // After the text of a wrapped line there are only its trailing spaces.
    const double end = paragraph.origin.x + line.left + reference_.Measures(line).width;
    if (!paragraph.rightToLeft && x >= end - 1 && position == last) return true;
    return std::abs(reference_.X(line, position) - x) <= minDistance + 1;
}
