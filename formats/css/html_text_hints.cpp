// Old attributes of paragraphs, fonts, lists, breaks, rules and pictures.
#include "formats/css/html_hint_values.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_parser.h"
#include "formats/css/css_style.h"
#include "formats/css/css_tokenizer.h"
#include "formats/html/html_integer.h"

#include <algorithm>

namespace {

using P = CssProperty;

// Of `font`: "5", or "+1" and "-2" from the middle, which is 3.
void AddFontSize(CssBlock& block, std::u16string_view text) {
    text = text.substr(0, maxHtmlHintUnits);
    while (!text.empty() && IsCssSpace(text[0]))
        text.remove_prefix(1);
    const auto number = HtmlInteger(text);
    if (!number) return;
    constexpr int middle = 3;
    const bool isRelative = text.starts_with(u'+') || text.starts_with(u'-');
    const int size = std::clamp(*number + (isRelative ? middle : 0), 1, 7);
    // 1 is x-small, 7 xxx-large.
    AddHint(block, P::FontSize, CssValue::OfKeyword(static_cast<std::uint16_t>(size)));
}

void AddFontFace(CssBlock& block, std::u16string_view face) {
    const CssBlock read =
        ReadCssBlock(u"font-family:" + std::u16string(face.substr(0, maxHtmlHintUnits)));
    if (read.declarations.size() != 1 || read.families.empty()) return;
    AddHint(block, P::FontFamily,
            block.Store(CssValue::Kind::Families, &CssBlock::families, read.families.front()));
}

void ReadAlign(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* align = node.Attribute(HtmlName::Align);
    if (!align) return;
    const std::u16string_view value = align->Value();
    // A `div` moves the blocks in it, too.
    const bool blocks = node.name == HtmlName::Div;
    if (CssEqual(value, u"left"))
        AddHint(block, P::TextAlign, blocks ? CssTextAlign::HtmlLeft : CssTextAlign::Left);
    if (CssEqual(value, u"right"))
        AddHint(block, P::TextAlign, blocks ? CssTextAlign::HtmlRight : CssTextAlign::Right);
    if (CssEqual(value, u"center") || (blocks && CssEqual(value, u"middle")))
        AddHint(block, P::TextAlign, blocks ? CssTextAlign::HtmlCenter : CssTextAlign::Center);
    if (CssEqual(value, u"justify")) AddHint(block, P::TextAlign, CssTextAlign::Justify);
}

void ReadListType(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* type = node.Attribute(HtmlName::Type);
    if (!type) return;
    const std::u16string_view value = type->Value();
    const auto add = [&](CssListStyleType kind) { AddHint(block, P::ListStyleType, kind); };
    if (value == u"1") add(CssListStyleType::Decimal);
    if (value == u"a") add(CssListStyleType::LowerAlpha);
    if (value == u"A") add(CssListStyleType::UpperAlpha);
    if (value == u"i") add(CssListStyleType::LowerRoman);
    if (value == u"I") add(CssListStyleType::UpperRoman);
    if (CssEqual(value, u"none")) add(CssListStyleType::None);
    if (CssEqual(value, u"disc")) add(CssListStyleType::Disc);
    if (CssEqual(value, u"circle")) add(CssListStyleType::Circle);
    if (CssEqual(value, u"square")) add(CssListStyleType::Square);
}

void ReadClear(const HtmlNode& node, CssBlock& block) {
    const HtmlAttribute* clear = node.Attribute(HtmlName::Clear);
    if (!clear) return;
    const std::u16string_view value = clear->Value();
    if (CssEqual(value, u"left")) AddHint(block, P::Clear, CssClear::Left);
    if (CssEqual(value, u"right")) AddHint(block, P::Clear, CssClear::Right);
    if (CssEqual(value, u"all") || CssEqual(value, u"both"))
        AddHint(block, P::Clear, CssClear::Both);
}

void ReadPictureAlign(std::u16string_view value, CssBlock& block) {
    const auto align = [&](CssVerticalAlign kind) { AddHint(block, P::VerticalAlign, kind); };
    if (CssEqual(value, u"left")) AddHint(block, P::Float, CssFloat::Left);
    if (CssEqual(value, u"right")) AddHint(block, P::Float, CssFloat::Right);
    if (CssEqual(value, u"top")) align(CssVerticalAlign::Top);
    if (CssEqual(value, u"texttop")) align(CssVerticalAlign::TextTop);
    if (CssEqual(value, u"middle")) align(CssVerticalAlign::BaselineMiddle);
    if (CssEqual(value, u"absmiddle") || CssEqual(value, u"center") ||
        CssEqual(value, u"abscenter"))
        align(CssVerticalAlign::Middle);
    if (CssEqual(value, u"bottom") || CssEqual(value, u"baseline"))
        align(CssVerticalAlign::Baseline);
    if (CssEqual(value, u"absbottom")) align(CssVerticalAlign::Bottom);
}

} // namespace

void ReadTextHints(const HtmlNode& node, CssBlock& block) {
    switch (node.name) {
    case HtmlName::P:
    case HtmlName::Div:
    case HtmlName::H1:
    case HtmlName::H2:
    case HtmlName::H3:
    case HtmlName::H4:
    case HtmlName::H5:
    case HtmlName::H6: return ReadAlign(node, block);
    case HtmlName::Font:
        AddColorHint(block, P::TextColor, node.Attribute(HtmlName::Color));
        if (const HtmlAttribute* face = node.Attribute(HtmlName::Face))
            AddFontFace(block, face->Value());
        if (const HtmlAttribute* size = node.Attribute(HtmlName::Size))
            AddFontSize(block, size->Value());
        return;
    case HtmlName::Ol:
    case HtmlName::Ul:
    case HtmlName::Li: return ReadListType(node, block);
    case HtmlName::Br: return ReadClear(node, block);
    default: return;
    }
}

void ReadReplacedHints(const HtmlNode& node, CssBlock& block) {
    AddDimensionHint(block, P::Width, node.Attribute(HtmlName::Width));
    AddDimensionHint(block, P::Height, node.Attribute(HtmlName::Height));
    for (const P side : {P::MarginLeft, P::MarginRight})
        AddDimensionHint(block, side, node.Attribute(HtmlName::Hspace));
    for (const P side : {P::MarginTop, P::MarginBottom})
        AddDimensionHint(block, side, node.Attribute(HtmlName::Vspace));
    if (const HtmlAttribute* align = node.Attribute(HtmlName::Align))
        ReadPictureAlign(align->Value(), block);
    const HtmlAttribute* border = node.Attribute(HtmlName::Border);
    const auto width = border ? HtmlNonNegative(border->Value()) : std::nullopt;
    if (width)
        AddBorderHint(block, static_cast<float>(*width), std::uint16_t(CssBorderStyle::Solid));
}

void ReadRuleHints(const HtmlNode& node, CssBlock& block) {
    if (const HtmlAttribute* align = node.Attribute(HtmlName::Align)) {
        const bool left = CssEqual(align->Value(), u"left");
        const bool right = CssEqual(align->Value(), u"right");
        const CssValue autos = CssValue::OfKeyword(cssAutoKeyword), zero = CssValue::Pixels(0);
        AddHint(block, P::MarginLeft, left ? zero : autos);
        AddHint(block, P::MarginRight, right ? zero : autos);
    }
    AddDimensionHint(block, P::Width, node.Attribute(HtmlName::Width));
    const HtmlAttribute* color = node.Attribute(HtmlName::Color);
    AddColorHint(block, P::TextColor, color);
    const bool solid = color || node.Attribute(HtmlName::Noshade);
    const HtmlAttribute* sizeText = node.Attribute(HtmlName::Size);
    const auto size = sizeText ? HtmlNonNegative(sizeText->Value()) : std::nullopt;
    if (solid) {
        const float width = size ? std::max(1.0f, static_cast<float>(*size) / 2) : 1;
        AddBorderHint(block, width, std::uint16_t(CssBorderStyle::Solid));
    } else if (size && *size <= 1)
        AddHint(block, P::BorderBottomWidth, CssValue::Pixels(0));
    else if (size)
        AddHint(block, P::Height, CssValue::Pixels(static_cast<float>(*size - 2)));
}
