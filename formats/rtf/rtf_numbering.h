// The numbers and bullets of paragraphs that rich text describes (RTF 1.9.1, \pn) and some writers
// do not write out.
#pragma once

#include "formats/rtf/rtf_words.h"

#include <compare>
#include <map>
#include <string>
#include <vector>

struct RtfNumberFormat {
    RtfNumberKind kind = RtfNumberKind::None;
    std::int32_t start = 1;
    std::u16string before, after; // the number; a bullet is before none

    auto
    operator<=>(const RtfNumberFormat&) const = default; // NOLINT(modernize-use-nullptr): its 0
};

std::u16string NumberText(RtfNumberKind kind, std::int32_t number); // "" for a bullet
std::u16string NumberText(const RtfNumberFormat& format, std::int32_t number);

class RtfNumbering {
  public:
    // Building: a format begins, gets its properties and texts, and ends.
    void Begin();
    void Apply(const RtfWordEntry& entry, std::int32_t parameter);
    std::u16string& Before() { return format_.before; }
    std::u16string& After() { return format_.after; }
    std::size_t End(); // the number of the format, 0 for none

    // What stands before the text of a paragraph that begins there; "" where nothing does. Numbers
    // go on while paragraphs of one format follow each other.
    std::u16string TextOfParagraph(std::size_t format, std::uint32_t paragraphStart);
    void EndParagraph(std::uint32_t start, std::uint32_t end);

  private:
    RtfNumberFormat format_;
    bool isBullet_ = false, isContinued_ = false;
    std::vector<RtfNumberFormat> formats_;
    std::map<RtfNumberFormat, std::size_t> numbers_; // of the formats, from 1
    std::size_t lastFormat_ = 0, count_ = 0;
    std::int32_t lastNumber_ = 0;
    std::uint32_t lastStart_ = 0, lastEnd_ = 0; // of the last numbered paragraph
};
