#include "platform/windows/line_layout/glyph_runs.h"

#include "common/unicode.h"
#include "platform/windows/base/wine.h"
#include "platform/windows/line_layout/characters.h"

#include <algorithm>

namespace {

// Long runs are shaped in parts, if possible between words, so that one takes no more than linear
// time.
constexpr std::size_t maxRun = 1'024; // units

std::size_t EndOfPart(const TextUnits& text, std::size_t start, std::size_t end) {
    if (end - start <= maxRun) return end;
    std::size_t caret = 0;
    for (std::size_t at = start + maxRun; at > start + maxRun / 2; --at) {
        if (text.units[at - 1].isSpace && text.units[at].caret) return at;
        if (text.units[at].caret && caret == 0) caret = at;
    }
    return caret != 0 ? caret : start + maxRun;
}

// A font for each unit at which it changes.
std::size_t EndOfFont(const ParagraphText& paragraph, std::size_t& run, std::size_t at,
                      std::size_t end, ShapingFontPtr& font) {
    const auto styleOf = [&](std::size_t index) {
        return static_cast<const WinStyle&>(*paragraph.runs[index].style).font;
    };
    const auto startOf = [&](std::size_t index) {
        return static_cast<std::size_t>(paragraph.runs[index].start);
    };
    while (run + 1 < paragraph.runs.size() && startOf(run + 1) <= at)
        ++run;
    font = styleOf(run);
    std::size_t next = run + 1;
    while (next < paragraph.runs.size() && startOf(next) < end && styleOf(next) == font)
        ++next; // another style in the same font is shaped with it: letters join across colours
    return next < paragraph.runs.size() ? std::min(end, startOf(next)) : end;
}

bool HasPair(const TextUnits& text, std::size_t at, std::size_t end) {
    const std::size_t start = at;
    for (; at < end && (at == start || !text.units[at].caret); ++at)
        if (CharacterAt(text.text, at) >= 0x10000) return true;
    return false;
}

// Characters in two units, as emoji, are the same in both directions. Wine 8 makes two glyphs of
// one that goes from right to left, and writes after its memory.
bool StandsAlone(const TextUnits& text, const GlyphRun& run, std::size_t at) {
    if (!run.IsRightToLeft() || !HasPair(text, at, run.end)) return false;
    return StrongDirection(CharacterAt(text.text, at)) != Direction::RightToLeft || RunsUnderWine();
}

// One character that stands alone, or all up to the next one that does.
void SeparateCharacter(const TextUnits& text, GlyphRun& run) {
    const bool standsAlone = StandsAlone(text, run, run.start);
    const bool alone = standsAlone || BeginsWithLostMark(text, run);
    std::size_t end = run.start + 1;
    while (end < run.end && !(text.units[end].caret && (alone || StandsAlone(text, run, end))))
        ++end;
    run.end = end;
    if (standsAlone) run.analysis.fRTL = 0;
}

// Syllables of Indic scripts are not divided, and no line begins within a ligature.
void FitUnitsToClusters(const GlyphRun& run, TextUnits& text) {
    const SCRIPT_PROPERTIES* const properties = PropertiesOf(run.analysis);
    const bool restricted = properties && properties->fNeedsCaretInfo;
    for (std::size_t at = run.start + 1; at < run.end; ++at) {
        if (run.StartsCluster(at)) continue;
        TextUnit& unit = text.units[at];
        unit.mayBreak = false;
        unit.inLigature = true;
        if (!restricted) continue;
        unit.caret = unit.startsStretch = unit.startsWord = false;
    }
}

// The characters of a ligature have equal parts of it.
void DivideCluster(const TextUnits& text, std::size_t start, std::size_t end, int width,
                   std::vector<int>& widths) {
    int characters = 1;
    for (std::size_t at = start + 1; at < end; ++at)
        characters += text.units[at].caret;
    std::size_t character = start;
    for (int done = 0, given = 0; done < characters; ++done) {
        const int until = width * (done + 1) / characters;
        widths[character] = until - given;
        given = until;
        do
            ++character;
        while (character < end && !text.units[character].caret);
    }
}

void SetWidths(const GlyphRun& run, const TextUnits& text, std::vector<int>& widths) {
    for (std::size_t at = run.start; at < run.end;) {
        const std::size_t next = NextCluster(run, at);
        const GlyphSpan glyphs = GlyphsOf(run, at, next);
        int width = 0;
        for (std::size_t glyph = glyphs.first; glyph < glyphs.end; ++glyph)
            width += run.advances[glyph];
        DivideCluster(text, at, next, width, widths);
        at = next;
    }
}

} // namespace

ShapedText ShapeText(WinFonts& fonts, const ParagraphText& paragraph, TextUnits& text) {
    ShapedText shaped;
    shaped.widths.assign(text.Size(), 0);
    std::size_t style = 0;
    for (std::size_t item = 0; item + 1 < text.items.size(); ++item) {
        const auto itemEnd = static_cast<std::size_t>(text.items[item + 1].iCharPos);
        for (auto at = static_cast<std::size_t>(text.items[item].iCharPos); at < itemEnd;) {
            std::size_t end = at;
            while (end < itemEnd && text.units[end].kind == UnitKind::Text)
                ++end;
            if (end == at) { // no glyphs
                ++at;
                continue;
            }
            GlyphRun run;
            end = EndOfFont(paragraph, style, at, end, run.font);
            run.start = at;
            run.end = EndOfPart(text, at, end);
            run.analysis = text.items[item].a;
            SeparateCharacter(text, run);
            at = run.end;
            ShapeWithFallback(fonts, text, std::move(run), shaped.runs);
        }
    }
    for (const GlyphRun& run : shaped.runs) {
        FitUnitsToClusters(run, text);
        SetWidths(run, text, shaped.widths);
    }
    SpaceText(paragraph, text, shaped);
    return shaped;
}

void ChangeWidth(ShapedText& shaped, std::size_t unit, int width) {
    const auto run =
        std::upper_bound(shaped.runs.begin(), shaped.runs.end(), unit,
                         [](std::size_t at, const GlyphRun& each) { return at < each.end; });
    if (run == shaped.runs.end() || unit < run->start) return;
    const GlyphSpan glyphs = GlyphsOf(*run, unit, unit + 1);
    if (glyphs.end != glyphs.first + 1) return;
    run->advances[glyphs.first] += width - shaped.widths[unit];
    shaped.widths[unit] = width;
}
