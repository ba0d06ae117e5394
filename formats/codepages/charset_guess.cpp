#include "formats/codepages/charset_guess.h"

#include "formats/codepages/byte_evidence.h"
#include "formats/codepages/character_costs.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/letter_costs.h"

#include <algorithm>
#include <climits>
#include <initializer_list>
#include <optional>

namespace {
// Prior probability of a charset, in bits: decides only where the text does not.
struct RarePage {
    int page, bits;
};

constexpr RarePage singleBytePages[] = {
    {1252, 0},
    {1251, 0},
    {1250, 1},
    {1253, 0},
    {1254, 1},
    {1255, 0},
    {1256, 0},
    {1257, 1},
    {1258, 1},
    {874, 0},
    {20866, 1},
    {21866, 2},
    {28591, 3},
    {28592, 2},
    {28593, 5},
    {28594, 4},
    {28595, 3},
    {28596, 3},
    {28597, 2},
    {logicalIsoPage, 2},
    {28599, 3},
    {28600, 6},
    {28601, 2},
    {28603, 3},
    {28604, 6},
    {28605, 2},
    {28606, 4},
    {437, 5},
    {720, 6},
    {737, 4},
    {775, 5},
    {850, 4},
    {852, 4},
    {855, 5},
    {857, 5},
    {858, 5},
    {860, 6},
    {861, 6},
    {862, 4},
    {863, 6},
    {864, 15},
    {865, 6},
    {866, 3},
    {869, 6},
    {1125, 6},
    {mikPage, 7},
    {kazakhPage, 8},
    {asianPage, 8},
    {10000, 5},
    {10006, 6},
    {10007, 5},
    {10010, 8},
    {10029, 5},
    {10079, 8},
    {10081, 7},
    {10082, 8},
    {visciiPage, 4},
    {tcvnPage, 4},
    {visualIsoPage, 4},
    {visualDosPage, 5},
    {visualWindowsPage, 6},
};

struct CharacterPage {
    int page, bits;
    CharacterLanguage language;
};

constexpr CharacterPage characterPages[] = {
    {932, 2, Japanese},
    {51932, 2, Japanese},
    {949, 2, Korean},
    {1361, 6, Korean},
    {936, 2, SimplifiedChinese},
    {936, 4, TraditionalChinese},
    {950, 2, TraditionalChinese},
    {51950, 6, TraditionalChinese},
};

// Advantage of the system's own page: a little always, more where the evidence is small.
constexpr int systemBits = 5, systemBitsForEach = 2;
constexpr std::size_t fewBytes = 5;
constexpr int chosenBits = 25; // besides, for the page of a script that the reader chose
constexpr int maxCostOverBest =
    200 * costsPerBit; // a charset further after the best is not plausible

constexpr int macLineEndBits = 6, dosRuleBits = 60; // for the pages of these systems

bool IsMacPage(int page) {
    return page >= 10000 && page < 10100;
}
// MIK has letters where other pages of DOS have the corners of frames.
bool IsDosPage(int page) {
    constexpr int arabic = 864; // which has letters in the place of such signs
    return (page < 870 && page != arabic) || page == 1125;
}

int SystemBits(const ByteEvidence& evidence) {
    if (evidence.macLineEnds || evidence.dosRules) return 0; // another system's text
    const std::size_t missing = fewBytes - std::min(evidence.highBytes, fewBytes);
    return systemBits + systemBitsForEach * static_cast<int>(missing);
}

// Short byte sequences are often valid by chance in a charset of thousands of characters.
int FewCharactersBits(const ByteEvidence& evidence) {
    constexpr std::size_t fewOfCharacters = 10;
    constexpr int bitsForEach = 3;
    const std::size_t missing = fewOfCharacters - std::min(evidence.highBytes, fewOfCharacters);
    return bitsForEach * static_cast<int>(missing);
}

struct Search {
    const ByteEvidence& evidence;
    int systemPage;
    std::initializer_list<int> candidates; // these only, all when there are none
    std::vector<PageCost> found;
    int best = INT_MAX / 2;

    int Handicap(int page, int bits) const {
        const int chosen = candidates.size() != 0 ? chosenBits : 0;
        if (evidence.macLineEnds && IsMacPage(page)) bits -= macLineEndBits;
        if (evidence.dosRules && IsDosPage(page)) bits -= dosRuleBits;
        return (page == systemPage ? -SystemBits(evidence) - chosen : bits) * costsPerBit;
    }
    bool Includes(int page) const {
        return candidates.size() == 0 || std::ranges::find(candidates, page) != candidates.end();
    }
    int Limit() const { return best + maxCostOverBest; }
    void Add(PageCost cost) {
        best = std::min(best, cost.cost);
        found.push_back(cost);
    }
};

void TrySingleBytes(Search& search) {
    const LetterCosts costs(search.evidence);
    for (const RarePage& each : singleBytePages) {
        if (!search.Includes(each.page)) continue;
        const int handicap = search.Handicap(each.page, each.bits);
        const auto cost =
            costs.Cheapest(each.page, UpperHalf(each.page), search.Limit() - handicap);
        if (cost) search.Add({cost->page, cost->cost + handicap, cost->language});
    }
}

void TryCharacters(Search& search) {
    std::optional<CharacterCosts> costs[characterModelCount];
    std::u16string text;
    for (const CharacterPage& each : characterPages) {
        if (!search.Includes(each.page)) continue;
        auto& model = costs[each.language];
        if (!model) model.emplace(each.language);
        text.clear();
        DecodeCodePage(each.page, search.evidence.text, text);
        const int handicap =
            search.Handicap(each.page, each.bits + FewCharactersBits(search.evidence));
        const int limit = search.Limit() - handicap;
        const int cost = model->Cost(text, limit);
        if (cost < limit)
            search.Add({each.page, cost + handicap, characterModels[each.language].name});
    }
}

// Charsets of the same script as a Windows code page, which is the first.
constexpr std::initializer_list<int> families[] = {
    {1252, 850, 858, 437, 10000, 28605, 28591, 860, 861, 863, 865, 10079, 28604},
    {1250, 28592, 852, 10029, 28606, 10010, 10082},
    {1251, 20866, 21866, 866, 28595, 10007, 855, 1125, mikPage, kazakhPage, asianPage},
    {1253, 28597, 737, 869, 10006},
    {1254, 28599, 857, 10081, 28593},
    {1255, logicalIsoPage, 862, visualIsoPage, visualDosPage, visualWindowsPage},
    {1256, 28596, 720, 864},
    {1257, 28603, 775, 28594, 28600},
    {1258, visciiPage, tcvnPage},
    {874, 28601},
    {932, 51932},
    {949, 1361},
    {950, 51950},
    {936, 54936},
};

std::vector<CharsetGuess> Guess(std::span<const std::string_view> samples, int systemPage,
                                std::initializer_list<int> candidates) {
    const ByteEvidence evidence = GatherEvidence(samples);
    if (evidence.highBytes == 0) return {{systemPage}};
    Search search{evidence, systemPage, candidates, {}};
    TrySingleBytes(search);
    TryCharacters(search);
    std::ranges::stable_sort(search.found, {}, &PageCost::cost);
    std::vector<CharsetGuess> guesses;
    for (const PageCost& each : search.found) {
        const bool known = std::ranges::any_of(
            guesses, [&](const CharsetGuess& guess) { return guess.page == each.page; });
        if (!known && each.cost < search.Limit())
            guesses.push_back({each.page, (each.cost - search.best) / costsPerBit, each.language});
    }
    if (guesses.empty()) return {{systemPage}};
    return guesses;
}
} // namespace

std::vector<CharsetGuess> GuessCharsets(std::span<const std::string_view> samples, int systemPage) {
    return Guess(samples, systemPage, {});
}

int GuessCharsetOfScript(std::span<const std::string_view> samples, int windowsPage) {
    for (const auto& family : families)
        if (*family.begin() == windowsPage) return Guess(samples, windowsPage, family).front().page;
    return windowsPage;
}

int WindowsPageOfScript(int codePage) {
    for (const auto& family : families)
        if (std::ranges::find(family, codePage) != family.end()) return *family.begin();
    return 0;
}
