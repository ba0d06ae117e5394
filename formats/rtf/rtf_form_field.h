// Fields of forms in rich text (RTF 1.9.1, \formfield): their state, where a field has no result.
#pragma once

#include "formats/rtf/rtf_words.h"

#include <string>
#include <string_view>
#include <vector>

class RtfFormField {
  public:
    void Apply(const RtfWordEntry& entry, std::int32_t parameter);
    std::u16string& DefaultText() { return defaultText_; }
    std::u16string& Entry() { return entry_; }
    void EndEntry();
    // "" when the instruction is of no form.
    std::u16string Text(std::u16string_view instruction) const;

  private:
    static constexpr std::int32_t undefined = 25;
    std::int32_t Result() const { return result_ == undefined ? defaultResult_ : result_; }

    std::int32_t result_ = undefined, defaultResult_ = 0; // 1 for checked, or the entry's number
    std::u16string defaultText_, entry_;
    std::vector<std::u16string> entries_; // of a drop-down list
};
