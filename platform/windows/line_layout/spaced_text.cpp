#include "platform/windows/line_layout/glyph_runs.h"

#include <algorithm>
#include <cmath>

namespace {

class Spacer {
  public:
    Spacer(const TextUnits& text, ShapedText& shaped)
        : text_(text), shaped_(shaped), run_(shaped.runs.begin()) {}

    void Space(std::size_t start, std::size_t end, const TextStyle&);

  private:
    void Widen(std::size_t unit, int by);

    const TextUnits& text_;
    ShapedText& shaped_;
    std::vector<GlyphRun>::iterator run_; // up to which units have been asked for
};

bool IsWordSpace(wchar_t unit) {
    return unit == L' ' || unit == 0xA0;
}

// Advances are whole pixels; what is left of a fraction goes to the next letter.
void Spacer::Space(std::size_t start, std::size_t end, const TextStyle& style) {
    double asked = 0;
    int given = 0;
    for (std::size_t at = start; at < end; ++at) {
        const TextUnit& unit = text_.units[at];
        if (unit.kind != UnitKind::Text || !unit.caret || shaped_.widths[at] == 0) continue;
        asked += style.letterSpacing + (IsWordSpace(text_.text[at]) ? style.wordSpacing : 0);
        const int until = static_cast<int>(std::lround(asked));
        Widen(at, std::max(until - given, -shaped_.widths[at]));
        given = until;
    }
}

// After its marks. A ligature has the space of all its characters after it.
void Spacer::Widen(std::size_t unit, int by) {
    while (run_ != shaped_.runs.end() && run_->end <= unit)
        ++run_;
    if (by == 0 || run_ == shaped_.runs.end() || unit < run_->start) return;
    std::size_t cluster = unit;
    while (!run_->StartsCluster(cluster))
        --cluster;
    const GlyphSpan glyphs = GlyphsOf(*run_, cluster, NextCluster(*run_, cluster));
    for (std::size_t glyph = glyphs.end; glyph > glyphs.first; --glyph) {
        int& advance = run_->advances[glyph - 1];
        if (advance + by < 0) continue; // a mark, which has none
        advance += by;
        shaped_.widths[unit] += by;
        return;
    }
}

} // namespace

void SpaceText(const ParagraphText& paragraph, const TextUnits& text, ShapedText& shaped) {
    Spacer spacer(text, shaped);
    for (std::size_t run = 0; run < paragraph.runs.size(); ++run) {
        const StyledRun& each = paragraph.runs[run];
        const TextStyle& style = static_cast<const WinStyle&>(*each.style).style;
        if (style.letterSpacing == 0 && style.wordSpacing == 0) continue;
        const bool isLast = run + 1 == paragraph.runs.size();
        const auto end =
            isLast ? text.Size() : static_cast<std::size_t>(paragraph.runs[run + 1].start);
        spacer.Space(static_cast<std::size_t>(each.start), std::min(end, text.Size()), style);
    }
}
