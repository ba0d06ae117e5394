#include "common/text_words.h"

#include "common/text_clusters.h"
#include "tests/unit/show_text.h"

namespace {
std::u16string Cut(const std::u16string& text, const std::vector<TextPos>& starts) {
    std::u16string cut = text;
    for (auto start = starts.rbegin(); start != starts.rend(); ++start)
        if (*start > 0 && *start < TextPos(text.size())) cut.insert(std::size_t(*start), u"|");
    return cut;
}

std::u16string CutLines(const std::u16string& text) {
    const std::vector<bool> breaks = LineBreaks(text);
    std::vector<TextPos> starts;
    for (std::size_t i = 0; i < breaks.size(); ++i)
        if (breaks[i]) starts.push_back(TextPos(i));
    return Cut(text, starts);
}

std::u16string CutWords(const std::u16string& text) {
    return Cut(text, WordBoundaries(text));
}

std::u16string CutStarts(const std::u16string& text) {
    return Cut(text, WordStarts(text));
}

bool IsOneCluster(std::u16string_view text) {
    return ClusterStarts(text) == std::vector<TextPos>{0, TextPos(text.size())};
}
} // namespace

TEST_CASE("what is one character to a reader") {
    for (const char16_t* one :
         {u"x", u"e\u0301\u0323", u"\U0001D11E", u"\u05E9\u05C1\u05B8", u"\u0915\u093F",
          u"\u0E2A\u0E33", u"\u1112\u1161\u11AB", u"\uD558\u11AB", u"\U0001F1E9\U0001F1EA",
          u"\U0001F468\u200D\U0001F469\u200D\U0001F467", u"\U0001F44D\U0001F3FD", u"1\uFE0F\u20E3",
          u"\u2764\uFE0F\u200D\U0001F525", u"\u0600\u0661", u"\u0301", u"\xD834"})
        CHECK(IsOneCluster(one));
    for (const char16_t* two :
         {u"ab", u"\uD558\uD558", u"\uD55C\u1161", u"a\u200E", u"\u200E\u0301", u"\u2028\u0301",
          u"\U0001F468\U0001F469", u"a\U0001F1E9", u"\xDD1E\xD834"})
        CHECK(ClusterStarts(two).size() == 3);
    CHECK(ClusterStarts(u"") == std::vector<TextPos>{0});
    const std::u16string flags = u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE";
    CHECK(ClusterStarts(flags) == std::vector<TextPos>{0, 4, 8, 10});
}

TEST_CASE("words, and what is between them") {
    CHECK(CutWords(u"one two  three") == u"one| |two|  |three");
    CHECK(CutWords(u"don't (stop), 3.14 a.m.") == u"don't| |(|stop|)|,| |3.14| |a.m|.");
    CHECK(CutWords(u"re\u0301sume\u0301 snake_case x-y") ==
          u"re\u0301sume\u0301| |snake_case| |x|-|y");
    CHECK(CutWords(u"\u4E2D\u6587 \uD55C\uAD6D") == u"\u4E2D|\u6587| |\uD55C\uAD6D");
    CHECK(CutWords(u"") == u"");
}

TEST_CASE("where words start") {
    CHECK(CutStarts(u"one two  three ") == u"one |two  |three ");
    CHECK(CutStarts(u"(a) b... \"c\"") == u"(|a|) |b|... |\"|c|\"");
    CHECK(CutStarts(u"  a\tb\u2028c") == u"  |a\t|b\u2028|c");
    CHECK(WordStarts(u"").empty());
}

TEST_CASE("lines break after spaces, hyphens and ideographs") {
    CHECK(CutLines(u"one two  three ") == u"one |two  |three ");
    CHECK(CutLines(u"well-known -5 3-4 --x") == u"well-|known |-5 |3-4 |--x");
    CHECK(CutLines(u"co\u00ADop a\u00A0b a\u2060b a\u202Fb a\u200Bb") ==
          u"co\u00AD|op |a\u00A0b |a\u2060b |a\u202Fb |a\u200B|b");
    CHECK(CutLines(u"\u4E2D\u6587\u3002\u300C\u4E2D\u300D\u6587a") ==
          u"\u4E2D|\u6587\u3002|\u300C\u4E2D\u300D|\u6587|a");
    CHECK(CutLines(u"\uD55C\uAD6D \u30AB\u30FC\u30C9") == u"\uD55C|\uAD6D |\u30AB\u30FC|\u30C9");
    CHECK(CutLines(u"(one) two? /usr/lib") == u"(one) |two? |/usr/|lib");
    CHECK(CutLines(u"yes\u2014no") == u"yes|\u2014|no");
    CHECK(CutLines(u"\"yes\u2014\" 'no-'") == u"\"yes|\u2014\" |'no-'");
    CHECK(CutLines(u"a \u0301b e\u0301") == u"a \u0301|b |e\u0301");
    CHECK(CutLines(u"a\t\tb \tc") == u"a\t|\t|b |\t|c");
    CHECK(CutLines(u"") == u"");
}
