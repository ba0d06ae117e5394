#include "common/utf.h"

#include <doctest/doctest.h>

#include <iterator>
#include <random>

#include <string>

namespace {

struct Utf8Case {
    std::string bytes;
    bool valid;
    std::u16string text; // with '?' as the replacement
};

const Utf8Case utf8Cases[] = {
    {"", true, u""},
    {"plain", true, u"plain"},
    {std::string("a\0b", 3), true, std::u16string(u"a\0b", 3)},
    {"\x7F", true, u"\u007F"},
    {"\xC2\x80", true, u"\u0080"},
    {"\xDF\xBF", true, u"\u07FF"},
    {"\xE0\xA0\x80", true, u"\u0800"},
    {"\xED\x9F\xBF", true, u"\uD7FF"},
    {"\xEE\x80\x80", true, u"\uE000"},
    {"\xEF\xBF\xBF", true, u"\uFFFF"},
    {"\xF0\x90\x80\x80", true, u"\U00010000"},
    {"\xF4\x8F\xBF\xBF", true, u"\U0010FFFF"},
    {"12345678\xD0\x96"
     "12345678",
     true, u"12345678\u041612345678"},
    {"\x80", false, u"?"},
    {"\xBF!", false, u"?!"},
    {"\xC0\x80", false, u"??"},      // overlong
    {"\xC1\xBF", false, u"??"},      // overlong
    {"\xE0\x9F\xBF", false, u"???"}, // overlong
    {"\xF0\x8F\xBF\xBF", false, u"????"},
    {"\xED\xA0\x80", false, u"???"},      // a surrogate
    {"\xF4\x90\x80\x80", false, u"????"}, // above U+10FFFF
    {"\xF5\x80\x80\x80", false, u"????"},
    {"\xFE\xFF", false, u"??"},
    {"\xE2\x82", false, u"??"}, // cut at the end
    {"\xE2\x82x", false, u"??x"},
    {"\xE2\xE2\x82\xAC", false, u"?\u20AC"},
    {"\xF0\x9F\x98", false, u"???"},
};

} // namespace

TEST_CASE("utf: UTF-8 is checked and decoded") {
    for (const Utf8Case& c : utf8Cases) {
        CAPTURE(c.bytes);
        CHECK(IsValidUtf8(c.bytes) == c.valid);
        CHECK(Utf8ToUtf16(c.bytes, u'?') == c.text);
    }
    CHECK(Utf8ToUtf16("\xFF") == u"\uFFFD");
    CHECK(ValidUtf8Length("12345678\xD0\x96\xD0") == 10);
    CHECK(ValidUtf8Length("\xFF!") == 0);
}

TEST_CASE("utf: many bytes at once are checked like one after the other") {
    for (const Utf8Case& c : utf8Cases)
        for (std::size_t before = 0; before < 40; ++before)
            for (const std::size_t after : {0, 1, 3, 30, 5000}) {
                const std::string bytes =
                    std::string(before, 'x') + std::string(c.bytes) + std::string(after, 'y');
                CAPTURE(before);
                CAPTURE(after);
                CHECK(IsValidUtf8(bytes) == c.valid);
            }
    std::mt19937 random(11); // NOLINT: the same bytes every time
    const std::string_view parts[] = {"a",
                                      "\xC3\xA9",
                                      "\xE2\x82\xAC",
                                      "\xF0\x9D\x84\x9E",
                                      "\xED\x9F\xBF",
                                      "\xE0\xA0\x80",
                                      "\xF4\x8F\xBF\xBF",
                                      "\xC2\x80"};
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes;
        for (std::size_t i = random() % 12; i > 0; --i)
            bytes += parts[random() % std::size(parts)];
        if (!bytes.empty() && round % 3)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        if (!bytes.empty() && round % 2) bytes.pop_back();
        CHECK(IsValidUtf8(bytes) == (ValidUtf8Length(bytes) == bytes.size()));
    }
}

TEST_CASE("utf: a sequence is read whole wherever it stands") {
    // The decoder works in groups of eight bytes and in pieces of 8192.
    for (const std::size_t start : {0, 8176, 16368}) {
        for (std::size_t before = start; before < start + 32; ++before) {
            CAPTURE(before);
            const std::string bytes = std::string(before, 'x') + "\xF0\x9F\x98\x80\xE2\x82\xAC!";
            const std::u16string text = std::u16string(before, u'x') + u"\U0001F600\u20AC!";
            CHECK(IsValidUtf8(bytes));
            CHECK(Utf8ToUtf16(bytes) == text);
        }
    }
}

TEST_CASE("utf: UTF-16 becomes UTF-8, lone surrogates U+FFFD") {
    CHECK(Utf16ToUtf8(u"") == "");
    CHECK(Utf16ToUtf8(u"a\u007F\u0080\u07FF\u0800\uFFFF") ==
          "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    CHECK(Utf16ToUtf8(u"\U00010000\U0010FFFF") == "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    const char16_t lone[] = {0xD800, u'a', 0xDC00, 0xDBFF};
    CHECK(Utf16ToUtf8({lone, 4}) == "\xEF\xBF\xBD"
                                    "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_CASE("utf: every character survives both ways") {
    for (char32_t code = 0; code < 0x110000; ++code) {
        if (code >= 0xD800 && code < 0xE000) continue;
        std::u16string text;
        if (code < 0x10000) {
            text += static_cast<char16_t>(code);
        } else {
            text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
        const std::string bytes = Utf16ToUtf8(text);
        const bool survives = IsValidUtf8(bytes) && Utf8ToUtf16(bytes) == text;
        if (!survives) FAIL_CHECK("U+", code);
    }
}
