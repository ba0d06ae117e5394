#include "view/page/generated_text.h"

#include <algorithm>

std::u16string_view GeneratedText::Of(const CssContentItem& item, HtmlNodeId element,
                                      GeneratedPlace place) const {
    switch (item.kind) {
    case CssContentItem::Kind::Text: return item.text;
    case CssContentItem::Kind::Attribute: {
        const HtmlAttribute* found = tree_[element].Attribute(tree_.Names().Find(item.text));
        return found ? found->Value() : std::u16string_view();
    }
    case CssContentItem::Kind::OpenQuote: return IsQuoteWithin(element) ? u"\u2018" : u"\u201C";
    case CssContentItem::Kind::CloseQuote: return IsQuoteWithin(element) ? u"\u2019" : u"\u201D";
    case CssContentItem::Kind::Counter:
    case CssContentItem::Kind::Counters: return counters_.TextOf(element, place, item);
    case CssContentItem::Kind::Picture: break;
    }
    return {};
}

// Whether a quotation stands in another one, of an odd number of them.
bool GeneratedText::IsQuoteWithin(HtmlNodeId element) const {
    bool within = false;
    while ((element = tree_[element].parent) != noHtmlNode && tree_[element].IsElement())
        within ^= OpensQuote(styles_.Before(element));
    return within;
}

bool GeneratedText::OpensQuote(CssStyle before) const {
    if (!before.box) return false;
    const CssContent& content = styles_.Content(before.box->content);
    return std::any_of(content.begin(), content.end(), [](const CssContentItem& item) {
        return item.kind == CssContentItem::Kind::OpenQuote;
    });
}
