#include "tests/contract/random_paragraph.h"

#include "tests/contract/line_layout_contract.h"

#include <algorithm>

namespace {
constexpr const char16_t* parts[] = {
    u"a",
    u"word",
    u"office",
    u" ",
    u" ",
    u"  ",
    u"\u05D0\u05D1",
    u"\u05E9\u05C1\u05B8\u05DC\u05D5\u05B9\u05DD",
    u"\u0645",
    u"\u0645\u0631\u062D\u0628\u0627",
    u"\u0644\u0627",
    u"\u0628\u064E\u0651",
    u"12",
    u"\u0661",
    u".",
    u"-",
    u"(",
    u")",
    u"\t",
    u"\u2028",
    u"e\u0301",
    u"a\u0308\u0323",
    u"\u0301",
    u"\u05B8",
    u"\u00AD",
    u"\u00A0",
    u"\u200B",
    u"\u200D",
    u"\u2060",
    u"\uFEFF",
    u"\u202B",
    u"\u202C",
    u"\u202E",
    u"\u2067",
    u"\u2069",
    u"\u200F",
    u"\U0001D11E",
    u"\U0001F468",
    u"\U0001F469\u200D\U0001F467",
    u"\U0001F1E9\U0001F1EA",
    u"\U0001F44D\U0001F3FD",
    u"\u2764\uFE0F",
    u"\u1100\u1161",
    u"\uD55C\uAD6D",
    u"\u4E2D",
    u"\u3002",
    u"\u3000",
    u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35",
    u"\u0E01\u0E33",
    u"\u0928\u092E\u0938\u094D\u0924\u0947",
    u"\xD834",
    u"\xDD1E",
    u"\uFFFD",
};

// Of several glyphs each, where no font has one for the whole.
constexpr std::u16string_view joinedParts[] = {
    u"\U0001F469\u200D\U0001F467",
    u"\U0001F1E9\U0001F1EA",
    u"\U0001F44D\U0001F3FD",
    u"\u1100\u1161",
    u"\u0928\u092E\u0938\u094D\u0924\u0947",
    u"\u200D",
};

std::vector<std::u16string_view> AllParts() {
    std::vector<std::u16string_view> all(std::begin(parts), std::end(parts));
    if (LimitsOfParagraphs().joinedParts) return all;
    for (const std::u16string_view part : joinedParts)
        std::erase(all, part);
    return all;
}

std::u16string_view RandomPart(Random& random) {
    static const std::vector<std::u16string_view> all = AllParts();
    return all[std::size_t(Below(random, int(all.size())))];
}

std::u16string RandomText(Random& random) {
    std::u16string text;
    // Of one kind of part now and then, as a text is of one script.
    const std::u16string_view often = RandomPart(random);
    for (int length = Below(random, OneIn(random, 8) ? 400 : 40); length > 0; --length)
        text += OneIn(random, 4) ? often : RandomPart(random);
    constexpr char16_t rightToLeftOverride = 0x202E, saraAm = 0x0E33;
    if (!LimitsOfParagraphs().turnedSaraAm && text.find(rightToLeftOverride) != text.npos)
        std::erase(text, saraAm);
    return text;
}

// A box takes the place of a character, and not of a half of one.
bool MayBeBox(char16_t unit) {
    return unit < 0xD800 || unit > 0xDFFF;
}

TextStyle RandomStyle(Random& random) {
    const ParagraphLimits limits = LimitsOfParagraphs();
    TextStyle style;
    style.font.points = OneIn(random, 12) ? 40 + Below(random, 80) : 6 + 3 * Below(random, 5);
    style.font.bold = OneIn(random, 4);
    style.font.italic = OneIn(random, 4);
    style.underline = OneIn(random, 6);
    if (OneIn(random, 3)) style.font.family = OneIn(random, 2) ? u"Noto Serif" : u"DejaVu Sans";
    if (OneIn(random, 6)) style.baseline = TextBaseline(Below(random, 3));
    if (OneIn(random, 8))
        style.letterSpacing =
            std::clamp(Below(random, 9) - 2, limits.minLetterSpacing, limits.maxLetterSpacing);
    if (OneIn(random, 8)) style.wordSpacing = Below(random, 20) - 2;
    return style;
}
} // namespace

ParagraphText RandomParagraph(Random& random, LineLayout& layout) {
    ParagraphText paragraph;
    paragraph.text = RandomText(random);
    const TextPos length = TextPos(paragraph.text.size());
    for (TextPos at = 0; at <= length; at += 1 + Below(random, OneIn(random, 2) ? 200 : 20))
        paragraph.runs.push_back({at, layout.Prepare(RandomStyle(random))});
    for (TextPos at = Below(random, 9); at < length; at += 1 + Below(random, 30))
        if (OneIn(random, 3) && MayBeBox(paragraph.text[std::size_t(at)]))
            paragraph.boxes.push_back({at, Below(random, 60)});
    paragraph.rightToLeft = OneIn(random, 2);
    paragraph.justified = OneIn(random, 2);
    paragraph.width = 1 + Below(random, OneIn(random, 2) ? 40 : 600);
    paragraph.firstIndent = Below(random, 50);
    paragraph.indent = Below(random, 50);
    if (OneIn(random, 2)) paragraph.tabStops = {{Below(random, 40)}, {40 + Below(random, 40)}};
    if (OneIn(random, 2)) {
        for (TabStop& stop : paragraph.tabStops)
            stop.alignment = TabAlignment(Below(random, 4));
        paragraph.tabStops.push_back({100 + Below(random, 400), TabAlignment(Below(random, 4))});
    }
    return paragraph;
}
