// A search in the bytes of a plain text: tells soon where in them nothing can be found, so that
// little has to be decoded.
#pragma once

#include "common/find_text.h"
#include "formats/plain/letter_bytes.h"
#include "formats/plain/pattern_search.h"
#include "formats/plain/word_borders.h"

class EncodedSearch {
  public:
    EncodedSearch(const PlainTextForm& form, std::u16string_view what, FindOptions options);

    // No bytes are decoded as one of the letters.
    bool IsHopeless() const;
    // Takes the letters to look for; to be called for each larger part of the text. When there are
    // none of use, the search is blind: a match can be anywhere.
    void LearnFrom(std::string_view sample);
    bool IsBlind() const { return searches_.empty(); }

    // Places from `begin` on and before `end`, in order: each match has one among its bytes.
    std::vector<std::size_t> Places(std::string_view bytes, std::size_t begin,
                                    std::size_t end) const;
    // False when the place is certainly in no match. The bytes begin where the text does, or behind
    // it by a multiple of four.
    bool MayBeAround(std::string_view bytes, std::size_t place, bool fromStart) const;
    // The bytes before and behind a place that tell.
    std::size_t Margin() const { return most_ + 2 * around; }
    // A match begins so many bytes at most before a place of it.
    std::size_t Reach() const { return most_; }

  private:
    static constexpr std::size_t around =
        16; // enough for a character beside a match, and a cut one

    bool IsPartOfWord(std::string_view bytes, std::size_t place) const;

    PlainTextForm form_;
    TextSearch search_;
    std::vector<LetterBytes> letters_;
    std::size_t most_ = 0;                       // bytes of a match, or of the start of a long one
    bool wordBegins_ = false, wordEnds_ = false; // no other letter of a word may stand there
    WordBorders borders_;

    std::vector<PatternSearch> searches_;
    std::size_t runBytes_ = 0;                 // of the first search
    bool runBegins_ = false, runEnds_ = false; // it has the first letter, the last one
};
