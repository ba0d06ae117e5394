#include "formats/plain/plain_text_source.h"

#include "common/utf.h"
#include "tests/changing_file.h"
#include "text_samples.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {
void CheckSame(const std::string& bytes, int page, std::size_t pieceBytes) {
    const std::u16string expected = Whole(bytes, page);
    const PlainTextSource source(Reader(bytes), page, 1252, pieceBytes);
    REQUIRE(source.Length() == TextPos(expected.size()));
    CHECK(All(source) == expected);
    CHECK(source.CodePage() == DecodePlainText(bytes, page, 1252).codePage);
    TextPos from = 0;
    while (from < source.Length()) {
        const TextPiece piece = source.PieceAt(from);
        REQUIRE(piece.start == from);
        REQUIRE(!piece.units.empty());
        from = piece.End();
    }
}
} // namespace

TEST_CASE("text source: pieces of any size join to the whole decoding") {
    std::mt19937 random(7); // NOLINT: the same texts every time
    for (const Sample& sample : Samples()) {
        CAPTURE(sample.name);
        for (std::size_t length = 0; length < 120; ++length) {
            const std::string bytes = Drawn(sample, random, length);
            CAPTURE(bytes);
            for (const std::size_t pieceBytes : {1u, 2u, 3u, 5u, 8u, 16u, 31u, 64u})
                CheckSame(bytes, sample.page, pieceBytes);
            if (!bytes.empty()) CheckSame(bytes.substr(0, bytes.size() - 1), sample.page, 7);
        }
    }
}

TEST_CASE("text source: wide text, cut in pairs and line ends, with and without a mark") {
    std::mt19937 random(8); // NOLINT
    const std::u16string parts[] = {u"a ",         u"\r\n",       u"\r",    u"\n",
                                    u"\U0001D11E", u"\U00020000", u"\u4E2D"};
    for (int round = 0; round < 60; ++round) {
        std::u16string text;
        while (text.size() < 40)
            text += parts[random() % std::size(parts)];
        if (round % 3 == 0)
            text[random() % text.size()] = u'\xD834'; // alone, or in the wrong place
        if (round % 5 == 0) text[random() % text.size()] = u'\xDD1E';
        for (const bool big : {false, true})
            for (const int unit : {2, 4})
                for (const bool mark : {true, false}) {
                    std::string bytes = Wide(mark ? u"\uFEFF" + text : text, unit, big);
                    for (const std::size_t pieceBytes : {1u, 2u, 3u, 4u, 6u, 10u, 64u}) {
                        CheckSame(bytes, 0, pieceBytes);
                        CheckSame(bytes.substr(0, bytes.size() - 1), 0, pieceBytes);
                    }
                }
    }
}

TEST_CASE("text source: UTF-8 is recognised by all bytes, and may end within a character") {
    const std::string utf8 = "na\xC3\xAFve and more of it ";
    for (const std::string& bytes : std::vector<std::string>{
             utf8 + "\xE2\x82", utf8 + "\xFF", "only ascii \xE2\x82", utf8 + "\xE2\x82 goes on",
             std::string(200, 'x') + "\xF0\x9D\x84", utf8 + std::string(200, 'x') + "\xF0\x9D\x84"})
        for (std::size_t pieceBytes = 1; pieceBytes < 40; ++pieceBytes)
            CheckSame(bytes, 1251, pieceBytes);
}

TEST_CASE("text source: a position's byte and back") {
    const std::string bytes = "\x93\xFA\x96\x7B\r\nab\x81\x30\n";
    for (const std::size_t pieceBytes : {1u, 3u, 4u, 100u}) {
        const PlainTextSource source(Reader(bytes), 932, 1252, pieceBytes);
        const std::uint64_t places[] = {0, 2, 4, 6, 7, 8, 9, 10};
        REQUIRE(source.Length() == 8);
        for (TextPos position = 0; position < 8; ++position) {
            CHECK(source.ByteOf(position) == places[position]);
            CHECK(source.PositionOf(places[position]) == position);
        }
        CHECK(source.ByteOf(-3) == 0);
        CHECK(source.ByteOf(99) == bytes.size());
        CHECK(source.PositionOf(99) == 8);
        CHECK(source.PositionOf(1) == 1);
    }
    const PlainTextSource empty(Reader(""), 932, 1252);
    CHECK(empty.Length() == 0);
    CHECK(empty.ByteOf(5) == 0);
    CHECK(empty.PositionOf(5) == 0);
}

TEST_CASE("text source: each byte that continues nothing has a position of its own") {
    const std::string bytes = "a\x80\x80\x80\x80\x80\xC3\xA9\x96\xF0\x9D\x84\x9E\xFF\x80z";
    const std::uint64_t places[] = {0, 1, 2, 3, 4, 5, 6, 8, 9, 9, 13, 14, 15};
    for (const std::size_t pieceBytes : {1u, 2u, 3u, 5u, 19u, 100u}) {
        const PlainTextSource source(Reader(bytes), 65001, 1252, pieceBytes);
        REQUIRE(source.Length() == TextPos(std::size(places)));
        for (TextPos position = 0; position < source.Length(); ++position) {
            CAPTURE(position);
            CHECK(source.ByteOf(position) == places[position]);
            const bool secondOfPair = position > 0 && places[position] == places[position - 1];
            CHECK(source.PositionOf(places[position]) == position - secondOfPair);
        }
    }
}

TEST_CASE("text source: in visual order each character keeps its byte") {
    // "One 12 (two)." and "(a b)", as they are seen.
    const std::string bytes = ".(\xED\xE9\xF0\xF9) 12 \xE3\xE7\xE0\r\n\r\n(a b)\xE0";
    const std::u16string text = u"\u05D0\u05D7\u05D3 12 (\u05E9\u05E0\u05D9\u05DD).\n\n\u05D0(a b)";
    const std::uint64_t places[] = {13, 12, 11, 10, 8,  9,  7,  6,  5,  4,  3,
                                    2,  1,  0,  14, 16, 23, 22, 19, 20, 21, 18};
    for (const std::size_t pieceBytes : {1u, 5u, 14u, 100u}) {
        const PlainTextSource source(Reader(bytes), 28598, 1252, pieceBytes);
        CHECK(Utf16ToUtf8(All(source)) == Utf16ToUtf8(text));
        REQUIRE(source.Length() == TextPos(std::size(places)));
        for (TextPos position = 0; position < source.Length(); ++position) {
            CAPTURE(position);
            CHECK(source.ByteOf(position) == places[position]);
            CHECK(source.PositionOf(places[position]) == position);
        }
    }
}

TEST_CASE("text source: positions move to the same bytes in another code page") {
    // Two letters of two bytes, a line end of two, then "ab": in 932 and byte by byte.
    const auto bytes = Reader("\x93\xFA\x96\x7B\r\nab");
    const PlainTextSource pairs(bytes, 932, 1252, 3), single(bytes, 1252, 1252, 2);
    const TextPos inPairs[] = {0, 1, 2, 3, 4, 5, 99}, inSingle[] = {0, 2, 4, 5, 6, 7, 7};
    for (std::size_t i = 0; i < std::size(inPairs); ++i) {
        CHECK(single.PositionOf(pairs.ByteOf(inPairs[i])) == inSingle[i]);
        CHECK(pairs.PositionOf(single.ByteOf(inSingle[i])) == std::min(inPairs[i], 5));
    }
}

TEST_CASE("text source: breaks are found across pieces") {
    const PlainTextSource source(Reader("ab\ncdefgh\nij"), 0, 1252, 2);
    CHECK(source.FirstBreak(0, 99) == 2);
    CHECK(source.FirstBreak(3, 99) == 9);
    CHECK(source.FirstBreak(3, 9) == -1);
    CHECK(source.FirstBreak(10, 99) == -1);
    CHECK(source.FirstBreak(-5, 3) == 2);
    CHECK(source.LastBreak(0, 99) == 9);
    CHECK(source.LastBreak(0, 9) == 2);
    CHECK(source.LastBreak(3, 9) == -1);
    CHECK(source.LastBreak(-5, 2) == -1);
    CHECK(source.UnitAt(4) == u'd');
    CHECK(source.Range(-4, 3) == u"ab\n");
    CHECK(source.Range(8, 2) == u"");
}

TEST_CASE("text source: a file that shrinks or changes keeps its length in positions") {
    std::string bytes;
    for (int i = 0; i < 200; ++i)
        bytes += "line \xC3\xA9 " + std::to_string(i) + "\r\n";
    for (const std::string& later :
         {std::string(), bytes.substr(0, 700), std::string(bytes.size(), '\xC3'),
          std::string(bytes.size(), '\n'), std::string(bytes.size(), 'x')}) {
        const auto file = std::make_shared<ChangingFile>(bytes);
        const PlainTextSource source(file, 0, 1252, 64);
        const TextPos length = source.Length();
        file->bytes = later;
        CHECK(source.Length() == length);
        CHECK(All(source).size() == std::size_t(length));
        CHECK(source.Find(u"line 99999", 0, {}) == -1);
        CHECK(source.ByteOf(length / 2) <= bytes.size());
        CHECK(source.PositionOf(bytes.size() / 2) <= length);
    }
}

TEST_CASE("plain text source: the bytes of a mark are the first character's") {
    const PlainTextSource source(Reader("\xEF\xBB\xBFtext"), 0, 1252);
    for (const std::uint64_t byte : {0, 1, 2, 3})
        CHECK(source.PositionOf(byte) == 0);
    CHECK(source.PositionOf(4) == 1);
    CHECK(source.PositionOf(100) == 4);
    CHECK(source.ByteOf(0) == 3);
}

TEST_CASE("plain text source: a page of escape sequences that was chosen for a text") {
    const std::string bytes = "a \x1B$B$\"$$\x1B(B b"; // ISO-2022-JP
    PlainTextForm form;
    form.encoding = TextEncoding::CodePage;
    form.codePage = 50220;
    const PlainTextSource source(Reader(bytes), form, 4);
    CHECK(All(source) == u"a \u3042\u3044 b");
    CHECK(source.Length() == 6);
}
