#include "formats/plain/plain_text.h"

#include "common/utf.h"
#include "formats/plain/plain_text_guess.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace std::string_literals;

namespace {

struct EncodingCase {
    std::string bytes;
    TextEncoding encoding;
    std::u16string text;
};

void CheckCases(const EncodingCase* begin, const EncodingCase* end) {
    for (const EncodingCase* c = begin; c != end; ++c) {
        CAPTURE(c->bytes);
        const DecodedText decoded = DecodePlainText(c->bytes, 0, 1252);
        CHECK(decoded.encoding == c->encoding);
        CHECK(decoded.codePage == (c->encoding == TextEncoding::CodePage ? 1252 : 0));
        CHECK(Utf16ToUtf8(decoded.text) == Utf16ToUtf8(c->text));
    }
}

std::string Utf16Bytes(std::u16string_view text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

int PageTakenFor1251(const std::string& bytes) {
    return DecodePlainText(bytes, 1251, 1252).codePage;
}

} // namespace

TEST_CASE("plain text: byte-order marks") {
    const EncodingCase cases[] = {
        {"\xEF\xBB\xBF"
         "caf\xC3\xA9",
         TextEncoding::Utf8, u"caf\u00E9"},
        {"\xEF\xBB\xBF", TextEncoding::Utf8, u""},
        {"\xEF\xBB\xBF"
         "caf\xE9!",
         TextEncoding::Utf8, u"caf\uFFFD!"},
        {"\xFF\xFE"
         "a\0\x16\x04"s,
         TextEncoding::Utf16LittleEndian, u"a\u0416"},
        {"\xFE\xFF\0a\x04\x16"s, TextEncoding::Utf16BigEndian, u"a\u0416"},
        {"\xFF\xFE", TextEncoding::Utf16LittleEndian, u""},
        {"\xFF\xFE"
         "a\0b"s,
         TextEncoding::Utf16LittleEndian, u"a\uFFFD"}, // half a unit
        {"\xFF\xFE\x3D\xD8\0\xDE"s, TextEncoding::Utf16LittleEndian, u"\U0001F600"},
        {"\xFE\xFF\xD8\x3D\0a\xDE\0\xD8\x3D"s, TextEncoding::Utf16BigEndian,
         u"\uFFFDa\uFFFD\uFFFD"},
        {"\xFE\xFF\0a\0\0\0b"s, TextEncoding::Utf16BigEndian, u"a\uFFFDb"}, // a NUL
        {"\xFF\xFE\0\0a\0\0\0\0\xF6\x01\0"s, TextEncoding::Utf32LittleEndian, u"a\U0001F600"},
        {"\0\0\xFE\xFF\0\0\0a\0\x01\xF6\0"s, TextEncoding::Utf32BigEndian, u"a\U0001F600"},
        {"\0\0\xFE\xFF\0\0\xD8\0\0\x11\0\0\0\0\0\0\0\0"s, TextEncoding::Utf32BigEndian,
         u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // a surrogate, above U+10FFFF, a NUL, half a unit
    };
    CheckCases(std::begin(cases), std::end(cases));
}

TEST_CASE("plain text: without a mark, UTF-8 or the code page") {
    const EncodingCase cases[] = {
        {"", TextEncoding::Utf8, u""},
        {"plain\r\n", TextEncoding::Utf8, u"plain\r\n"},
        {"caf\xC3\xA9", TextEncoding::Utf8, u"caf\u00E9"},
        {"a\0b"s, TextEncoding::Utf8, u"a\uFFFDb"},
        {"caf\xC3\xA9 \xE2\x82", TextEncoding::Utf8, u"caf\u00E9 \uFFFD\uFFFD"}, // cut at the end
        {"caf\xC3\xA9, d\xE9j\xE0", TextEncoding::CodePage, u"caf\u00C3\u00A9, d\u00E9j\u00E0"},
        {"caf\xE9", TextEncoding::CodePage, u"caf\u00E9"}, // not a cut sequence
        {"\x93"
         "a\0\x94"s,
         TextEncoding::CodePage, u"\u201Ca\uFFFD\u201D"},
    };
    CheckCases(std::begin(cases), std::end(cases));
}

TEST_CASE("plain text: the book's page comes before the system's") {
    CHECK(DecodePlainText("\xE0", 1255, 1252).text == u"\u05D0");
    CHECK(DecodePlainText("\xE0", 0, 1251).text == u"\u0430");
    CHECK(DecodePlainText("\x93\xFA\x93", 932, 1252).text == u"\u65E5\uFFFD");
    CHECK(DecodePlainText("\xE0", 0, 1251).codePage == 1251);
}

TEST_CASE("plain text: UTF-16 without a mark") {
    const std::u16string texts[] = {
        u"A",
        u"Plain English.\r\nTwo lines.\r\n",
        u"\u0412\u043E\u0439\u043D\u0430 \u0438 \u043C\u0438\u0440\n\u0422\u043E\u043C 1\n",
        // More low zero bytes than high ones.
        (u"\u3000\u4E00\u65E5\u4E00\u65E5\u3001\u5927\u304D\u306A\u6728\u3002\n"
         u"\u3000\u4E00\u4EBA\u3067\u6B69\u304F\u3002\n"),
        u"\u7B80\u4F53\u4E2D\u6587\u6C49\u5B57\u7B80\u5316\u5B57\n",
        u"\U0001F600 and \U0001F601\n",
        u"\U00010000 to \U0010FFFF\n",
        u"\u00E5\uF900\u00E5 \u00E5\uF900\n",
        u"\u2022 a\n\u2022 b\n\u2022 c\n",
    };
    for (const std::u16string& text : texts) {
        CAPTURE(Utf16ToUtf8(text));
        const DecodedText little = DecodePlainText(Utf16Bytes(text, false), 1251, 1252);
        CHECK(little.encoding == TextEncoding::Utf16LittleEndian);
        CHECK(Utf16ToUtf8(little.text) == Utf16ToUtf8(text));
        const DecodedText big = DecodePlainText(Utf16Bytes(text, true), 1251, 1252);
        CHECK(big.encoding == TextEncoding::Utf16BigEndian);
        CHECK(Utf16ToUtf8(big.text) == Utf16ToUtf8(text));
    }
}

TEST_CASE("plain text: halves of surrogate pairs are not UTF-16") {
    for (const char16_t half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'})
        for (const bool bigEndian : {false, true}) {
            std::u16string text;
            for (int i = 0; i < 20; ++i)
                (text += std::u16string(8, u'\u00E5')) += half; // swapped it is no text either
            CAPTURE(static_cast<int>(half));
            const DecodedText decoded = DecodePlainText(Utf16Bytes(text, bigEndian), 0, 1252);
            CHECK(decoded.encoding == TextEncoding::CodePage);
        }
}

TEST_CASE("plain text: zero bytes alone are not UTF-16") {
    std::string numbers;
    for (int i = 1; i < 400; ++i)
        numbers += {static_cast<char>(i * 7 % 31 + 1), '\0'};
    std::string program = "\x7F"
                          "ELF\x02\x01\x01"s;
    for (int i = 0; i < 600; ++i)
        program += static_cast<char>(i % 3 == 0 ? i * 37 : 0);
    std::string page(3000, '\0');
    for (std::size_t i = 0; i < page.size(); i += 2)
        page[i] = static_cast<char>(i * 2654435761u >> 13 | 1);
    const std::string binaries[] = {
        "\0"s,
        "\0\0"s,
        "\0\0\0\0"s,
        "ab\0c"s,
        "a\0bc"s,
        "a\0\0\0b\0\0\0"s,
        "A text of one byte a character with a NUL\0, by mistake."s,
        "A text of one byte a character with a NUL\0 , by mistake."s,
        std::string(2000, '\0'),
        numbers,
        program,
        page,
    };
    for (const std::string& bytes : binaries) {
        CAPTURE(bytes);
        const DecodedText decoded = DecodePlainText(bytes, 0, 1252);
        CHECK(
            (decoded.encoding == TextEncoding::Utf8 || decoded.encoding == TextEncoding::CodePage));
        CHECK(decoded.text.size() == bytes.size());
        CHECK(decoded.text.find(u'\0') == std::u16string::npos);
    }
}

TEST_CASE("plain text: KOI8-R in a book said to be windows-1251") {
    // "Well, prince" in Russian, in both.
    CHECK(PageTakenFor1251("\xCE\xD5 \xDE\xD4\xCF, \xCB\xCE\xD1\xDA\xD8") == 20866);
    CHECK(PageTakenFor1251("\xED\xF3 \xF7\xF2\xEE, \xEA\xED\xFF\xE7\xFC") == 1251);
    CHECK(PageTakenFor1251("\xC2\xCE\xC9\xCD\xC0 \xC8 \xCC\xC8\xD0") == 1251); // all in capitals
    CHECK(PageTakenFor1251("\xD7\xC0\xD1\xD2\xDC \xCF\xC5\xD0\xC2\xC0\xDF") == 1251); // the same
    CHECK(PageTakenFor1251("English with one \xEE letter") == 1251);
    CHECK(PageTakenFor1251("\x93quotes\x94 only") == 1251);
    // Only 1251 is doubted, whether it is the book's or the system's.
    CHECK(DecodePlainText("\xCE\xD5 \xDE\xD4\xCF", 0, 1251).text ==
          u"\u043D\u0443 \u0447\u0442\u043E");
    CHECK(DecodePlainText("\xCE\xD5 \xDE\xD4\xCF", 1252, 1251).codePage == 1252);
}

TEST_CASE("plain text: large books in Unicode and in a code page of pairs") {
    std::string utf8;
    for (int i = 0; i < 40000; ++i)
        utf8 += "\xD0\x96\xE2\x82\xAC x\xF0\x9F\x98\x80 and more ASCII\n";
    const std::u16string text = DecodePlainText(utf8, 0, 1252).text;
    CHECK(Utf16ToUtf8(text) == utf8);
    for (const bool bigEndian : {false, true})
        CHECK(DecodePlainText(Utf16Bytes(text, bigEndian), 0, 1252).text == text);
    std::string pairs;
    std::u16string characters;
    for (int i = 0; i < 200'000; ++i) {
        pairs += "\x93\xFA\x96{\n";
        characters += u"\u65E5\u672C\n";
    }
    CHECK((DecodePlainText(pairs, 932, 1252).text == characters));
}

TEST_CASE("plain text: samples lie within a book of any size") {
    for (const std::uint64_t size :
         {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{guessSample},
          std::uint64_t{guessSample} + 1, std::uint64_t{guessSample} + 4095,
          std::uint64_t{guessSample} + 4096, std::uint64_t{guessSample} + 100'000})
        for (const std::uint64_t notUtf8 : {std::uint64_t{0}, size / 2, size})
            for (const SamplePlace& place : SamplePlaces(size, notUtf8)) {
                CAPTURE(size);
                CHECK(place.begin <= size);
                CHECK(place.length <= size - place.begin);
            }
    std::string bytes;
    while (bytes.size() <= guessSample)
        bytes += "\xCD\xF3 \xF7\xF2\xEE, \xEA\xED\xFF\xE7\xFC.\n";
    CHECK(DecodePlainText(bytes, 0, 1252).codePage == 1251);
}

TEST_CASE("plain text: every language in its own charset") {
    const struct {
        const char* file;
        int codePage;
        int foundPage; // 0: the bytes show it
        const char16_t* start;
    } books[] = {
        {"ar-windows-1256.txt", 1256, 1256,
         u"\u0648\u064A\u0646\u062F\u0648\u0632-1256 \u0647\u064A \u0635\u0641\u062D\u0629"},
        {"bg-windows-1251.txt", 1251, 1251,
         u"Windows-1251 \u0435 8-\u0431\u0438\u0442\u043E\u0432"},
        {"da-windows-1252.txt", 1252, 1252, u"Eurosymbolet eller eurotegnet (\u20AC) anvendes"},
        {"el-windows-1253.txt", 1253, 1253,
         u"Windows-1253\n\n\u0397 \u03BA\u03C9\u03B4\u03B9\u03BA\u03BF\u03C0\u03BF\u03AF"},
        {"es-iso-8859-1.txt", 1252, 1252,
         u"El precio medio de la vivienda nueva es de 2212 EUR/m2, seg\u00FAn datos"},
        {"fr-utf-16.be.txt", 1252, 0, u"UTF-16 (16-bit Unicode Transformation Format) is"},
        {"he-windows-1255.txt", 1255, 1255,
         u"\u05E2\u05B4\u05D1\u05B0\u05E8\u05B4\u05D9\u05EA \u05D4\u05D9\u05D0"},
        {"hu-windows-1250.txt", 1250, 1250, u"Jellemz\u0151 r\u00E1 az els\u0151 sz\u00F3tagra"},
        {"ja-shift_jis.txt", 932, 932, u"\u65E5\u672C\u8A9E\u65E5\u672C\u8A9E"},
        {"ja-utf-16le.txt", 932, 0,
         u"UTF-16 (UCS/Unicode Transformation Format 16) \u3068\u306F\u3001Unicode"},
        {"ko-euc-kr.txt", 949, 949,
         u"<SAMI>\r\n<HEAD>\r\n<TITLE>EUC-KR.smi</TITLE>\r\n<STYLE "
         u"TYPE=\"text/css\">\r\n</STYLE>\r\n"
         u"</HEAD>\r\n<BODY>\r\n<SYNC Start=0000><P>EUC-KR\r\n<SYNC Start=1000><P>EUC-KR\uC740 KS "
         u"X 1001"},
        {"ru-koi8-r.txt", 1251, 20866,
         u"\u041A\u041E\u0418-8 (\u043A\u043E\u0434 \u043E\u0431\u043C\u0435\u043D\u0430"},
        {"ru-windows-1251.txt", 1251, 1251,
         u"Windows-1251\n\u043D\u0430\u0431\u043E\u0440 "
         u"\u0441\u0438\u043C\u0432\u043E\u043B\u043E\u0432"},
        {"th-tis-620.txt", 874, 874,
         u"TIS-620\n\n\u0E21\u0E32\u0E15\u0E23\u0E10\u0E32\u0E19\u0E1C\u0E25\u0E34\u0E15"},
        {"tr-iso-8859-9.txt", 1254, 1254,
         u"T\u00FCrk\u00E7e, T\u00FCrk dili ya da T\u00FCrkiye T\u00FCrk\u00E7esi, bat\u0131da"},
        {"vi-windows-1258.txt", 1258, 1258,
         u"Ch\u01B0\u0303 Qu\u00F4\u0301c ng\u01B0\u0303 l\u00E0 h\u00EA\u0323 ch\u01B0\u0303"},
        {"zh-big5.txt", 950, 950, u"\u7E41\u9AD4\u4E2D\u6587\u7E41\u9AD4\u4E2D\u6587"},
        {"zh-gb18030.txt", 936, 936, u"\u7B80\u4F53\u4E2D\u6587\u7B80\u4F53\u4E2D\u6587"},
    };
    const std::filesystem::path folder = RealBooks() / "charsets";
    if (!std::filesystem::exists(folder)) {
        MESSAGE("skipped: no real books at " << RealBooks().string());
        return;
    }
    for (const auto& book : books) {
        CAPTURE(book.file);
        std::ifstream file(folder / book.file, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        const DecodedText decoded = DecodePlainText(bytes, book.codePage, 1252);
        CHECK(decoded.codePage == book.foundPage);
        CHECK(DecodePlainText(bytes, 0, 1252).text == decoded.text);
        const std::u16string start = book.start;
        CHECK(Utf16ToUtf8(decoded.text.substr(0, start.size())) == Utf16ToUtf8(start));
        CHECK(decoded.text.find(u'\uFFFD') == std::u16string::npos);
    }
}
