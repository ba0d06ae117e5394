#include "platform/windows/line_layout/text_units.h"

#include "platform/windows/line_layout/characters.h"

#include <algorithm>

namespace {

constexpr wchar_t lineSeparator = 0x2028, softHyphen = 0x00AD, objectReplacement = 0xFFFC;

UnitKind KindOf(wchar_t unit) {
    if (unit == L'\t') return UnitKind::Tab;
    if (unit == lineSeparator) return UnitKind::LineBreak;
    if (unit == softHyphen) return UnitKind::SoftHyphen;
    return IsHiddenControl(unit) ? UnitKind::Hidden : UnitKind::Text;
}

void SetKinds(const ParagraphText& paragraph, TextUnits& all) {
    for (std::size_t at = 0; at < all.Size(); ++at) {
        all.units[at].kind = KindOf(all.text[at]);
        all.units[at].isSpace = IsBreakingSpace(all.text[at]);
    }
    for (const InlineBox& box : paragraph.boxes) {
        const auto at = static_cast<std::size_t>(box.at);
        if (at >= all.Size()) continue;
        all.text[at] = objectReplacement;
        all.units[at].kind = UnitKind::Box;
        all.units[at].isSpace = false;
    }
}

// One item for all of it when the system gives none.
ScriptItems Itemize(const Uniscribe* uniscribe, const TextUnits& all) {
    const int length = static_cast<int>(all.Size());
    SCRIPT_ITEM first = {}, end = {};
    first.a.fRTL = all.baseLevel & 1;
    first.a.s.uBidiLevel = all.baseLevel & 1;
    end.iCharPos = length;
    if (!uniscribe || length == 0) return {first, end};
    SCRIPT_CONTROL control = {};
    SCRIPT_STATE state = {};
    state.uBidiLevel = all.baseLevel & 1;
    ScriptItems items(static_cast<std::size_t>(length) / 8 + 16);
    for (;;) {
        int count = 0; // without the last one, which stands at the end
        const HRESULT result =
            uniscribe->itemize(all.text.data(), length, static_cast<int>(items.size()) - 1,
                               &control, &state, items.data(), &count);
        if (SUCCEEDED(result)) {
            items.resize(static_cast<std::size_t>(count) + 1);
            return items;
        }
        if (result != E_OUTOFMEMORY || items.size() > all.Size() + 2) return {first, end};
        items.resize(items.size() * 2);
    }
}

void SetLevels(TextUnits& all) {
    for (std::size_t item = 0; item + 1 < all.items.size(); ++item)
        for (int at = all.items[item].iCharPos; at < all.items[item + 1].iCharPos; ++at) {
            TextUnit& unit = all.units[static_cast<std::size_t>(at)];
            const bool separates = unit.kind == UnitKind::Tab || unit.kind == UnitKind::LineBreak;
            unit.level = separates ? all.baseLevel
                                   : static_cast<std::uint8_t>(all.items[item].a.s.uBidiLevel);
        }
}

// What the system says of each unit; within items, as it wants them.
std::vector<SCRIPT_LOGATTR> SystemBreaks(const Uniscribe* uniscribe, const TextUnits& all) {
    SCRIPT_LOGATTR none = {};
    none.fCharStop = 1;
    std::vector<SCRIPT_LOGATTR> breaks(all.Size(), none);
    if (!uniscribe || breaks.empty()) return breaks;
    for (std::size_t item = 0; item + 1 < all.items.size(); ++item) {
        const int start = all.items[item].iCharPos;
        uniscribe->breakText(all.text.data() + start, all.items[item + 1].iCharPos - start,
                             &all.items[item].a, breaks.data() + start);
        breaks[static_cast<std::size_t>(start)].fSoftBreak = 0; // without what stands before it
    }
    return breaks;
}

bool IsRegionalIndicator(char32_t character) {
    return character >= 0x1F1E6 && character <= 0x1F1FF;
}

void SetCarets(const std::vector<SCRIPT_LOGATTR>& system, TextUnits& all) {
    bool endsFlag = false; // two indicators of a region are one flag
    for (std::size_t at = 1; at < all.Size(); ++at) {
        TextUnit& unit = all.units[at];
        const bool beginsPiece =
            unit.kind != UnitKind::Text || all.units[at - 1].kind != UnitKind::Text;
        const char32_t before = CharacterBefore(all.text, at), after = CharacterAt(all.text, at);
        const bool inPair =
            before >= 0xD800 && before <= 0xDBFF && after >= 0xDC00 && after <= 0xDFFF;
        const bool inFlag = IsRegionalIndicator(before) && IsRegionalIndicator(after) && !endsFlag;
        unit.caret =
            !inPair &&
            (beginsPiece || (system[at].fCharStop && !inFlag && !JoinsInCharacter(before, after)));
        if (!inPair) endsFlag = inFlag;
    }
}

// As of a number below zero, or a line of a dialogue.
bool IsLeadingHyphen(const TextUnits& all, std::size_t at) {
    return (all.text[at] == L'-' || all.text[at] == 0x2010) &&
           (at == 0 || all.units[at - 1].isSpace || all.units[at - 1].kind != UnitKind::Text);
}

void SetBreaks(const std::vector<SCRIPT_LOGATTR>& system, TextUnits& all) {
    for (std::size_t at = 1; at < all.Size(); ++at) {
        TextUnit& unit = all.units[at];
        if (!unit.caret || IsLeadingHyphen(all, at - 1)) continue;
        const UnitKind before = all.units[at - 1].kind;
        const bool besideGap = unit.kind == UnitKind::Tab || before == UnitKind::Tab ||
                               unit.kind == UnitKind::Box || before == UnitKind::Box;
        const BreakRule rule =
            BreakBetween(CharacterBefore(all.text, at), CharacterAt(all.text, at));
        unit.mayBreak = unit.kind != UnitKind::LineBreak && !unit.isSpace &&
                        (besideGap || rule == BreakRule::Allowed ||
                         (rule == BreakRule::AsTheSystemSays && system[at].fSoftBreak));
    }
}

} // namespace

TextUnits AnalyzeUnits(const ParagraphText& paragraph) {
    const Uniscribe* const uniscribe = LoadUniscribe();
    TextUnits all;
    all.text.assign(paragraph.text.begin(), paragraph.text.end());
    all.units.resize(all.text.size());
    all.baseLevel = paragraph.rightToLeft ? 1 : 0;
    SetKinds(paragraph, all);
    all.items = Itemize(uniscribe, all);
    SetLevels(all);
    const std::vector<SCRIPT_LOGATTR> system = SystemBreaks(uniscribe, all);
    SetCarets(system, all);
    SetBreaks(system, all);
    MarkWords(all);
    return all;
}
