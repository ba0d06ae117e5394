// A text that the RTF reader builds: paragraphs, the runs of their styles, pictures.
#pragma once

#include "formats/document.h"

struct RtfStory {
    std::u16string text;
    std::vector<StyleRun> charRuns{StyleRun{}};
    std::vector<StyleRun> paragraphRuns{StyleRun{}};
    std::vector<Picture> pictures;
    TextPos paragraphStart = 0;

    TextPos Size() const { return static_cast<TextPos>(text.size()); }
    bool AtParagraphStart() const { return paragraphStart == Size(); }
    void UseCharStyle(std::uint32_t style); // for what is appended now
    void EndParagraph(char16_t terminator, std::uint32_t charStyle, std::uint32_t paragraphStyle);
    void EndLastParagraph(std::uint32_t paragraphStyle); // one without a terminator
    std::u16string TakeParagraph();                      // takes back what stands in it so far
    void Append(RtfStory&& other);
};
