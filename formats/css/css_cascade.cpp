#include "formats/css/css_cascade.h"

#include "formats/css/css_style.h"

void CssCascade::Set(CssProperty property, const CssCascaded& value) {
    values_[std::size_t(property)] = value;
    order_[std::size_t(property)] = ++time_;
}

void CssCascade::Apply(std::span<const CssDeclaration> declarations, const CssBlock& block,
                       CssImportance importance) {
    for (const CssDeclaration& declaration : declarations) {
        if (declaration.important != (importance == CssImportance::Important)) continue;
        if (declaration.property == CssProperty::WithVariables) {
            const CssBlock& read = written_.Read(block.written[declaration.value.index]);
            ApplyAll(read.declarations, read);
        } else if (declaration.property != CssProperty::Custom)
            ApplyOne(declaration, block);
    }
}

void CssCascade::ApplyAll(std::span<const CssDeclaration> declarations, const CssBlock& block) {
    for (const CssDeclaration& declaration : declarations)
        if (declaration.property < CssProperty::Count) ApplyOne(declaration, block);
}

void CssCascade::ApplyOne(const CssDeclaration& declaration, const CssBlock& block) {
    const CssProperty property = declaration.property;
    if (declaration.value.kind == CssValue::Kind::Revert)
        Set(property, userAgent_[std::size_t(property)]);
    else
        Set(property, {true, declaration.value, &block});
}

void CssCascade::SetDirection(bool rightToLeft) {
    using P = CssProperty;
    const auto settle = [this](P logical, P physical) {
        const bool isLater = order_[std::size_t(logical)] > order_[std::size_t(physical)];
        if (isLater) values_[std::size_t(physical)] = values_[std::size_t(logical)];
    };
    settle(P::MarginInlineStart, rightToLeft ? P::MarginRight : P::MarginLeft);
    settle(P::MarginInlineEnd, rightToLeft ? P::MarginLeft : P::MarginRight);
    settle(P::PaddingInlineStart, rightToLeft ? P::PaddingRight : P::PaddingLeft);
    settle(P::PaddingInlineEnd, rightToLeft ? P::PaddingLeft : P::PaddingRight);
    settle(P::InsetInlineStart, rightToLeft ? P::Right : P::Left);
    settle(P::InsetInlineEnd, rightToLeft ? P::Left : P::Right);
    const int start = rightToLeft ? cssRight : cssLeft, end = rightToLeft ? cssLeft : cssRight;
    settle(P::BorderInlineStartWidth, P::BorderTopWidth + start);
    settle(P::BorderInlineStartStyle, P::BorderTopStyle + start);
    settle(P::BorderInlineStartColor, P::BorderTopColor + start);
    settle(P::BorderInlineEndWidth, P::BorderTopWidth + end);
    settle(P::BorderInlineEndStyle, P::BorderTopStyle + end);
    settle(P::BorderInlineEndColor, P::BorderTopColor + end);
}
