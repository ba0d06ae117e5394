// Values that change or show counters (CSS Lists 3, 4).
#include "formats/css/css_limits.h"
#include "formats/css/css_longhands.h"
#include "formats/css/css_shorthands.h"
#include "formats/css/css_style_values.h"

#include <cmath>

namespace {

using Kind = CssToken::Kind;
using P = CssProperty;

constexpr float maxCounter = 1e9F;

// Names, each with a number after it or not.
bool ReadChanges(CssShorthandReader& reader, P property, std::int32_t byDefault) {
    CssCounterChanges changes;
    if (!reader.tokens.TakeIdent(u"none")) {
        while (!reader.tokens.AtEnd()) {
            const CssToken& name = reader.tokens.Next();
            if (!name.Is(Kind::Ident) || changes.size() >= maxCssContentItems) return false;
            CssCounterChange change{std::u16string(name.text), byDefault};
            if (reader.tokens.Peek().Is(Kind::Number)) {
                const float number = reader.tokens.Next().number;
                if (std::abs(number) <= maxCounter) change.value = std::int32_t(number);
            }
            changes.push_back(std::move(change));
        }
    }
    reader.Add(property, reader.block.Store(CssValue::Kind::Counters, &CssBlock::counters,
                                            std::move(changes)));
    return true;
}

} // namespace

bool ReadCssCounterReset(CssShorthandReader& reader, std::span<const CssProperty>) {
    return ReadChanges(reader, P::CounterReset, 0);
}

bool ReadCssCounterIncrement(CssShorthandReader& reader, std::span<const CssProperty>) {
    return ReadChanges(reader, P::CounterIncrement, 1);
}

bool ReadCssCounter(const CssToken& function, CssTokenStream arguments, CssContentItem& item) {
    const bool all = function.IsFunction(u"counters");
    if (!all && !function.IsFunction(u"counter")) return false;
    item.kind = all ? CssContentItem::Kind::Counters : CssContentItem::Kind::Counter;
    item.text = arguments.Peek().text;
    item.numberStyle = std::uint16_t(CssListStyleType::Decimal);
    if (!arguments.Next().Is(Kind::Ident)) return false;
    if (all) {
        if (!arguments.Next().Is(Kind::Comma)) return false;
        item.separator = arguments.Peek().text;
        if (!arguments.Next().Is(Kind::String)) return false;
    }
    if (arguments.AtEnd()) return true;
    if (!arguments.Next().Is(Kind::Comma)) return false;
    for (const CssKeyword& keyword : CssLonghandOf(P::ListStyleType).keywords)
        if (arguments.Peek().IsIdent(keyword.name)) item.numberStyle = keyword.value;
    return arguments.Next().Is(Kind::Ident) && arguments.AtEnd();
}
