#include "view/page/inline_writer.h"

#include "common/find_text.h"
#include "common/text.h"
#include "formats/html/html_units.h"
#include "view/layout_cost.h"
#include "view/page/browser_breaks.h"
#include "view/page/text_alignment.h"
#include "view/page/text_case.h"
#include "view/page/text_cut.h"

#include <algorithm>
#include <utility>

namespace {
constexpr char16_t lineSeparator = u'\u2028', objectReplacement = u'\uFFFC';
// None of the page's text: it keeps a line from breaking.
constexpr char16_t wordJoiner = u'\u2060';
// Nor is this, after which a line may break.
constexpr char16_t zeroWidthSpace = u'\u200B';

bool Wraps(CssWhiteSpace whiteSpace) {
    return whiteSpace != CssWhiteSpace::NoWrap && whiteSpace != CssWhiteSpace::Pre;
}

bool GoesOn(const InlineOrigin& before, const InlineOrigin& origin) {
    const auto distance = std::uint32_t(origin.start - before.start);
    return before.node == origin.node &&
           (origin.node == noHtmlNode || before.unit + distance == origin.unit);
}

// In the place of one that begins there, or after it by a space that went.
template <typename Run, typename Equal>
void AddRun(std::vector<Run>& runs, Run run, Equal equal) {
    if (runs.back().start >= run.start)
        runs.back() = std::move(run);
    else if (!equal(runs.back(), run))
        runs.push_back(std::move(run));
}
} // namespace

InlineWriter::InlineWriter(PageFonts& fonts, const CssInheritedStyle& style) : fonts_(fonts) {
    Content().strut = fonts_.Of(style);
    Content().strutLineHeight = fonts_.LineHeight(style);
    Content().xHeight = fonts_.Pixels(style.fontSize) / 2;
    Content().text.rightToLeft = style.direction == CssDirection::RightToLeft;
    Content().wraps = Wraps(style.whiteSpace);
    Content().alignment = AlignmentOf(style);
    Content().text.tabDistance = fonts_.TabDistance(style);
    Content().text.runs = {{0, Content().strut}};
    Content().runs = {{0, Content().strut, Content().strutLineHeight, 0}};
}

void InlineWriter::AddControls(std::u16string_view controls) {
    for (const char16_t control : controls)
        AddUnit(control, 0);
}

void InlineWriter::AddBreak(std::size_t unit) {
    RemoveTrailingSpace();
    AddUnit(lineSeparator, unit);
    whiteSpaceEnds_ = true;
}

// One that stands for a unit of the node that is read.
void InlineWriter::AddUnit(char16_t shown, std::size_t unit) {
    auto& origins = Content().origins;
    const InlineOrigin origin{Length(), node_, std::uint32_t(unit)};
    if (origins.empty() || !GoesOn(origins.back(), origin)) origins.push_back(origin);
    Text() += shown;
}

void InlineWriter::AddText(std::u16string_view text, const CssInheritedStyle& style,
                           const TextPlace& place, std::size_t from) {
    StartRun(style, place, false);
    const TextPos start = Length();
    const bool keepsSpaces = KeepsSpaces(style.whiteSpace);
    const bool keepsBreaks = KeepsBreaks(style.whiteSpace);
    const bool wraps = WrapsIn(style);
    for (std::size_t i = from; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit == u'\n' && keepsBreaks) {
            if (keepsSpaces)
                AddUnit(lineSeparator, i);
            else
                AddBreak(i);
            whiteSpaceEnds_ = true;
        } else if (!keepsSpaces && IsHtmlSpace(unit)) {
            if (!whiteSpaceEnds_) AddSpace(i, wraps);
            whiteSpaceEnds_ = true;
        } else {
            if (wraps)
                ChangeBreak(unit);
            else if (i > from)
                JoinWords(unit);
            AddLetter(unit, i, style, place);
            whiteSpaceEnds_ = false;
        }
    }
    if (style.visibility != CssVisibility::Visible) Hide(start);
}

// One that a line does not break after is a space like any other where lines are justified.
void InlineWriter::AddSpace(std::size_t unit, bool wraps) {
    AddUnit(u' ', unit);
    if (!wraps) AddOwnUnit(wordJoiner);
}

// None of the page's.
void InlineWriter::AddOwnUnit(char16_t unit) {
    const HtmlNodeId node = std::exchange(node_, noHtmlNode);
    AddUnit(unit, 0);
    node_ = node;
}

void InlineWriter::ChangeBreak(char16_t next) {
    const std::u16string_view text = Text();
    if (!content_->wraps || text.empty()) return;
    const char16_t before = text.size() > 1 ? text[text.size() - 2] : u'\0';
    const BreakChange change = BreakChangeAt(before, text.back(), next);
    if (change == BreakChange::Join) AddOwnUnit(wordJoiner);
    if (change == BreakChange::Break) AddOwnUnit(zeroWidthSpace);
}

void InlineWriter::AddGap(int width, bool isStart) {
    node_ = noHtmlNode;
    if (!whiteSpaceEnds_) AddUnit(wordJoiner, 0);
    Content().text.boxes.push_back({Length(), width});
    AddUnit(objectReplacement, 0);
    if (isStart) AddUnit(wordJoiner, 0);
}

TextPos InlineWriter::AddObject(const CssInheritedStyle& block, HtmlNodeId node, bool joinsBefore,
                                bool joinsAfter) {
    StartRun(block, {}, false);
    if (joinsBefore && !Text().empty() && Text().back() != u' ') AddUnit(wordJoiner, 0);
    node_ = node;
    const TextPos at = Length();
    AddUnit(objectReplacement, 0);
    node_ = noHtmlNode;
    if (joinsAfter) AddUnit(wordJoiner, 0);
    whiteSpaceEnds_ = false;
    return at;
}

void InlineWriter::Hide(TextPos start) {
    auto& hidden = Content().hidden;
    if (start >= Length()) return;
    if (!hidden.empty() && hidden.back().end >= start)
        hidden.back().end = Length();
    else
        hidden.push_back({start, Length()});
}

bool InlineWriter::WrapsIn(const CssInheritedStyle& style) const {
    return !content_->wraps || Wraps(style.whiteSpace);
}

void InlineWriter::AddLetter(char16_t unit, std::size_t number, const CssInheritedStyle& style,
                             const TextPlace& place) {
    char16_t shown = TransformedUnit(unit, style.textTransform, Text());
    if (style.fontCaps == CssFontCaps::Small) {
        const char16_t capital = FoldCase(shown);
        StartRun(style, place, capital != shown);
        shown = capital;
    }
    AddUnit(shown, number);
}

void InlineWriter::StartRun(const CssInheritedStyle& style, const TextPlace& place,
                            bool smallCapital) {
    const PageTextUse use{place.raise + place.shift, smallCapital, place.background};
    AddRun(Content().text.runs, StyledRun{Length(), fonts_.Of(style, use)},
           [](const StyledRun& a, const StyledRun& b) { return a.style == b.style; });
    AddRun(Content().runs,
           InlineRun{Length(), fonts_.Of(style), fonts_.LineHeight(style), place.raise},
           [](const InlineRun& a, const InlineRun& b) {
               return a.font == b.font && a.lineHeight == b.lineHeight && a.raise == b.raise;
           });
}

// Where a line could break between two that are no letters of a word.
void InlineWriter::JoinWords(char16_t next) {
    const auto isLetter = [](char16_t unit) { return unit < 0x250 && IsWordUnit(unit); };
    const char16_t before = Text().empty() ? u' ' : Text().back();
    if (before == u' ' || before == wordJoiner || (isLetter(before) && isLetter(next))) return;
    AddOwnUnit(wordJoiner);
}

void InlineWriter::RemoveTrailingSpace() {
    std::u16string_view text = Text();
    if (!whiteSpaceEnds_ || text.empty()) return;
    if (text.back() == wordJoiner) text.remove_suffix(1);
    if (text.empty() || text.back() != u' ') return;
    Text().erase(text.size() - 1);
    auto& origins = Content().origins;
    while (!origins.empty() && origins.back().start >= Length())
        origins.pop_back();
}

// Ends of isolated elements after the last break, where they would be a line.
void InlineWriter::RemoveControlsAfterBreak() {
    const std::size_t last = Text().find_last_not_of(u"\u2069\u202C");
    if (last == std::u16string::npos || Text()[last] != lineSeparator) return;
    Text().erase(last + 1);
    const TextPos length = Length();
    std::erase_if(Content().origins,
                  [&](const InlineOrigin& each) { return each.start >= length; });
    for (InlineDecoration& each : Content().decorations) {
        each.start = std::min(each.start, length);
        each.end = std::min(each.end, length);
    }
    for (auto& each : Content().hidden)
        each.end = std::min(each.end, length);
}

std::shared_ptr<InlineContent> InlineWriter::Finish() {
    RemoveTrailingSpace();
    RemoveControlsAfterBreak();
    TruncateClusters(Text());
    return std::move(content_);
}
