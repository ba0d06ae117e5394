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

template <std::size_t most>
std::array<char16_t, most> FormsOf(char16_t unit, bool matchCase) {
    std::array<char16_t, most> forms;
    forms.fill(unit);
    if (matchCase) return forms;
    std::size_t count = 0;
    for (char32_t other = 0; other <= 0xFFFF && count < most; ++other)
        if (FoldCase(static_cast<char16_t>(other)) == FoldCase(unit))
            forms[count++] = static_cast<char16_t>(other);
    return forms;
}

constexpr std::size_t blockSize = 32;

// Whether one of the first forms stands in the 32 units from `begins` on and one of the last ones
// at the same place from `ends` on: few blocks of a text pass. Without a branch, so that the
// compiler can ask for several units at once.
template <class Unit, std::size_t most>
bool MayBeginInBlock(const Unit* begins, const Unit* ends, std::array<Unit, most> first,
                     std::array<Unit, most> last) {
    Unit found = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        Unit begin = 0, end = 0;
        for (std::size_t form = 0; form < most; ++form) {
            begin = static_cast<Unit>(begin | (begins[i] == first[form]));
            end = static_cast<Unit>(end | (ends[i] == last[form]));
        }
        found = static_cast<Unit>(found | (begin & end));
    }
    return found != 0;
}

template <class Unit, std::size_t most>
bool IsOneOf(Unit unit, const std::array<Unit, most>& forms) {
    return std::find(forms.begin(), forms.end(), unit) != forms.end();
}
} // namespace

TextSearch::TextSearch(std::u16string_view what, FindOptions options)
    : what_(what), options_(options) {
    if (what.empty()) return;
    first_ = FormsOf<4>(what.front(), options.matchCase);
    last_ = FormsOf<4>(what.back(), options.matchCase);
}

bool TextSearch::IsAt(std::u16string_view text, std::size_t at) const {
    const std::u16string_view place = text.substr(at, what_.size());
    if (options_.matchCase ? place != what_ : !EqualIgnoringCase(place, what_)) return false;
    return !options_.wholeWord || StandsAlone(text, at, what_.size());
}

std::size_t TextSearch::FindIn(std::u16string_view text, std::size_t start) const {
    if (what_.empty() || what_.size() > text.size()) return std::u16string_view::npos;
    const std::size_t end = text.size() - what_.size() + 1; // no match begins here or behind
    while (start < end) {
        const std::size_t blockEnd = std::min(start + blockSize, end);
        const char16_t* const begins = text.data() + start;
        const bool whole = blockEnd - start == blockSize;
        if (whole && !MayBeginInBlock(begins, begins + what_.size() - 1, first_, last_)) {
            start = blockEnd;
            continue;
        }
        for (; start < blockEnd; ++start)
            if (IsOneOf(text[start], first_) && IsAt(text, start)) return start;
    }
    return std::u16string_view::npos;
}

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options) {
    return TextSearch(what, options).FindIn(text, start);
}

namespace {
constexpr std::size_t asciiUnits = 0x80;

// Marks the ASCII units that stand for themselves in the bytes: not line ends, which the text has
// only one of, not the NUL, which it has not; nor those of which a foreign letter is another form.
std::array<bool, asciiUnits> OwnBytes(bool matchCase) {
    std::array<bool, asciiUnits> own;
    own.fill(true);
    own[0] = own['\n'] = own['\r'] = false;
    if (matchCase) return own;
    std::array<bool, asciiUnits> foreign{};
    for (char32_t other = asciiUnits; other <= 0xFFFF; ++other)
        if (const char16_t folded = FoldCase(static_cast<char16_t>(other)); folded < asciiUnits)
            foreign[folded] = true;
    for (std::size_t unit = 0; unit < asciiUnits; ++unit)
        if (foreign[FoldCase(static_cast<char16_t>(unit))]) own[unit] = false;
    return own;
}
} // namespace

AsciiSearch::AsciiSearch(std::u16string_view what, FindOptions options) {
    const auto own = OwnBytes(options.matchCase);
    std::string run;
    for (const char16_t unit : what) {
        if (unit < asciiUnits && own[unit])
            run += static_cast<char>(unit);
        else
            run.clear();
        if (run.size() > what_.size()) what_ = run;
    }
    other_ = what_;
    if (options.matchCase) return;
    for (std::size_t i = 0; i < what_.size(); ++i) {
        const bool capital = what_[i] >= 'A' && what_[i] <= 'Z';
        const bool small = what_[i] >= 'a' && what_[i] <= 'z';
        if (capital || small) other_[i] = static_cast<char>(what_[i] ^ 0x20);
    }
}

bool AsciiSearch::IsAt(std::string_view bytes, std::size_t at) const {
    for (std::size_t i = 0; i < what_.size(); ++i)
        if (bytes[at + i] != what_[i] && bytes[at + i] != other_[i]) return false;
    return true;
}

void AsciiSearch::LearnFrom(std::string_view sample) {
    constexpr std::size_t oftenEnoughForBlocks = 64; // one byte of so many
    std::array<std::size_t, 0x100> counts{};
    for (const char byte : sample)
        ++counts[static_cast<unsigned char>(byte)];
    std::size_t least = sample.size() / oftenEnoughForBlocks;
    rarest_ = std::string::npos;
    for (std::size_t i = 0; i < what_.size(); ++i) {
        const auto one = static_cast<unsigned char>(what_[i]);
        const auto other = static_cast<unsigned char>(other_[i]);
        const std::size_t count = counts[one] + (one == other ? 0 : counts[other]);
        if (count >= least) continue;
        least = count;
        rarest_ = i;
    }
}

bool AsciiSearch::IsIn(std::string_view bytes) const {
    if (what_.size() > bytes.size()) return false;
    if (rarest_ == std::string::npos) return IsInBlocks(bytes);
    const char one = what_[rarest_], other = other_[rarest_];
    return IsAround(one, bytes) || (other != one && IsAround(other, bytes));
}

bool AsciiSearch::IsAround(char letter, std::string_view bytes) const {
    const std::size_t behind = what_.size() - rarest_; // bytes from the letter to the end
    for (std::size_t at = bytes.find(letter, rarest_); at != std::string_view::npos;
         at = bytes.find(letter, at + 1)) {
        if (bytes.size() - at < behind) return false;
        if (IsAt(bytes, at - rarest_)) return true;
    }
    return false;
}

bool AsciiSearch::IsInBlocks(std::string_view bytes) const {
    const std::array first{what_.front(), other_.front()}, last{what_.back(), other_.back()};
    const std::size_t end = bytes.size() - what_.size() + 1;
    for (std::size_t start = 0; start < end;) {
        const std::size_t blockEnd = std::min(start + blockSize, end);
        const char* const begins = bytes.data() + start;
        const bool whole = blockEnd - start == blockSize;
        if (whole && !MayBeginInBlock(begins, begins + what_.size() - 1, first, last)) {
            start = blockEnd;
            continue;
        }
        for (; start < blockEnd; ++start)
            if (IsOneOf(bytes[start], first) && IsAt(bytes, start)) return true;
    }
    return false;
}
