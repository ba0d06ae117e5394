#include "platform/windows/line_layout/text_units.h"

#include "common/text_clusters.h"
#include "common/text_words.h"
#include "platform/windows/line_layout/characters.h"

namespace {

constexpr wchar_t lineSeparator = 0x2028, softHyphen = 0x00AD;
constexpr char16_t objectReplacement = 0xFFFC;

UnitKind KindOf(wchar_t unit) {
    if (unit == L'\t') return UnitKind::Tab;
    if (unit == lineSeparator) return UnitKind::LineBreak;
    if (unit == softHyphen) return UnitKind::SoftHyphen;
    return IsHiddenControl(unit) ? UnitKind::Hidden : UnitKind::Text;
}

void SetKinds(const ParagraphText& paragraph, TextUnits& all) {
    for (std::size_t at = 0; at < all.Size(); ++at) {
        all.units[at].kind = KindOf(all.text[at]);
        all.units[at].isSpace = IsBreakingSpace(static_cast<char16_t>(all.text[at]));
    }
    for (const InlineBox& box : paragraph.boxes)
        if (static_cast<std::size_t>(box.at) < all.Size())
            all.units[static_cast<std::size_t>(box.at)].kind = UnitKind::Box;
}

// Carets, words and breaks are the same on every system, so that a book has the same places.
constexpr char16_t wordJoiner = u'\u2060';

void SetPlaces(std::u16string_view text, TextUnits& all) {
    const auto mark = [&](const std::vector<TextPos>& places, bool TextUnit::*flag) {
        for (const TextPos place : places)
            if (static_cast<std::size_t>(place) < all.Size())
                all.units[static_cast<std::size_t>(place)].*flag = true;
    };
    mark(ClusterStarts(text), &TextUnit::caret);
    mark(WordBoundaries(text), &TextUnit::startsStretch);
    mark(WordStarts(text), &TextUnit::startsWord);
    const std::vector<bool> breaks = LineBreaks(text);
    for (std::size_t at = 1; at < all.Size(); ++at) {
        TextUnit& unit = all.units[at];
        if (!unit.caret) all.units[at - 1].isSpace = false; // it carries a mark, which is seen
        if (unit.caret && IsIgnorable(text[at])) unit.kind = UnitKind::Hidden; // joins nothing
        const bool besideBox =
            unit.kind == UnitKind::Box || all.units[at - 1].kind == UnitKind::Box;
        const bool joined = text[at] == wordJoiner || text[at - 1] == wordJoiner;
        unit.mayBreak = breaks[at] || (besideBox && !joined && unit.caret && !unit.isSpace);
    }
}

// Words of scripts that are written without spaces (Thai, Khmer) are in the system's dictionaries.
void AddWordsOfSystem(TextUnits& all) {
    const Uniscribe* const uniscribe = LoadUniscribe();
    for (std::size_t item = 0; uniscribe && item + 1 < all.items.size(); ++item) {
        const SCRIPT_PROPERTIES* const properties = PropertiesOf(all.items[item].a);
        if (!properties || !properties->fNeedsWordBreaking) continue;
        const auto start = static_cast<std::size_t>(all.items[item].iCharPos);
        const auto end = static_cast<std::size_t>(all.items[item + 1].iCharPos);
        std::vector<SCRIPT_LOGATTR> breaks(end - start);
        uniscribe->breakText(&all.text[start], static_cast<int>(end - start), &all.items[item].a,
                             breaks.data());
        for (std::size_t at = start + 1; at < end; ++at) {
            TextUnit& unit = all.units[at];
            if (!breaks[at - start].fSoftBreak || !unit.caret || unit.isSpace) continue;
            unit.mayBreak = unit.startsStretch = unit.startsWord = true;
        }
    }
}

} // namespace

TextUnits AnalyzeUnits(const ParagraphText& paragraph) {
    std::u16string text = paragraph.text;
    for (const InlineBox& box : paragraph.boxes)
        if (static_cast<std::size_t>(box.at) < text.size())
            text[static_cast<std::size_t>(box.at)] = objectReplacement;
    TextUnits all;
    all.text.assign(text.begin(), text.end());
    all.units.resize(all.text.size());
    all.baseLevel = paragraph.rightToLeft ? 1 : 0;
    SetKinds(paragraph, all);
    ItemizeUnits(all);
    SetPlaces(text, all);
    AddWordsOfSystem(all);
    return all;
}
