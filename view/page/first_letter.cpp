#include "view/page/first_letter.h"

#include "common/utf.h"
#include "formats/html/html_units.h"

#include <algorithm>

namespace {
struct Range {
    char16_t first, last;
};
// Of punctuation, in texts with letters that a sheet would make larger.
constexpr Range punctuation[] = {
    {u'!', u'#'},           {u'%', u'*'},           {u',', u'/'},           {u':', u';'},
    {u'?', u'@'},           {u'[', u']'},           {u'_', u'_'},           {u'{', u'{'},
    {u'}', u'}'},           {u'\u00A1', u'\u00A1'}, {u'\u00A7', u'\u00A7'}, {u'\u00AB', u'\u00AB'},
    {u'\u00B6', u'\u00B7'}, {u'\u00BB', u'\u00BB'}, {u'\u00BF', u'\u00BF'}, {u'\u2010', u'\u2027'},
    {u'\u2030', u'\u205E'}, {u'\u3001', u'\u3003'}, {u'\u3008', u'\u3011'}};

bool IsPunctuation(char16_t unit) {
    return std::any_of(std::begin(punctuation), std::end(punctuation), [&](const Range& range) {
        return unit >= range.first && unit <= range.last;
    });
}

std::size_t AfterPunctuation(std::u16string_view text, std::size_t at) {
    while (at < text.size() && IsPunctuation(text[at]))
        ++at;
    return at;
}

bool IsCombiningMark(char16_t unit) {
    return unit >= 0x300 && unit <= 0x36F;
}
} // namespace

LetterSpan FindFirstLetter(std::u16string_view text) {
    LetterSpan span;
    while (span.start < text.size() && IsHtmlSpace(text[span.start]))
        ++span.start;
    span.end = AfterPunctuation(text, span.start);
    if (span.end < text.size() && !IsHtmlSpace(text[span.end])) {
        span.end += FirstCharacter(text.substr(span.end)) > 0xFFFF ? 2 : 1;
        const auto next =
            std::find_if_not(text.begin() + std::ptrdiff_t(span.end), text.end(), IsCombiningMark);
        span.end = AfterPunctuation(text, std::size_t(next - text.begin()));
    }
    return span;
}
