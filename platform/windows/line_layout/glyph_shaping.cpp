#include "common/unicode.h"
#include "platform/windows/line_layout/characters.h"
#include "platform/windows/line_layout/glyph_runs.h"

#include <algorithm>

namespace {

// Glyphs of nothing, when the system has failed: the text keeps its places.
void MakeEmptyGlyphs(GlyphRun& run) {
    const std::size_t length = run.end - run.start;
    run.analysis.fRTL = 0;
    run.glyphs.assign(length, run.font->blankGlyph);
    run.attributes.assign(length, SCRIPT_VISATTR{});
    run.clusters.resize(length);
    for (std::size_t at = 0; at < length; ++at)
        run.clusters[at] = static_cast<WORD>(at);
}

HRESULT FindGlyphs(HDC context, const TextUnits& text, GlyphRun& run) {
    const Uniscribe* const uniscribe = LoadUniscribe();
    if (!uniscribe) return E_NOTIMPL;
    const std::size_t length = run.end - run.start;
    constexpr std::size_t maxGlyphs = 0xFFFF; // an index is 16 bits wide
    run.clusters.resize(length);
    // Wine 8 puts a circle under each mark of Thai or an Indic script that has no letter, and asks
    // for no room for it.
    for (std::size_t room = length * 3 + 16;; room *= 2) {
        room = std::min(room, maxGlyphs);
        run.glyphs.resize(room);
        run.attributes.resize(room);
        int count = 0;
        const HRESULT result =
            uniscribe->shape(context, &run.font->cache, text.text.data() + run.start,
                             static_cast<int>(length), static_cast<int>(room), &run.analysis,
                             run.glyphs.data(), run.clusters.data(), run.attributes.data(), &count);
        run.glyphs.resize(SUCCEEDED(result) ? static_cast<std::size_t>(count) : 0);
        run.attributes.resize(run.glyphs.size());
        if (result != E_OUTOFMEMORY || room == maxGlyphs) return result;
    }
}

// Of a character that is not seen when no font has it.
void HideIgnorable(const TextUnits& text, GlyphRun& run) {
    for (std::size_t at = run.start; at < run.end; ++at) {
        if (!run.StartsCluster(at) || !IsIgnorable(CharacterAt(text.text, at))) continue;
        const GlyphSpan glyphs = GlyphsOf(run, at, NextCluster(run, at));
        for (std::size_t glyph = glyphs.first; glyph < glyphs.end; ++glyph) {
            if (run.glyphs[glyph] != run.font->missingGlyph) continue;
            run.glyphs[glyph] = run.font->blankGlyph;
            run.attributes[glyph].fZeroWidth = 1;
        }
    }
}

void PlaceGlyphs(HDC context, GlyphRun& run) {
    run.advances.assign(run.glyphs.size(), 0);
    run.offsets.assign(run.glyphs.size(), GOFFSET{});
    const Uniscribe* const uniscribe = LoadUniscribe();
    if (!uniscribe || run.glyphs.empty()) return;
    ABC extent = {};
    uniscribe->place(context, &run.font->cache, run.glyphs.data(),
                     static_cast<int>(run.glyphs.size()), run.attributes.data(), &run.analysis,
                     run.advances.data(), run.offsets.data(), &extent);
    for (std::size_t glyph = 0; glyph < run.glyphs.size(); ++glyph) {
        int& advance = run.advances[glyph];
        if (run.glyphs[glyph] == run.font->blankGlyph && run.attributes[glyph].fZeroWidth)
            advance = 0;
        advance = std::max(0, advance);
    }
}

} // namespace

std::size_t NextCluster(const GlyphRun& run, std::size_t unit) {
    do
        ++unit;
    while (unit < run.end && !run.StartsCluster(unit));
    return unit;
}

// The number of a cluster is that of its first glyph in the order of the text.
GlyphSpan GlyphsOf(const GlyphRun& run, std::size_t start, std::size_t end) {
    const auto toCluster = [&](std::size_t unit) {
        return unit < run.end && !run.StartsCluster(unit) ? NextCluster(run, unit) : unit;
    };
    start = toCluster(std::max(start, run.start));
    end = toCluster(std::min(end, run.end));
    if (start >= end) return {};
    const std::size_t count = run.glyphs.size();
    const std::size_t first = run.clusters[start - run.start];
    const bool toEnd = end == run.end;
    const std::size_t next = toEnd ? 0 : run.clusters[end - run.start];
    const GlyphSpan span = run.IsRightToLeft() ? GlyphSpan{toEnd ? 0 : next + 1, first + 1}
                                               : GlyphSpan{first, toEnd ? count : next};
    return span.first <= span.end && span.end <= count ? span : GlyphSpan{};
}

bool BeginsWithLostMark(const TextUnits& text, const GlyphRun& run) {
    const char32_t first = CharacterAt(text.text, run.start);
    return first >= 0x0590 && first <= 0x08FF && ClusterJoinOf(first) == ClusterJoin::Extending;
}

bool ShapeRun(MeasuringContext& measuring, const TextUnits& text, GlyphRun& run) {
    const HDC context = measuring.With(run.font);
    if (BeginsWithLostMark(text, run)) run.analysis.eScript = SCRIPT_UNDEFINED;
    const HRESULT result = FindGlyphs(context, text, run);
    if (result == USP_E_SCRIPT_NOT_IN_FONT) return false;
    if (FAILED(result)) MakeEmptyGlyphs(run);
    HideIgnorable(text, run);
    PlaceGlyphs(context, run);
    return true;
}
