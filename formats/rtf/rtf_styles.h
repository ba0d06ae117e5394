// The style sheet of rich text, as far as it says which paragraphs are headings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

class RtfStyleSheet {
  public:
    std::u16string& Name() { return name_; } // of the style being read, as far as it is there
    // Called when more of the name is there: with its ";" the style is complete. `outlineLevel` is
    // the one that its words give, 0 for none.
    void EndNames(std::int32_t number, std::uint8_t outlineLevel);
    std::uint8_t OutlineLevel(std::int32_t number) const; // 0 for none

  private:
    std::unordered_map<std::int32_t, std::uint8_t> levels_; // by the number in the file
    std::u16string name_;
};

// 1 to 9 of "heading 1" to "heading 9", which every language of Word writes, 1 of "Title"; else 0.
std::uint8_t OutlineLevelOfName(std::u16string_view name);
