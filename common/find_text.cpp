#include "common/find_text.h"

#include "common/text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {
struct UnitRange {
    char16_t first, last;
};

// From U+00C0 on nearly all units are letters, marks and digits, but for these blocks and signs:
// punctuation, currency, arrows and other symbols, and full-width forms of ASCII's signs.
constexpr UnitRange signs[] = {
    {0xD7, 0xD7},     {0xF7, 0xF7},     {0x2000, 0x206F}, {0x20A0, 0x20CF}, {0x2190, 0x2BFF},
    {0x2E00, 0x2E7F}, {0x3000, 0x3004}, {0x3008, 0x3020}, {0x3030, 0x3030}, {0x303D, 0x303F},
    {0xFE10, 0xFE1F}, {0xFE30, 0xFE6F}, {0xFF01, 0xFF0F}, {0xFF1A, 0xFF20}, {0xFF3B, 0xFF3E},
    {0xFF40, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF},
};
} // namespace

bool IsWordUnit(char16_t unit) {
    const bool digit = unit >= u'0' && unit <= u'9';
    const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    if (unit < 0xC0)
        return digit || letter || unit == u'_' || unit == 0xAA || unit == 0xB5 || unit == 0xBA;
    return std::ranges::none_of(signs, [unit](const UnitRange& range) {
        return unit >= range.first && unit <= range.last;
    });
}

namespace {
bool StandsAlone(std::u16string_view text, std::size_t at, std::size_t length) {
    const bool joinedBefore = at > 0 && IsWordUnit(text[at - 1]) && IsWordUnit(text[at]);
    const std::size_t end = at + length;
    const bool joinedAfter =
        end < text.size() && IsWordUnit(text[end]) && IsWordUnit(text[end - 1]);
    return !joinedBefore && !joinedAfter;
}

// Each unit that is folded to another one, after that one, in order.
using Fold = std::pair<char16_t, char16_t>;

std::vector<Fold> AllFolds() {
    std::vector<Fold> folds;
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t folded = FoldCase(static_cast<char16_t>(unit));
        if (folded != unit) folds.emplace_back(folded, static_cast<char16_t>(unit));
    }
    std::sort(folds.begin(), folds.end());
    return folds;
}

constexpr std::size_t blockSize = 32;

// Whether one of the first forms stands in the 32 units from `begins` on and one of the last ones
// at the same place from `ends` on: few blocks of a text pass. Without a branch, so that the
// compiler can ask for several units at once.
template <std::size_t maxForms>
bool MayBeginInBlock(const char16_t* begins, const char16_t* ends,
                     std::array<char16_t, maxForms> first, std::array<char16_t, maxForms> last) {
    char16_t found = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        char16_t begin = 0, end = 0;
        for (std::size_t form = 0; form < maxForms; ++form) {
            begin = static_cast<char16_t>(begin | (begins[i] == first[form]));
            end = static_cast<char16_t>(end | (ends[i] == last[form]));
        }
        found = static_cast<char16_t>(found | (begin & end));
    }
    return found != 0;
}

template <std::size_t maxForms>
bool IsOneOf(char16_t unit, const std::array<char16_t, maxForms>& forms) {
    return std::find(forms.begin(), forms.end(), unit) != forms.end();
}

template <std::size_t maxForms>
std::array<char16_t, maxForms> First(const std::vector<char16_t>& forms) {
    std::array<char16_t, maxForms> first;
    first.fill(forms.front());
    std::copy_n(forms.begin(), std::min(forms.size(), maxForms), first.begin());
    return first;
}
} // namespace

std::vector<char16_t> CaseForms(char16_t unit) {
    static const std::vector<Fold> folds = AllFolds();
    const char16_t folded = FoldCase(unit);
    std::vector<char16_t> forms;
    if (FoldCase(folded) == folded) forms.push_back(folded);
    for (auto at = std::lower_bound(folds.begin(), folds.end(), Fold{folded, 0});
         at != folds.end() && at->first == folded; ++at)
        forms.push_back(at->second);
    std::stable_sort(forms.begin(), forms.end(), [folded](char16_t a, char16_t b) {
        return std::abs(a - folded) < std::abs(b - folded);
    });
    return forms;
}

TextSearch::TextSearch(std::u16string_view what, FindOptions options)
    : what_(what), options_(options) {
    if (what.empty()) return;
    const auto forms = [&](char16_t unit) {
        return options.matchCase ? std::vector{unit} : CaseForms(unit);
    };
    first_ = forms(what.front());
    last_ = forms(what.back());
}

bool TextSearch::IsAt(std::u16string_view text, std::size_t at) const {
    const std::u16string_view place = text.substr(at, what_.size());
    if (options_.matchCase ? place != what_ : !EqualIgnoringCase(place, what_)) return false;
    return !options_.wholeWord || StandsAlone(text, at, what_.size());
}

template <std::size_t maxForms>
std::size_t TextSearch::FindWith(std::u16string_view text, std::size_t start) const {
    const auto first = First<maxForms>(first_), last = First<maxForms>(last_);
    const std::size_t lastOffset = what_.size() - 1;
    const std::size_t end = text.size() - lastOffset; // no match begins here or after
    while (start < end) {
        const std::size_t blockEnd = std::min(start + blockSize, end);
        const char16_t* const begins = text.data() + start;
        const bool whole = blockEnd - start == blockSize;
        if (whole && !MayBeginInBlock(begins, begins + lastOffset, first, last)) {
            start = blockEnd;
            continue;
        }
        for (; start < blockEnd; ++start)
            if (IsOneOf(text[start], first) && IsOneOf(text[start + lastOffset], last) &&
                IsAt(text, start))
                return start;
    }
    return std::u16string_view::npos;
}

std::size_t TextSearch::FindIn(std::u16string_view text, std::size_t start) const {
    if (what_.empty() || what_.size() > text.size()) return std::u16string_view::npos;
    const bool usual = std::max(first_.size(), last_.size()) <= 2; // nearly every letter
    return usual ? FindWith<2>(text, start) : FindWith<4>(text, start);
}

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options) {
    return TextSearch(what, options).FindIn(text, start);
}
