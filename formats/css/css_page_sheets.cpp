#include "formats/css/css_page_sheets.h"

#include "formats/css/css_element.h"
#include "formats/css/css_media.h"
#include "formats/css/css_tokenizer.h"

namespace {

std::u16string_view Value(const HtmlNode& node, HtmlName attribute) {
    const HtmlAttribute* found = node.Attribute(attribute);
    return found ? found->Value() : std::u16string_view();
}

bool IsSheet(const HtmlNode& node) {
    const std::u16string_view type = Value(node, HtmlName::Type);
    if (!type.empty() && !CssEqual(type.substr(0, 8), u"text/css")) return false;
    if (node.Is(HtmlName::Style)) return true;
    const std::u16string_view rel = Value(node, HtmlName::Rel);
    return node.Is(HtmlName::Link) && HasCssWord(rel, u"stylesheet", CssCase::Insensitive) &&
           !HasCssWord(rel, u"alternate", CssCase::Insensitive) &&
           !Value(node, HtmlName::Href).empty();
}

} // namespace

std::vector<CssPageSheet> FindCssSheets(const HtmlTree& tree, const CssMedium& medium) {
    std::vector<CssPageSheet> sheets;
    std::u16string_view chosenTitle;
    for (HtmlNodeId id = htmlDocumentNode, next = tree.Next(id); next;) {
        id = next;
        const HtmlNode& node = tree[id];
        // What stands in a template is of no page.
        next = node.Is(HtmlName::Template) ? tree.NextAfter(id) : tree.Next(id);
        if ((!node.Is(HtmlName::Style) && !node.Is(HtmlName::Link)) || !IsSheet(node)) continue;
        const std::u16string_view title = Value(node, HtmlName::Title);
        if (chosenTitle.empty()) chosenTitle = title;
        if (!title.empty() && title != chosenTitle) continue;
        if (!AskCssMedia(Value(node, HtmlName::Media), medium).applies) continue;
        CssPageSheet sheet;
        sheet.node = id;
        if (node.Is(HtmlName::Link))
            sheet.address = Value(node, HtmlName::Href);
        else
            for (HtmlNodeId child = node.firstChild; child; child = tree[child].nextSibling)
                if (tree[child].IsText()) sheet.text += tree[child].Text();
        sheets.push_back(std::move(sheet));
    }
    return sheets;
}
