#include "view/page/browser_breaks.h"

#include <string_view>

namespace {
constexpr char16_t ellipsis = u'\u2026';

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsAsciiWord(char16_t unit) {
    return IsDigit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool IsOneOf(char16_t unit, std::u16string_view units) {
    return units.find(unit) != units.npos;
}
} // namespace

// Seen in Chromium: it takes paths, addresses and file names as one word, but for what stands
// after a hyphen or a question mark. Systems break after a slash, and some after a full stop
// between a letter and a digit.
BreakChange BreakChangeAt(char16_t before, char16_t left, char16_t right) {
    const bool wordFollows = IsAsciiWord(right);
    if (!wordFollows && right != u'(') return BreakChange::None;
    if (left == u'/') return BreakChange::Join;
    if (left == u'$' && right == u'(') return BreakChange::Join;
    if (!wordFollows) return BreakChange::None;
    const bool afterWord = IsOneOf(left, u",.:;") && IsDigit(right) && !IsDigit(before);
    if (afterWord || IsOneOf(left, u"!|}")) return BreakChange::Join;
    const bool breaks =
        left == u'?' || left == ellipsis || (left == u'-' && IsDigit(right) && IsAsciiWord(before));
    return breaks ? BreakChange::Break : BreakChange::None;
}
