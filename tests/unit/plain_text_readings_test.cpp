#include "formats/plain/plain_text_readings.h"

#include "common/utf.h"
#include "formats/codepages/charset_names.h"
#include "formats/codepages/code_pages.h"
#include "formats/plain/plain_text_guess.h"
#include "text_samples.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <set>

namespace {
std::vector<CharsetReading> Readings(const std::string& bytes, int present = 1252) {
    return CharsetReadings(*Reader(bytes), 1252, present);
}

const CharsetReading* Find(const std::vector<CharsetReading>& readings, int page) {
    const auto found = std::ranges::find(readings, page, &CharsetReading::page);
    return found == readings.end() ? nullptr : &*found;
}

// "Fairy tale", in DOS 866.
const std::string tale = "\x91\xAA\xA0\xA7\xAA\xA0";
constexpr const char16_t* taleText = u"\u0421\u043A\u0430\u0437\u043A\u0430";
} // namespace

TEST_CASE("readings: every charset by one name, and each can be decoded") {
    std::set<int> pages;
    std::set<std::string_view> names;
    for (const NamedCharset& each : NamedCharsets()) {
        CAPTURE(each.page);
        CHECK(HasCodePage(each.page));
        CHECK(pages.insert(each.page).second);
        CHECK(names.insert(each.name).second);
    }
}

TEST_CASE("readings: one line in each charset, likeliest first, DOS beside Windows") {
    const auto readings =
        Readings("An old " + tale + ".\r\n" + tale + ", \xE1\xAA\xA0\xA7\xAA\xA8\r\n", 866);
    CHECK(readings[0].page == 866);
    CHECK(readings[0].line.starts_with(taleText));
    const CharsetReading* windows = Find(readings, 1251);
    REQUIRE(windows);
    CHECK(windows->name == "Cyrillic (Windows 1251)");
    CHECK(Utf16ToUtf8(windows->line).starts_with("\u2018\u0404\u00A0\u00A7"));
    for (const int page : {1252, 1250, 1253, 1254, 1255, 1256, 1257, 1258, 874, 932, 949, 1361, 936,
                           950, 437, 51932})
        CHECK_MESSAGE(Find(readings, page), page);
}

TEST_CASE("readings: a charset that the bytes rule out is at the end") {
    const auto readings = Readings("caf\xE9 d\xE9j\xE0 vu");
    CHECK(readings[0].page == 1252);
    CHECK(readings.back().line.find(u'\uFFFD') != std::u16string::npos);
    const auto at = [&](int page) { return Find(readings, page) - readings.data(); };
    CHECK(at(1253) < at(864)); // which has no such bytes
}

TEST_CASE("readings: what reads alike for a script is there once, and always the present one") {
    const std::string bytes = "caf\xE9";
    CHECK_FALSE(Find(Readings(bytes), 28591));
    CHECK_FALSE(Find(Readings(bytes), 28605));
    CHECK(Find(Readings(bytes), 1250)); // another script
    CHECK(Find(Readings(bytes, 28605), 28605));
    CHECK(Find(Readings("caf\xE9 \xA4 10"), 28605)); // the euro sign
    // What is not looked at may differ.
    CHECK(Find(Readings(bytes + std::string(guessSample, ' ')), 28605));
    const auto other = Readings(bytes, 54936);
    CHECK(other.back().page == 54936);
    CHECK(other.back().name == "Code page 54936");
}

TEST_CASE("readings: Hebrew in both orders, each once, as it reads") {
    // "Hello", as it is seen.
    const auto readings = Readings("\xED\xE5\xEC\xF9", visualIsoPage);
    CHECK(Find(readings, visualIsoPage)->name == "Hebrew, visual order (ISO 8859-8)");
    CHECK(Find(readings, visualIsoPage)->line == u"\u05E9\u05DC\u05D5\u05DD");
    CHECK(Find(readings, 1255)->line == u"\u05DD\u05D5\u05DC\u05E9");
    CHECK_FALSE(Find(readings, logicalIsoPage));
    CHECK(Find(readings, 862));
    CHECK(Find(readings, visualDosPage));
}

TEST_CASE("readings: the other order of the likeliest letters is the second choice") {
    // "Three sons, and the youngest of them was wise", in DOS 862.
    const std::string logical =
        "\x99\x8C\x85\x99\x84 \x81\x90\x89\x8D "
        "\x85\x84\x96\x92\x89\x98 \x99\x81\x84\x8D \x84\x89\x84 \x87\x8B\x8D";
    const std::string visual(logical.rbegin(), logical.rend());
    CHECK(Readings(logical)[0].page == 862);
    CHECK(Readings(logical)[1].page == visualDosPage);
    CHECK(Readings(visual)[0].page == visualDosPage);
    CHECK(Readings(visual)[1].page == 862);
    CHECK(Readings(visual)[0].line == Readings(logical)[0].line);
}

TEST_CASE("readings: nothing to choose from where the bytes leave no doubt") {
    const char* const texts[] = {"", "ASCII alone", "\xEF\xBB\xBF\xC3\xA9", "\xFF\xFE\xE9",
                                 "\x1B$B$\"\x1B(B"};
    for (const std::string text : texts)
        CHECK(Readings(text).empty());
    CHECK(Readings(Wide(u"one two three\r\nfour", 2, false)).empty());
}

TEST_CASE("readings: UTF-8 among them, first where the bytes are") {
    CHECK(Readings("caf\xC3\xA9")[0].page == utf8Page);
    CHECK(Readings("caf\xC3\xA9")[0].line == u"caf\u00E9");
    // Two words of Chinese in GB18030, which are UTF-8 by chance.
    const auto readings = Readings("\xC1\xAA\xCD\xA8", utf8Page);
    CHECK(Find(readings, 936)->line == u"\u8054\u901A");
}

TEST_CASE("readings: the line is the one with most letters, without what disturbs a list") {
    const struct {
        const char* bytes;
        const char16_t* line;
    } rows[] = {
        {"one \xE9\r\n\xE9\xE8\xE0 two\r\nthree", u"\u00E9\u00E8\u00E0 two"},
        {"\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\n\t\xE9\xE8\xE0\xF1 a\tb\n",
         u"\u00E9\u00E8\u00E0\u00F1 a b"},
        {"\xA9\xAE\xB1\xBB\xA9\xAE\n\xE9\n", u"\u00E9"}, // signs are no letters
        {"\xE9\x81", u"\u00E9\uFFFD"},
    };
    for (const auto& row : rows)
        CHECK(Utf16ToUtf8(Find(Readings(row.bytes), 1252)->line) == Utf16ToUtf8(row.line));
}

TEST_CASE("readings: of a long line a stretch, cut at a blank or within no character") {
    std::string words, kana;
    for (int i = 0; i < 500; ++i) {
        words += "word ";
        kana += "\xA4\xA2\xA4\xAB";
    }
    const auto western = Readings(words + "\xE9t\xE9 \xE0 No\xEBl " + words);
    CHECK(western[0].line.size() <= 100);
    CHECK(western[0].line.find(u"\u00E9t\u00E9") != std::u16string::npos);
    const auto japanese = Readings(kana, 51932);
    CHECK(japanese[0].page == 51932);
    CHECK(japanese[0].line.size() >= 45);
    CHECK(japanese[0].line.find(u'\uFFFD') == std::u16string::npos);
}

TEST_CASE("readings: the first letter that tells stands near the start of the line") {
    const auto readings = Readings("Il babbo disse che la citt\xE0 era lontana.");
    CHECK(Utf16ToUtf8(readings[0].line) == Utf16ToUtf8(u"che la citt\u00E0 era lontana."));
    const std::string word(40, 'a');
    CHECK(Readings(word + "\xE0")[0].line == u"\u00E0");
}

TEST_CASE("readings: for each script the page of Windows unless the bytes say another") {
    const auto standing = [](const std::string& bytes, int page) {
        const auto readings = Readings(bytes);
        return Find(readings, page) && Find(readings, page)->standsForScript;
    };
    CHECK(standing("\xC6", 1251));
    CHECK_FALSE(standing("\xC6", 20866));
    CHECK(standing("\xC6", 1253));
    CHECK(standing(tale + " " + tale, 866));
    CHECK_FALSE(standing(tale + " " + tale, 1251));
    CHECK(standing(tale, 437));
    CHECK_FALSE(standing(tale, utf8Page));
}

TEST_CASE("readings: letters far after the start of a long text are found") {
    std::string book(3 * guessSample, 'x');
    for (std::size_t i = 0; i < book.size(); i += 50)
        book[i] = '\n';
    book += "\n" + tale + "\n" + std::string(guessSample, 'y');
    const auto readings = Readings(book, 866);
    REQUIRE(Find(readings, 866));
    CHECK(Find(readings, 866)->line == taleText);
}

TEST_CASE("readings: a mark and its like are told from bytes that leave a choice") {
    for (const char* const text : {"\xEF\xBB\xBF\xC3\xA9", "\xFF\xFE\xE9", "\x1B$B$\"\x1B(B"})
        CHECK(HasMarkedForm(*Reader(text)));
    for (const char* const text : {"", "caf\xC3\xA9", "caf\xE9"})
        CHECK_FALSE(HasMarkedForm(*Reader(text)));
    CHECK(FormOfPage(utf8Page).encoding == TextEncoding::Utf8);
    CHECK(FormOfPage(866).codePage == 866);
}
