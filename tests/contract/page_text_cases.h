// How characters of a page are counted, by example: a body's source and its text. Every back end
// with an engine loads each of them and has to answer that text for the span of the whole body.
#pragma once

struct PageTextCase {
    const char* body;     // UTF-8, as it stands between <body> and </body>
    const char16_t* text; // as html_view.h counts it
};

inline constexpr PageTextCase pageTextCases[] = {
    {"", u""},
    {" \t\r\n ", u""},
    {"one", u"one"},
    {"  one \n\t two  ", u"one two"},
    {"one<b> two</b> <i> three</i>", u"one two three"},
    {"one<b></b> <i></i> two", u"one two"},
    {"a&nbsp;&nbsp;b", u"a\u00A0\u00A0b"},
    {"&amp;&lt;&#1050;&#x1F4D6;", u"&<\u041A\U0001F4D6"},
    {"<p>one</p><p>two</p>", u"one\ntwo"},
    {"<p> one </p>\n\n<p> two </p>\n", u"one\ntwo"},
    {"before<p>one</p>after", u"before\none\nafter"},
    {"<div><div><p>one</p></div></div><div>two</div>", u"one\ntwo"},
    {"<p></p><p>one</p><p> </p><p>two</p>", u"one\ntwo"},
    {"one<br>two", u"one\ntwo"},
    {"one <br> two", u"one\ntwo"},
    {"one<br><br>two", u"one\n\ntwo"},
    {"<br>one", u"\none"},
    {"one<br>", u"one\n"},
    {"<p>one<br></p><p>two</p>", u"one\ntwo"},
    {"<p>one</p><br><p>two</p>", u"one\n\ntwo"},
    {"<pre>one\n  two\n</pre>three", u"one\n  two\nthree"},
    {"<pre>\none\ttwo </pre>", u"one\ttwo "},
    {"<pre>one <b> two</b></pre>", u"one  two"},
    {"one<hr>two", u"one\ntwo"},
    {"<ul><li>one</li><li>two</li></ul>three", u"one\ntwo\nthree"},
    {"<h1>One</h1><dl><dt>two<dd>three</dl>", u"One\ntwo\nthree"},
    {"<table><caption>c</caption><tr><td>a</td><td>b</td></tr><tr><td>d</td><td></td></tr></table>",
     u"c\na\nb\nd"},
    {"one<script>x()</script><style>b{}</style> two", u"one two"},
    {"one<noscript>hidden</noscript><textarea>no</textarea>"
     "<select><option>no</select> two",
     u"one two"},
    {"one <span hidden>not <b>this</b></span> two", u"one two"},
    {"<p>one</p><div hidden>not this</div><p>two</p>", u"one\ntwo"},
    {"one<div hidden></div>two", u"onetwo"},
    {"one <span style='display:none'>this too</span> two", u"one this too two"},
    {"one <img alt='no'> <input value='no'> two", u"one two"},
    {"one<!-- no -->two", u"onetwo"},
    {"<custom-tag>one</custom-tag><custom-tag>two</custom-tag>", u"onetwo"},
    {"<a href='#x'>one</a><sup>2</sup>", u"one2"},
    {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D <bdo dir='rtl'>abc</bdo>", u"\u05E9\u05DC\u05D5\u05DD abc"},
};
