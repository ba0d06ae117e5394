// Tokens of style sheets, by tables.
#include "formats/css/css_tokenizer.h"

#include "common/utf.h"

#include <doctest/doctest.h>

namespace {

using Kind = CssToken::Kind;

std::string NameOf(const CssToken& token) {
    const std::string text = Utf16ToUtf8(token.text);
    switch (token.kind) {
    case Kind::End: return "end";
    case Kind::Whitespace: return "_";
    case Kind::Ident: return "id:" + text;
    case Kind::Function: return "fn:" + text;
    case Kind::AtKeyword: return "@" + text;
    case Kind::Hash: return (token.isId ? "#" : "hash:") + text;
    case Kind::String: return "'" + text + "'";
    case Kind::BadString: return "bad-string";
    case Kind::Url: return "url:" + text;
    case Kind::BadUrl: return "bad-url";
    case Kind::Delim: return Utf16ToUtf8(std::u16string(1, token.delim));
    case Kind::Number: return (token.isInteger ? "int:" : "num:") + text;
    case Kind::Percentage: return "%:" + text;
    case Kind::Dimension: return "dim:" + text + ":" + Utf16ToUtf8(token.unit);
    case Kind::Colon: return ":";
    case Kind::Semicolon: return ";";
    case Kind::Comma: return ",";
    case Kind::OpenSquare: return "[";
    case Kind::CloseSquare: return "]";
    case Kind::OpenParen: return "(";
    case Kind::CloseParen: return ")";
    case Kind::OpenCurly: return "{";
    case Kind::CloseCurly: return "}";
    case Kind::Cdo: return "cdo";
    case Kind::Cdc: return "cdc";
    }
    return "?";
}

std::string Tokens(std::u16string_view text) {
    CssTokenizer tokenizer(text);
    std::string all;
    for (CssToken token = tokenizer.Next(); !token.Is(Kind::End); token = tokenizer.Next())
        all += (all.empty() ? "" : " ") + NameOf(token);
    return all;
}

struct Row {
    std::u16string_view text;
    std::string_view tokens;
};

} // namespace

TEST_CASE("css: text becomes tokens") {
    const Row rows[] = {
        {u"", ""},
        {u"a", "id:a"},
        {u"p.b #c", "id:p . id:b _ #c"},
        {u"-a --b -", "id:-a _ id:--b _ -"},
        {u"\u00E9\u4E00_9", "id:\u00E9\u4E00_9"},
        {u"#1a #-", "hash:1a _ hash:-"},
        {u"# x", "# _ id:x"},
        {u"1 1.5 .5 +1 -1.e", "int:1 _ num:1.5 _ num:.5 _ int:+1 _ int:-1 . id:e"},
        {u"1e3 1e+3 1e-3 1em 1e", "num:1e3 _ num:1e+3 _ num:1e-3 _ dim:1em:em _ dim:1e:e"},
        {u"10px 50% 2n-1 2n- 1", "dim:10px:px _ %:50% _ dim:2n-1:n-1 _ dim:2n-:n- _ int:1"},
        {u"+ 1", "+ _ int:1"},
        {u"'a' \"b'c\" 'd\\'e'", "'a' _ 'b'c' _ 'd'e'"},
        {u"'open", "'open'"},
        {u"'line\nnext'", "bad-string _ id:next ''"},
        {u"'on\\\ne'", "'one'"},
        {u"'on\\\r\ne'", "'one'"},
        {u"\\31 23 \\26 B \\000026B", "id:123 _ id:&B _ id:&B"},
        {u"\\110000x \\d800 \\0 ", "id:\uFFFDx _ id:\uFFFD\uFFFD"},
        {u"\\31\r\n2 \\\U0001F600x", "id:12 _ id:\U0001F600x"},
        {u"\\\uFFFFx \\\U00010000x", "id:\uFFFFx _ id:\U00010000x"},
        {u"\\", "id:\uFFFD"},
        {u"\\\n", "\\ _"},
        {u"'x\\", "'x'"},
        {u"f(a) url(b.png) url( 'c' )", "fn:f id:a ) _ url:b.png _ fn:url _ 'c' _ )"},
        {u"url( a b ) c", "bad-url _ id:c"},
        {u"url(a'b) c", "bad-url _ id:c"},
        {u"url(a!b) url(a\x1F) c", "url:a!b _ bad-url _ id:c"},
        {u"url(a\\)b) url(", "url:a)b _ url:"},
        {u"URL(x)", "url:x"},
        {u"@media @-x @ 1", "@media _ @-x _ @ _ int:1"},
        {u"<!-- a --> <! -", "cdo _ id:a _ cdc _ < ! _ -"},
        {u"a/*x*/b/* */ /*", "id:a id:b _"},
        {u"/**/", ""},
        {u"a/b", "id:a / id:b"},
        {u"{}[]();:,", "{ } [ ] ( ) ; : ,"},
        {u"\t\r\n\f ", "_"},
    };
    for (const Row& row : rows)
        CHECK_MESSAGE(Tokens(row.text) == row.tokens, Utf16ToUtf8(row.text));
    const std::u16string withNul{u'a', u'\0', u'b'};
    CHECK(Tokens(withNul) == "id:a\uFFFDb");
}

TEST_CASE("css: numbers keep within their bounds") {
    CssTokenizer tokenizer(u"99999999999999999999999 -1e99 1e-99 0.1 +.25e1 1e3000000000");
    CHECK(tokenizer.Next().number == doctest::Approx(1e9));
    tokenizer.Next();
    CHECK(tokenizer.Next().number == doctest::Approx(-1e9));
    tokenizer.Next();
    CHECK(tokenizer.Next().number == doctest::Approx(0));
    tokenizer.Next();
    CHECK(tokenizer.Next().number == doctest::Approx(0.1));
    tokenizer.Next();
    CHECK(tokenizer.Next().number == doctest::Approx(2.5));
    tokenizer.Next();
    CHECK(tokenizer.Next().number == doctest::Approx(1e9));
}
