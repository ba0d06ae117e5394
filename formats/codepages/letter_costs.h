// How well bytes read as a language in a charset of one byte a character.
#pragma once

#include "formats/codepages/byte_evidence.h"

#include <optional>

struct PageCost {
    int page = 0;
    int cost = 0;              // in `costsPerBit`; the smaller, the likelier
    const char* language = ""; // of the model that fits best
};

// The best of all languages that the page is for; nothing when `limit` is exceeded by each. `units`
// are the page's characters from 0x80 on.
class LetterCosts {
  public:
    explicit LetterCosts(const ByteEvidence& evidence);
    std::optional<PageCost> Cheapest(int page, const char16_t* units, int limit) const;

  private:
    int WithinWordsCost(const char16_t* units) const;

    const ByteEvidence& evidence_;
    std::vector<int> asciiCosts_; // of each language
    int withinWords_[256] = {};   // how often a byte stands between ASCII letters, if only there
};

// What an ASCII letter costs in languages that have others.
constexpr int asciiLetterCost = 20;
// Text in ASCII has half the weight: it indicates the language, but may be a name or a quotation.
constexpr int AsciiShare(int cost) {
    return cost / 2;
}
int AsciiLettersCost(const ByteEvidence& evidence);
