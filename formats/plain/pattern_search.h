// Finding bytes at about the speed of the memory.
#pragma once

#include "formats/plain/byte_pattern.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

// Some bytes of a text, to tell by which bytes of a pattern it is looked through soonest.
struct ByteSample {
    explicit ByteSample(std::string_view sample);

    std::size_t CountOf(MaskedByte masked) const;
    // Where in a pattern its rarest bytes are, a few at most, the rarest first.
    std::vector<std::size_t> RarestOf(const BytePattern& pattern) const;

    std::string_view bytes;
    std::array<std::size_t, 0x100> counts{};
};

class PatternSearch {
  public:
    // For a pattern that is not empty.
    PatternSearch(const BytePattern& pattern, const ByteSample& sample);

    // Adds the places from `begin` on and before `end` where the pattern stands whole in `bytes`.
    void AddPlaces(std::string_view bytes, std::size_t begin, std::size_t end,
                   std::vector<std::size_t>& places) const;

  private:
    void AddByOne(std::string_view bytes, std::size_t begin, std::size_t end,
                  std::vector<std::size_t>& places) const;
    void AddByTwo(std::string_view bytes, std::size_t begin, std::size_t end,
                  std::vector<std::size_t>& places) const;

    BytePattern pattern_;
    // All places are tried by one byte of the pattern that is rare, or by two of them.
    std::size_t first_ = 0, second_ = 0; // where they are in it
    std::vector<char> values_;           // all that the one byte can be, none for two
};
