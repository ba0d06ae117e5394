// Any bytes as a style sheet, over a page that has something of everything: reading and styling
// end, no work in them is out of proportion, and all computed values are within their bounds.
#include "formats/css/css_limits.h"
#include "formats/css/css_page_sheets.h"
#include "formats/css/css_page_styles.h"
#include "formats/css/css_parser.h"
#include "formats/html/html_reader.h"
#include "tests/fuzz/require.h"

#include <cmath>

namespace {

const HtmlTree& Page() {
    static const HtmlTree tree = ReadHtml(
        u"<!DOCTYPE html><html lang=en><body class='a b' id=a><h1 id=b class=c>x<a href=y>y</a>"
        u"</h1><p title='some words'>a<b class=a>b</b><i style='margin:1em'>c</i></p><!-- x -->"
        u"<ul><li>x<li class=b>y<ol type=a><li>z</ol></ul><table border=1><tr><th>x<td>y</table>"
        u"<svg viewBox='0'><foreignObject><p>x</p></foreignObject></svg><hr><img width=1>"
        u"<div dir=rtl><span class='a b c'>x</span><span></span>y</div><pre>x</pre><q>z</q>");
    return tree;
}

bool IsBounded(float value) {
    return std::isfinite(value) && std::abs(value) <= maxCssPixels * 10;
}

void CheckStyle(const CssPageStyles& styles, CssStyle style) {
    if (!style.box) return;
    const CssInheritedStyle& text = *style.inherited;
    Require(text.fontSize >= 0 && text.fontSize <= maxCssFontPixels, "font size");
    Require(IsBounded(text.lineHeight.value) && IsBounded(text.textIndent.value), "text lengths");
    Require(IsBounded(text.letterSpacing) && IsBounded(text.wordSpacing), "spacing");
    Require(text.textAlign < CssTextAlign::HeaderCell, "text-align");
    Require(text.fontWeight >= 1 && text.fontWeight <= 1000, "weight");
    styles.Families(text.families);
    const CssBoxStyle& box = *style.box;
    styles.Content(box.content);
    Require(box.display <= CssDisplay::Contents, "display");
    for (std::size_t side = 0; side < 4; ++side) {
        Require(IsBounded(box.margin[side].value) && IsBounded(box.inset[side].value), "margin");
        Require(box.padding[side].value >= 0 && box.borderWidth[side] >= 0, "padding, border");
        Require(!box.padding[side].IsAuto(), "padding auto");
    }
    Require(box.width.value >= 0 && box.height.value >= 0 && box.maxWidth.value >= 0, "sizes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::u16string css = DecodeCss(bytes, 1252);
    CssReading reading;
    reading.quirks = size % 2;
    reading.userAgent = size % 3 == 0;
    const CssSheet sheet = ReadCss(css, reading);
    Require(sheet.rules.size() <= size && sheet.selectors.size() <= size + 1, "rules");
    Require(sheet.block.declarations.size() <= 2 * size, "declarations");
    const CssPageStyles styles = StylePage(Page(), {&sheet, 1}, reading.medium);
    const std::size_t nodes = Page().NodeCount();
    Require(styles.Steps() <= nodes * (1000 + 20 * size), "steps");
    for (HtmlNodeId id = 1; id <= nodes; ++id) {
        CheckStyle(styles, styles.Of(id));
        CheckStyle(styles, styles.Before(id));
        CheckStyle(styles, styles.After(id));
    }
    ReadCssBlock(css, reading);
    return 0;
}
