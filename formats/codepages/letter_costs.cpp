#include "formats/codepages/letter_costs.h"

#include "formats/codepages/character_properties.h"
#include "formats/codepages/code_pages.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {
constexpr int foreignLetterCost = 15 * costsPerBit; // of another script
constexpr int uppercaseFirstCost = 2 * costsPerBit, uppercaseInRowCost = 5,
              uppercaseInWordCost = 8 * costsPerBit;
constexpr int strangeLetterCost = 8 * costsPerBit; // of the script, but not of the language
constexpr int scriptChangeCost = 10 * costsPerBit; // within a word
constexpr int loneLetterCost = 5 * costsPerBit;  // of a script whose letters nowhere stand together
constexpr int withinWordCost = 12 * costsPerBit; // of a quotation mark or fraction: a letter
// The tables are of texts without vowels: where these are written, each letter has one or two.
constexpr int markCost = 10, secondMarkCost = 5 * costsPerBit, strayMarkCost = 15 * costsPerBit;
constexpr int letterAfterMarkCost = 18, endAfterMarkCost = 10;
constexpr int letterAfterDigitCost = 5 * costsPerBit, signAfterDigitCost = 6 * costsPerBit;
constexpr int noLettersCost = 6 * costsPerBit;
constexpr int freeAfterLetterCost = costsPerBit;
constexpr int wrongSideCost = 5 * costsPerBit, boxDrawingInRowCost = costsPerBit;

bool IsAsciiLetter(unsigned char byte) {
    return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
}

// The bytes of a page as characters; `classes` are those of one language.
struct PageProperties {
    CharacterProperties properties[256];
};

PageProperties PropertiesOfPage(const char16_t* units, const ByteEvidence& evidence) {
    PageProperties page;
    for (int byte = 0; byte < 256; ++byte)
        if (evidence.seen[byte])
            page.properties[byte] =
                PropertiesOf(byte < 0x80 ? static_cast<char16_t>(byte) : units[byte - 0x80]);
    return page;
}

int UppercaseCost(const CharacterProperties& before, const CharacterProperties& character) {
    if (!character.uppercase) return 0;
    if (before.letter == 0) return uppercaseFirstCost;
    return before.uppercase ? uppercaseInRowCost : uppercaseInWordCost;
}

int PunctuationCost(const CharacterProperties& before, const CharacterProperties& character,
                    bool same) {
    const bool opens = character.kind == PunctuationKind::Opening;
    const bool odd =
        character.kind == PunctuationKind::Odd || character.kind == PunctuationKind::BoxDrawing;
    if (character.kind == PunctuationKind::BoxDrawing && same) return boxDrawingInRowCost;
    int cost = character.cost;
    if (cost != 0 && before.letter != 0) {
        if (opens || odd) cost += wrongSideCost;
        if (character.kind == PunctuationKind::Free) cost += freeAfterLetterCost;
    }
    if (character.kind == PunctuationKind::Joining && before.letter == 0) cost += wrongSideCost;
    return cost;
}

// The part of a pair's cost that is the same in every language: punctuation, uppercase.
int CommonCost(const PageProperties& page, BytePair pair) {
    const CharacterProperties &before = page.properties[pair.first],
                              &character = page.properties[pair.second];
    const bool isAfterDigit = pair.first >= '0' && pair.first <= '9';
    if (character.withNumbers && isAfterDigit) return signAfterDigitCost;
    if (character.letter == 0) return PunctuationCost(before, character, pair.first == pair.second);
    int cost = UppercaseCost(before, character);
    if (isAfterDigit) cost += letterAfterDigitCost;
    if (before.letter != 0 && before.script != character.script) cost += scriptChangeCost;
    const bool closes = before.kind == PunctuationKind::Closing ||
                        before.kind == PunctuationKind::Odd ||
                        before.kind == PunctuationKind::BoxDrawing;
    if (before.letter == 0 && before.cost != 0 && closes) cost += wrongSideCost;
    return cost;
}

class LanguageReader {
  public:
    LanguageReader(const LanguageModel& model, const PageProperties& page,
                   const ByteEvidence& evidence)
        : model_(model), size_(model.letterCount + 2) {
        const std::u16string_view letters(model.letters,
                                          static_cast<std::size_t>(model.letterCount));
        for (int byte = 0; byte < 256; ++byte) {
            if (!evidence.seen[byte]) continue;
            const CharacterProperties& properties = page.properties[byte];
            if (properties.letter == 0) continue;
            if (properties.script != model.script) {
                foreign_[byte] = byte < 0x80 ? asciiLetterCost : foreignLetterCost;
                continue;
            }
            const auto place = letters.find(properties.letter);
            classes_[byte] = place == letters.npos ? 1 : static_cast<unsigned char>(place + 2);
            marks_[byte] = properties.mark;
            const bool isStrange = byte >= 0x80 && place == letters.npos && !properties.mark;
            if (isStrange) foreign_[byte] = strangeLetterCost;
        }
    }

    int Cost(unsigned char first, unsigned char second) const {
        if (marks_[second])
            return marks_[first] ? secondMarkCost : classes_[first] != 0 ? markCost : strayMarkCost;
        if (marks_[first]) return classes_[second] != 0 ? letterAfterMarkCost : endAfterMarkCost;
        return model_.costs[classes_[first] * size_ + classes_[second]] - firstCost;
    }
    int ForeignCost(unsigned char byte) const { return foreign_[byte]; }

  private:
    const LanguageModel& model_;
    int size_;
    unsigned char classes_[256] = {};
    bool marks_[256] = {};
    int foreign_[256] = {};
};

// The letters of a script, if no two of them stand together: more likely signs of another charset.
int LoneLetters(LetterScript script, const PageProperties& page, const ByteEvidence& evidence) {
    const auto isLetter = [&](unsigned char byte) {
        return page.properties[byte].letter != 0 && page.properties[byte].script == script;
    };
    int letters = 0;
    for (const BytePair& pair : evidence.high) {
        if (isLetter(pair.first) && isLetter(pair.second)) return 0;
        if (isLetter(pair.second)) letters += pair.count;
    }
    return letters;
}

constexpr std::u16string_view finalLetters = u"\u05DA\u05DD\u05DF\u05E3\u05E5";

// Five letters have a form for the end of a word, which in visual order is its first character.
bool HasFinalLettersFirst(const PageProperties& page, const ByteEvidence& evidence) {
    const auto isLetter = [&](unsigned char byte) {
        return page.properties[byte].script == LetterScript::Hebrew;
    };
    const auto isFinal = [&](unsigned char byte) {
        return isLetter(byte) &&
               finalLetters.find(page.properties[byte].letter) != finalLetters.npos;
    };
    int first = 0, last = 0;
    for (const BytePair& pair : evidence.high) {
        if (isFinal(pair.first) && !isLetter(pair.second)) last += pair.count;
        if (isFinal(pair.second) && !isLetter(pair.first)) first += pair.count;
    }
    return first > last;
}

// Whether a text of the language may be in this order: most charsets have one alone, and Arabic is
// taken for what it is in either.
bool CanBeInOrder(bool reversed, int page, LetterScript script) {
    if (IsVisualOrder(page)) return reversed && script == LetterScript::Hebrew;
    return !reversed || script == LetterScript::Arabic;
}

struct PageLetters {
    explicit PageLetters(const char16_t* units) {
        for (int i = 0; i < 128; ++i)
            letters[i] = PropertiesOf(units[i]).letter;
    }
    bool Has(char16_t letter) const {
        return letter < 0x80 || std::ranges::find(letters, letter) != std::end(letters);
    }

    char16_t letters[128];
};

bool HasCoreLetters(const LanguageModel& model, int page, const PageLetters& letters) {
    if (model.script != LetterScript::Latin) return true;
    // Vietnamese has too many for a page: tones stand by themselves.
    if (std::string_view(model.name) == "vi")
        return page == 1258 || page == visciiPage || page == tcvnPage;
    return std::all_of(model.letters, model.letters + model.coreLetters,
                       [&](char16_t letter) { return letters.Has(letter); });
}
// Of a language that is often written with none but ASCII letters, signs may be all that is left.
bool NeedsAsciiOnly(const LanguageModel& model) {
    return model.script == LetterScript::Latin &&
           std::all_of(model.letters, model.letters + model.coreLetters,
                       [](char16_t letter) { return letter < 0x80; });
}
} // namespace

int AsciiLettersCost(const ByteEvidence& evidence) {
    int cost = 0;
    for (const BytePair& pair : evidence.ascii)
        if (IsAsciiLetter(pair.second)) cost += pair.count * asciiLetterCost;
    return AsciiShare(cost);
}

LetterCosts::LetterCosts(const ByteEvidence& evidence) : evidence_(evidence) {
    bool isElsewhere[256] = {};
    for (const BytePair& pair : evidence.high) {
        withinWords_[pair.second] += pair.count;
        if (!IsAsciiLetter(pair.first)) isElsewhere[pair.second] = true;
        if (!IsAsciiLetter(pair.second)) isElsewhere[pair.first] = true;
    }
    for (int byte = 0; byte < 256; ++byte)
        if (isElsewhere[byte]) withinWords_[byte] = 0;
    const char16_t none[128] = {};
    const PageProperties ascii = PropertiesOfPage(none, evidence);
    for (const LanguageModel& model : languageModels) {
        if (model.script != LetterScript::Latin) {
            asciiCosts_.push_back(AsciiLettersCost(evidence));
            continue;
        }
        const LanguageReader reader(model, ascii, evidence);
        int cost = 0;
        for (const BytePair& pair : evidence.ascii)
            cost += pair.count * (reader.Cost(pair.first, pair.second));
        asciiCosts_.push_back(AsciiShare(cost));
    }
}

int LetterCosts::WithinWordsCost(const char16_t* units) const {
    constexpr std::u16string_view marks =
        u"\u00AB\u00BB\u201C\u201D\u201E\u201A\u2039\u203A\u00A1\u00BF"
        u"\u00A4\u00A6\u00A8\u00B4\u00B8\u00B9\u00BC\u00BD\u00BE";
    int count = 0;
    for (int byte = 0x80; byte < 0x100; ++byte)
        if (marks.find(units[byte - 0x80]) != marks.npos) count += withinWords_[byte];
    return count * withinWordCost;
}

std::optional<PageCost> LetterCosts::Cheapest(int page, const char16_t* units, int limit) const {
    const PageProperties properties = PropertiesOfPage(units, evidence_);
    int common = WithinWordsCost(units);
    bool scripts[7] = {};
    for (const BytePair& pair : evidence_.high) {
        common += pair.count * CommonCost(properties, pair);
        scripts[static_cast<int>(properties.properties[pair.second].script)] = true;
    }
    if (common >= limit) return std::nullopt;
    if (IsVisualOrder(page) && !HasFinalLettersFirst(properties, evidence_)) return std::nullopt;
    const PageLetters letters(units);
    std::optional<PageCost> best;
    for (int language = 0; language < languageCount; ++language) {
        const LanguageModel& model = languageModels[language];
        const bool hasLetters = scripts[static_cast<int>(model.script)];
        if (!hasLetters && !NeedsAsciiOnly(model)) continue;
        if (!HasCoreLetters(model, page, letters)) continue;
        const LanguageReader reader(model, properties, evidence_);
        const int lone = LoneLetters(model.script, properties, evidence_);
        for (const bool reversed : {false, true}) {
            if (!CanBeInOrder(reversed, page, model.script)) continue;
            int cost =
                common + asciiCosts_[static_cast<std::size_t>(language)] + lone * loneLetterCost;
            if (!hasLetters && language != 0) cost += noLettersCost; // less common than English
            for (const BytePair& pair : evidence_.high) {
                cost += pair.count * ((reversed ? reader.Cost(pair.second, pair.first)
                                                : reader.Cost(pair.first, pair.second)) +
                                      reader.ForeignCost(pair.second));
                if (cost >= limit) break;
            }
            if (cost >= limit) continue;
            limit = cost;
            best = PageCost{page, cost, model.name};
        }
    }
    return best;
}
