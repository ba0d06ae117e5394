#include "view/capitals.h"

#include "common/text.h"
#include "view/style_runs.h"

#include <algorithm>

namespace {
// Single-unit uppercase only; the unit itself if there is none.
char16_t CapitalOf(char16_t unit) {
    return FoldCase(unit);
}

TextPos EndOfSame(const std::u16string& text, TextPos from, TextPos end, bool changes) {
    while (from < end && HasCapital(text[std::size_t(from)]) == changes)
        ++from;
    return from;
}

// One run for each change between letters that are made smaller and those that are not.
void AddCapitals(const LayoutContext& context, TextPos start, TextPos from, TextPos end,
                 bool isSmall, std::u16string& text, std::vector<StyledRun>& runs) {
    for (TextPos at = from, next = from; at < end; at = next) {
        const bool changes = HasCapital(text[std::size_t(at)]);
        next = EndOfSame(text, at, end, changes);
        const StyleHandle& style = changes && isSmall ? context.styles.SmallerAt(start + at)
                                                      : context.styles.At(start + at).handle;
        if (at == from || runs.back().style != style) runs.push_back({at, style});
        for (TextPos each = at; each < next; ++each)
            text[std::size_t(each)] = CapitalOf(text[std::size_t(each)]);
    }
}
} // namespace

bool HasCapital(char16_t unit) {
    return CapitalOf(unit) != unit;
}

std::vector<StyledRun> StyledRuns(const LayoutContext& context, TextPos start,
                                  std::u16string& text) {
    const auto& runs = context.document.charRuns;
    const auto& styles = context.document.charStyles;
    const TextPos length = TextPos(text.size());
    std::vector<StyledRun> styled;
    for (std::size_t i = RunAt(runs, start); i < runs.size() && runs[i].start <= start + length;
         ++i) {
        const TextPos from = std::max(0, runs[i].start - start);
        const TextPos end =
            i + 1 < runs.size() ? std::min(length, runs[i + 1].start - start) : length;
        const Capitals capitals =
            styles[std::min<std::size_t>(runs[i].style, styles.size() - 1)].capitals;
        if (capitals == Capitals::AsWritten || from == end)
            styled.push_back({from, context.styles.At(start + from).handle});
        else
            AddCapitals(context, start, from, end, capitals == Capitals::Small, text, styled);
    }
    return styled;
}
