#include "formats/css/css_default_sheet.h"

#include "formats/css/css_parser.h"

namespace {

// A closed `details` is shown as an open one: nothing here opens it.
constexpr std::u16string_view defaultText = uR"css(
area, base, basefont, datalist, head, link, meta, noembed, noframes, param, rp, script, style,
template, title, source, track, option, optgroup, select, [hidden], dialog:not([open]) {
    display: none }
address, article, aside, blockquote, body, center, dd, details, dialog, dir, div, dl, dt, fieldset,
figcaption, figure, footer, form, frameset, frame, h1, h2, h3, h4, h5, h6, header, hgroup, hr, html,
legend, li, listing, main, menu, nav, ol, optgroup, p, plaintext, pre, search, section, slot,
summary, ul, xmp { display: block }
slot { display: contents }
body { margin: 8px }
address, cite, dfn, em, i, var { font-style: italic }
b, strong { font-weight: bolder }
figure { margin-top: 1em; margin-bottom: 1em }
blockquote, dir, dl, menu, ol, ul { margin-top: 1__qem; margin-bottom: 1em }
p, listing, plaintext, pre, xmp { margin-top: 1__qem; margin-bottom: 1__qem }
blockquote, figure { margin-left: 40px; margin-right: 40px }
code, kbd, samp, tt, listing, plaintext, pre, xmp { font-family: monospace }
listing, plaintext, pre, xmp { white-space: pre }
center { text-align: -html-center }
big { font-size: larger }
small { font-size: smaller }
sub, sup { font-size: smaller }
sub { vertical-align: sub }
sup { vertical-align: super }
s, strike, del { text-decoration: line-through }
u, ins { text-decoration: underline }
nobr { white-space: nowrap }
mark { background-color: yellow; color: black }
abbr[title], acronym[title] { text-decoration: underline }
a:link { color: #0000ee; text-decoration: underline }
q::before { content: open-quote }
q::after { content: close-quote }
ruby { display: ruby; text-indent: 0 }
rt { display: ruby-text; font-size: 50%; line-height: normal; text-indent: 0 }
mi { font-style: italic }
mfrac { display: inline-block; vertical-align: middle; text-align: center; text-indent: 0 }
mfrac > * { display: block; padding-left: 1px; padding-right: 1px }
mfrac > :nth-child(2) { border-top: 1px solid }
math[display=block i] { display: block; text-align: center }
:is(msub, msubsup, munder, munderover) > :nth-child(2) { vertical-align: sub; font-size: smaller }
:is(msup, mover) > :nth-child(2), :is(msubsup, munderover) > :nth-child(3) {
    vertical-align: super; font-size: smaller }
msqrt { text-decoration: overline }
msqrt::before { content: "\221A" }
mroot { display: inline-flex; flex-direction: row-reverse }
mroot > :first-child { text-decoration: overline }
mroot > :first-child::before { content: "\221A" }
mroot > :nth-child(2) { font-size: smaller }
mtable { display: inline-table; vertical-align: middle; border-spacing: 4px }
mtr { display: table-row }
mtd { display: table-cell; text-align: center }
annotation, annotation-xml { display: none }
bdi, output { unicode-bidi: isolate }
bdo { unicode-bidi: isolate-override }
address, blockquote, center, dialog, div, figure, figcaption, footer, form, header, hr, legend,
listing, main, p, plaintext, pre, summary, xmp, article, aside, h1, h2, h3, h4, h5, h6, hgroup, nav,
section, table, caption, colgroup, col, thead, tbody, tfoot, tr, td, th, dir, dd, dl, dt, menu, ol,
ul, li { unicode-bidi: isolate }
h1, h2, h3, h4, h5, h6 { break-after: avoid }
h1 { font-size: 2em; font-weight: bold; margin-top: 0.67__qem; margin-bottom: 0.67em }
h2 { font-size: 1.5em; font-weight: bold; margin-top: 0.83__qem; margin-bottom: 0.83em }
h3 { font-size: 1.17em; font-weight: bold; margin-top: 1__qem; margin-bottom: 1em }
h4 { font-weight: bold; margin-top: 1.33__qem; margin-bottom: 1.33em }
h5 { font-size: 0.83em; font-weight: bold; margin-top: 1.67__qem; margin-bottom: 1.67em }
h6 { font-size: 0.67em; font-weight: bold; margin-top: 2.33__qem; margin-bottom: 2.33em }
dd { margin-inline-start: 40px }
dir, menu, ol, ul { padding-inline-start: 40px }
:is(dir, dl, menu, ol, ul) :is(dir, dl, menu, ol, ul) { margin-top: 0; margin-bottom: 0 }
dir, menu, ul { list-style-type: disc }
:is(dir, menu, ol, ul) :is(dir, menu, ul) { list-style-type: circle }
:is(dir, menu, ol, ul) :is(dir, menu, ol, ul) :is(dir, menu, ul) { list-style-type: square }
ol { list-style-type: decimal }
li { display: list-item }
table { display: table; box-sizing: border-box; border-spacing: 2px; border-collapse: separate;
    text-indent: initial }
caption { display: table-caption; text-align: center }
colgroup { display: table-column-group }
col { display: table-column }
thead { display: table-header-group; vertical-align: middle }
tbody { display: table-row-group; vertical-align: middle }
tfoot { display: table-footer-group; vertical-align: middle }
tr { display: table-row; vertical-align: inherit }
td, th { display: table-cell; padding: 1px; vertical-align: inherit }
th { font-weight: bold; text-align: -html-header-cell }
table, td, th { border-color: gray }
thead, tbody, tfoot, tr { border-color: inherit }
hr { color: gray; border-style: inset; border-width: 1px; margin: 0.5em auto; overflow: hidden }
fieldset { margin-left: 2px; margin-right: 2px; border: 2px groove #c0c0c0;
    padding: 0.35em 0.75em 0.625em }
legend { padding-left: 2px; padding-right: 2px }
input, button, textarea, meter, progress { display: inline-block }
input, button, textarea { font-size: 13.3333px; letter-spacing: normal; word-spacing: normal;
    line-height: normal; text-transform: none; text-indent: 0; text-align: start }
input[type=hidden i] { display: none }
textarea { white-space: pre-wrap; font-family: monospace }
audio:not([controls]) { display: none }
iframe { border: 2px inset }
svg { overflow: hidden }
svg:not([width]), svg[width$="%"] { max-width: 100% }
)css";

constexpr std::u16string_view quirksText = uR"css(
table { font-weight: initial; font-style: initial; font-variant: initial; font-size: initial;
    line-height: initial; white-space: initial; text-align: initial }
form { margin-bottom: 1em }
)css";

CssSheet Read(std::u16string_view text) {
    CssReading reading;
    reading.userAgent = true;
    return ReadCss(text, reading);
}

} // namespace

const CssSheet& DefaultCssSheet() {
    static const CssSheet sheet = Read(defaultText);
    return sheet;
}

const CssSheet& QuirksCssSheet() {
    static const CssSheet sheet = Read(quirksText);
    return sheet;
}
