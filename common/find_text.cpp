#include "common/find_text.h"

#include "common/text.h"

#include <algorithm>
#include <array>

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

// The units that differ from one only in case, itself among them. No unit has more than these.
using Forms = std::array<char16_t, 4>;

Forms FormsOf(char16_t unit, bool matchCase) {
    Forms forms;
    forms.fill(unit);
    if (matchCase) return forms;
    std::size_t count = 0;
    for (char32_t other = 0; other <= 0xFFFF && count < forms.size(); ++other)
        if (FoldCase(static_cast<char16_t>(other)) == FoldCase(unit))
            forms[count++] = static_cast<char16_t>(other);
    return forms;
}

// 1 or 0, without a branch, so that the compiler can ask for several units at once.
unsigned IsOneOf(char16_t unit, const Forms& forms) {
    unsigned found = 0;
    for (const char16_t form : forms)
        found |= unsigned{unit == form};
    return found;
}

class Search {
  public:
    Search(std::u16string_view text, std::u16string_view what, bool matchCase)
        : text_(text), what_(what), matchCase_(matchCase), first_(FormsOf(what.front(), matchCase)),
          last_(FormsOf(what.back(), matchCase)) {}

    std::size_t From(std::size_t start) const;

  private:
    static constexpr std::size_t blockSize = 32;

    bool MayBeginInBlock(std::size_t block) const;
    bool IsAt(std::size_t at) const;

    std::u16string_view text_, what_;
    bool matchCase_;
    Forms first_, last_; // of the first and the last unit
};

std::size_t Search::From(std::size_t start) const {
    if (what_.size() > text_.size()) return std::u16string_view::npos;
    const std::size_t end = text_.size() - what_.size() + 1; // no match begins here or behind
    while (start < end) {
        const std::size_t blockEnd = std::min(start + blockSize, end);
        if (blockEnd - start == blockSize && !MayBeginInBlock(start)) {
            start = blockEnd;
            continue;
        }
        for (; start < blockEnd; ++start)
            if (IsOneOf(text_[start], first_) && IsAt(start)) return start;
    }
    return std::u16string_view::npos;
}

// Looks for the first and the last unit at their distance: few blocks pass.
bool Search::MayBeginInBlock(std::size_t block) const {
    const char16_t *const begins = text_.data() + block, *const ends = begins + what_.size() - 1;
    const Forms first = first_, last = last_; // told from the text that is read
    unsigned found = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        found |= IsOneOf(begins[i], first) & IsOneOf(ends[i], last);
    return found != 0;
}

bool Search::IsAt(std::size_t at) const {
    const std::u16string_view place = text_.substr(at, what_.size());
    return matchCase_ ? place == what_ : EqualIgnoringCase(place, what_);
}
} // namespace

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options) {
    if (what.empty() || start > text.size()) return std::u16string_view::npos;
    const Search search(text, what, options.matchCase);
    for (std::size_t at = start;; ++at) {
        at = search.From(at);
        if (at == std::u16string_view::npos) return at;
        if (!options.wholeWord || StandsAlone(text, at, what.size())) return at;
    }
}
