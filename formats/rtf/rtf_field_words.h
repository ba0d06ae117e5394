// The words of a field's instruction.
#pragma once

#include <string>
#include <string_view>

// Words are separated by blanks or quoted; a backslash in quotes makes the next character plain,
// out of them it begins a switch.
class RtfFieldWords {
  public:
    explicit RtfFieldWords(std::u16string_view instruction) : rest_(instruction) {}

    bool Next();
    const std::u16string& Word() const { return word_; }
    std::u16string_view Rest() const { return rest_; } // after the word
    bool IsSwitch(char16_t letter) const;
    bool IsAnySwitch() const { return !isQuoted_ && !word_.empty() && word_[0] == u'\\'; }

  private:
    void ReadQuoted();
    void ReadPlain();

    std::u16string_view rest_;
    std::u16string word_;
    bool isQuoted_ = false;
};
