#include "tests/unit/text_edits.h"

#include "common/string_text.h"
#include "reading/find_places.h"
#include "reading/text_letters.h"

#include <algorithm>

namespace {
int Below(std::mt19937& random, std::size_t limit) {
    return static_cast<int>(random() % std::max<std::size_t>(limit, 1));
}

constexpr std::u16string_view alphabets[] = {u"etaoinshrdlucmfwypvbgk", u"оеаинтсрвлкмдпуяыьгзбчй",
                                             u"ενατιοςρσκλμπυη",
                                             u"的一是不了人我在有他这中大来上国个到说们"};

std::u16string RandomWord(std::mt19937& random, std::u16string_view alphabet) {
    std::u16string word;
    for (int letters = 1 + Below(random, 5) + Below(random, 5); letters > 0; --letters)
        word += alphabet[static_cast<std::size_t>(Below(random, alphabet.size()))];
    return word;
}

// Frequent words are many, as in any language.
std::u16string RandomParagraph(std::mt19937& random, const std::vector<std::u16string>& words) {
    std::u16string text;
    std::size_t line = 0;
    for (int sentences = 1 + Below(random, 6); sentences > 0; --sentences)
        for (int count = 3 + Below(random, 15); count > 0; --count) {
            const auto common = static_cast<std::size_t>(Below(random, words.size()));
            std::u16string word =
                words[random() % 3 == 0 ? common : common * common / words.size()];
            if (random() % 40 == 0) word = u"\"" + word + u",\"";
            if (count == 1) word += u'.';
            if (!text.empty()) text += line + word.size() > 70 ? u'\n' : u' ';
            line = text.empty() || text.back() == u'\n' ? word.size() : line + 1 + word.size();
            text += word;
        }
    return text + u"\n\n";
}
} // namespace

std::u16string UnitsOf(const NumberedText& text) {
    std::u16string units;
    units.reserve(text.size());
    for (const NumberedUnit& each : text)
        units += each.unit;
    return units;
}

NumberedText Numbered(const std::u16string& units) {
    NumberedText text;
    text.reserve(units.size());
    for (const char16_t unit : units)
        text.push_back({unit, static_cast<int>(text.size())});
    return text;
}

std::u16string RandomBook(std::mt19937& random, int paragraphs) {
    const auto alphabet = alphabets[static_cast<std::size_t>(Below(random, std::size(alphabets)))];
    std::vector<std::u16string> words;
    for (int i = 0; i < 1500; ++i)
        words.push_back(RandomWord(random, alphabet));
    std::vector<std::u16string> written;
    std::u16string book;
    for (int i = 0; i < paragraphs; ++i) {
        const bool refrain = !written.empty() && random() % 50 == 0;
        const std::u16string paragraph =
            refrain ? written[random() % written.size()] : RandomParagraph(random, words);
        written.push_back(paragraph);
        book += paragraph;
    }
    return book;
}

namespace {
using Range = std::pair<std::size_t, std::size_t>;

// A stretch of the text between two ends of words.
Range RandomRange(const NumberedText& text, std::mt19937& random, int length) {
    const auto toBlank = [&](std::size_t at) {
        while (at < text.size() && text[at].unit != u' ' && text[at].unit != u'\n')
            ++at;
        return at;
    };
    const std::size_t start = toBlank(random() % std::max<std::size_t>(text.size(), 1));
    return {start, toBlank(std::min(text.size(), start + static_cast<std::size_t>(length)))};
}

auto At(NumberedText& text, std::size_t index) {
    return text.begin() + static_cast<std::ptrdiff_t>(index);
}

NumberedText NewText(std::mt19937& random, int paragraphs) {
    NumberedText text;
    for (const char16_t unit : RandomBook(random, paragraphs))
        text.push_back({unit, -1});
    return text;
}

void Nothing(NumberedText&, std::mt19937&) {}

void Insert(NumberedText& text, std::mt19937& random) {
    for (int i = 1 + Below(random, 5); i > 0; --i) {
        const NumberedText added = NewText(random, 1 + Below(random, 10));
        text.insert(At(text, RandomRange(text, random, 0).first), added.begin(), added.end());
    }
}

void Delete(NumberedText& text, std::mt19937& random) {
    for (int i = 1 + Below(random, 5); i > 0; --i) {
        const auto [start, end] = RandomRange(text, random, Below(random, text.size() / 10 + 1));
        text.erase(At(text, start), At(text, end));
    }
}

// Corrections: a letter here, a word there, all over the text.
void Correct(NumberedText& text, std::mt19937& random) {
    for (std::size_t i = text.size() / 300 + 1; i > 0; --i) {
        const auto [start, end] = RandomRange(text, random, Below(random, 12));
        NumberedText word;
        for (int letters = Below(random, 12); letters > 0; --letters)
            word.push_back({static_cast<char16_t>(u'a' + Below(random, 26)), -1});
        text.erase(At(text, start), At(text, end));
        text.insert(At(text, start), word.begin(), word.end());
    }
}

// Whole passages rewritten.
void Replace(NumberedText& text, std::mt19937& random) {
    for (int i = 1 + Below(random, 4); i > 0; --i) {
        const auto [start, end] = RandomRange(text, random, Below(random, text.size() / 12 + 1));
        const NumberedText added = NewText(random, 1 + Below(random, 8));
        text.erase(At(text, start), At(text, end));
        text.insert(At(text, start), added.begin(), added.end());
    }
}

void Move(NumberedText& text, std::mt19937& random) {
    for (int i = 1 + Below(random, 3); i > 0; --i) {
        const auto [start, end] =
            RandomRange(text, random, 500 + Below(random, text.size() / 8 + 1));
        const NumberedText block(At(text, start), At(text, end));
        text.erase(At(text, start), At(text, end));
        text.insert(At(text, RandomRange(text, random, 0).first), block.begin(), block.end());
    }
}

bool IsBreak(const NumberedText& text, std::size_t at) {
    return at < text.size() && text[at].unit == u'\n';
}

// The lines of a paragraph become one.
void Unwrap(NumberedText& text, std::mt19937&) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (IsBreak(text, i) && !IsBreak(text, i + 1) && (i == 0 || !IsBreak(text, i - 1)))
            text[i].unit = u' ';
}

// Other line ends in the file are none in the text; what also happens is one end for two, indents
// and blanks before a line's end.
void Lines(NumberedText& text, std::mt19937& random) {
    NumberedText changed;
    const bool indent = random() % 2 == 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsBreak(text, i) && !indent) changed.push_back({u' ', -1});
        if (IsBreak(text, i) && i > 0 && IsBreak(text, i - 1) && indent) {
            changed.insert(changed.end(), 4, {u' ', -1});
            continue;
        }
        changed.push_back(text[i]);
    }
    text = changed;
}

// Another encoding, or a word processor: typographic signs for those of the keyboard.
void Signs(NumberedText& text, std::mt19937&) {
    bool open = false;
    for (NumberedUnit& each : text) {
        if (each.unit == u'"') each.unit = (open = !open) ? u'\u201C' : u'\u201D';
        if (each.unit == u'\'') each.unit = u'\u2019';
    }
}

void All(NumberedText& text, std::mt19937& random) {
    Insert(text, random);
    Delete(text, random);
    Correct(text, random);
    Move(text, random);
    Unwrap(text, random);
    Signs(text, random);
}
} // namespace

const std::vector<EditKind>& EditKinds() {
    static const std::vector<EditKind> kinds = {
        {"nothing", Nothing},
        {"paragraphs added", Insert},
        {"passages deleted", Delete},
        {"letters and words corrected all over", Correct},
        {"passages written anew", Replace},
        {"blocks moved", Move},
        {"lines joined to paragraphs", Unwrap},
        {"other ends of lines and paragraphs", Lines},
        {"typographic signs, as of another encoding", Signs},
        {"all of these", All},
    };
    return kinds;
}

namespace {
// Where the units of the text before are now; -1 for those that have gone.
std::vector<TextPos> WhereUnitsWent(std::size_t count, const NumberedText& after) {
    std::vector<TextPos> went(count, -1);
    for (std::size_t i = 0; i < after.size(); ++i)
        if (after[i].number >= 0)
            went[static_cast<std::size_t>(after[i].number)] = static_cast<TextPos>(i);
    return went;
}

// The letters right at the place, on both sides, are there with nothing between them.
bool SurroundingsSurvive(const std::u16string& before, const std::vector<TextPos>& went,
                         const std::u16string& after, TextPos place) {
    constexpr std::size_t lettersBeside = 16;
    std::size_t split = 0;
    const PlacedLetters around =
        LettersAround(StringText(before), place, lettersBeside, lettersBeside, split);
    const auto place_ = static_cast<std::size_t>(place);
    if (went[place_] < 0 || around.letters.size() < lettersBeside) return false;
    for (std::size_t i = 0; i < around.positions.size(); ++i) {
        const TextPos now = went[static_cast<std::size_t>(around.positions[i])];
        if (now < 0) return false;
        if (i == 0) continue;
        const TextPos earlier = went[static_cast<std::size_t>(around.positions[i - 1])];
        if (earlier >= now) return false;
        const std::u16string between = after.substr(static_cast<std::size_t>(earlier + 1),
                                                    static_cast<std::size_t>(now - earlier - 1));
        if (!LettersOf(between).empty()) return false;
    }
    return true;
}

std::u16string LettersBeside(const TextSource& text, TextPos place) {
    constexpr std::size_t lettersBeside = 24;
    std::size_t split = 0;
    return LettersAround(text, place, lettersBeside, lettersBeside, split).letters;
}

// Where a place belongs: its own unit, or the nearest one that is still there.
TextPos RightPlace(const std::vector<TextPos>& went, TextPos place) {
    const auto count = static_cast<TextPos>(went.size());
    for (TextPos distance = 0; distance < count; ++distance)
        for (const TextPos near : {place - distance, place + distance})
            if (near >= 0 && near < count && went[static_cast<std::size_t>(near)] >= 0)
                return went[static_cast<std::size_t>(near)];
    return 0;
}

// No blank line lies between the two, or the one that the right place stands beside.
bool InOneParagraph(const std::u16string& text, TextPos a, TextPos b) {
    constexpr TextPos beside = 3;
    const TextPos low = std::min(a, b), high = std::max(a, b);
    if (high - low <= beside) return true;
    const auto between = std::u16string_view(text).substr(static_cast<std::size_t>(low + 1),
                                                          static_cast<std::size_t>(high - low - 2));
    return between.find(u"\n\n") == between.npos;
}
} // namespace

std::vector<PlaceResult> TryPlaces(const std::u16string& before, const NumberedText& after,
                                   int count, std::mt19937& random) {
    const StringText source(before);
    std::vector<KnownPlace> known;
    for (int i = 0; i < count; ++i) {
        const auto place = static_cast<TextPos>(Below(random, before.size()));
        known.push_back({place, WordsAround(source, place)});
    }
    const std::u16string units = UnitsOf(after);
    const std::vector<FoundPlace> found =
        FindPlaces(StringText(units), source.Length(), known, [] { return true; });
    const std::vector<TextPos> went = WhereUnitsWent(before.size(), after);
    std::vector<PlaceResult> results;
    for (std::size_t i = 0; i < known.size(); ++i) {
        const TextPos place = known[i].position, right = RightPlace(went, place);
        PlaceResult result;
        result.survived = SurroundingsSurvive(before, went, units, place);
        result.exact = went[static_cast<std::size_t>(place)] == found[i].position;
        result.certain = found[i].certain;
        // The same words elsewhere are no wrong place: nothing tells a moved text from a copy.
        const bool sameWords =
            LettersBeside(StringText(units), found[i].position) == LettersBeside(source, place);
        result.astray =
            found[i].certain && !sameWords && !InOneParagraph(units, right, found[i].position);
        results.push_back(result);
    }
    return results;
}

void PlaceTally::Add(const std::vector<PlaceResult>& results) {
    for (const PlaceResult& each : results) {
        ++places;
        survived += each.survived;
        exact += each.survived && each.exact;
        certain += each.certain;
        astray += each.astray;
    }
}
