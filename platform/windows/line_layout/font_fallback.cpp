#include "platform/windows/line_layout/font_fallback.h"

#include "common/utf.h"
#include "platform/windows/line_layout/installed_families.h"
#include "platform/windows/line_layout/script_families.h"

#include <algorithm>

namespace {

constexpr std::size_t maxRemembered = 1 << 16; // characters
constexpr int maxInstalledTried = 16;          // opening one takes a millisecond
constexpr LONG probeHeight = -16;

// Latin letters, punctuation and signs: a font of any script has some of them and says so, a broad
// one has them all. For other scripts fonts of their own come first: Wine 8 reads outside of the
// text that it shapes in some of the broad ones.
bool IsInMostFonts(int subset) {
    constexpr int lastOfLatin = 5, moreLatin = 29, punctuation = 31, dingbats = 47, cjkSigns = 48,
                  ligatures = 62;
    return subset <= lastOfLatin || subset == moreLatin || subset == ligatures ||
           (subset >= punctuation && subset <= dingbats) || subset == cjkSigns;
}

bool ShapesPair(HDC context, ShapingFont& font, char32_t character) {
    const Uniscribe* const uniscribe = LoadUniscribe();
    const wchar_t pair[] = {static_cast<wchar_t>(HighSurrogateOf(character)),
                            static_cast<wchar_t>(LowSurrogateOf(character))};
    constexpr int maxGlyphs = 16;
    SCRIPT_ITEM items[3] = {};
    WORD glyphs[maxGlyphs] = {}, clusters[2] = {};
    SCRIPT_VISATTR attributes[maxGlyphs] = {};
    int itemCount = 0, glyphCount = 0;
    return uniscribe &&
           SUCCEEDED(uniscribe->itemize(pair, 2, 2, nullptr, nullptr, items, &itemCount)) &&
           SUCCEEDED(uniscribe->shape(context, &font.cache, pair, 2, maxGlyphs, &items[0].a, glyphs,
                                      clusters, attributes, &glyphCount)) &&
           std::find(glyphs, glyphs + glyphCount, font.missingGlyph) == glyphs + glyphCount;
}

} // namespace

FontFallback::FontFallback(MeasuringContext& context) : context_(context) {}

const std::wstring& FontFallback::FamilyFor(char32_t character, const std::wstring& family) {
    Chosen& chosen = ChosenFamily(family);
    const auto known = chosen.found.find(character);
    if (known != chosen.found.end()) return known->second;
    if (chosen.found.size() >= maxRemembered) chosen.found.clear();
    return chosen.found[character] = Search(character, chosen);
}

// What is linked to the system's own font knows which of the Chinese and Japanese forms of a
// character the user reads.
FontFallback::Chosen& FontFallback::ChosenFamily(const std::wstring& family) {
    const auto [entry, isNew] = chosen_.try_emplace(family);
    if (!isNew) return entry->second;
    for (const std::wstring& linkedTo :
         {family, std::wstring(L"Segoe UI"), std::wstring(L"Tahoma")})
        for (const std::wstring& each : LinkedFamilies(linkedTo))
            entry->second.linked.push_back(each);
    return entry->second;
}

std::wstring FontFallback::Search(char32_t character, const Chosen& chosen) {
    for (const std::wstring& family : chosen.linked)
        if (Has(family, character)) return family;
    for (const std::wstring& family : FamiliesForScript(character))
        if (Has(family, character)) return family;
    return SearchInstalled(character);
}

std::wstring FontFallback::SearchInstalled(char32_t character) {
    const int subset = UnicodeSubsetOf(character);
    int tried = 0;
    const auto& families = IsInMostFonts(subset) ? BroadFamiliesFirst() : InstalledFamilies();
    for (const InstalledFamily& family : families) {
        if (subset < 0 || !family.HasSubset(subset)) continue;
        if (Has(family.name, character)) return family.name;
        if (++tried == maxInstalledTried) break;
    }
    return {};
}

bool FontFallback::Has(const std::wstring& family, char32_t character) {
    const auto [entry, isNew] = probes_.try_emplace(family);
    ShapingFontPtr& probe = entry->second;
    if (isNew && IsFontInstalled(family.c_str())) {
        LOGFONTW description = {};
        description.lfHeight = probeHeight;
        description.lfCharSet = DEFAULT_CHARSET;
        family.copy(description.lfFaceName, LF_FACESIZE - 1);
        probe = OpenShapingFont(context_, description);
    }
    if (!probe) return false;
    if (character < 0x10000) return HasGlyph(context_, probe, static_cast<wchar_t>(character));
    return ShapesPair(context_.With(probe), *probe, character);
}
