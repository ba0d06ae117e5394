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
    if (atom.align == VerticalAlign::Middle || atom.align == VerticalAlign::BaselineMiddle) {
        const double middle = atom.align == VerticalAlign::Middle ? content.xHeight / 2 : 0;
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

auto RunAt(const InlineContent& content, TextPos at) {
    return std::prev(
        std::upper_bound(content.runs.begin() + 1, content.runs.end(), at,
                         [](TextPos pos, const InlineRun& r) { return pos < r.start; }));
}

// Letters, and not what stands for a box or joins what is beside it.
bool HasText(const InlineContent& content, TextPos start, TextPos end) {
    const std::u16string_view text = content.text.text;
    const auto units = text.substr(std::size_t(start), std::size_t(end - start));
    return units.find_first_not_of(u"\uFFFC\u2060") != units.npos;
}

// Without the blanks and the break at its end.
TextPos EndOfText(const InlineContent& content, TextPos start, TextPos end) {
    const std::u16string& text = content.text.text;
    while (end > start &&
           (text[std::size_t(end) - 1] == u' ' || text[std::size_t(end) - 1] == u'\u2028'))
        --end;
    return end;
}

// In quirks mode only what has text of its own makes a line higher (quirks.spec.whatwg.org, 3.4),
// or the block where there is nothing but a break.
LineBox BoxOfText(LineLayout& system, const InlineContent& content, TextPos start, TextPos end) {
    std::optional<LineBox> line;
    const auto atom = FirstFrom(content.atoms, start, [](const auto& each) { return each.at; });
    const bool hasAtoms = atom != content.atoms.end() && atom->at < end;
    end = EndOfText(content, start, end);
    for (auto run = RunAt(content, start); run != content.runs.end() && run->start < end; ++run) {
        const auto next = std::next(run);
        const TextPos after = next == content.runs.end() ? end : std::min(end, next->start);
        if (!HasText(content, std::max(start, run->start), after)) continue;
        const LineBox box = FontBox(system.Metrics(*run->font), run->lineHeight);
        if (!line) line = {box.above + run->raise, box.below - run->raise};
        Enclose(*line, box, run->raise);
    }
    if (line) return *line;
    return hasAtoms ? LineBox{} : StrutBox(system, content);
}

void EncloseRuns(LineLayout& system, const InlineContent& content, TextPos start, TextPos end,
                 LineBox& line) {
    for (auto run = RunAt(content, start); run != content.runs.end() && run->start < end; ++run)
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
    if (content.needsText)
        line = BoxOfText(system, content, start, end);
    else
        EncloseRuns(system, content, start, end, line);
    if (start == 0 && content.hasMarker) Enclose(line, StrutBox(system, content), 0);
    EncloseAtoms(content, start, end, line);
    return line;
}

double AtomTop(const InlineContent& content, const InlineAtom& atom, const LineBox& line) {
    if (atom.align == VerticalAlign::Top) return 0;
    if (atom.align == VerticalAlign::Bottom) return line.Height() - atom.height;
    return line.above - AtomBox(content, atom).above;
}
