#include "formats/codepages/charsets.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace {

std::u16string Decode(int codePage, std::string_view bytes) {
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}

struct PageCase {
    int page;
    std::string bytes;
    std::u16string text;
};

} // namespace

TEST_CASE("code pages: letters of every page") {
    const PageCase cases[] = {
        {437, "\x80\xE1\xB0", u"\u00C7\u00DF\u2591"},
        {850, "\x9B\xD5", u"\u00F8\u0131"},
        {852, "\x88", u"\u0142"},
        {866, "\x80\xAF\xE0\xF0", u"\u0410\u043F\u0440\u0401"},
        {1125, "\x80\xF3\xF7\xF9", u"\u0410\u0491\u0456\u0457"},
        {kazakhPage, "\x8D\x9D\xA3\xBC\xBA\xBE\xFF", u"\u049A\u049B\u04D8\u04D9\u0493\u04A3\u044F"},
        {asianPage, "\x80\x90\xA2\xB9\xBF\xFF", u"\u0496\u0497\u045E\u2116\u049D\u044F"},
        {mikPage, "\x80\xBF\xC4\xCD\xD5\xE0\xFF", u"\u0410\u044F\u2500\u2550\u2116\u03B1\u00A0"},
        {874, "\xA1\xE0\xA0", u"\u0E01\u0E40\u00A0"},
        {932, "\x93\xFA\x96{\xB1\\", u"\u65E5\u672C\uFF71\\"},
        {936, "\xBC\xF2\xCC\xE5\x80", u"\u7B80\u4F53\u20AC"},
        {949, "\xC7\xD1\x81\x41", u"\uD55C\uAC02"},
        {950, "\xC1\x63\xC5\xE9\xC6\xE7", u"\u7E41\u9AD4\u3041"},
        {1250, "\xF5\xB9", u"\u0151\u0105"},
        {1251, "\xC0\xFF\xB8", u"\u0410\u044F\u0451"},
        {1252, "\x80\x93\xE9", u"\u20AC\u201C\u00E9"},
        {1253, "\xE1\xFE", u"\u03B1\u03CE"},
        {1254, "\xFD\xDE", u"\u0131\u015E"},
        {1255, "\xE0\xCA\xFA", u"\u05D0\u05BA\u05EA"},
        {1256, "\xC7\x81", u"\u0627\u067E"},
        {1257, "\xE0\xF0", u"\u0105\u0161"},
        {1258, "\xFD\xDE\xD0", u"\u01B0\u0303\u0110"},
        {1361, "\x88\x61\xD0\x65", u"\uAC00\uD55C"},
        {10000, "\x8E\xCA", u"\u00E9\u00A0"},
        {10001, "\x93\xFA\x80\xFD", u"\u65E5\\\u00A9"},
        {10006, "\xE1", u"\u03B1"},
        {10007, "\x80\xDF", u"\u0410\u044F"},
        {10029, "\x88", u"\u0105"},
        {10081, "\xDD", u"\u0131"},
        {20866, "\xC1\xE1\xA3", u"\u0430\u0410\u0451"},
        {28592, "\xB1", u"\u0105"},
        {28593, "\xA1", u"\u0126"},
        {28594, "\xA2", u"\u0138"},
        {28595, "\xB0", u"\u0410"},
        {28596, "\xC7", u"\u0627"},
        {28597, "\xE1", u"\u03B1"},
        {28598, "\xE0\xE1", u"\u05D0\u05D1"}, // in the order of the bytes
        {38598, "\xE0\xAA", u"\u05D0\u00D7"},
        {70003, "\x80\x81", u"\u05D0\u05D1"},
        {70004, "\xE0\x80", u"\u05D0\u20AC"},
        {28599, "\xFD", u"\u0131"},
        {28600, "\xBD", u"\u2015"},
        {28601, "\xA1", u"\u0E01"},
        {28603, "\xA1", u"\u201D"},
        {28604, "\xA1", u"\u1E02"},
        {28605, "\xA4", u"\u20AC"},
        {54936, "\xBC\xF2", u"\u7B80"},
        {65001, "\xD0\x96", u"\u0416"},
        {720, "\xA0", u"\u0628"},
        {737, "\x98", u"\u03B1"},
        {775, "\xD0", u"\u0105"},
        {855, "\xA0", u"\u0430"},
        {857, "\xA7", u"\u011F"},
        {858, "\xD5", u"\u20AC"},
        {862, "\x80", u"\u05D0"},
        {864, "\xE1", u"\uFED3"},
        {21866, "\xA4", u"\u0454"},
        {28606, "\xBA", u"\u0219"},
        {51932, "\xA4\xA2\x8E\xB1\x8F\xB0\xA1\xAD\xA1", u"\u3042\uFF71\u4E02\u2460"},
        {51950, "\xC4\xA1\x8E\xA2\xA1\xA1", u"\u4E00\u4E42"},
        {visciiPage, "\xAA\x02", u"\u1EBF\u1EB2"},
        {tcvnPage, "\xD5\x01", u"\u1EBF\u00DA"},
        {860, "\x84", u"\u00E3"},
        {861, "\x8D", u"\u00DE"},
        {863, "\x86", u"\u00B6"},
        {865, "\x9B", u"\u00F8"},
        {869, "\x98\xE1", u"\u038F\u03B7"},
        {10010, "\xAF\xBF", u"\u0218\u0219"},
        {10079, "\xA0\xDF", u"\u00DD\u00FE"},
        {10082, "\xA9\xB9", u"\u0160\u0161"},
        {28591, "\x80\xE9", u"\u0080\u00E9"},
        {iso2022JpPage, "\x1B$B$\"\x1B(B", u"\u3042"},
        {iso2022KrPage,
         "\x1B$)C\x0E"
         "0!\x0F",
         u"\uAC00"},
        {iso2022CnPage, "\x1B$)A\x0EVP\x0F", u"\u4E2D"},
        {hzPage, "~{VP~}", u"\u4E2D"},
    };
    for (int page = -1; page <= 70'000; ++page) // a new page needs a row
        CHECK(HasCodePage(page) ==
              (std::ranges::find(cases, page, &PageCase::page) != std::end(cases)));
    for (const PageCase& c : cases) {
        CAPTURE(c.page);
        CHECK(HasCodePage(c.page));
        CHECK(Decode(c.page, c.bytes) == c.text);
        CHECK(Decode(c.page, "12345678" + c.bytes + "12345678") ==
              u"12345678" + c.text + u"12345678");
    }
}

TEST_CASE("code pages: an unknown page is read as 1252") {
    for (const int page : {-1, 0, 1, 1200, 1259, 28602, 70000}) {
        CAPTURE(page);
        CHECK_FALSE(HasCodePage(page));
        CHECK(Decode(page, "\x80") == u"\u20AC");
    }
}

TEST_CASE("code pages: GB18030's four bytes") {
    const PageCase cases[] = {
        {936, "\x81\x30\x81\x30", u"\u0080"},
        {936, "\x81\x39\xEE\x39", u"\u3400"},
        {936, "\x84\x31\xA4\x37", u"\uFFFD"},
        {936, "\x84\x31\xA4\x39", u"\uFFFF"},
        {936, "a\x90\x30\x81\x30z", u"a\U00010000z"},
        {54936, "\xE3\x32\x9A\x35", u"\U0010FFFF"},
        {936, "\xE3\x32\x9A\x36", u"\uFFFD"}, // above U+10FFFF
        {936, "\x84\x31\xA5\x30", u"\uFFFD"}, // between the planes
        {936, "\x90\x30\x81",
         u"\uFFFD"
         u"0\uFFFD"}, // cut
        {936, "\x81\x30\x81\x41",
         u"\uFFFD"
         u"0\u4E04"}, // a pair follows
        {949, "\x90\x30\x81\x30",
         u"\uFFFD"
         u"0\uFFFD"
         u"0"}, // not in other pages
    };
    for (const PageCase& c : cases) {
        CAPTURE(c.bytes);
        CHECK(Decode(c.page, c.bytes) == c.text);
    }
}

TEST_CASE("code pages: what has no meaning becomes U+FFFD and eats nothing else") {
    const PageCase cases[] = {
        {1252, "a\x81z", u"a\uFFFDz"},
        {932, "\x93", u"\uFFFD"}, // a lead byte at the end
        {932, "\x93\n\x93\xFA", u"\uFFFD\n\u65E5"},
        {932, "\xFDz", u"\uF8F1z"},
        {932, "\x84\x97x", u"\uFFFDx"}, // a pair of the right shape
        {949, "\x81[", u"\uFFFD["},     // its second byte is ASCII
        {949, "\xFF\x80", u"\uFFFD\uFFFD"},
        {950, "\x80z", u"\uFFFDz"},
        {936, "\xFFz", u"\uFFFDz"},
        {1361, "\x84\x20", u"\uFFFD "},
        {65001, "\xE2\x82", u"\uFFFD\uFFFD"},
    };
    for (const PageCase& c : cases) {
        CAPTURE(c.bytes);
        CHECK(Decode(c.page, c.bytes) == c.text);
    }
}

TEST_CASE("code pages: a pair is read whole wherever it stands") {
    for (const std::size_t start : {0, 8176, 16368}) {
        for (std::size_t before = start; before < start + 32; ++before) {
            CAPTURE(before);
            const std::string ascii(before, 'x');
            const std::u16string same(before, u'x');
            CHECK(Decode(949, ascii + "\xC7\xD1z") == same + u"\uD55Cz");
            CHECK(Decode(936, ascii + "\x90\x30\x81\x30z") == same + u"\U00010000z");
            CHECK(Decode(1251, ascii + "\xC0z") == same + u"\u0410z");
        }
    }
}

TEST_CASE("code pages: decoding appends") {
    for (const int page : {1251, 949, 65001}) {
        std::u16string text = u"before ";
        DecodeCodePage(page, "after", text);
        CHECK(text == u"before after");
        DecodeCodePage(page, "", text);
        CHECK(text == u"before after");
    }
}

TEST_CASE("code pages: lead bytes") {
    const struct {
        int page;
        unsigned char byte;
        bool lead;
    } cases[] = {
        {932, 0x80, false},  {932, 0x81, true},   {932, 0x9F, true},   {932, 0xA0, false},
        {932, 0xDF, false},  {932, 0xE0, true},   {932, 0xFC, true},   {932, 0xFD, false},
        {936, 0x81, true},   {936, 0x80, false},  {936, 0xFE, true},   {936, 0xFF, false},
        {949, 0x81, true},   {949, 'a', false},   {950, 0xFE, true},   {1361, 0x83, false},
        {1361, 0x84, true},  {1361, 0xD4, false}, {1361, 0xF9, true},  {10001, 0xE0, true},
        {54936, 0x81, true}, {1252, 0x81, false}, {1251, 0xFF, false}, {65001, 0xE2, false},
        {0, 0x81, false},
    };
    for (const auto& c : cases) {
        CAPTURE(c.page);
        CAPTURE(static_cast<int>(c.byte));
        CHECK(IsLeadByte(c.page, c.byte) == c.lead);
    }
}

TEST_CASE("code pages: the page of a font's character set can be decoded") {
    for (int charset = -1; charset < 300; ++charset) {
        CAPTURE(charset);
        const int page = CodePageOfFontCharset(charset);
        CHECK((page == 0 || HasCodePage(page)));
    }
    const struct {
        int charset, page;
    } cases[] = {{0, 1252},   {1, 0},      {2, 0},      {77, 10000}, {78, 10001}, {128, 932},
                 {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                 {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},
                 {238, 1250}, {254, 437},  {255, 850},  {-1, 0},     {256, 0}};
    for (const auto& c : cases)
        CHECK(CodePageOfFontCharset(c.charset) == c.page);
}

TEST_CASE("charsets: names, pages and character sets") {
    CHECK(CharsetCodePage("windows-1251") == 1251);
    CHECK(CharsetCodePage("shift_jis") == 932);
    CHECK(CharsetCodePage("johab") == 1361);
    for (const char* other : {"UTF-8", "utf-8", "iso-8859-1", "Windows-1251", "windows-1259", ""})
        CHECK(CharsetCodePage(other) == 1200);
    CHECK(CodePageToCharset(1200) == 0);
    CHECK(CodePageToCharset(437) == 0);
    CHECK(CodePageToCharset(1251) == 204);
    CHECK(CharsetToCodePage(254) == 437);
    CHECK(CharsetToCodePage(1) == 0);
    for (const int page :
         {1252, 932, 949, 1361, 936, 950, 1253, 1254, 1258, 1255, 1256, 1257, 1251, 874, 1250})
        CHECK(CharsetToCodePage(CodePageToCharset(page)) == page);
}
