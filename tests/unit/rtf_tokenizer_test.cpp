#include "formats/rtf/rtf_tokenizer.h"

#include <doctest/doctest.h>
#include <string>

namespace {

// A token as text: "\b0" for a word, "'e9" for a byte, "[..]" for data.
std::string Describe(const RtfToken& token) {
    using Kind = RtfToken::Kind;
    switch (token.kind) {
    case Kind::End: return "end";
    case Kind::GroupStart: return "{";
    case Kind::GroupEnd: return "}";
    case Kind::Symbol: return std::string("symbol ") + static_cast<char>(token.byte);
    case Kind::Text: return "text " + std::string(token.text);
    case Kind::Hex: return "hex " + std::to_string(token.byte);
    case Kind::Binary: return "binary " + std::string(token.text);
    case Kind::Word: break;
    }
    std::string word = "word " + std::string(token.text);
    if (token.hasParameter) word += " " + std::to_string(token.parameter);
    return word;
}

std::string Tokens(std::string_view rtf) {
    RtfTokenizer tokenizer(rtf);
    std::string all;
    for (RtfToken token = tokenizer.Next(); token.kind != RtfToken::Kind::End;
         token = tokenizer.Next())
        all += Describe(token) + "; ";
    return all;
}

} // namespace

TEST_CASE("rtf tokenizer: groups, words, symbols and text") {
    struct {
        std::string_view rtf, tokens;
    } const cases[] = {
        {"", ""},
        {"{a}", "{; text a; }; "},
        {"\\b\\i0 x", "word b; word i 0; text x; "},
        {"\\b  x", "word b; text  x; "},
        {"\\li-720x", "word li -720; text x; "},
        {"\\li-x", "word li; text -x; "},
        {"\\u-5?", "word u -5; text ?; "},
        {"a\r\nb", "text a; text b; "},
        {"a\x01\x02"
         "b",
         "text a; text b; "},
        {std::string_view("a\0b", 3), "text a; text b; "},
        {"a\tb", "text a; symbol \t; text b; "},
        {"\\\r\nx\\\nx\\\rx", "symbol \n; text x; symbol \n; text x; symbol \n; text x; "},
        {"\\'e9\\'E9", "hex 233; hex 233; "},
        {"\\'zz", "symbol '; text zz; "},
        {"\\'4z", "symbol '; text z; "},
        {"\\'4", "symbol '; "},
        {"\\*\\~\\{", "symbol *; symbol ~; symbol {; "},
        {"\\bin3 {}\\x", "binary {}\\; text x; "},
        {"\\bin9 ab", "binary ab; "},
        {"{\\bin99 a}b\x01}\\par x}\n", "{; binary a}b\x01; }; word par; text x; }; "},
        {"\\bin99 a}b\x01}x", "binary a}b\x01}x; "},
        {"\\bin-1 ab", "binary ; text ab; "},
        {"\\bin", "binary ; "},
        {"\\fs99999999999", "word fs 2147483647; "},
        {"\\fs-99999999999", "word fs -2147483647; "},
        {"\\", ""},
        {"x\\", "text x; "},
        {"\\B\\b", "word B; word b; "},
        {"\xE9\xFF", "text \xE9\xFF; "},
    };
    for (const auto& c : cases) {
        CAPTURE(c.rtf);
        CHECK(Tokens(c.rtf) == c.tokens);
    }
}

TEST_CASE("rtf tokenizer: bytes that name no character end in no recursion") {
    std::string rtf;
    for (int i = 0; i < 1'000'000; ++i)
        rtf += "\\'";
    RtfTokenizer tokenizer(rtf);
    std::size_t count = 0;
    while (tokenizer.Next().kind == RtfToken::Kind::Symbol)
        ++count;
    CHECK(count == 1'000'000);
}
