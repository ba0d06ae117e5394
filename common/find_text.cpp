#include "common/find_text.h"

#include "common/text.h"

#include <algorithm>
#include <functional>
#include <string>

namespace {
bool IsWordUnit(char16_t unit) {
    const bool digit = unit >= u'0' && unit <= u'9';
    const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    // Above Latin-1's signs nearly all units are letters; general punctuation and CJK marks are
    // not.
    const bool foreign = unit >= 0xC0 && unit != 0xD7 && unit != 0xF7 &&
                         !(unit >= 0x2000 && unit <= 0x206F) && !(unit >= 0x3000 && unit <= 0x303F);
    return digit || letter || foreign || unit == u'_';
}

bool StandsAlone(std::u16string_view text, std::size_t at, std::size_t length) {
    const bool joinedBefore = at > 0 && IsWordUnit(text[at - 1]) && IsWordUnit(text[at]);
    const std::size_t end = at + length;
    const bool joinedBehind =
        end < text.size() && IsWordUnit(text[end]) && IsWordUnit(text[end - 1]);
    return !joinedBefore && !joinedBehind;
}

// Finds what is already folded: looks for either case of its rarest-looking unit, the first, and
// compares there.
std::size_t FindFolded(std::u16string_view text, std::u16string_view folded, std::size_t start) {
    if (folded.size() > text.size()) return std::u16string_view::npos;
    const std::size_t last = text.size() - folded.size();
    for (std::size_t at = start; at <= last; ++at) {
        if (FoldCase(text[at]) != folded[0]) continue;
        std::size_t same = 1;
        while (same < folded.size() && FoldCase(text[at + same]) == folded[same])
            ++same;
        if (same == folded.size()) return at;
    }
    return std::u16string_view::npos;
}
} // namespace

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options) {
    if (what.empty() || start > text.size()) return std::u16string_view::npos;
    std::u16string folded(what);
    if (!options.matchCase) std::ranges::transform(folded, folded.begin(), FoldCase);
    for (std::size_t at = start;; ++at) {
        at = options.matchCase ? text.find(what, at) : FindFolded(text, folded, at);
        if (at == std::u16string_view::npos) return at;
        if (!options.wholeWord || StandsAlone(text, at, what.size())) return at;
    }
}
