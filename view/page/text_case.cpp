#include "view/page/text_case.h"

#include "common/text.h"

#include <cstdlib>
#include <unordered_map>

namespace {
// Of several small letters of one capital the nearest, which is how the scripts' blocks are built;
// but that of the Greek s is not the one that ends words.
char16_t SmallLetter(char16_t capital) {
    static const auto smallLetters = [] {
        constexpr char16_t finalSigma = u'\u03C2';
        std::unordered_map<char16_t, char16_t> letters;
        for (char16_t unit = 1; unit < 0xFFFF; ++unit) {
            const char16_t upper = FoldCase(unit);
            if (upper == unit || unit == finalSigma) continue;
            const auto [known, isNew] = letters.try_emplace(upper, unit);
            if (!isNew && std::abs(unit - upper) < std::abs(known->second - upper))
                known->second = unit;
        }
        return letters;
    }();
    const auto found = smallLetters.find(capital);
    return found == smallLetters.end() ? capital : found->second;
}

// After a space, a break, a dash, an opening bracket or quotation mark.
bool BeginsWord(std::u16string_view before) {
    constexpr std::u16string_view starts = u" \u00A0\u2028\t-\u2013\u2014/([{\"\u201C\u201E\u2018"
                                           u"\u201A\u00AB\u2039\u00BF\u00A1\uFFFC";
    return before.empty() || starts.find(before.back()) != starts.npos;
}
} // namespace

char16_t TransformedUnit(char16_t unit, CssTextTransform transform, std::u16string_view before) {
    switch (transform) {
    case CssTextTransform::None: break;
    case CssTextTransform::Uppercase: return FoldCase(unit);
    case CssTextTransform::Lowercase: return SmallLetter(unit);
    case CssTextTransform::Capitalize: return BeginsWord(before) ? FoldCase(unit) : unit;
    }
    return unit;
}
