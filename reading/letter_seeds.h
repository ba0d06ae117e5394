// A search for many short stretches of letters in one run over a text.
#pragma once

#include "reading/text_letters.h"

#include <cstdint>
#include <functional>
#include <vector>

// A stretch of a place's letters. `place` and `offset` are the caller's.
struct LetterSeed {
    std::uint32_t place = 0, offset = 0;
};

struct SeedHit {
    LetterSeed seed;
    std::int64_t letter = 0; // index of its first letter among the letters of the text
    TextPos end = 0;         // just after its last one, in the text
};

class LetterSeeds {
  public:
    // `length` letters each.
    explicit LetterSeeds(std::size_t length);

    void Add(std::u16string_view letters, LetterSeed seed); // of that length
    // All places where they stand, but for seeds that are too frequent to tell anything. Now and
    // then `shouldContinue` is asked; nothing when it says no.
    std::vector<SeedHit> FindIn(const TextSource&, const std::function<bool()>& shouldContinue);

  private:
    struct Entry {
        std::uint32_t hash = 0;
        LetterSeed seed;
        std::int32_t next = -1; // of the same slot
        int hits = 0;
    };
    void MakeSlots();
    void Note(std::uint32_t hash, std::int64_t letter, TextPos end, std::vector<SeedHit>& hits);

    std::size_t length_;
    std::uint32_t lastPower_ = 1; // what the letter that leaves the window counts
    std::vector<Entry> entries_;
    std::vector<std::int32_t> slots_;
    std::vector<std::uint64_t> present_; // a bit for each hash, mixed: nearly all are absent
};
