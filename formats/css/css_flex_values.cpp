// Shorthands of flex containers, their items and columns, and shares of a width.
#include "formats/css/css_shorthands.h"

namespace {

using Kind = CssToken::Kind;
using P = CssProperty;

bool IsPositive(const CssToken& token) {
    return token.Is(Kind::Number) && token.number > 0;
}

} // namespace

// Grow, shrink and basis. One number is a share of all the room, whatever is in it.
bool ReadCssFlex(CssShorthandReader& reader, std::span<const CssProperty>) {
    CssValue grow = CssValue::Number(1), shrink = CssValue::Number(1);
    std::optional<CssValue> basis;
    if (reader.tokens.TakeIdent(u"none")) {
        grow = shrink = CssValue::Number(0);
        basis = CssValue::OfKeyword(0);
    } else if (reader.tokens.TakeIdent(u"initial")) {
        grow = CssValue::Number(0);
        basis = CssValue::OfKeyword(0);
    } else if (const auto given = reader.Read(P::FlexGrow)) {
        grow = *given;
        if (const auto second = reader.Read(P::FlexShrink)) shrink = *second;
        basis = reader.tokens.AtEnd() ? CssValue::Percent(0) : reader.Read(P::FlexBasis);
    } else {
        basis = reader.Read(P::FlexBasis);
    }
    if (!basis) return false;
    reader.Add(P::FlexGrow, grow);
    reader.Add(P::FlexShrink, shrink);
    reader.Add(P::FlexBasis, *basis);
    return true;
}

bool ReadCssFlexFlow(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssValue values[] = {CssValue::OfKeyword(0), CssValue::OfKeyword(0)};
    for (int count = 0; !reader.tokens.AtEnd(); ++count) {
        const auto direction = reader.Read(P::FlexDirection);
        const auto wrap = direction ? std::nullopt : reader.Read(P::FlexWrap);
        if ((!direction && !wrap) || count == 2) return false;
        (direction ? values[0] : values[1]) = direction ? *direction : *wrap;
    }
    for (std::size_t i = 0; i < 2; ++i)
        reader.Add(properties[i], values[i]);
    return true;
}

// A width, a number, or both in any order.
bool ReadCssColumns(CssShorthandReader& reader, std::span<const CssProperty>) {
    std::optional<CssValue> width, count;
    for (int i = 0; i < 2 && !reader.tokens.AtEnd(); ++i) {
        if (reader.tokens.TakeIdent(u"auto")) continue;
        std::optional<CssValue>& part = reader.tokens.Peek().Is(Kind::Number) ? count : width;
        if (part) return false;
        part = reader.Read(&part == &count ? P::ColumnCount : P::ColumnWidth);
        if (!part) return false;
    }
    reader.Add(P::ColumnWidth, width.value_or(CssValue::OfKeyword(0)));
    reader.Add(P::ColumnCount, count.value_or(CssValue::OfKeyword(0)));
    return true;
}

// Width by height. With `auto` it is of boxes without a ratio of their own, which pictures have.
bool ReadCssAspectRatio(CssShorthandReader& reader, std::span<const CssProperty>) {
    float ratio = 0;
    bool isAuto = reader.tokens.TakeIdent(u"auto");
    if (IsPositive(reader.tokens.Peek())) {
        ratio = reader.tokens.Next().number;
        if (reader.tokens.Peek().IsDelim(u'/')) {
            reader.tokens.Next();
            if (!IsPositive(reader.tokens.Peek())) return false;
            ratio /= reader.tokens.Next().number;
        }
        isAuto = reader.tokens.TakeIdent(u"auto") || isAuto;
    } else if (!isAuto) {
        return false;
    }
    reader.Add(P::AspectRatio, CssValue::Number(isAuto ? 0 : ratio));
    return true;
}
