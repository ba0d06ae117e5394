#include "view/page/text_cut.h"

#include "common/unicode.h"
#include "common/utf.h"
#include "formats/html/html_units.h"

#include <algorithm>

namespace {
// Units back from the limit: lines of a text that is kept as it is written are rarely longer, and
// words never.
constexpr std::size_t breakSearch = 8 * 1024, spaceSearch = 256;

bool ExtendsPrevious(char16_t unit) {
    return IsLowSurrogate(unit) || (unit >= 0x300 && IsMarkOrFormat(unit));
}
} // namespace

bool KeepsSpaces(CssWhiteSpace whiteSpace) {
    return whiteSpace == CssWhiteSpace::Pre || whiteSpace == CssWhiteSpace::PreWrap ||
           whiteSpace == CssWhiteSpace::BreakSpaces;
}
bool KeepsBreaks(CssWhiteSpace whiteSpace) {
    return KeepsSpaces(whiteSpace) || whiteSpace == CssWhiteSpace::PreLine;
}

std::size_t TextCut(std::u16string_view text, std::size_t from, std::size_t limit,
                    CssWhiteSpace whiteSpace) {
    const auto lowest = [&](std::size_t search) {
        return std::max(from + 1, limit - std::min(limit, search));
    };
    if (KeepsBreaks(whiteSpace))
        for (std::size_t cut = limit; cut >= lowest(breakSearch); --cut)
            if (text[cut - 1] == u'\n') return cut;
    for (std::size_t cut = limit; cut >= lowest(spaceSearch); --cut)
        if (IsHtmlSpace(text[cut - 1])) return cut;
    std::size_t cut = limit;
    while (cut > lowest(spaceSearch) && cut < text.size() && ExtendsPrevious(text[cut]))
        --cut;
    return cut;
}
