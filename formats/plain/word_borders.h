// Whether the bytes beside a place belong to a word.
#pragma once

#include "formats/plain/plain_text.h"

#include <array>
#include <cstddef>
#include <string_view>

class WordBorders {
  public:
    explicit WordBorders(const PlainTextForm& form);

    // Whether the character that ends before the place, or begins there, surely is one of a word.
    // Of some this is not told. The bytes begin where the text does, or behind it by an even
    // number.
    bool IsWordBefore(std::string_view bytes, std::size_t place) const;
    bool IsWordAt(std::string_view bytes, std::size_t place) const;

  private:
    bool IsWordPair(std::string_view pair, std::size_t place) const; // of two bytes

    PlainTextForm form_;
    std::array<bool, 0x100> single_{}; // the bytes that are such a unit by themselves
};
