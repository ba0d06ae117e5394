// Which elements a selector takes, by tables: the ids of those that it hides.
#include "css_samples.h"

#include <doctest/doctest.h>

namespace {

// In the order of the page, without blanks between one-letter ids.
std::string Taken(std::u16string_view selector, std::u16string_view html) {
    constexpr std::u16string_view doctype = u"<!DOCTYPE html>";
    std::u16string page(html.starts_with(doctype) ? doctype : u"");
    html.remove_prefix(page.size());
    page += u"<style>*{visibility:visible}";
    page += selector;
    page += u"{visibility:hidden}</style>";
    page += html;
    const StyledPage styled(page);
    std::string ids;
    for (HtmlNodeId id = styled.tree.Next(htmlDocumentNode); id; id = styled.tree.Next(id)) {
        const HtmlAttribute* name = styled.tree[id].Attribute(HtmlName::Id);
        if (name && styled.styles.Of(id).inherited->visibility == CssVisibility::Hidden)
            ids += Utf16ToUtf8(name->Value());
    }
    return ids;
}

struct Row {
    std::u16string_view selector;
    std::string_view ids;
};

constexpr std::u16string_view page =
    u"<!DOCTYPE html><html><body>"
    u"<div id=a class='one two'><p id=b>x</p><p id=c class=two lang=en-GB>x<b id=d>x</b></p>"
    u"<!-- x --><p id=e title='Some words-here'></p></div>"
    u"<div id=f lang=de><span id=g>x<b id=h>x</b></span><span id=i></span>"
    u"<a id=j href=x>x</a><a id=k>x</a></div>"
    u"<ul id=l><li id=m>x<li id=n>x<li id=o>x<li id=p>x<li id=q>x</ul>";

} // namespace

TEST_CASE("css: each form of selector takes its elements") {
    const Row rows[] = {
        {u"*", "abcdefghijklmnopq"},
        {u"p", "bce"},
        {u"P", "bce"},
        {u"*|p", "bce"},
        {u"svg|p", ""},
        {u"nothing", ""},
        {u".two", "ac"},
        {u".one.two", "a"},
        {u".Two", ""},
        {u"p.two", "c"},
        {u"#e", "e"},
        {u"div#e", ""},
        {u"[title]", "e"},
        {u"[TITLE]", "e"},
        {u"[title='Some words-here']", "e"},
        {u"[title='some words-here']", ""},
        {u"[title='some words-here' i]", "e"},
        {u"[title~=Some]", "e"},
        {u"[title~='']", ""},
        {u"[title~='Some words-here']", ""},
        {u"[title^=Some]", "e"},
        {u"[title^='']", ""},
        {u"[title$=here]", "e"},
        {u"[title$='a longer text than there is']", ""},
        {u"[title*='e w']", "e"},
        {u"[title*='E W' i]", "e"},
        {u"[lang|=en]", "c"},
        {u"[lang|=e]", ""},
        {u"[lang|=EN]", "c"},
        {u"[lang|=EN s]", ""},
        {u"[missing]", ""},
        {u"div p", "bce"},
        {u"div b", "dh"},
        {u"body div p b", "d"},
        {u"div > b", ""},
        {u"div>span>b", "h"},
        {u"html > body > div", "af"},
        {u"p + p", "ce"},
        {u"p+b", ""},
        {u"#b + p + p", "e"},
        {u"#b ~ p", "ce"},
        {u"#c ~ p b", ""},
        {u"div + div b", "h"},
        {u"div ~ ul li", "mnopq"},
        {u"#a ~ #l > #o ~ li", "pq"},
        {u"#f #j", "j"},
        {u"#a #j", ""},
        {u"p, b", "bcdeh"},
        {u":first-child", "abdghm"},
        {u":last-child", "dehklq"},
        {u"p:first-child", "b"},
        {u":only-child", "dh"},
        {u"div :first-of-type", "bdghj"},
        {u"div :last-of-type", "dehik"},
        {u"div :only-of-type", "dh"},
        {u"li:nth-child(2)", "n"},
        {u"li:nth-child(odd)", "moq"},
        {u"li:nth-child( EVEN )", "np"},
        {u"li:nth-child(2n + 1)", "moq"},
        {u"li:nth-child(2n-1)", "moq"},
        {u"li:nth-child(-n+2)", "mn"},
        {u"li:nth-child(n+4)", "pq"},
        {u"li:nth-child(+3n)", "o"},
        {u"li:nth-child(0n+1)", "m"},
        {u"li:nth-child(-2n- 1)", ""},
        {u"li:nth-child(n)", "mnopq"},
        {u"li:nth-last-child(2)", "p"},
        {u"li:nth-last-child(-n+2)", "pq"},
        {u"div :nth-of-type(2)", "cik"},
        {u"div :nth-last-of-type(2)", "cgj"},
        {u":root > body > div", "af"},
        {u"div:root", ""},
        {u"div :empty", "ei"},
        {u":link", "j"},
        {u"a:any-link", "j"},
        {u"a:visited", ""},
        {u"a:hover", ""},
        {u"a:not(:hover)", "jk"},
        {u"a:not([href])", "k"},
        {u"p:not(.two, #b)", "e"},
        {u"b:not(p b)", "h"},
        {u":is(p, span) b", "dh"},
        {u":is(div p, ul) > *", "dmnopq"},
        {u":where(#a) > :is(.two, :empty)", "ce"},
        {u":is(p, ::before, 1) > b", "d"},
        {u":is() b", ""},
        {u":is(div > :is(p + p)) b", "d"},
        {u"p:lang(en)", "c"},
        {u"b:lang(EN)", "d"},
        {u":lang(de) > a", "jk"},
        {u"p:before", ""},
        {u"p::first-letter", ""},
        {u"p, ::unknown", ""},
        {u"p, :unknown", ""},
        {u"p, :unknown(x)", ""},
        {u"p, ::-webkit-scrollbar", "bce"},
        {u"p:has(b)", ""},
        {u"p > > b", ""},
        {u"> p", ""},
        {u"p >", ""},
        {u"p..two", ""},
        {u"p#1", ""},
        {u"p[", ""},
        {u"p[title='x'", ""},
        {u"p[=x]", ""},
        {u"p:nth-child()", ""},
        {u"p:nth-child(2 n)", ""},
        {u"p:nth-child(n of p)", ""},
        {u"p:not()", ""},
        {u"p::before b", ""},
        {u"p::before::after", ""},
        {u"*p", ""},
        {u"p*", ""},
        {u"#b#b", "b"},
        {u"\\70", "bce"},
    };
    for (const Row& row : rows)
        CHECK_MESSAGE(Taken(row.selector, page) == row.ids, Utf16ToUtf8(row.selector));
}

TEST_CASE("css: in quirks mode the case of classes and ids does not matter") {
    CHECK(Taken(u".TWO", u"<p id=a class=two>x<p id=b class=Two>x") == "ab");
    CHECK(Taken(u"#A", u"<p id=a>x") == "a");
    CHECK(Taken(u".TWO", u"<!DOCTYPE html><p id=a class=two>") == "");
}

TEST_CASE("css: names of other languages keep their case") {
    const std::u16string_view drawing =
        u"<!DOCTYPE html><svg id=a><foreignObject id=b><p id=c></p></foreignObject></svg>";
    CHECK(Taken(u"foreignObject", drawing) == "b");
    CHECK(Taken(u"foreignobject", drawing) == "");
    CHECK(Taken(u"svg P", drawing) == "c");
}

TEST_CASE("css: siblings of one level are not those of another") {
    const std::u16string_view nested =
        u"<!DOCTYPE html><div id=a><i id=b>x</i><div id=c><p id=d>x</p><i id=e>x</i><p id=f>x</p>"
        u"</div><p id=g>x</p></div><p id=h>x</p>";
    CHECK(Taken(u"i ~ p", nested) == "fg");
    CHECK(Taken(u"i + p", nested) == "f");
    CHECK(Taken(u"div ~ p", nested) == "gh");
    CHECK(Taken(u"div + p", nested) == "gh");
    CHECK(Taken(u"div div ~ p", nested) == "g");
    CHECK(Taken(u"i + div > p ~ p", nested) == "f");
}
