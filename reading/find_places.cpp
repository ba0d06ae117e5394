#include "reading/find_places.h"

#include "reading/place_candidates.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <optional>

namespace {
// Shares of a place's letters that are others than before.
constexpr double sameWords = 0.12;           // found wherever that is
constexpr double similarWords = 0.4;         // found where it is expected
constexpr double unchanged = 0.02;           // but for a letter
constexpr double clearlyBetter = 0.2;        // than the next candidate
constexpr double betterThanUnchanged = 0.04; // lines of a table have most letters in common
constexpr double intactSide = 0.1;           // of the letters on one side of the place
constexpr TextPos slack = 400;               // units around where a place is expected

// Where a place may have gone, by what was found around it.
struct Expectation {
    TextPos low = 0, high = 0;
    TextPos likeliest = 0;
    TextPos first = 0, last = 0; // in the order of the text; last < first where that has changed

    TextPos DistanceOf(TextPos position) const {
        return std::max({low - position, position - high, 0});
    }
    bool Includes(TextPos position) const {
        if (first <= last) return DistanceOf(position) <= slack && KeepsOrder(position);
        return std::min(std::abs(position - low), std::abs(position - high)) <= slack;
    }
    bool KeepsOrder(TextPos position) const { return position >= first && position <= last; }
};

bool IsClearlyBetter(const PlaceCandidate& best, const PlaceCandidate& next) {
    const bool same = best.difference <= unchanged;
    return next.difference > best.difference + (same ? betterThanUnchanged : clearlyBetter);
}

class PlaceFinder {
  public:
    PlaceFinder(const TextSource& text, TextPos oldLength, const std::vector<KnownPlace>& places)
        : text_(text), oldLength_(std::max(oldLength, 1)), places_(places), order_(places.size()),
          found_(places.size()) {
        std::iota(order_.begin(), order_.end(), std::size_t{0});
        std::ranges::stable_sort(order_, {}, [&](std::size_t i) { return places_[i].position; });
    }

    std::vector<FoundPlace> Find(const std::function<bool()>& shouldContinue) {
        candidates_ = FindCandidates(text_, places_, shouldContinue);
        for (std::size_t i = 0; i < places_.size(); ++i)
            FindByWordsAlone(i);
        DoubtOtherVerses();
        FindByNeighbours();
        return found_;
    }

  private:
    void Settle(std::size_t i, TextPos position) { found_[i] = {position, true}; }

    void FindByWordsAlone(std::size_t i) {
        const auto& candidates = candidates_[i];
        if (candidates.empty()) return;
        const PlaceCandidate& best = candidates[0];
        // Also where the best one is unchanged: that may be a refrain, and the place the other
        // verse, which has been corrected.
        const bool only =
            candidates.size() == 1 || candidates[1].difference > best.difference + clearlyBetter;
        if (only && best.difference <= sameWords) Settle(i, best.position);
    }

    struct KnownEnd {
        TextPos old = 0, now = 0;
    };
    // Old places come from the data file, which somebody may have edited.
    static std::int64_t Distance(TextPos from, TextPos to) { return std::int64_t{to} - from; }
    KnownEnd EndOf(std::size_t i) const { return {places_[i].position, found_[i].position}; }

    // As far apart as before, so that nothing as long as the words of a place was put in between.
    static bool KeepDistance(KnownEnd a, KnownEnd b) {
        constexpr auto less = static_cast<std::int64_t>(maxWordsLength);
        return a.old <= b.old && Distance(a.now, b.now) - Distance(a.old, b.old) < less;
    }
    static bool GoTogether(KnownEnd a, KnownEnd b) {
        return KeepDistance(a, b) && KeepDistance({a.now, a.old}, {b.now, b.old});
    }

    // Places are found together between two others that keep their distance, but were not there
    // before: then their words stood there, too, and what was found is another verse of a refrain
    // whose own one may have gone.
    void DoubtOtherVerses() {
        std::vector<std::size_t> settled;
        for (const std::size_t i : order_)
            if (found_[i].certain) settled.push_back(i);
        std::ranges::stable_sort(settled, {}, [&](std::size_t i) { return found_[i].position; });
        std::vector<std::size_t> doubted;
        for (std::size_t first = 0, end = 0; first < settled.size(); first = end) {
            for (end = first + 1; end < settled.size(); ++end)
                if (!GoTogether(EndOf(settled[end - 1]), EndOf(settled[end]))) break;
            const KnownEnd before = first > 0 ? EndOf(settled[first - 1]) : KnownEnd();
            const KnownEnd after =
                end < settled.size() ? EndOf(settled[end]) : KnownEnd{oldLength_, text_.Length()};
            const TextPos old = places_[settled[first]].position;
            if (GoTogether(before, after) && (old < before.old || old > after.old))
                doubted.insert(doubted.end(), settled.begin() + std::ptrdiff_t(first),
                               settled.begin() + std::ptrdiff_t(end));
        }
        for (const std::size_t i : doubted)
            found_[i] = {};
    }

    // What was found by words alone, in the order of the places, tells where the others are.
    void FindByNeighbours() {
        const std::vector<FoundPlace> settled = found_;
        std::size_t next = 0;
        KnownEnd before{0, 0};
        for (std::size_t at = 0; at < order_.size(); ++at) {
            const std::size_t i = order_[at];
            if (settled[i].certain) {
                before = {places_[i].position, settled[i].position};
                continue;
            }
            next = std::max(next, at + 1);
            while (next < order_.size() && !settled[order_[next]].certain)
                ++next;
            KnownEnd after{oldLength_, text_.Length()};
            if (next < order_.size())
                after = {places_[order_[next]].position, settled[order_[next]].position};
            FindWhereExpected(i, ExpectationOf(places_[i].position, before, after));
        }
    }

    // An edit between the two moves what is after it: the place has moved as one of them has, or
    // by something in between.
    Expectation ExpectationOf(TextPos position, KnownEnd before, KnownEnd after) const {
        const auto inText = [&](std::int64_t place) {
            return static_cast<TextPos>(std::clamp<std::int64_t>(place, 0, text_.Length()));
        };
        const TextPos asBefore = inText(before.now + Distance(before.old, position));
        const TextPos asAfter = inText(after.now + Distance(after.old, position));
        const double span = std::max(double(after.old) - before.old, 1.0);
        const double share = std::clamp((double(position) - before.old) / span, 0.0, 1.0);
        const auto between =
            static_cast<TextPos>(before.now + share * (double(after.now) - before.now));
        return {std::min(asBefore, asAfter), std::max(asBefore, asAfter),
                inText(after.now >= before.now ? between : asBefore), before.now, after.now};
    }

    bool Fits(const PlaceCandidate& candidate, const Expectation& expected) const {
        if (!expected.Includes(candidate.position)) return false;
        return candidate.difference <= similarWords || candidate.nearDifference <= intactSide;
    }

    // Of those that fit, one must stand out: by its words, or by standing just where it should.
    void FindWhereExpected(std::size_t i, const Expectation& expected) {
        std::vector<PlaceCandidate> fitting;
        AddExpected(i, expected);
        for (const PlaceCandidate& candidate : candidates_[i])
            if (Fits(candidate, expected)) fitting.push_back(candidate);
        std::ranges::stable_sort(fitting, {}, [&](const PlaceCandidate& each) {
            return std::pair(each.difference, std::abs(each.position - expected.likeliest));
        });
        if (fitting.empty()) return Leave(i, GuessOf(i).value_or(expected.likeliest));
        const PlaceCandidate& best = fitting.front();
        const bool standsOut = fitting.size() == 1 || IsClearlyBetter(best, fitting[1]) ||
                               (expected.low == expected.high && best.position == expected.low);
        found_[i] = {best.position, standsOut && !IsTorn(i, best)};
    }

    // One side of the place is here, the other one elsewhere: it stood at the edge of what moved.
    bool IsTorn(std::size_t i, const PlaceCandidate& best) const {
        return best.difference > sameWords &&
               std::ranges::any_of(candidates_[i], [&](const PlaceCandidate& each) {
                   return each.position != best.position && each.nearDifference <= intactSide;
               });
    }

    // Where it is if nothing around it has changed: too frequent words are found nowhere else.
    void AddExpected(std::size_t i, const Expectation& expected) {
        const PlacePattern pattern = PatternOf(places_[i].words);
        constexpr std::size_t fewLetters = 6;
        if (pattern.letters.size() < fewLetters) return;
        for (const TextPos place : {expected.low, expected.high}) {
            const PlaceCandidate there = CandidateNear(text_, places_[i], pattern, place);
            const bool known = std::ranges::any_of(
                candidates_[i], [&](const auto& each) { return each.position == there.position; });
            if (!known) candidates_[i].push_back(there);
        }
    }

    // One side of the place stands elsewhere, alone of its kind. Moved and cut, or a refrain whose
    // other verse has gone.
    std::optional<TextPos> GuessOf(std::size_t i) const {
        const auto intact = [](const PlaceCandidate& each) {
            return each.nearDifference <= intactSide;
        };
        const auto& candidates = candidates_[i];
        if (std::ranges::count_if(candidates, intact) != 1) return std::nullopt;
        return std::ranges::find_if(candidates, intact)->position;
    }

    void Leave(std::size_t i, TextPos position) { found_[i] = {position, false}; }

    const TextSource& text_;
    const TextPos oldLength_;
    const std::vector<KnownPlace>& places_;
    std::vector<std::size_t> order_; // of the places in their text
    std::vector<std::vector<PlaceCandidate>> candidates_;
    std::vector<FoundPlace> found_;
};
} // namespace

std::vector<FoundPlace> FindPlaces(const TextSource& text, TextPos oldLength,
                                   const std::vector<KnownPlace>& places,
                                   const std::function<bool()>& shouldContinue) {
    return PlaceFinder(text, oldLength, places).Find(shouldContinue);
}
