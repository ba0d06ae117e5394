#include "formats/plain/encoded_search.h"

#include "formats/codepages/code_pages.h"
#include "formats/plain/plain_text_pieces.h"

#include <algorithm>
#include <optional>

namespace {
constexpr std::size_t maxUnits = 64; // of a search that are looked for in the bytes

FindOptions OptionsOfStart(std::u16string_view what, FindOptions options) {
    if (what.size() > maxUnits) options.wholeWord = false; // the start alone is no word
    return options;
}

// Whether all that a unit is found as belongs to words.
bool IsWordInAnyCase(char16_t unit) {
    const std::vector<char16_t> forms = CaseForms(unit);
    return std::all_of(forms.begin(), forms.end(), IsWordUnit);
}

// Whether there is hardly a place for it in the text, so that a search finds that out soon.
bool IsRare(const BytePattern& pattern, const ByteSample& sample) {
    constexpr std::size_t most = 2;
    return sample.CountOf(pattern[sample.RarestOf(pattern).front()]) <= most;
}

// Whether other forms of the letter than the usual ones can be looked for by themselves.
bool AreOthersRare(const LetterBytes& letter, const ByteSample& sample) {
    return std::all_of(letter.patterns.begin() + 1, letter.patterns.end(),
                       [&](const BytePattern& other) { return IsRare(other, sample); });
}

// Several that are rare are looked for at once while they are so together.
void AddRare(std::vector<BytePattern>& patterns, const BytePattern& added,
             const ByteSample& sample) {
    for (BytePattern& pattern : patterns) {
        const auto joined = Joined(pattern, added);
        if (!joined || !IsRare(*joined, sample)) continue;
        pattern = *joined;
        return;
    }
    patterns.push_back(added);
}

// The usual forms of letters in a row, and the others of all of them.
struct Run {
    BytePattern usual;
    std::vector<BytePattern> others;
    std::size_t begin = 0, end = 0; // the letters
};

Run LongestRun(const std::vector<LetterBytes>& letters, const ByteSample& sample) {
    Run longest, run;
    for (std::size_t number = 0; number < letters.size(); ++number) {
        const LetterBytes& letter = letters[number];
        if (letter.ambiguous || !AreOthersRare(letter, sample)) {
            run = {};
            run.begin = number + 1;
            continue;
        }
        run.end = number + 1;
        const BytePattern& usual = letter.patterns.front();
        run.usual.insert(run.usual.end(), usual.begin(), usual.end());
        for (std::size_t i = 1; i < letter.patterns.size(); ++i)
            AddRare(run.others, letter.patterns[i], sample);
        if (run.usual.size() > longest.usual.size()) longest = run;
    }
    return longest;
}

// Where decoding can begin, at `wanted` or before it, so that all but the first few bytes become
// what they are in the text; nothing where that cannot be told.
std::optional<std::size_t> DecodableFrom(const PlainTextForm& form, std::string_view bytes,
                                         std::size_t wanted, bool fromStart) {
    constexpr std::size_t maxUnitSize = 4, maxLineLength = 4096; // that is looked back along
    const bool pairs = form.encoding == TextEncoding::CodePage && !IsSingleBytePage(form.codePage);
    if (!pairs) return wanted - wanted % maxUnitSize;
    // Which bytes are pairs is only sure behind a line end.
    const std::size_t begin = wanted - std::min(wanted, maxLineLength);
    const std::size_t lineEnd = bytes.substr(begin, wanted - begin).find_last_of("\r\n");
    if (lineEnd != bytes.npos) return begin + lineEnd + 1;
    return begin == 0 && fromStart ? std::optional(begin) : std::nullopt;
}
} // namespace

EncodedSearch::EncodedSearch(const PlainTextForm& form, std::u16string_view what,
                             FindOptions options)
    : form_(form), search_(what.substr(0, maxUnits), OptionsOfStart(what, options)),
      letters_(BytesOfLetters(form, what.substr(0, maxUnits), options.matchCase)), borders_(form) {
    for (const LetterBytes& letter : letters_)
        most_ += letter.most;
    if (!OptionsOfStart(what, options).wholeWord || what.empty()) return;
    wordBegins_ = IsWordInAnyCase(what.front());
    wordEnds_ = IsWordInAnyCase(what.back());
}

bool EncodedSearch::IsHopeless() const {
    return std::any_of(letters_.begin(), letters_.end(), [](const LetterBytes& letter) {
        return letter.patterns.empty() && !letter.ambiguous;
    });
}

void EncodedSearch::LearnFrom(std::string_view bytes) {
    const ByteSample sample(bytes);
    const Run run = LongestRun(letters_, sample);
    searches_.clear();
    runBytes_ = run.usual.size();
    runBegins_ = run.begin == 0;
    runEnds_ = run.end == letters_.size();
    if (run.usual.empty()) return;
    searches_.emplace_back(run.usual, sample);
    for (const BytePattern& other : run.others)
        searches_.emplace_back(other, sample);
}

// Of a match of the first search.
bool EncodedSearch::IsPartOfWord(std::string_view bytes, std::size_t place) const {
    return (wordBegins_ && runBegins_ && borders_.IsWordBefore(bytes, place)) ||
           (wordEnds_ && runEnds_ && borders_.IsWordAt(bytes, place + runBytes_));
}

std::vector<std::size_t> EncodedSearch::Places(std::string_view bytes, std::size_t begin,
                                               std::size_t end) const {
    std::vector<std::size_t> places;
    if (searches_.empty()) return places;
    searches_.front().AddPlaces(bytes, begin, end, places);
    if (wordBegins_ || wordEnds_)
        std::erase_if(places, [&](std::size_t place) { return IsPartOfWord(bytes, place); });
    for (std::size_t other = 1; other < searches_.size(); ++other)
        searches_[other].AddPlaces(bytes, begin, end, places);
    std::sort(places.begin(), places.end());
    return places;
}

bool EncodedSearch::MayBeAround(std::string_view bytes, std::size_t place, bool fromStart) const {
    const std::size_t wanted = place - std::min(place, most_ + around);
    const auto begin = DecodableFrom(form_, bytes, wanted, fromStart);
    if (!begin) return true;
    const std::size_t end = place + most_ + around;
    const std::u16string text = DecodePiece(form_, bytes.substr(*begin, end - *begin));
    return search_.FindIn(text, 0) != text.npos;
}
