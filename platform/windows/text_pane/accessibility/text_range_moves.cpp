// Places of text ranges: copies, comparisons and moves.
#include "platform/windows/text_pane/accessibility/guarded_answer.h"
#include "platform/windows/text_pane/accessibility/text_range.h"

#include <algorithm>

namespace {
// Known to us alone: tells our ranges from others that implement the interface.
constexpr GUID ourRange = {
    0x2d0b9b36, 0x5f0c, 0x4d51, {0x9a, 0x1e, 0x6c, 0x0f, 0x5b, 0x77, 0x31, 0xd8}};

// The system's numbers are in this order.
ReadingUnit UnitOf(TextUnit unit) {
    return static_cast<ReadingUnit>(std::clamp(static_cast<int>(unit), 0, 6));
}
static_assert(static_cast<int>(ReadingUnit::Character) == TextUnit_Character);
static_assert(static_cast<int>(ReadingUnit::Format) == TextUnit_Format);
static_assert(static_cast<int>(ReadingUnit::Word) == TextUnit_Word);
static_assert(static_cast<int>(ReadingUnit::Line) == TextUnit_Line);
static_assert(static_cast<int>(ReadingUnit::Paragraph) == TextUnit_Paragraph);
static_assert(static_cast<int>(ReadingUnit::Page) == TextUnit_Page);
static_assert(static_cast<int>(ReadingUnit::Document) == TextUnit_Document);

TextPos EndpointOf(TextSpan span, TextPatternRangeEndpoint endpoint) {
    return endpoint == TextPatternRangeEndpoint_Start ? span.start : span.end;
}
} // namespace

TextRange::TextRange(TextProvider& provider, TextSpan span) : provider_(&provider), span_(span) {}

HRESULT TextRange::QueryInterface(REFIID id, void** found) noexcept {
    if (found && id == ourRange) {
        *found = this;
        AddRef();
        return S_OK;
    }
    return FindInterface<ITextRangeProvider>(this, id, found);
}

const TextRange* TextRange::OursOf(ITextRangeProvider* range) const {
    void* found = nullptr;
    if (!range || FAILED(range->QueryInterface(ourRange, &found))) return nullptr;
    const auto* ours = static_cast<TextRange*>(found);
    range->Release(); // the caller has one, too
    return ours->provider_.Get() == provider_.Get() ? ours : nullptr;
}

TextSpan TextRange::In(const ReadablePane& pane) const {
    const TextPos length = pane.Source().Length();
    return {std::clamp(span_.start, 0, length), std::clamp(span_.end, 0, length)};
}

void TextRange::SetEndpoint(TextPatternRangeEndpoint endpoint, TextPos position) {
    if (endpoint == TextPatternRangeEndpoint_Start)
        span_ = {position, std::max(span_.end, position)};
    else
        span_ = {std::min(span_.start, position), position};
}

HRESULT TextRange::Clone(ITextRangeProvider** clone) noexcept {
    return GiveAnswer(provider_->Pane(), clone, [&](ReadablePane&) {
        *clone = new TextRange(*provider_.Get(), span_);
        return S_OK;
    });
}

HRESULT TextRange::Compare(ITextRangeProvider* range, BOOL* same) noexcept {
    return GiveAnswer(provider_->Pane(), same, [&](ReadablePane& pane) {
        const TextRange* other = OursOf(range);
        if (!other) return S_OK;
        const TextSpan mine = In(pane), its = other->In(pane);
        *same = mine.start == its.start && mine.end == its.end;
        return S_OK;
    });
}

HRESULT TextRange::CompareEndpoints(TextPatternRangeEndpoint endpoint, ITextRangeProvider* range,
                                    TextPatternRangeEndpoint itsEndpoint,
                                    int* difference) noexcept {
    return GiveAnswer(provider_->Pane(), difference, [&](ReadablePane& pane) {
        const TextRange* other = OursOf(range);
        if (!other) return E_INVALIDARG;
        *difference = EndpointOf(In(pane), endpoint) - EndpointOf(other->In(pane), itsEndpoint);
        return S_OK;
    });
}

HRESULT TextRange::ExpandToEnclosingUnit(TextUnit unit) noexcept {
    return AnswerOf(provider_->Pane(), [&](ReadablePane& pane) {
        span_ = ReadingUnits(pane).At(In(pane).start, UnitOf(unit));
        return S_OK;
    });
}

// An empty range stays one; another becomes the unit that it comes to.
HRESULT TextRange::Move(TextUnit systemUnit, int count, int* moved) noexcept {
    return GiveAnswer(provider_->Pane(), moved, [&](ReadablePane& pane) {
        const ReadingUnit unit = UnitOf(systemUnit);
        ReadingUnits units(pane);
        const TextSpan span = In(pane);
        const bool isEmpty = span.start == span.end;
        if (count == 0) return S_OK;
        const TextPos from = isEmpty ? span.start : units.At(span.start, unit).start;
        ReadingUnits::Move move = units.MoveBy(from, unit, count);
        if (!isEmpty && move.units > 0 && !units.Exists(move.position, unit)) {
            move.position = units.Previous(move.position, unit);
            --move.units;
        }
        *moved = move.units;
        span_ = isEmpty ? TextSpan{move.position, move.position} : units.At(move.position, unit);
        return S_OK;
    });
}

HRESULT TextRange::MoveEndpointByUnit(TextPatternRangeEndpoint endpoint, TextUnit unit, int count,
                                      int* moved) noexcept {
    return GiveAnswer(provider_->Pane(), moved, [&](ReadablePane& pane) {
        span_ = In(pane);
        const auto move =
            ReadingUnits(pane).MoveBy(EndpointOf(span_, endpoint), UnitOf(unit), count);
        *moved = move.units;
        SetEndpoint(endpoint, move.position);
        return S_OK;
    });
}

HRESULT TextRange::MoveEndpointByRange(TextPatternRangeEndpoint endpoint, ITextRangeProvider* range,
                                       TextPatternRangeEndpoint itsEndpoint) noexcept {
    return AnswerOf(provider_->Pane(), [&](ReadablePane& pane) {
        const TextRange* other = OursOf(range);
        if (!other) return E_INVALIDARG;
        span_ = In(pane);
        SetEndpoint(endpoint, EndpointOf(other->In(pane), itsEndpoint));
        return S_OK;
    });
}
