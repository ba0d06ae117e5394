#include "reading/stored_text.h"

#include "common/text.h"

std::u16string StoredText(std::u16string_view text, StoredBlanks blanks) {
    constexpr std::u16string_view special = u"|&\"'";
    std::u16string stored;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isInnerBlank = unit == u' ' && i > 0 && i + 1 < text.size();
        const bool isPlain = unit > u' ' && special.find(unit) == special.npos;
        if (isPlain || (isInnerBlank && blanks == StoredBlanks::InnerAsTheyAre))
            stored += unit;
        else
            stored += u"&#" + NumberText(unit) + u";";
    }
    return stored;
}
