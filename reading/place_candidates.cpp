#include "reading/place_candidates.h"

#include "reading/align_letters.h"
#include "reading/letter_seeds.h"
#include "reading/place_gap.h"
#include "reading/text_letters.h"

#include <algorithm>
#include <iterator>

namespace {
constexpr std::size_t maxShift = 24;      // letters that edits around a place may add or take out
constexpr std::size_t maxCandidates = 16; // of a place, those with the most seeds
constexpr std::size_t seedStep = 5;       // letters from one seed to the next

// Short seeds find more in a short text, and nothing but noise in a long one.
std::size_t SeedLength(TextPos textLength) {
    return textLength < 32 * 1024 ? 6 : 12;
}

double Share(int cost, std::size_t letters) {
    return letters == 0 ? 1 : static_cast<double>(cost) / static_cast<double>(letters);
}

// One side alone tells only where it has letters enough.
double NearDifference(const LetterAlignment& found, const PlacePattern& pattern) {
    constexpr std::size_t enough = 20;
    const std::size_t before = pattern.split, after = pattern.letters.size() - before;
    double near = 1;
    if (before >= enough) near = std::min(near, Share(found.costBefore, before));
    if (after >= enough) near = std::min(near, Share(found.costAfter, after));
    return near;
}

// Between the letters on both sides; where only one of them is as it was, beside that.
TextPos PositionOf(const TextSource& text, const PlacedLetters& stretch,
                   const LetterAlignment& found, const PlaceWords& words) {
    const std::size_t at = found.split, count = stretch.letters.size();
    const TextPos from = at > 0 ? stretch.positions[at - 1] + 1 : 0;
    const TextPos to = at < count ? stretch.positions[at] : text.Length();
    if (found.sameBefore == 0 && found.sameAfter > 0 && at > 0) {
        const PlaceWords after{u"", words.after};
        return PlaceInGap(text, from, to, after);
    }
    return PlaceInGap(text, from, to, words);
}

// `anchor` is in the text where letter `offset` of those looked for is expected.
PlaceCandidate Verify(const TextSource& text, const PlaceWords& words, const PlacePattern& pattern,
                      TextPos anchor, std::size_t offset) {
    const std::size_t count = pattern.letters.size();
    std::size_t split = 0;
    const PlacedLetters stretch =
        LettersAround(text, anchor, offset + maxShift, count - offset + maxShift, split);
    const std::size_t start = split - std::min(split, offset);
    LetterAlignment found;
    const std::u16string_view view(stretch.letters);
    if (split >= offset && view.substr(start, count) == pattern.letters)
        found = {start + pattern.split, 0, 0, pattern.split, count - pattern.split};
    else
        found = AlignLetters(pattern.letters, pattern.split, view, start, maxShift);
    return {PositionOf(text, stretch, found, words), Share(found.Cost(), count),
            NearDifference(found, pattern)};
}

// Seeds of one place that stand in the same order and distance as in its letters.
struct SeedGroup {
    std::int64_t diagonal = 0; // index in the text's letters where the place's letters begin
    int seeds = 0;
    SeedHit nearest; // the one nearest to the place
};

std::size_t Distance(std::size_t a, std::size_t b) {
    return a > b ? a - b : b - a;
}

std::vector<SeedGroup> Groups(const SeedHit* first, const SeedHit* last, std::size_t split) {
    std::vector<SeedGroup> groups;
    for (const SeedHit* hit = first; hit != last; ++hit) {
        const std::int64_t diagonal = hit->letter - hit->seed.offset;
        if (groups.empty() || diagonal - groups.back().diagonal > static_cast<int>(maxShift))
            groups.push_back({diagonal, 0, *hit});
        SeedGroup& group = groups.back();
        ++group.seeds;
        if (Distance(hit->seed.offset, split) < Distance(group.nearest.seed.offset, split))
            group.nearest = *hit;
    }
    std::ranges::stable_sort(groups, std::ranges::greater(), &SeedGroup::seeds);
    // A phrase of several words is common, and each look into the text has its price.
    const int fewest = groups.empty() ? 0 : groups.front().seeds / 3;
    std::erase_if(groups, [=](const SeedGroup& group) { return group.seeds < fewest; });
    if (groups.size() > maxCandidates) groups.resize(maxCandidates);
    return groups;
}

void AddCandidate(std::vector<PlaceCandidate>& candidates, const PlaceCandidate& candidate) {
    const auto same = std::ranges::find(candidates, candidate.position, &PlaceCandidate::position);
    if (same == candidates.end())
        candidates.push_back(candidate);
    else if (candidate.difference < same->difference)
        *same = candidate;
}
} // namespace

PlacePattern PatternOf(const PlaceWords& words) {
    PlacePattern pattern{LettersOf(words.before), 0};
    pattern.split = pattern.letters.size();
    pattern.letters += LettersOf(words.after);
    return pattern;
}

std::vector<std::vector<PlaceCandidate>>
FindCandidates(const TextSource& text, const std::vector<KnownPlace>& places,
               const std::function<bool()>& shouldContinue) {
    const std::size_t seedLength = SeedLength(text.Length());
    LetterSeeds seeds(seedLength);
    std::vector<PlacePattern> patterns;
    for (std::uint32_t i = 0; i < places.size(); ++i) {
        patterns.push_back(PatternOf(places[i].words));
        const std::u16string_view letters = patterns.back().letters;
        for (std::uint32_t at = 0; at + seedLength <= letters.size(); at += seedStep)
            seeds.Add(letters.substr(at, seedLength), {i, at});
    }
    std::vector<SeedHit> hits = seeds.FindIn(text, shouldContinue);
    std::ranges::stable_sort(hits, {}, [](const SeedHit& hit) {
        return std::pair(hit.seed.place, hit.letter - hit.seed.offset);
    });

    std::vector<SeedGroup> groups;
    for (const SeedHit *hit = hits.data(), *end = hit + hits.size(); hit != end;) {
        const std::uint32_t place = hit->seed.place;
        const SeedHit* const next =
            std::find_if(hit, end, [=](const SeedHit& each) { return each.seed.place != place; });
        std::ranges::copy(Groups(hit, next, patterns[place].split), std::back_inserter(groups));
        hit = next;
    }
    // In the order of the text, which keeps only a few of its pieces at hand.
    std::ranges::stable_sort(groups, {}, [](const SeedGroup& group) { return group.nearest.end; });
    std::vector<std::vector<PlaceCandidate>> candidates(places.size());
    for (const SeedGroup& group : groups) {
        const LetterSeed& seed = group.nearest.seed;
        AddCandidate(candidates[seed.place],
                     Verify(text, places[seed.place].words, patterns[seed.place], group.nearest.end,
                            seed.offset + seedLength));
    }
    for (auto& each : candidates)
        std::ranges::stable_sort(each, {}, &PlaceCandidate::difference);
    return candidates;
}

PlaceCandidate CandidateNear(const TextSource& text, const KnownPlace& place,
                             const PlacePattern& pattern, TextPos expected) {
    return Verify(text, place.words, pattern, expected, pattern.split);
}
