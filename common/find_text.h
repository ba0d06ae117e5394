// Finding a stretch of text.
#pragma once

#include "platform/text_source.h"

#include <array>
#include <string>
#include <string_view>

// A search made ready, for a text that is looked through in parts.
class TextSearch {
  public:
    TextSearch(std::u16string_view what, FindOptions options);

    // The first place at or after `start` where it stands whole in `text`; npos when there is none,
    // and for an empty search.
    std::size_t FindIn(std::u16string_view text, std::size_t start) const;

  private:
    // The units that differ from one only in case, itself among them. No unit has more than these.
    using Forms = std::array<char16_t, 4>;

    bool IsAt(std::u16string_view text, std::size_t at) const;

    std::u16string what_;
    FindOptions options_;
    Forms first_{}, last_{}; // of the first and the last unit
};

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t start,
                     FindOptions options);

// The same for the ASCII part of a search, in the bytes that a text is made of: a sieve for places
// where nothing can be found. It is empty when the search has no such part.
class AsciiSearch {
  public:
    AsciiSearch(std::u16string_view what, FindOptions options);

    bool IsEmpty() const { return what_.empty(); }
    // Prepares for bytes like these: looks for the letter that is rarest in them.
    void LearnFrom(std::string_view sample);
    bool IsIn(std::string_view bytes) const;

  private:
    bool IsAt(std::string_view bytes, std::size_t at) const;
    bool IsAround(char letter, std::string_view bytes) const;
    bool IsInBlocks(std::string_view bytes) const;

    std::string what_, other_;               // the other case of each letter, unless case matters
    std::size_t rarest_ = std::string::npos; // its place in the search, when it is rare enough
};
