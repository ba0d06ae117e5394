#include "formats/codepages/charset_guess.h"

#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text.h"
#include "formats/plain/plain_text_guess.h"
#include "tests/unit/encoded_text.h"
#include "text_samples.h"

#include <doctest/doctest.h>

#include <string>

namespace {
const char16_t* const hebrew[] = {
    u"\u05D4\u05D9\u05D4 \u05D4\u05D9\u05D4 \u05DE\u05DC\u05DA \u05D6\u05E7\u05DF "
    u"\u05D5\u05DC\u05D5 "
    u"\u05E9\u05DC\u05D5\u05E9\u05D4 \u05D1\u05E0\u05D9\u05DD,",
    u"\u05D5\u05D4\u05E6\u05E2\u05D9\u05E8 \u05E9\u05D1\u05D4\u05DD \u05D4\u05D9\u05D4 "
    u"\u05D4\u05D7\u05DB\u05DD \u05DE\u05DB\u05D5\u05DC\u05DD.",
};

std::u16string Reversed(std::u16string_view line) {
    return {line.rbegin(), line.rend()};
}
} // namespace

TEST_CASE("charset guess: Hebrew in visual order is in logical order when it is decoded") {
    const struct {
        int visual, logical; // code pages
    } cases[] = {{28598, 38598}, {70003, 862}};
    for (const auto& pages : cases) {
        CAPTURE(pages.visual);
        std::string visual, logical;
        std::u16string text;
        for (const char16_t* line : hebrew) {
            visual += Encoded(pages.logical, Reversed(line)) + "\r\n";
            logical += Encoded(pages.logical, line) + "\r\n";
            text += std::u16string(line) + u"\r\n";
        }
        for (const int system : {1252, 1255, 1251}) {
            CHECK(DecodePlainText(visual, 0, system).codePage == pages.visual);
            CHECK(DecodePlainText(visual, 0, system).text == text);
            CHECK(DecodePlainText(logical, 0, system).text == text);
        }
        CHECK(DecodePlainText(visual, 1255, 1252).codePage == pages.visual); // the script chosen
        CHECK(All(PlainTextSource(Reader(visual), 0, 1252, 10)) == Whole(visual, 0));
    }
    // Quotation marks of Windows between them.
    const std::string quoted = "\x94" + Encoded(1255, Reversed(hebrew[0])) + "\x93\n";
    CHECK(DecodePlainText(quoted, 0, 1252).codePage == 70004);
}

TEST_CASE("charset guess: Hebrew without letters that end words is taken for logical") {
    const std::u16string word =
        u"\u05E9\u05DC\u05D5\u05E9\u05D4 \u05D0\u05D5 \u05D0\u05E8\u05D1\u05E2\u05D4";
    for (const std::u16string& text : {word, Reversed(word)})
        CHECK(DecodePlainText(Encoded(1255, text), 0, 1252).text == text);
}

TEST_CASE("charset guess: a licence in English does not decide, nor does its copyright sign") {
    std::string book(40000, 'x');
    for (std::size_t i = 0; i < book.size(); i += 6)
        book[i] = ' ';
    book = "Copyright \xA9 1999 \x96 all rights reserved.\n" + book + "\n";
    for (int line = 0; line < 100; ++line)
        book += Encoded(1251, russianText) + "\n";
    CHECK(DecodePlainText(book, 0, 1252).codePage == 1251);
}

TEST_CASE("charset guess: a long book is looked into after its first part") {
    std::string book(guessSample + 100, 'x');
    for (std::size_t i = 0; i < book.size(); i += 70)
        book[i] = '\n';
    while (book.size() < 3 * guessSample)
        book += Encoded(866, russianText) + "\n";
    CHECK(DecodePlainText(book, 0, 1252).codePage == 866);
    const PlainTextSource source(Reader(book), 0, 1252);
    CHECK(source.CodePage() == 866);
}

TEST_CASE("charset guess: the frames of a DOS book do not speak against it") {
    const std::string line(60, '\xCD');
    for (const std::u16string_view title :
         {u"\u0413\u043B\u0430\u0432\u0430 1", u"\u0422\u043E\u043C 2"}) {
        std::string framed = "\xC9" + line + "\xBB\n  ";
        framed.append(Encoded(866, title)).append("\n\xC8").append(line).append("\xBC\n");
        CHECK(DecodePlainText(framed, 0, 1251).codePage == 866);
    }
}

TEST_CASE("charset guess: one rare letter far after counts beside thousands of common ones") {
    // So many letters that each of them a few times is more than what is looked at after.
    std::string book;
    while (book.size() < 60'000)
        book +=
            "Le gar\xE7on \xE9tait all\xE9 \xE0 la for\xEAt o\xF9 sa m\xE8re, na\xEFve, "
            "\xE2g\xE9\x65 mais s\xFBre, "
            "l'attendait \xE0 No\xEBl avec l'h\xF4te de l'\xEEle, Sa\xFCl; \xC7\xE0 et l\xE0, "
            "\xC9lan, \xCAtre, "
            "\xCEle, \xD4ter, \xC0 la fin, O\xD9, NO\xCBL, NA\xCFVE, S\xDBR, M\xC8RE, \xC2GE.\n";
    // oe in ISO 8859-15, a half in the other charsets of Western Europe
    book += "Ma s\xBDur, mon c\xBDur, un n\xBDud, un v\xBDu, un b\xBDuf, l'\xBDuf, un \xBDil.\n";
    CHECK(DecodePlainText(book + "Fin.\n", 0, 1252).codePage == 28605);
}

TEST_CASE("charset guess: a quotation mark within a word is a letter of DOS") {
    const struct {
        int page;
        const char16_t* text;
    } cases[] = {
        {850, u"entendit parler d'un fabuleux trésor et partit"},
        {850, u"anhand des Empfängers einstellen"},
        {437, u"certificados generados automáticamente, físicas"},
        {865, u"bankkontokassekladde eller søgeresultater."},
    };
    for (const auto& c : cases)
        CHECK(Decoded(Encoded(c.page, c.text)) == Utf16ToUtf8(c.text));
    // Where it is elsewhere, too, a blank was forgotten.
    const std::string forgotten = "Er rief \x84Halt\x93und lief weg, er sagte\x84Nein\x93.";
    CHECK(DecodePlainText(forgotten, 0, 1252).codePage == 1252);
}

TEST_CASE("charset guess: in doubt the system's own page") {
    const char* const texts[] = {
        "A caf\xE9.",
        "The caf\xE9 was na\xEFve, a clich\xE9.",
        "It cost \xA3"
        "5 in the caf\xE9 \x96 or 6 \x80.",
        "\x93Yes,\x94 he said, \x93it\x92s his.\x94",
        "Sm\xF8rrebr\xF8"
        "d",
        "30 \xB0 C \xB1 2, 1\xBD cups",
        "Prices: 5 \x80, 6 \x80, 70 \x80, 80 \x80, 9 \x80, 10 \x80.",
        "5 \x80\n6 \x80\n70 \x80\n80 \x80\n9 \x80\n10 \x80\n11 \x80\n12 \x80\n",
        "\xA3 5, \xA3 6, \xA3 70, \xA3 80, \xA3 90, \xA3 100, \xA3 110",
        "\xA7 1 Scope. \xA7 2 Terms. \xA7 3 Fees. \xA7 4 Notice. \xA7 5 Law. \xA7 6 End.",
        "\xA9 2001, \xA9 2002, \xA9 2003, \xA9 2004, \xA9 2005, \xA9 2006",
        "1 \xB0, 2 \xB0, 3 \xB0, 4 \xB0, 5 \xB0, 6 \xB0, 7 \xB0, 8 \xB0",
        "9\xB0"
        "C, 6\xB0"
        "C, 6 \xB0, 3.5 \xB0"
        "C, 9\xB0"
        "C.",
        "5\xA2, 80\xA2, 5\xA2, 10\xA2, 9\xA2, 15\xA2, 20\xA2, 50\xA2",
        "No. 3\xBA, 5\xBA, 80\xBA, 10\xBA, 12\xBA and 9\xBA",
        "Cups: 3\xBD, 6\xBC, 2\xBC, 1\xBE, 4\xBD, 7\xBC",
        "\xB1 5 and \xB1 3.5 and \xB1 9 and \xB1 1200 and \xB1 80 and \xB1 9",
        "10 \xD7 10 and 80 \xD7 80 and 9\xD7"
        "9 and 10 \xD7 10 and 10\xD7"
        "10",
        "it\x92s and it\x92s and it\x92s and don\x92t and don\x92t and it\x92s and it\x92s here",
        "\x95"
        "a\n\x95named\n\x95with\n\x95his\n\x95"
        "flour\n\x95winter\n\x95Rex\n\x95"
        "at\n\x95old\n",
    };
    for (const char* const text : texts) {
        const std::string bytes = text;
        CAPTURE(bytes);
        CHECK(DecodePlainText(bytes, 0, 1252).codePage == 1252);
    }
    CHECK(DecodePlainText("\xE0", 0, 1251).codePage == 1251);
}

TEST_CASE("charset guess: signs alone leave a text in the system's own page") {
    const char16_t* const texts[] = {
        u"— Ga je morgen mee naar de markt? vroeg de oude molenaar.\n— Nee, ik blijf liever thuis "
        u"bij het vuur, zei zijn vrouw.\n— Dan ga ik alleen, het regent toch niet.\n",
        u"The old road² ran past the mill² and the church², and the people² who lived there² "
        u"never thought² about where it went². And the children² of the village² played in the "
        u"field² until evening², when their mothers² called².",
    };
    for (const char16_t* const text : texts)
        CHECK(Decoded(Encoded(1252, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: a fraction within a word is a letter of another page") {
    const char16_t* const text =
        u"La version du nœud n'était pas trouvée, dit le garçon à sa mère.";
    CHECK(Decoded(Encoded(28605, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: languages whose accents are rare elsewhere stay Western") {
    const char16_t* const gaelic =
        u"Chaidh an t-iasgair a-mach air a\u2019 mhuir sa mhadainn, is chunnaic e "
        u"eilean beag fad \u00E0s. Th\u00E0inig e gu t\u00ECr, rinn e teine m\u00F2r "
        u"air an tr\u00E0igh, agus dh\u2019fhuirich e an sin gus an do "
        u"dh\u2019\u00E8irich a\u2019 ghealach. Bha na rionnagan gl\u00E8 shoilleir; "
        u"dh\u2019inns e sgeulachd dha fh\u00E8in mu na seann l\u00E0ithean, nuair a "
        u"bha a sheanair \u00F2g.";
    const char16_t* const breton =
        u"Bemdez ez ae ar pesketaer kozh da besketa\u00F1, da werzha\u00F1 ha da "
        u"brena\u00F1 bara. Kavout a rae evnio\u00F9 ha pesked er poullo\u00F9, hag e "
        u"kane kanaouenno\u00F9 evit kousket, da\u00F1sal ha c'hoarzhin. Goude-se e "
        u"save e zorn evit saludi\u00F1 ar bigi a oa o tont en-dro d'ar porzhio\u00F9.";
    for (const char16_t* const text : {gaelic, breton})
        CHECK(Decoded(Encoded(1252, text)) == Utf16ToUtf8(text));
}

TEST_CASE("charset guess: a script that was chosen is kept, and its charset told") {
    const std::string koi8 = Encoded(20866, russianText);
    const std::string dos = Encoded(866, russianText);
    CHECK(DecodePlainText(koi8, 1251, 1252).codePage == 20866);
    CHECK(DecodePlainText(dos, 1251, 1252).codePage == 866);
    CHECK(DecodePlainText(Encoded(1251, russianText), 1251, 1252).codePage == 1251);
    CHECK(DecodePlainText(koi8, 1255, 1252).codePage == 1255);
    CHECK(DecodePlainText(koi8, 866, 1252).codePage == 866); // not of Windows: just that
    CHECK(WindowsPageOfScript(866) == 1251);
    CHECK(WindowsPageOfScript(visciiPage) == 1258);
    CHECK(WindowsPageOfScript(65001) == 0);
}

TEST_CASE("charset guess: UTF-8 with stray bytes stays UTF-8") {
    std::string text;
    for (int i = 0; i < 30; ++i)
        text += Utf16ToUtf8(russianText);
    text.insert(100, "\xFF");
    text += "\xE9 and so on";
    const DecodedText decoded = DecodePlainText(text, 0, 1252);
    CHECK(decoded.encoding == TextEncoding::Utf8);
    CHECK(std::ranges::count(decoded.text, u'\uFFFD') >= 2);
}

TEST_CASE("charset guess: short UTF-8 with a stray byte stays UTF-8") {
    const char16_t* const texts[] = {
        u"\u00C0 l'\u00E9t\u00E9, o\u00F9 na\u00EEt le fa\u00E7onn\u00E9",
        u"El ni\u00F1o comi\u00F3 ma\u00F1ana, \u00BFverdad?",
        u"M\u0142ynarz liczy\u0142 \u015Bwiat\u0142a wzd\u0142u\u017C",
        u"\u201CIt\u2019s the miller\u2019s,\u201D he said \u2014 \u201Ctwice.\u201D",
    };
    for (const char16_t* const text : texts)
        for (const char* const stray : {"\xE9 ", "\xFF", "\xA0", "\x92"}) {
            const std::string bytes = stray + Utf16ToUtf8(text);
            CAPTURE(bytes);
            CHECK(DecodePlainText(bytes, 0, 1252).encoding == TextEncoding::Utf8);
        }
    CHECK(DecodePlainText("\xC3\xA9 caf\xE9.", 0, 1252).encoding == TextEncoding::CodePage);
}

TEST_CASE("charset guess: a word in UTF-16 without a mark") {
    for (const bool big : {false, true})
        for (const char16_t* const word :
             {u"\u041C\u0435\u043B", u"\u05D1\u05EA", u"\u03BC\u03C5\u03BB"})
            CHECK(DecodePlainText(Wide(word, 2, big), 0, 1252).text == word);
    CHECK(DecodePlainText("a\x04", 0, 1252).text == u"a\u0004");
}

TEST_CASE("charset guess: line ends and drawn lines show another system's text") {
    const std::u16string mac = u"The caf\u00E9 was shut.\rThe na\u00EFve man left.\r";
    CHECK(Decoded(Encoded(10000, mac)) == Utf16ToUtf8(mac));
    const std::string western = "The caf\xE9 was shut.\rThe na\xEFve man left.\r";
    CHECK(DecodePlainText(western, 0, 1252).codePage == 1252);
    for (const char16_t* const box : {u"\u250C\u2500\u2500\u2500\u2500\u2500\u2500\u2510\r\n"
                                      u"\u2502 Menu \u2502\r\n\u2502 Quit \u2502\r\n",
                                      u"\u2554\u2550\u2550\u2550\u2550\u2550\u2550\u2557\r\n"
                                      u"\u2551 MENU \u2551\r\n\u2551 Open \u2551\r\n"})
        CHECK(Decoded(Encoded(437, box)) == Utf16ToUtf8(box));
}

TEST_CASE("charset guess: sequences of ISO-2022 and HZ") {
    const struct {
        std::string bytes;
        int page;
        const char16_t* text;
    } cases[] = {
        {"\x1B$B$\"$$\x1B(B abc\n", iso2022JpPage, u"\u3042\u3044 abc\n"},
        {"\x1B(J\\\x1B(I1\x1B$@0!\x1B(B\n", iso2022JpPage, u"\u00A5\uFF71\u4E9C\n"},
        {"\x1B$)C\x0E"
         "0!\x0F a\n\x0E"
         "0!\x0F\n",
         iso2022KrPage, u"\uAC00 a\n\uAC00\n"},
        {"\x1B$)A\x0EVPND\x0F\n", iso2022CnPage, u"\u4E2D\u6587\n"},
        {"a ~{VPND~} ~~\n", hzPage, u"a \u4E2D\u6587 ~\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.page);
        const DecodedText decoded = DecodePlainText(c.bytes, 0, 1252);
        CHECK(decoded.codePage == c.page);
        CHECK(Utf16ToUtf8(decoded.text) == Utf16ToUtf8(c.text));
        CHECK(All(PlainTextSource(Reader(c.bytes), 0, 1252, 7)) == Whole(c.bytes, 0));
    }
    for (const char* const text :
         {"\x1B[1mbold\x1B[0m", "~{ not HZ", "a ~ b ~{x~} c", "~{x~}", "~{VP N~}", "\x1B"})
        CHECK(DecodePlainText(text, 0, 1252).encoding == TextEncoding::Utf8);
}

TEST_CASE("charset guess: UTF-32 without a mark") {
    const std::u16string text = u"A line \u0416\r\n";
    for (const bool big : {false, true}) {
        CHECK(DecodePlainText(Wide(text, 4, big), 0, 1252).text == text);
        CHECK(DecodePlainText(Wide(text, 2, big), 0, 1252).text == text);
    }
}

TEST_CASE("charset guess: guesses are sorted, likeliest first") {
    const std::string bytes = Encoded(866, russianText);
    const std::string_view sample = bytes;
    const auto guesses = GuessCharsets({&sample, 1}, 1252);
    REQUIRE(!guesses.empty());
    CHECK(guesses.front().page == 866);
    CHECK(guesses.front().bits == 0);
    for (std::size_t i = 1; i < guesses.size(); ++i)
        CHECK(guesses[i].bits >= guesses[i - 1].bits);
}
