// Where in a text the words of places may be.
#pragma once

#include "reading/place_words.h"

#include <functional>
#include <string>
#include <vector>

// The letters around a place, as they are looked for.
struct PlacePattern {
    std::u16string letters;
    std::size_t split = 0; // the place: so many are before it
};
PlacePattern PatternOf(const PlaceWords&);

struct PlaceCandidate {
    TextPos position = 0;
    double difference = 1;     // of the letters, 0 for the same ones to 1 for others
    double nearDifference = 1; // the same of the side of the place that fits better
};

// The candidates of each place, the most similar ones first. Empty when `shouldContinue` said no.
std::vector<std::vector<PlaceCandidate>>
FindCandidates(const TextSource&, const std::vector<KnownPlace>&,
               const std::function<bool()>& shouldContinue);

// The candidate at a position at which the place is expected, give or take some letters.
PlaceCandidate CandidateNear(const TextSource&, const KnownPlace&, const PlacePattern&,
                             TextPos expected);
