#include "view/reading_units.h"

#include "common/text_clusters.h"
#include "common/text_sentences.h"
#include "common/text_words.h"
#include "common/unicode.h"
#include "common/utf.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr int maxLines = 8 * 1024; // laid out for an answer

// Words with the spaces after them.
std::vector<TextPos> ReadingWordStarts(std::u16string_view text) {
    std::vector<TextPos> starts = WordBoundaries(text);
    std::erase_if(starts, [text](TextPos at) {
        return at > 0 && static_cast<std::size_t>(at) < text.size() &&
               IsSpaceCharacter(text[static_cast<std::size_t>(at)]);
    });
    return starts;
}

std::vector<TextPos> StartsOf(ReadingUnit unit, std::u16string_view text) {
    switch (unit) {
    case ReadingUnit::Word: return ReadingWordStarts(text);
    case ReadingUnit::Sentence: return SentenceStarts(text);
    default: return ClusterStarts(text);
    }
}

TextSpan Common(TextSpan a, TextSpan b) {
    return {std::max(a.start, b.start), std::min(a.end, b.end)};
}
} // namespace

TextSpan ReadingUnits::At(TextPos position, ReadingUnit unit) {
    const TextPos length = pane_.Source().Length();
    if (unit == ReadingUnit::Character && position >= length) return {length, length};
    switch (unit) {
    case ReadingUnit::Document: return {0, length};
    case ReadingUnit::Line: return pane_.ReadingLine(position);
    case ReadingUnit::Paragraph: return pane_.ReadingParagraph(position);
    case ReadingUnit::Page: {
        const TextPos start = pane_.ReadingLine(position).start;
        return {start, pane_.ReadingPageEnd(start)};
    }
    case ReadingUnit::Format: {
        const TextSpan paragraph = pane_.ReadingParagraph(position);
        if (paragraph.start == paragraph.end) return paragraph;
        const TextPos within = std::min(position, paragraph.end - 1);
        return Common(paragraph, pane_.StyleSpan(within));
    }
    case ReadingUnit::Character:
    case ReadingUnit::Word:
    case ReadingUnit::Sentence: break;
    }
    return WithinParagraph(position, unit);
}

// Moves by many units take those of a paragraph together.
TextSpan ReadingUnits::WithinParagraph(TextPos position, ReadingUnit unit) {
    const bool known = starts_.unit == unit && position >= starts_.paragraph.start &&
                       position < starts_.paragraph.end;
    if (!known) {
        const TextSpan paragraph = pane_.ReadingParagraph(position);
        if (paragraph.start == paragraph.end) return paragraph;
        const std::u16string text = ReadableText(pane_, paragraph);
        starts_ = {paragraph, unit, StartsOf(unit, text)};
    }
    const TextSpan paragraph = starts_.paragraph;
    const TextPos at = std::min(position, paragraph.end - 1) - paragraph.start;
    const auto after = std::upper_bound(starts_.positions.begin(), starts_.positions.end(), at);
    return {paragraph.start + *(after - 1), paragraph.start + *after};
}

TextPos ReadingUnits::Next(TextPos position, ReadingUnit unit) {
    const TextPos length = pane_.Source().Length();
    if (position >= length) return length;
    return std::clamp(At(position, unit).end, position, length);
}

TextPos ReadingUnits::Previous(TextPos position, ReadingUnit unit) {
    if (position <= 0) return 0;
    if (unit == ReadingUnit::Page) return pane_.ReadingPageStart(position);
    return std::clamp(At(position - 1, unit).start, 0, position);
}

bool ReadingUnits::Exists(TextPos position, ReadingUnit unit) const {
    const TextSource& text = pane_.Source();
    const TextPos length = text.Length();
    if (position < length || length == 0) return true;
    const bool hasEmptyOne = unit == ReadingUnit::Line || unit == ReadingUnit::Paragraph;
    return hasEmptyOne && text.UnitAt(length - 1) == u'\n';
}

ReadingUnits::Move ReadingUnits::MoveBy(TextPos from, ReadingUnit unit, int count) {
    const bool forward = count > 0;
    const std::int64_t asked = std::abs(static_cast<std::int64_t>(count));
    const bool isLaidOut = unit == ReadingUnit::Line || unit == ReadingUnit::Page;
    const std::int64_t maxUnits = isLaidOut ? std::min<std::int64_t>(asked, maxLines) : asked;
    Move move{from, 0};
    while (move.units < maxUnits && std::abs(move.position - from) < maxReadingReach) {
        const TextPos to = forward ? Next(move.position, unit) : Previous(move.position, unit);
        if (to == move.position) break;
        move.position = to;
        ++move.units;
    }
    const TextPos end = forward ? pane_.Source().Length() : 0;
    const TextPos left = std::abs(end - move.position);
    if (left > 0 && asked - move.units >= left) move = {end, move.units + left};
    if (!forward) move.units = -move.units;
    return move;
}

std::u16string ReadableText(const ReadablePane& pane, TextSpan span, TextPos maxLength) {
    const TextPos length = std::min(span.end - span.start, maxLength);
    std::u16string text = pane.Source().Range(span.start, span.start + length);
    const bool isCut = length < span.end - span.start;
    if (isCut && !text.empty() && IsHighSurrogate(text.back()) &&
        IsLowSurrogate(pane.Source().UnitAt(span.start + length)))
        text.pop_back();
    for (char16_t& unit : text) {
        if (unit == u'\v' || unit == 0x2028) unit = u'\n';
        if (unit == u'\a' && pane.HasCellMarks()) unit = u'\t';
        if (unit == 0) unit = 0xFFFD; // would end the text for most of those that read it
    }
    return text;
}

std::u16string ReadingName(const ReadablePane& pane, const ReadingObject& object) {
    constexpr TextPos maxName = 1024; // units
    switch (object.kind) {
    case ReadingObjectKind::Picture: return object.name;
    case ReadingObjectKind::List:
    case ReadingObjectKind::Table:
    case ReadingObjectKind::Row: return {};
    case ReadingObjectKind::Heading:
    case ReadingObjectKind::Link:
    case ReadingObjectKind::ListItem:
    case ReadingObjectKind::Cell: break;
    }
    return object.name.empty() ? ReadableText(pane, object.span, maxName) : object.name;
}
