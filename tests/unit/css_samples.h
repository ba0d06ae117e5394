// Pages for tests of styles, written as HTML.
#pragma once

#include "common/utf.h"
#include "formats/css/css_page_sheets.h"
#include "formats/css/css_page_styles.h"
#include "formats/css/css_parser.h"
#include "formats/html/html_reader.h"

#include <string>
#include <string_view>
#include <vector>

// A page with the sheets that stand in it.
struct StyledPage {
    explicit StyledPage(std::u16string_view html, const CssMedium& medium = {})
        : tree(ReadHtml(std::u16string(html))) {
        CssReading reading;
        reading.medium = medium;
        reading.quirks = tree.Quirks() == HtmlQuirks::Full;
        for (const CssPageSheet& sheet : FindCssSheets(tree, medium))
            sheets.push_back(ReadCss(sheet.text, reading));
        styles = StylePage(tree, sheets, medium);
    }

    HtmlNodeId Id(std::u16string_view id) const {
        for (HtmlNodeId node = tree.Next(htmlDocumentNode); node; node = tree.Next(node))
            if (const HtmlAttribute* attribute = tree[node].Attribute(HtmlName::Id))
                if (attribute->Value() == id) return node;
        return noHtmlNode;
    }
    CssStyle Of(std::u16string_view id) const { return styles.Of(Id(id)); }
    const CssBoxStyle& Box(std::u16string_view id = u"x") const { return *Of(id).box; }
    const CssInheritedStyle& Text(std::u16string_view id = u"x") const { return *Of(id).inherited; }

    HtmlTree tree;
    std::vector<CssSheet> sheets;
    CssPageStyles styles;
};

// In standards mode, with a sheet and a body.
inline StyledPage PageOf(std::u16string_view css, std::u16string_view body,
                         const CssMedium& medium = {}) {
    std::u16string html = u"<!DOCTYPE html><style>";
    html += css;
    html += u"</style><body>";
    html += body;
    return StyledPage(html, medium);
}

// A `div id=x` with these declarations in a rule.
inline StyledPage WithDeclarations(std::u16string_view declarations) {
    std::u16string css = u"#x{";
    css += declarations;
    css += u"}";
    return PageOf(css, u"<div id=x>text</div>");
}
