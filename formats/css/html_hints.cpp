#include "formats/css/html_hints.h"

#include "formats/css/css_style.h"
#include "formats/css/css_tokenizer.h"
#include "formats/css/html_direction.h"
#include "formats/css/html_hint_values.h"
#include "formats/html/html_integer.h"

namespace {

using P = CssProperty;

void ReadValign(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* valign = node.Attribute(HtmlName::Valign);
    if (!valign) return;
    const auto add = [&](CssVerticalAlign kind) { AddHint(block, P::VerticalAlign, kind); };
    if (CssEqual(valign->Value(), u"top")) add(CssVerticalAlign::Top);
    if (CssEqual(valign->Value(), u"middle")) add(CssVerticalAlign::Middle);
    if (CssEqual(valign->Value(), u"bottom")) add(CssVerticalAlign::Bottom);
    if (CssEqual(valign->Value(), u"baseline")) add(CssVerticalAlign::Baseline);
}

// Of rows, their groups and cells: text, and the blocks in them.
void ReadTableAlign(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* align = node.Attribute(HtmlName::Align);
    if (!align) return;
    const std::u16string_view value = align->Value();
    if (CssEqual(value, u"left")) AddHint(block, P::TextAlign, CssTextAlign::HtmlLeft);
    if (CssEqual(value, u"right")) AddHint(block, P::TextAlign, CssTextAlign::HtmlRight);
    if (CssEqual(value, u"center") || CssEqual(value, u"middle"))
        AddHint(block, P::TextAlign, CssTextAlign::HtmlCenter);
    if (CssEqual(value, u"justify")) AddHint(block, P::TextAlign, CssTextAlign::Justify);
}

void ReadCaptionAlign(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* align = node.Attribute(HtmlName::Align);
    if (align && CssEqual(align->Value(), u"bottom"))
        AddHint(block, P::CaptionSide, CssCaptionSide::Bottom);
}

} // namespace

HtmlHints::HtmlHints(const HtmlTree& tree) : tree_(tree) {
    const auto find = [&tree](const char16_t* name) { return tree.Names().Find(name); };
    topMargin_ = find(u"topmargin");
    rightMargin_ = find(u"rightmargin");
    bottomMargin_ = find(u"bottommargin");
    leftMargin_ = find(u"leftmargin");
    marginHeight_ = find(u"marginheight");
    marginWidth_ = find(u"marginwidth");
    borderColor_ = find(u"bordercolor");
    frame_ = find(u"frame");
    rules_ = find(u"rules");
    const HtmlNodeId body = tree.Body();
    const HtmlAttribute* link = body ? tree[body].Attribute(HtmlName::Link) : nullptr;
    if (link) linkColor_ = link->Value();
}

void HtmlHints::Read(HtmlNodeId element, CssBlock& block) const {
    const HtmlNode& node = tree_[element];
    if (node.nameSpace != HtmlNamespace::Html ||
        (node.length == 0 && linkColor_.empty() && rules_ == HtmlName::None &&
         node.name != HtmlName::Td && node.name != HtmlName::Th && node.name != HtmlName::Bdi))
        return;
    ReadDirectionHints(tree_, element, block);
    switch (node.name) {
    case HtmlName::Body: return ReadBody(node, block);
    case HtmlName::Table: return ReadTable(node, block);
    case HtmlName::Td:
    case HtmlName::Th: return ReadCell(element, block);
    case HtmlName::Tr:
    case HtmlName::Tbody:
    case HtmlName::Thead:
    case HtmlName::Tfoot:
        AddColorHint(block, P::BackgroundColor, node.Attribute(HtmlName::Bgcolor));
        AddDimensionHint(block, P::Height, node.Attribute(HtmlName::Height), HtmlZero::IsIgnored);
        ReadTableAlign(node, block);
        ReadRowEdges(element, block);
        return ReadValign(node, block);
    case HtmlName::Col:
    case HtmlName::Colgroup:
        return AddDimensionHint(block, P::Width, node.Attribute(HtmlName::Width),
                                HtmlZero::IsIgnored);
    case HtmlName::Caption: return ReadCaptionAlign(node, block);
    case HtmlName::Hr: return ReadRuleHints(node, block);
    case HtmlName::Img:
    case HtmlName::Object:
    case HtmlName::Embed:
    case HtmlName::Iframe:
    case HtmlName::Video:
    case HtmlName::Canvas: return ReadReplacedHints(node, block);
    case HtmlName::A:
        if (const HtmlAttribute link{HtmlName::Link, HtmlAttributeNamespace::None,
                                     static_cast<std::uint32_t>(linkColor_.size()),
                                     linkColor_.data()};
            node.Attribute(HtmlName::Href))
            AddColorHint(block, P::TextColor, &link);
        return;
    default: return ReadTextHints(node, block);
    }
}

void HtmlHints::ReadBody(const HtmlNode& node, CssBlock& block) const {
    AddColorHint(block, P::TextColor, node.Attribute(HtmlName::Text));
    AddColorHint(block, P::BackgroundColor, node.Attribute(HtmlName::Bgcolor));
    // One that is given for the other side alone is for both, as in browsers.
    const auto margin = [&](P side, HtmlName both, HtmlName own, HtmlName other) {
        for (const HtmlName name : {both, own, other}) {
            const HtmlAttribute* given = name != HtmlName::None ? node.Attribute(name) : nullptr;
            if (given) return AddPixelsHint(block, side, given);
        }
    };
    margin(P::MarginTop, marginHeight_, topMargin_, bottomMargin_);
    margin(P::MarginBottom, marginHeight_, bottomMargin_, topMargin_);
    margin(P::MarginLeft, marginWidth_, leftMargin_, rightMargin_);
    margin(P::MarginRight, marginWidth_, rightMargin_, leftMargin_);
}

void HtmlHints::ReadTable(const HtmlNode& node, CssBlock& block) const {
    AddColorHint(block, P::BackgroundColor, node.Attribute(HtmlName::Bgcolor));
    AddDimensionHint(block, P::Width, node.Attribute(HtmlName::Width), HtmlZero::IsIgnored);
    AddDimensionHint(block, P::Height, node.Attribute(HtmlName::Height), HtmlZero::IsIgnored);
    AddPixelsHint(block, P::BorderSpacingX, node.Attribute(HtmlName::Cellspacing));
    AddPixelsHint(block, P::BorderSpacingY, node.Attribute(HtmlName::Cellspacing));
    if (const HtmlAttribute* align = node.Attribute(HtmlName::Align)) {
        if (CssEqual(align->Value(), u"left")) AddHint(block, P::Float, CssFloat::Left);
        if (CssEqual(align->Value(), u"right")) AddHint(block, P::Float, CssFloat::Right);
        if (CssEqual(align->Value(), u"center"))
            for (const P side : {P::MarginLeft, P::MarginRight})
                AddHint(block, side, CssValue::OfKeyword(cssAutoKeyword));
    }
    ReadTableEdges(node, block);
    const HtmlAttribute* color =
        borderColor_ != HtmlName::None ? node.Attribute(borderColor_) : nullptr;
    for (int side = 0; side < 4; ++side)
        AddColorHint(block, P::BorderTopColor + side, color);
}

// A cell stands three levels below its table; what is deeper is no cell of it.
HtmlNodeId HtmlHints::TableOf(HtmlNodeId cell) const {
    HtmlNodeId id = tree_[cell].parent;
    for (int level = 0; level < 3 && id; ++level, id = tree_[id].parent)
        if (tree_[id].Is(HtmlName::Table)) return id;
    return noHtmlNode;
}

void HtmlHints::ReadCell(HtmlNodeId element, CssBlock& block) const {
    const HtmlNode& node = tree_[element];
    if (const HtmlNodeId table = TableOf(element)) {
        for (int side = 0; side < 4; ++side)
            AddPixelsHint(block, P::PaddingTop + side,
                          tree_[table].Attribute(HtmlName::Cellpadding));
        ReadCellEdges(tree_[table], block);
    }
    AddColorHint(block, P::BackgroundColor, node.Attribute(HtmlName::Bgcolor));
    AddDimensionHint(block, P::Width, node.Attribute(HtmlName::Width), HtmlZero::IsIgnored);
    AddDimensionHint(block, P::Height, node.Attribute(HtmlName::Height), HtmlZero::IsIgnored);
    if (node.Attribute(HtmlName::Nowrap)) AddHint(block, P::WhiteSpace, CssWhiteSpace::NoWrap);
    ReadTableAlign(node, block);
    ReadValign(node, block);
}
