#include "view/page/line_box.h"

#include <algorithm>
#include <cmath>

namespace {
// A font's ascent and descent with half of what its line height adds, or takes, on each side. As in
// browsers a font has whole pixels, and of an odd one the half below is the larger.
LineBox FontBox(const FontMetrics& font, std::optional<double> lineHeight) {
    const double ascent = std::round(font.ascent), descent = std::round(font.descent);
    const double height = lineHeight.value_or(ascent + descent + std::round(font.leading));
    const double above = std::floor((height - ascent - descent) / 2);
    return {ascent + above, height - ascent - above};
}

void Enclose(LineBox& line, const LineBox& box, double raise) {
    line.above = std::max(line.above, box.above + raise);
    line.below = std::max(line.below, box.below - raise);
}

// What an atom of this alignment takes above and below the baseline; one that goes by the line's
// edges needs the line first.
LineBox AtomBox(const InlineContent& content, const InlineAtom& atom) {
    if (atom.align == VerticalAlign::Middle) {
        const double middle = content.xHeight / 2;
        return {atom.height / 2 + middle, atom.height / 2 - middle};
    }
    return {atom.height - atom.belowBaseline + atom.raise, atom.belowBaseline - atom.raise};
}

bool GoesByLine(const InlineAtom& atom) {
    return atom.align == VerticalAlign::Top || atom.align == VerticalAlign::Bottom;
}

template <class Item, class At>
auto FirstFrom(const std::vector<Item>& items, TextPos at, At of) {
    return std::lower_bound(items.begin(), items.end(), at,
                            [&](const Item& item, TextPos start) { return of(item) < start; });
}

void EncloseRuns(LineLayout& system, const InlineContent& content, TextPos start, TextPos end,
                 LineBox& line) {
    auto run =
        std::prev(std::upper_bound(content.runs.begin() + 1, content.runs.end(), start,
                                   [](TextPos at, const InlineRun& r) { return at < r.start; }));
    for (; run != content.runs.end() && run->start < end; ++run)
        Enclose(line, FontBox(system.Metrics(*run->font), run->lineHeight), run->raise);
}

void EncloseAtoms(const InlineContent& content, TextPos start, TextPos end, LineBox& line) {
    const auto first = FirstFrom(content.atoms, start, [](const auto& atom) { return atom.at; });
    for (auto atom = first; atom != content.atoms.end() && atom->at < end; ++atom)
        if (!GoesByLine(*atom)) Enclose(line, AtomBox(content, *atom), 0);
    for (auto atom = first; atom != content.atoms.end() && atom->at < end; ++atom) {
        if (!GoesByLine(*atom)) continue;
        const double missing = std::max(0.0, atom->height - line.Height());
        (atom->align == VerticalAlign::Top ? line.below : line.above) += missing;
    }
}
} // namespace

LineBox StrutBox(LineLayout& system, const InlineContent& content) {
    return FontBox(system.Metrics(*content.strut), content.strutLineHeight);
}

LineBox LineBoxOf(LineLayout& system, const InlineContent& content, TextPos start, TextPos end) {
    LineBox line = StrutBox(system, content);
    EncloseRuns(system, content, start, end, line);
    EncloseAtoms(content, start, end, line);
    return line;
}

double AtomTop(const InlineContent& content, const InlineAtom& atom, const LineBox& line) {
    if (atom.align == VerticalAlign::Top) return 0;
    if (atom.align == VerticalAlign::Bottom) return line.Height() - atom.height;
    return line.above - AtomBox(content, atom).above;
}
