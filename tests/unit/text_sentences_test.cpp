#include "common/text_sentences.h"

#include <doctest/doctest.h>

#include <string>

namespace {
std::vector<std::u16string> SentencesOf(std::u16string_view text) {
    const std::vector<TextPos> starts = SentenceStarts(text);
    std::vector<std::u16string> sentences;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i)
        sentences.emplace_back(
            text.substr(std::size_t(starts[i]), std::size_t(starts[i + 1] - starts[i])));
    return sentences;
}

using Texts = std::vector<std::u16string>;
} // namespace

TEST_CASE("sentences: they end with their marks, quotes and spaces") {
    CHECK(SentenceStarts(u"") == std::vector<TextPos>{0});
    CHECK(SentencesOf(u"One. Two! Three? four") == Texts{u"One. ", u"Two! ", u"Three? ", u"four"});
    CHECK(SentencesOf(u"\u201CSo.\u201D  He went.") == Texts{u"\u201CSo.\u201D  ", u"He went."});
    CHECK(SentencesOf(u"\u4E2D\u6587\u3002\u6587") == Texts{u"\u4E2D\u6587\u3002", u"\u6587"});
    CHECK(SentencesOf(u"a title\vand a line") == Texts{u"a title\v", u"and a line"});
    CHECK(SentencesOf(u"The end.\n") == Texts{u"The end.\n"});
}

TEST_CASE("sentences: a dot in a number, an abbreviation or before a small letter ends none") {
    for (const char16_t* one :
         {u"It is 3.14 wide", u"The U.S. army came", u"etc. and so on", u"Well... no",
          u"\u00AB\u041D\u0443!\u00BB, \u0434\u0430", u"'What?', said"})
        CHECK(SentencesOf(one) == Texts{one});
}
