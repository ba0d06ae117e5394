#include "tests/contract/reference_view/random_words.h"

#include <vector>

namespace {
using Words = std::vector<std::u16string>;

const Words latin = {u"a",
                     u"of",
                     u"word",
                     u"office fluffy",
                     u"longer-word,",
                     u"quay.",
                     u"e\u0301t\u00E9",
                     u"soft\u00ADhyphen",
                     u"no\u00A0break",
                     u"12,5"};
const Words hebrew = {u"\u05E9\u05DC\u05D5\u05DD", u"\u05E2\u05D5\u05DC\u05DD", u"\u05D0",
                      u"\u05D1\u05B0\u05BC\u05E8", u"\u05D0\u05D1\u05D2\u05D3\u05D4"};
const Words arabic = {u"\u0645\u0631\u062D\u0628\u0627", u"\u0643\u062A\u0627\u0628",
                      u"\u0644\u0627"};
const Words mixed = {u"abc",           u"\u05E9\u05DC\u05D5\u05DD",
                     u"123",           u"(\u0645\u0631)",
                     u"x\u05D0y",      u"\u0661\u0662",
                     u"\u202Bab\u202C"};
const Words asian = {u"\u4E2D\u6587\u5B57", u"\u65E5\u672C\u8A9E\u3002", u"\uD55C\uAD6D\uC5B4",
                     u"\u3042"};
const Words odd = {u"\U0001F600",    u"\U0001F469\u200D\U0001F469\u200D\U0001F467",
                   u"\u200B",        u"\u0301",
                   u"\uFFFD",        u"\U0001D11E",
                   u"a\u0308\u0323", u"\u2060",
                   u"\uFEFF",        u"\u0E01\u0E33"};
const Words* const kinds[] = {&latin, &hebrew, &arabic, &mixed, &asian, &odd};

const Words& SomeWords(Random& random) {
    return OneIn(random, 2) ? latin : *kinds[random() % std::size(kinds)];
}

std::u16string Blank(Random& random, int tabs) {
    if (tabs > 0 && OneIn(random, tabs)) return u"\t";
    return OneIn(random, 12) ? u"   " : u" ";
}
} // namespace

std::u16string RandomLine(Random& random, int maxWords, int tabs) {
    const Words& words = SomeWords(random);
    std::u16string line = OneIn(random, 6) ? Blank(random, tabs) : u"";
    for (int i = Below(random, maxWords + 1); i > 0; --i) {
        line += words[random() % words.size()];
        if (i > 1 || OneIn(random, 6)) line += Blank(random, tabs);
    }
    return line;
}

std::u16string RandomLines(Random& random, int count, int maxWords, int tabs) {
    static const std::u16string ends[] = {u"\n", u"\r\n", u"\r", u"\n\n", u"\r\n\r\n", u"\v"};
    std::u16string text;
    for (int i = 0; i < count; ++i) {
        text += RandomLine(random, maxWords, tabs);
        if (i + 1 < count || OneIn(random, 2)) text += ends[random() % std::size(ends)];
    }
    return text;
}

std::u16string OneLongLine(Random& random) {
    static const std::u16string parts[] = {u"x",       u"word ",      u"\u05D0", u"\u4E2D",
                                           u"e\u0301", u"\U0001F600", u"ab\t",   u"\uFFFD"};
    const std::u16string& part = parts[random() % std::size(parts)];
    std::u16string text = RandomLine(random, 10, 0) + u"\n";
    const std::size_t length = 20'000 + random() % 40'000;
    while (text.size() < length)
        text += part;
    return text + u"\nend";
}
