#include "common/text_characters.h"
#include "platform/windows/line_layout/text_units.h"

namespace {

constexpr wchar_t zeroWidthSpace = 0x200B, graphemeJoiner = 0x034F;

// Two kinds of characters are replaced by another one that is not seen and has no direction. A
// control character takes the space after it into its item, in which no space has a width. Of zero
// width spaces in a row all but the first: Wine 8 looks back over all of them from each one, and a
// paragraph cut down to a few of a letter's marks may have thousands.
std::wstring TextToItemize(const TextUnits& all) {
    std::wstring text = all.text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isRepeated =
            at > 0 && all.text[at] == zeroWidthSpace && all.text[at - 1] == zeroWidthSpace;
        const bool isControl = IsControlCode(all.text[at]) && all.text[at] != L'\t';
        if (isRepeated || isControl) text[at] = graphemeJoiner;
    }
    return text;
}

// One item for all of it when the system gives none.
ScriptItems Itemize(const Uniscribe* uniscribe, const TextUnits& all) {
    const int length = static_cast<int>(all.Size());
    SCRIPT_ITEM first = {}, end = {};
    first.a.fRTL = all.baseLevel & 1;
    first.a.s.uBidiLevel = all.baseLevel & 1;
    end.iCharPos = length;
    if (!uniscribe || length == 0) return {first, end};
    SCRIPT_CONTROL control = {}; // without both of these there are no directions
    SCRIPT_STATE state = {};
    state.uBidiLevel = all.baseLevel & 1;
    const std::wstring text = TextToItemize(all);
    ScriptItems items(static_cast<std::size_t>(length) / 8 + 16);
    for (;;) {
        int count = 0; // without the last one
        const HRESULT result =
            uniscribe->itemize(text.data(), length, static_cast<int>(items.size()) - 1, &control,
                               &state, items.data(), &count);
        if (SUCCEEDED(result)) {
            items.resize(static_cast<std::size_t>(count) + 1);
            return items;
        }
        if (result != E_OUTOFMEMORY || items.size() > all.Size() + 2) return {first, end};
        items.resize(items.size() * 2);
    }
}

// What divides a line, and spaces in front of a tab, have the paragraph's direction.
void ResetSeparators(TextUnits& all) {
    bool inFront = false;
    for (std::size_t at = all.Size(); at-- > 0;) {
        TextUnit& unit = all.units[at];
        const bool separates = unit.kind == UnitKind::Tab || unit.kind == UnitKind::LineBreak;
        inFront = separates || (inFront && unit.isSpace);
        if (inFront) unit.level = all.baseLevel;
    }
}

} // namespace

void ItemizeUnits(TextUnits& all) {
    all.items = Itemize(LoadUniscribe(), all);
    for (std::size_t item = 0; item + 1 < all.items.size(); ++item)
        for (int at = all.items[item].iCharPos; at < all.items[item + 1].iCharPos; ++at)
            all.units[static_cast<std::size_t>(at)].level =
                static_cast<std::uint8_t>(all.items[item].a.s.uBidiLevel);
    ResetSeparators(all);
}

const SCRIPT_PROPERTIES* PropertiesOf(const SCRIPT_ANALYSIS& analysis) {
    const SCRIPT_PROPERTIES** properties = nullptr;
    int count = 0;
    const Uniscribe* const uniscribe = LoadUniscribe();
    if (!uniscribe || FAILED(uniscribe->scriptProperties(&properties, &count))) return nullptr;
    return analysis.eScript < count ? properties[analysis.eScript] : nullptr;
}
