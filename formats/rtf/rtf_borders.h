// Borders and shading of paragraphs in rich text (RTF 1.9.1).
#pragma once

#include "formats/document.h"
#include "formats/rtf/rtf_fonts.h"
#include "formats/rtf/rtf_words.h"

// A pattern of one colour over another; shown as their mixture.
class RtfShading {
  public:
    void Apply(const RtfWordEntry& entry, std::int32_t parameter, const RtfColorTable& colors,
               ParagraphStyle& style);

  private:
    RtfColor background_, pattern_;
    std::int32_t share_ = 0; // of the pattern, in hundredths of a percent
};

// `side` is the one named last, and is set by the words that name one.
void ApplyBorderWord(RtfBorderSide& side, ParagraphBorders& borders, const RtfWordEntry& entry,
                     std::int32_t parameter, const RtfColorTable& colors);
