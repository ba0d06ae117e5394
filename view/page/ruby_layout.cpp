#include "view/page/ruby_layout.h"

#include <algorithm>
#include <cmath>

namespace {
// The letters of the first line, to which the font adds something above and below.
struct Letters {
    double ascent = 0, descent = 0;
    double Inset(double fontSize) const {
        return std::max(0.0, std::floor((ascent + std::round(descent) - fontSize + 1) / 2));
    }
};

Letters LettersOf(const PageFragment& fragment) {
    for (const PlacedLines& lines : fragment.lines) {
        const InlineLine& line = lines.layout.lines.front();
        const TextLine& text = lines.layout.pieces[line.piece].lines->Line(line.line);
        return {std::round(text.ascent), text.descent};
    }
    for (const PlacedPart& part : fragment.parts)
        if (const Letters letters = LettersOf(*part.fragment); letters.ascent > 0) return letters;
    return {};
}

// In one line if it fits.
PageFragmentPtr LayOutPart(PageLayouter& layouter, PageBoxId part, double containing) {
    const double width = std::min(containing, std::ceil(layouter.ContentExtent(part).max));
    return layouter.LayOutBlock(part, width, containing);
}
} // namespace

PageFragmentPtr LayOutRuby(PageLayouter& layouter, PageBoxId ruby, double containing) {
    const PageBoxId first = layouter.Boxes().FirstChild(ruby);
    const PageFragmentPtr base = LayOutPart(layouter, first, containing);
    const PageBoxId second = layouter.Box(first).nextSibling;
    const PageFragmentPtr annotation = LayOutPart(layouter, second, containing);
    // The annotation stands on the letters of its base, in what the line's height adds to these
    // and to those of the line above. Only what it needs besides makes the line higher.
    const auto insetOf = [&](PageBoxId part, Letters letters) {
        return letters.Inset(layouter.Box(part).text->fontSize * layouter.Measure().Scale());
    };
    const Letters letters = LettersOf(*base);
    const double lettersTop = FirstBaseline(*base) - letters.ascent;
    const double spare = base->height - LastBaseline(*base) - std::ceil(letters.descent);
    const double above = lettersTop + insetOf(first, letters) - annotation->height;
    const double needed = -above - insetOf(second, LettersOf(*annotation)) - std::max(0.0, spare);
    const bool hasBase = letters.ascent > 0;
    const double top = hasBase ? std::max(0.0, needed) : annotation->height;
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = std::max(base->width, annotation->width);
    fragment->height = top + base->height;
    fragment->parts.push_back({(fragment->width - base->width) / 2, top, base});
    fragment->parts.push_back(
        {(fragment->width - annotation->width) / 2, hasBase ? top + above : 0, annotation});
    return fragment;
}

WidthExtent RubyExtentOf(PageLayouter& layouter, PageBoxId ruby) {
    const PageBoxId base = layouter.Boxes().FirstChild(ruby);
    const double width = std::max(layouter.ContentExtent(base).max,
                                  layouter.ContentExtent(layouter.Box(base).nextSibling).max);
    return {width, width};
}
