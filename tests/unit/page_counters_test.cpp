// Numbers that styles count.
#include "common/utf.h"
#include "tests/unit/css_samples.h"
#include "tests/unit/page_sample.h"
#include "view/page/page_counters.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& sheet, const std::u16string& body) {
    return PageSample(
               u"<style>h2,p,ol{margin:0;padding:0;font-size:16px;font-weight:400}li{display:"
               u"block}" +
               sheet + u"</style>" + body)
        .Lines(400);
}
} // namespace

TEST_CASE("counters: chapters and their sections are numbered") {
    CHECK(Lines(u"body{counter-reset:c}h2{counter-increment:c;counter-reset:s}"
                u"h2::before{content:counter(c,upper-roman) '. '}"
                u"p{counter-increment:s}p::before{content:counter(c) '.' counter(s) ' '}",
                u"<h2>a</h2><p>b<p>c<h2>d</h2><p>e") ==
          "0,0 I. a|0,16 1.1 b|0,32 1.2 c|0,48 II. d|0,64 2.1 e");
}

TEST_CASE("counters: a page ends before what is written after it") {
    CHECK(Lines(u"p{counter-increment:c}p::before{content:counter(c) ' '}",
                u"<p>a</p></body></html><!-- made by hand -->") == "0,0 1 a");
}

TEST_CASE("counters: lists in lists have a number for each") {
    CHECK(
        Lines(u"ol{counter-reset:i}li{counter-increment:i}li::before{content:counters(i,'.') ' '}",
              u"<ol><li>a<ol><li>b<li>c</ol><li>d</ol>") ==
        "0,0 1 a|0,16 1.1 b|0,32 1.2 c|0,48 2 d");
}

TEST_CASE("counters: they begin, go on and are set as they are told") {
    const std::u16string show = u"p::before{content:counter(n) ' '}";
    CHECK(Lines(show + u"body{counter-reset:n 4}p{counter-increment:n 2}", u"<p>a<p>b") ==
          "0,0 6 a|0,16 8 b");
    CHECK(Lines(show + u"p{counter-increment:n}", u"<div><p>a<p>b</div><p>c") ==
          "0,0 1 a|0,16 2 b|0,32 1 c"); // begun in the block, it ends with it
    CHECK(Lines(show, u"<p>a") == "0,0 0 a");
    CHECK(Lines(show + u"body{counter-reset:n}p{counter-increment:n}.x{display:none}",
                u"<p>a<p class=x>b<p>c") == "0,0 1 a|0,16 2 c");
    CHECK(Lines(show + u"body{counter-reset:n}p{counter-increment:n -1}", u"<p>a") == "0,0 -1 a");
    CHECK(Lines(u"body{counter-reset:n}p{counter-increment:n}p::after{content:'(' "
                u"counter(n,lower-alpha) ')'}",
                u"<p>a<p>b") == "0,0 a(a)|0,16 b(b)");
}

TEST_CASE("counters: a counter ends with the element around the one that began it") {
    CHECK(Lines(u"p::before{content:counter(a) ' ' counters(a,'.') ' '}",
                u"<div><p style='counter-reset:a 5'>b</div><p>c") == "0,0 5 5 b|0,16 0 0 c");
    std::u16string page;
    for (int i = 0; i < 300; ++i)
        page += u"<div style='counter-reset:a" + Utf8ToUtf16(std::to_string(i)) + u"'>";
    page += u"<p style='counter-reset:a7 5'>";
    for (int i = 0; i < 300; ++i)
        page += u"</div>";
    CHECK(Lines(u"p::before{content:counter(a7) ' ' counters(a7,'.')}", page) == "0,0 5 0.5");
}

TEST_CASE("counters: leaving an element costs nothing for the names of others") {
    const std::size_t names = 300, others = 1000;
    std::u16string body;
    for (std::size_t i = 0; i < names; ++i)
        body += u"<i style='counter-reset:a" + Utf8ToUtf16(std::to_string(i)) + u"'></i>";
    for (std::size_t i = 0; i < others; ++i)
        body += u"<b></b>";
    const StyledPage page = PageOf(u"b::before{content:counter(a1)}", body);
    CHECK(PageCounters(page.tree, page.styles).Steps() <= 2 * names); // begun and ended
}
