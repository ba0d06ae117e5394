// Pages as books have them: elements, texts, attributes, where they stand in the source, charsets.
#include "formats/html/html_reader.h"

#include "common/utf.h"
#include "formats/html/html_char_ref.h"
#include "formats/html/html_declaration.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_labels.h"

#include <doctest/doctest.h>

using namespace std::string_view_literals;

namespace {

// A tree on one line: "p(text b(bold))", attributes in brackets.
std::u16string Line(const HtmlTree& tree, HtmlNodeId id) {
    const HtmlNode& node = tree[id];
    if (node.IsText()) return u"'" + std::u16string(node.Text()) + u"'";
    if (node.kind == HtmlNodeKind::Comment) return u"!";
    std::u16string line = node.IsElement() ? std::u16string(tree.Name(node.name)) : u"#";
    for (const HtmlAttribute& attribute : node.Attributes())
        line += u"[" + std::u16string(tree.Name(attribute.name)) + u"=" +
                std::u16string(attribute.Value()) + u"]";
    if (node.firstChild == noHtmlNode) return line;
    line += u"(";
    for (HtmlNodeId child = node.firstChild; child != noHtmlNode; child = tree[child].nextSibling)
        line += (child == node.firstChild ? u"" : u" ") + Line(tree, child);
    return line + u")";
}

std::u16string BodyOf(std::u16string_view page) {
    const HtmlTree tree = ReadHtml(std::u16string(page));
    return Line(tree, tree.Body());
}

HtmlNodeId Find(const HtmlTree& tree, HtmlName name) {
    HtmlNodeId id = htmlDocumentNode;
    while (id != noHtmlNode && !tree[id].Is(name))
        id = tree.Next(id);
    REQUIRE(id != noHtmlNode);
    return id;
}

std::u16string_view Source(const HtmlTree& tree, HtmlSourceSpan span) {
    return std::u16string_view(tree.Source()).substr(span.begin, span.end - span.begin);
}

} // namespace

TEST_CASE("html reader: what books write becomes what they mean") {
    const struct {
        std::u16string_view page, body;
    } cases[] = {
        {u"", u"body"},
        {u"text", u"body('text')"},
        {u"<p>one<p>two", u"body(p('one') p('two'))"},
        {u"<P Class=A ID='b' class=c>x</P>", u"body(p[class=A][id=b]('x'))"},
        {u"<p>a &amp b &eacute;&#8212;&#x97;", u"body(p('a & b \u00E9\u2014\u2014'))"},
        {u"<a href='?a=1&copy=2&amp;b'>x</a>", u"body(a[href=?a=1&copy=2&b]('x'))"},
        {u"<b>a<p>b</b>c", u"body(b('a') p(b('b') 'c'))"},
        {u"<i>a<b>b</i>c</b>", u"body(i('a' b('b')) b('c'))"},
        {u"<ul><li>a<li>b</ul>", u"body(ul(li('a') li('b')))"},
        {u"<dl><dt>a<dd>b<dt>c</dl>", u"body(dl(dt('a') dd('b') dt('c')))"},
        {u"<table><tr><td>a<td>b</table>", u"body(table(tbody(tr(td('a') td('b')))))"},
        {u"<table>lost<tr><td>a</table>", u"body('lost' table(tbody(tr(td('a')))))"},
        {u"<br/>a<hr />b<p/>c", u"body(br 'a' hr 'b' p('c'))"},
        {u"<pre>\n x</pre>", u"body(pre(' x'))"},
        {u"a\r\nb\rc", u"body('a\nb\nc')"},
        {u"<noscript><p>x</noscript>y", u"body(p('xy'))"},
        {u"<body><noscript><p>x</noscript>", u"body(noscript(p('x')))"},
        {u"<p>x<script>a<b</script>y", u"body(p('x' script('a<b') 'y'))"},
        {u"<textarea>\n<b></textarea>", u"body(textarea('<b>'))"},
        {u"<svg viewbox=1><path/></svg>x", u"body(svg[viewBox=1](path) 'x')"},
        {u"<h1>a</h2>b", u"body(h1('a') 'b')"},
        {u"1 < 2 & 3 </> 4", u"body('1 < 2 & 3  4')"},
        {u"a<!-- b --><!c>", u"body('a' ! !)"},
        {u"<p>a</p", u"body(p('a'))"},
        {u"x</body>y<p>z", u"body('xy' p('z'))"},
        {u"<select><option>a<option>b</select>", u"body(select(option('a') option('b')))"},
        {u"<body><template><td>a</template>", u"body(template(#(td('a'))))"},
    };
    for (const auto& c : cases) {
        CAPTURE(Utf16ToUtf8(c.page));
        CHECK(Utf16ToUtf8(BodyOf(c.page)) == Utf16ToUtf8(c.body));
    }
}

TEST_CASE("html reader: drawings within a page") {
    CHECK(BodyOf(u"<svg>x</svg><frameset>") == u"body(svg('x'))");
    CHECK(BodyOf(u"<frameset><frame></frameset>") != u"body");
    CHECK(BodyOf(u"<svg><font>x</svg>") == u"body(svg(font('x')))");
    for (const std::u16string_view name : {u"color", u"face", u"size"}) {
        const std::u16string attribute = std::u16string(name) + u"=";
        CHECK(BodyOf(u"<svg><font " + attribute + u"1>x") ==
              u"body(svg font[" + attribute + u"1]('x'))");
    }
}

TEST_CASE("html reader: nodes know their source") {
    const HtmlTree tree =
        ReadHtml(u"<title>t</title>\r\n<p class=x>one &amp; two</p><b>three<p>four</b>five");
    const HtmlNodeId p = Find(tree, HtmlName::P);
    CHECK(Source(tree, tree[p].source) == u"<p class=x>");
    CHECK(Source(tree, tree[p].endTag) == u"</p>");
    const HtmlNode& text = tree[tree[p].firstChild];
    CHECK(text.Text() == u"one & two");
    CHECK(Source(tree, text.source) == u"one &amp; two");
    const HtmlNodeId b = Find(tree, HtmlName::B);
    CHECK(Source(tree, tree[b].source) == u"<b>");
    CHECK(Source(tree, tree[b].endTag) == u"</b>");
    const HtmlNode& second = tree[tree[tree[b].nextSibling].firstChild];
    REQUIRE(second.Is(HtmlName::B));
    CHECK(Source(tree, second.source) == u"<b>");
    const HtmlNode& html = tree[tree.RootElement()];
    CHECK(html.source.end == 0); // implied
}

TEST_CASE("html reader: a text without references is a view of the source") {
    const HtmlTree tree = ReadHtml(u"<p>one</x> two<p>three");
    const HtmlNode& joined = tree[tree[Find(tree, HtmlName::P)].firstChild];
    CHECK(joined.Text() == u"one two");
    const HtmlNode& plain = tree[tree[tree[Find(tree, HtmlName::P)].nextSibling].firstChild];
    CHECK(plain.units == tree.Source().data() + plain.source.begin);
}

TEST_CASE("html reader: a tree that is moved keeps its texts") {
    HtmlTree tree = ReadHtml(u"<p title=x>a&lt;b");
    const HtmlTree moved = std::move(tree);
    CHECK(Line(moved, moved.Body()) == u"body(p[title=x]('a<b'))");
}

TEST_CASE("html reader: how old pages are shown") {
    const struct {
        std::u16string_view doctype;
        HtmlQuirks quirks;
    } cases[] = {
        {u"", HtmlQuirks::Full},
        {u"<!DOCTYPE html>", HtmlQuirks::None},
        {u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\" \"x\">", HtmlQuirks::None},
        {u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"x\">",
         HtmlQuirks::Limited},
        {u"<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">", HtmlQuirks::Full},
        {u"<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" \"x\">",
         HtmlQuirks::Limited},
        {u"<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">", HtmlQuirks::Full},
        {u"<?xml version=\"1.0\"?><!DOCTYPE html>", HtmlQuirks::None},
    };
    for (const auto& c : cases) {
        CAPTURE(Utf16ToUtf8(c.doctype));
        CHECK(ReadHtml(std::u16string(c.doctype) + u"<p>x").Quirks() == c.quirks);
    }
}

TEST_CASE("html reader: character references") {
    const struct {
        std::u16string_view text;
        bool inAttribute;
        std::u16string_view units;
        std::size_t length;
    } cases[] = {
        {u"&amp;x", false, u"&", 5},
        {u"&ampx", false, u"&", 4},
        {u"&ampx", true, u"", 0},
        {u"&amp=", true, u"", 0},
        {u"&amp", true, u"&", 4},
        {u"&notin;", false, u"\u2209", 7},
        {u"&notit;", false, u"\u00AC", 4},
        {u"&zwnj;", false, u"\u200C", 6},
        {u"&#x1F4D6;", false, u"\U0001F4D6", 9},
        {u"&#0;", false, u"\uFFFD", 4},
        {u"&#xD800;", false, u"\uFFFD", 8},
        {u"&#128;", false, u"\u20AC", 6},
        {u"&#129;", false, u"\u0081", 6},
        {u"&#99999999999;", false, u"\uFFFD", 14},
        {u"&#;", false, u"", 0},
        {u"&#x;", false, u"", 0},
        {u"& ", false, u"", 0},
        {u"&", false, u"", 0},
        {u"&nosuch;", false, u"", 0},
        {u"&NotEqualTilde;", false, u"\u2242\u0338", 15},
    };
    for (const auto& c : cases) {
        CAPTURE(Utf16ToUtf8(c.text));
        const HtmlCharRef ref =
            c.inAttribute ? ReadHtmlAttributeCharRef(c.text) : ReadHtmlCharRef(c.text);
        CHECK(std::u16string_view(ref.units, ref.unitCount) == c.units);
        CHECK(ref.length == c.length);
    }
}

TEST_CASE("html reader: the declared charset") {
    const struct {
        std::string_view page;
        int codePage;
    } cases[] = {
        {"<meta charset=windows-1251>", 1251},
        {"<META CHARSET=' KOI8-R '>", 20866},
        {"<meta http-equiv=Content-Type content='text/html; charset=iso-8859-1'>", 1252},
        {"<meta content='text/html; charset=\"gbk\"' http-equiv=content-type>", 936},
        {"<meta content='text/html; charset=gbk'>", 0},
        {"<!-- <meta charset=koi8-r> --><meta charset=windows-1250>", 1250},
        {"<p title='<meta charset=koi8-r>'>", 0},
        {"<meta charset=utf-16>", 65001},
        {"<meta charset=nonsense><meta charset=big5>", 950},
        {"<?xml version='1.0' encoding='windows-1253'?><html>", 1253},
        {"<?xml version='1.0' encoding='windows-1253'?><meta charset=shift_jis>", 932},
        {"<metacharset=big5>", 0},
        {"<meta http-equiv=content-type content='charset of text; charset=gbk;level=1'>", 936},
        {"<meta http-equiv=content-type content='charset=\"gbk'>", 0},
        {"<!--><meta charset=big5><!-- -->", 950},
        {"<meta = charset=big5>", 950},
        {"<meta charset=big5", 0}, // without its end it is no tag
        {"", 0},
        {"<", 0},
        {"<meta", 0},
        {"<meta charset", 0},
    };
    for (const auto& c : cases) {
        CAPTURE(c.page);
        CHECK(DeclaredHtmlCodePage(c.page) == c.codePage);
    }
    CHECK(HtmlLabelCodePage("\tUTF8\n") == 65001);
    CHECK(HtmlLabelCodePage("utf-8 utf8") == 0);
    CHECK(HtmlLabelCodePage("") == 0);
}

TEST_CASE("html reader: bytes become text by mark, declaration or guess") {
    const struct {
        std::string_view bytes;
        std::u16string_view text;
        int codePage;
    } cases[] = {
        {"\xEF\xBB\xBF<meta charset=koi8-r>\xC3\xA9", u"<meta charset=koi8-r>\u00E9", 65001},
        {"\xFF\xFE<\0p\0"sv, u"<p", 1200},
        {"\xFE\xFF\0<\0p"sv, u"<p", 1201},
        {"<\0?\0x\0m\0l\0>\0"sv, u"<?xml>", 1200},
        {"<meta charset=windows-1251>\xCF", u"<meta charset=windows-1251>\u041F", 1251},
        {"<p>\xC3\xA9", u"<p>\u00E9", 65001},
        {"<p>caf\xE9", u"<p>caf\u00E9", 1252},
        {"<p>cafe", u"<p>cafe", 1252},
        {"<p>\x1B$B$\"$$\x1B(B", u"<p>\u3042\u3044", 50220},
        {"", u"", 1252},
    };
    for (const auto& c : cases) {
        CAPTURE(c.bytes);
        const DecodedHtml decoded = DecodeHtml(c.bytes, 0, 1252);
        CHECK(decoded.text == c.text);
        CHECK(decoded.codePage == c.codePage);
    }
}
