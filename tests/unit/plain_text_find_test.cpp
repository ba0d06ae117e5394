#include "text_samples.h"

#include "common/find_text.h"
#include "common/text.h"
#include "common/utf.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {
constexpr FindOptions allOptions[] = {{}, {true, false}, {false, true}, {true, true}};

TextPos FoundIn(std::u16string_view text, std::u16string_view what, TextPos start,
                FindOptions options) {
    const auto from = static_cast<std::size_t>(std::clamp<TextPos>(start, 0, TextPos(text.size())));
    const std::size_t at = FindText(text, what, from, options);
    return at == text.npos ? -1 : TextPos(at);
}

void CheckFound(const PlainTextSource& source, std::u16string_view text, std::u16string_view what) {
    CAPTURE(Utf16ToUtf8(what));
    for (const FindOptions options : allOptions)
        for (const TextPos start : {0, 3, source.Length() / 2, source.Length()})
            CHECK(source.Find(what, start, options) == FoundIn(text, what, start, options));
}

// A stretch of the text, some units of it in other cases.
std::u16string DrawnFrom(std::u16string_view text, std::mt19937& random) {
    std::u16string what(text.substr(random() % text.size(), 1 + random() % 7));
    for (char16_t& unit : what)
        if (random() % 3 == 0) {
            const auto forms = CaseForms(unit);
            unit = forms[random() % forms.size()];
        }
    return what;
}

// Letters in both cases, letters with three and more forms of several lengths, digits, marks, signs
// of more than one place in a code page, what stands beside words, and what is no text.
const std::vector<Sample>& FoundSamples() {
    static const std::vector<Sample> samples{
        {"Latin",
         0,
         {"k", "K", "s", "S", "\xC5\xBF", "\xE2\x84\xAA", "i", "I", "\xC4\xB1", "\r\n", "_",
          "\xC3\xA9", "\xC3\x89", ","}},
        {"long s", 0, {"s", "\xC5\xBF", "a", "b"}},
        {"Cyrillic",
         0,
         {"\xD0\xBE", "\xD0\x9E", "\xE1\xB2\x82", "\xD1\x82", "\xD0\xA2", "\xE1\xB2\x84",
          "\xD0\xBA", " ", "\xE2\x80\x94", "\n"}},
        {"Greek",
         0,
         {"\xCE\xB9", "\xCE\x99", "\xCD\x85", "\xE1\xBE\xBE", "\xCF\x83", "\xCF\x82", "\xCE\xA3",
          "\xC2\xB5", "\xCE\xBC", "-"}},
        {"ideographs",
         0,
         {"\xE4\xB8\x80", "\xE4\xB8\x81", "\xE3\x80\x82", "\xF0\xA0\x80\x80", "\xF0\xA0\x80\x81",
          "a"}},
        {"broken UTF-8",
         0,
         {"\xD0\xBE", "\xD0", "\xBE", "\xF0\xA0", "\x80\x80", "o", "\xFF", "\r"},
         "\xEF\xBB\xBF"},
        {"1251", 1251, {"\xEE", "\xCE", "\xF2", "\xD2", "o", " ", "\x98", "\x97", "\r\n"}},
        {"866", 866, {"\xE0", "\x90", "\xA0", "\x80", " ", "\xF1", "\n"}},
        {"1254", 1254, {"i", "I", "\xFD", "\xDD", "s", "k", " "}},
        {"Mac Roman", 10000, {"\x9A", "\x85", "a", "\x8E", "\x83", " "}},
        {"Mac Japanese", 10001, {"\\", "\x80", "a", "\x93\xFA", "\x80", "\xA0"}},
        {"932, one letter in two places",
         932,
         {"\x81\xCA", "\xEE\xF9", "\xFA\x54", "a", "\x83\x41", "\x41", "\r\n", "\x83"}},
        {"936 of four bytes",
         936,
         {"\x81\x30\x81\x30", "\x81\x35\xF4\x37", "\xA8\xBC", "0", "\x90\x30\x81\x30", "\x90\x30",
          "\n"}},
        {"949", 949, {"\xB0\xA1", "\xB0\xA2", "\xA1", "a", "A", "\x81\x41", "\x81\x61"}},
        {"950", 950, {"\xA4\xA4", "\xA1\x41", "A", "\xA4\x41", " ", "\r"}},
        {"1361", 1361, {"\x88\x61", "a", "\x88\x41", "A", "\x88"}},
        {"UTF-8 page", 65001, {"\xD0\xBE", "\xD0\x9E", "\xFF", "\x80\x80\x80\x80", "\r\n"}},
    };
    return samples;
}
} // namespace

TEST_CASE("plain text find: what the whole text has, in every encoding") {
    std::mt19937 random(9); // NOLINT: the same texts every time
    for (const auto& samples : {Samples(), FoundSamples()})
        for (const Sample& sample : samples) {
            CAPTURE(std::string(sample.name));
            for (int round = 0; round < 16; ++round) {
                const std::string bytes = Drawn(sample, random, 4 + random() % 300);
                const std::size_t pieceBytes = round % 4 ? 1 + random() % 40 : 65536;
                const PlainTextSource source(Reader(bytes), sample.page, 1252, pieceBytes);
                const std::u16string text = All(source);
                for (int search = 0; search < 6; ++search)
                    CheckFound(source, text, DrawnFrom(text, random));
                CheckFound(source, text, text);
                CheckFound(source, text, text + u"x");
                CheckFound(source, text, std::u16string(1, u'\0'));
            }
        }
}

TEST_CASE("plain text find: in wide text, with halves of pairs") {
    std::mt19937 random(10); // NOLINT
    const std::u16string parts[] = {u"\u043E",     u"\u041E", u"\u1C82", u"s",     u"S",
                                    u"\u017F",     u" ",      u"\r\n",   u"\n",    u"\U0001D11E",
                                    u"\U0001D11F", u"\xD834", u"\u3900", u"\u0039"};
    for (int round = 0; round < 80; ++round) {
        std::u16string text = u"\uFEFF";
        while (text.size() < 60)
            text += parts[random() % std::size(parts)];
        for (const bool big : {false, true})
            for (const int unit : {2, 4}) {
                const std::string bytes = Wide(text, unit, big).substr(0, 60 * unit - round % 3);
                const PlainTextSource source(Reader(bytes), 0, 1252, 1 + random() % 40);
                const std::u16string all = All(source);
                for (int search = 0; search < 8; ++search)
                    CheckFound(source, all, DrawnFrom(all, random));
                CheckFound(source, all, u"\xDD1E");
                CheckFound(source, all, u"\xD834");
            }
    }
}

namespace {
// A text of common letters, in which the word is hardly found elsewhere.
struct LongText {
    const char* name;
    int page;
    std::vector<std::string> parts;
    std::string word;
};

const std::vector<LongText>& LongTexts() {
    static const std::vector<LongText> texts{
        {"rare letter", 0, {"the hare ", "there ", "her\r\n", "rat "}, "quodlibet"},
        {"common letters", 0, {"the hare ", "there ", "her\r\n", "rat "}, "herathe"},
        {"Cyrillic",
         0,
         {"\xD0\xBE\xD1\x82 ", "\xD1\x82\xD0\xBE\xD1\x82\n"},
         "\xD1\x82\xD0\x9E\xD0\xBE\xD1\x82"},
        {"ideographs",
         0,
         {"\xE4\xB8\x80\xE4\xB8\x81", "\xE4\xB8\x82", "\r\n"},
         "\xE4\xB8\x80\xE4\xB8\x80\xE4\xB8\x81"},
        {"long s",
         0,
         {"as\xC5\xBF", "sas ",
          "\xC5\xBF\xC5\xBF"
          "a\n"},
         "as\xC5\xBF\xC5\xBFs"},
        {"932", 932, {"\x93\xFA\x96\x7B", "\x96\x7B", "\r\n", "\xFA\x93 "}, "\x93\xFA\x93\xFA"},
        {"932 without line ends",
         932,
         {"\x93\xFA\x96\x7B", "\x96\x7B", "\x7B"},
         "\x93\xFA\x93\xFA"},
    };
    return texts;
}

std::string BytesBefore(const LongText& text, std::size_t length, std::mt19937& random) {
    std::string bytes;
    while (bytes.size() + 24 < length)
        bytes += text.parts[random() % text.parts.size()];
    return bytes + "\n" + std::string(length - bytes.size() - 1, '.');
}
} // namespace

TEST_CASE("plain text find: a match at each place around the borders of pieces") {
    std::mt19937 random(11); // NOLINT
    for (const LongText& text : LongTexts())
        for (const std::size_t border : {32u, 64u, 192u})
            for (std::size_t before = 0; before < 24; before += border / 32) {
                CAPTURE(std::string(text.name));
                CAPTURE(border);
                CAPTURE(before);
                const std::string head = BytesBefore(text, border * 1024 - before, random);
                const std::string tail = "." + BytesBefore(text, 3000, random);
                const PlainTextSource source(
                    Reader(std::string(head).append(text.word).append(tail)), text.page, 1252);
                const PlainTextSource word(Reader(text.word + (text.page == 0 ? "\xC3\xA9" : "\n")),
                                           text.page, 1252);
                const std::u16string what = word.Range(0, word.Length() - 1);
                const std::u16string all = All(source);
                const TextPos place = source.PositionOf(head.size());
                REQUIRE(all.substr(std::size_t(place), what.size()) == what);
                for (const FindOptions options : allOptions)
                    for (const TextPos start : {0, place, place + 1})
                        CHECK(source.Find(what, start, options) ==
                              FoundIn(all, what, start, options));
            }
}

TEST_CASE("plain text find: among thousands of near matches") {
    struct Case {
        const char *name, *decoy;
        const char* last;
        std::u16string what;
        FindOptions options;
    };
    const Case cases[] = {
        {"parts of words",
         "other, theres \xC3\xA9ther th\xC3\xA9re ",
         "_ ther.",
         u"ther",
         {true, true}},
        {"no whole word in another script",
         "\xD1\x82\xD0\xBE\xD1\x82 \xD0\xB0\xD1\x82\xD0\xBE ",
         "\xD1\x82\xD0\xBE\n",
         u"\u0442\u043E",
         {true, false}},
        {"the start alone", "aaaaaaaaaaaaaaaaaaaaaaaa\n", "aaab", u"aaab", {}},
        {"line ends", "line\n\r\n", "line\nend", u"line\nend", {}},
        {"dotless i", "b\xC4\xB1lg\xC4\xB1 B\xC4\xB1LGE ", "b\xC4\xB1LGI!", u"bilgi!", {}},
        {"long s", "wa\xC5\xBF das a\xC5\xBF\xC5\xBF ", "da\xC5\xBF\xC5\xBF", u"dass", {}},
        {"long s alone", "wa\xC5\xBF", "S", u"ss", {}},
        {"what is no text", "a \xEF\xBF\xBD b ", "\xEF\xBF\xBD\xEF\xBF\xBD", u"\uFFFD\uFFFD", {}},
    };
    for (const Case& test : cases) {
        CAPTURE(std::string(test.name));
        std::string bytes = "\xC3\xA9";
        while (bytes.size() < 200'000)
            bytes += test.decoy;
        bytes += test.last;
        const PlainTextSource source(Reader(bytes), 0, 1252);
        const TextPos expected = FoundIn(All(source), test.what, 0, test.options);
        REQUIRE(expected >= source.Length() - 12);
        CHECK(source.Find(test.what, 0, test.options) == expected);
    }
}

TEST_CASE("plain text find: pairs are told apart, however far before them the last line end is") {
    // Cut in the middle, they are other pairs to their end.
    std::string bytes = "x";
    while (bytes.size() < 200'000)
        bytes += "\x93\xFA";
    for (const std::string& before :
         {bytes, "\n" + bytes, bytes + "\r\n" + bytes.substr(0, 5001)}) {
        const PlainTextSource source(Reader(before + "\x96\x96\x93\xFA"), 932, 1252);
        const std::u16string text = All(source), what = text.substr(text.size() - 2);
        CHECK(source.Find(what, 0, {}) == source.Length() - 2);
        CHECK(source.Find(what + what, 0, {}) == -1);
    }
}

TEST_CASE("plain text find: a search longer than a word, than a line, and of several pages") {
    std::string bytes = "\xC3\xA9";
    for (int i = 0; i < 3000; ++i)
        bytes += "line " + std::to_string(i) + " of a long text, and so on; ";
    const PlainTextSource source(Reader(bytes), 0, 1252);
    const std::u16string text = All(source);
    for (const std::size_t from : {0u, 1u, 70'000u})
        for (const std::size_t size : {63u, 64u, 65u, 700u, 20'000u}) {
            const std::u16string what = text.substr(from, size);
            for (const FindOptions options : allOptions) {
                CHECK(source.Find(what, 0, options) == FoundIn(text, what, 0, options));
                CHECK(source.Find(what + u"#", 0, options) == -1);
            }
        }
}

TEST_CASE("plain text find: a letter that the encoding has not is nowhere") {
    const PlainTextSource latin(Reader("caf\xE9, and what else there is"), 1252, 1252);
    CHECK(latin.Find(u"\u0430", 0, {}) == -1);
    CHECK(latin.Find(u"caf\u00C9", 0, {}) == 0);
    CHECK(latin.Find(u"\u4E00", 0, {}) == -1);
    CHECK(latin.Find(u"\U0001D11E", 0, {}) == -1);
}

TEST_CASE("plain text find: is given up when it is told to") {
    std::string bytes = "\xC3\xA9";
    while (bytes.size() < 5'000'000)
        bytes += "one two\n\n";
    const PlainTextSource source(Reader(bytes + "end"), 0, 1252);
    for (const std::u16string what : {u"end", u"\n\n\n"}) {
        int asked = 0;
        const auto shouldContinue = [&asked] { return ++asked < 4; };
        CHECK(source.FindWhile(what, 0, {}, shouldContinue) == findGivenUp);
        CHECK(asked == 4);
        const TextPos expected = what == u"end" ? source.Length() - 3 : notFound;
        CHECK(source.FindWhile(what, 0, {}, [] { return true; }) == expected);
    }
}

TEST_CASE("plain text find: asks once for each megabyte whether it goes on") {
    const PlainTextSource source(Reader(std::string(2u << 20, '.')), 0, 1252);
    int asked = 0;
    const auto shouldContinue = [&asked] { return ++asked > 0; };
    CHECK(source.FindWhile(u"x", 0, {}, shouldContinue) == notFound);
    CHECK(asked == 2);
}

namespace {
class CountedFile : public BytesReader {
  public:
    using BytesReader::BytesReader;
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override {
        const std::size_t read = BytesReader::ReadAt(offset, to, count);
        bytesRead += read;
        return read;
    }
    mutable std::size_t bytesRead = 0;
};
} // namespace

TEST_CASE("plain text find: reads the file once or twice, however many pieces it has") {
    const auto file = std::make_shared<CountedFile>(std::string(400'000, '.'));
    const PlainTextSource source(file, 0, 1252, 4000);
    file->bytesRead = 0;
    CHECK(source.Find(u"x", 0, {}) == notFound);
    CHECK(file->bytesRead >= 400'000);
    CHECK(file->bytesRead <= 2 * 400'000);
}

namespace {
class ShrunkFile : public BytesReader {
  public:
    ShrunkFile(std::string bytes, std::uint64_t size)
        : BytesReader(std::move(bytes)), size_(size) {}
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override {
        const std::uint64_t end = std::min<std::uint64_t>(offset + count, shrunk ? size_ : Size());
        return offset < end
                   ? BytesReader::ReadAt(offset, to, static_cast<std::size_t>(end - offset))
                   : 0;
    }
    bool shrunk = false;

  private:
    std::uint64_t size_;
};
} // namespace

TEST_CASE("plain text find: in a file whose end is gone, what is shown of it") {
    std::string bytes;
    while (bytes.size() < 100'000)
        bytes += "one two ";
    for (const std::size_t size : {0u, 20'001u, 65'536u, 70'003u}) {
        if (size > 0) bytes[size - 1] = 'Q';
        const auto file = std::make_shared<ShrunkFile>(bytes, size);
        const PlainTextSource source(file, 0, 1252);
        file->shrunk = true;
        const std::u16string text = All(source);
        for (const std::u16string what :
             {u"two", u"\uFFFD", u"Q\uFFFD", u"Q\uFFFD\uFFFD", u"three"})
            for (const TextPos start : {0, 19'990, 65'500, 70'000})
                CHECK(source.Find(what, start, {}) == FoundIn(text, what, start, {}));
    }
}
