// How well text reads as a language of many characters.
#pragma once

#include "formats/codepages/language_tables.h"

#include <memory>
#include <string_view>

class CharacterCosts {
  public:
    explicit CharacterCosts(CharacterLanguage language);
    // In `costsPerBit`; `limit` or a little more when it is exceeded.
    int Cost(std::u16string_view text, int limit) const;

  private:
    std::unique_ptr<unsigned char[]> costs_; // of each unit
};
