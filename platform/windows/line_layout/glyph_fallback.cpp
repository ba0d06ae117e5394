#include "platform/windows/line_layout/characters.h"
#include "platform/windows/line_layout/glyph_runs.h"

#include <algorithm>

namespace {

// Units of one family; "" is the chosen font.
struct Stretch {
    std::size_t start = 0, end = 0;
    std::wstring family;
};

bool IsInFont(WinFonts& fonts, const ShapingFontPtr& font, char32_t character) {
    return character < 0x10000 && HasGlyph(fonts.Context(), font, static_cast<wchar_t>(character));
}

// For which the others are asked: the first one of a cluster that the font does not have.
char32_t LackingCharacter(WinFonts& fonts, const TextUnits& text, const GlyphRun& run,
                          std::size_t start, std::size_t end) {
    for (std::size_t at = start; at < end; ++at) {
        const char32_t character = CharacterAt(text.text, at);
        const bool low = IsLowSurrogate(static_cast<char16_t>(text.text[at]));
        if (!low && !IsIgnorable(character) && !IsInFont(fonts, run.font, character))
            return character;
    }
    return CharacterAt(text.text, start);
}

std::size_t NextCaret(const TextUnits& text, const GlyphRun& run, std::size_t unit) {
    do
        ++unit;
    while (unit < run.end && !text.units[unit].caret);
    return unit;
}

// `shaped` is false if the run has no glyphs to look at.
std::vector<Stretch> Divide(WinFonts& fonts, const TextUnits& text, const GlyphRun& run,
                            bool shaped) {
    std::vector<Stretch> stretches;
    for (std::size_t at = run.start; at < run.end;) {
        const std::size_t next = shaped ? NextCluster(run, at) : NextCaret(text, run, at);
        std::wstring family;
        if (!shaped || LacksGlyph(run, at, next))
            family = fonts.Fallback().FamilyFor(LackingCharacter(fonts, text, run, at, next),
                                                run.font->Family());
        // Spaces stand in the font of the text before them, so that it is shaped as one.
        const bool continues = !stretches.empty() && text.units[at].isSpace;
        if (!stretches.empty() && (continues || stretches.back().family == family))
            stretches.back().end = next;
        else
            stretches.push_back({at, next, std::move(family)});
        at = next;
    }
    return stretches;
}

// Without the rules of its script, where the font has none.
void ShapeInAnyCase(WinFonts& fonts, const TextUnits& text, GlyphRun& run) {
    if (ShapeRun(fonts.Context(), text, run)) return;
    run.analysis.eScript = SCRIPT_UNDEFINED;
    if (ShapeRun(fonts.Context(), text, run)) return;
    run.glyphs.clear();
    run.attributes.clear();
    run.clusters.assign(run.end - run.start, 0);
}

} // namespace

bool LacksGlyph(const GlyphRun& run, std::size_t start, std::size_t end) {
    const GlyphSpan glyphs = GlyphsOf(run, start, end);
    const auto first = run.glyphs.begin();
    return std::find(first + static_cast<std::ptrdiff_t>(glyphs.first),
                     first + static_cast<std::ptrdiff_t>(glyphs.end),
                     run.font->missingGlyph) != first + static_cast<std::ptrdiff_t>(glyphs.end);
}

void ShapeWithFallback(WinFonts& fonts, const TextUnits& text, GlyphRun run,
                       std::vector<GlyphRun>& runs) {
    const GlyphRun unshaped = run;
    const bool shaped = ShapeRun(fonts.Context(), text, run);
    if (shaped && !LacksGlyph(run, run.start, run.end)) {
        runs.push_back(std::move(run));
        return;
    }
    for (const Stretch& stretch : Divide(fonts, text, run, shaped)) {
        GlyphRun part = unshaped;
        part.start = stretch.start;
        part.end = stretch.end;
        if (!stretch.family.empty()) part.font = fonts.WithFamily(*run.font, stretch.family);
        ShapeInAnyCase(fonts, text, part);
        runs.push_back(std::move(part));
    }
}
