// Finding a stretch of text.
#pragma once

#include "common/text_source.h"

#include <string>
#include <string_view>
#include <vector>

// The units that differ from one only in case, itself among them. The one that FoldCase gives is
// first, and nearer ones come before others: a letter's two usual cases before what is seldom seen.
std::vector<char16_t> CaseForms(char16_t unit);

// Whether a unit belongs to a word: letters, digits, marks and "_". A match is a whole word when
// none of its ends and the unit beside it both do.
bool IsWordUnit(char16_t unit);

// A search made ready, for a text that is looked through in parts.
class TextSearch {
  public:
    TextSearch(std::u16string_view what, FindOptions options);

    // The first place at or after `start` where it stands whole in `text`; npos when there is none,
    // and for an empty search.
    std::size_t FindIn(std::u16string_view text, std::size_t start) const;

  private:
    template <std::size_t maxForms>
    std::size_t FindWith(std::u16string_view text, std::size_t start) const;
    bool IsAt(std::u16string_view text, std::size_t at) const;

    std::u16string what_;
    FindOptions options_;
    std::vector<char16_t> first_, last_; // case forms of its first and last unit, four at most
};

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options);
