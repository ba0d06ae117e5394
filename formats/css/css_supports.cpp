#include "formats/css/css_supports.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_property_parser.h"
#include "formats/css/css_selector_parser.h"

namespace {

using Kind = CssToken::Kind;

bool UnderstandsSelector(CssTokenStream selector) {
    CssSheet scratch;
    return !ReadCssSelectors(selector, scratch).empty();
}

bool UnderstandsDeclaration(CssTokenStream declaration, const CssReading& reading) {
    const CssToken& name = declaration.Next();
    if (!name.Is(Kind::Ident) || !declaration.Take(Kind::Colon)) return false;
    std::vector<CssToken> value;
    while (!declaration.AtEndRaw())
        value.push_back(declaration.NextRaw());
    CssBlock scratch;
    ReadCssDeclaration(name.text, value, reading, scratch);
    return !scratch.declarations.empty();
}

bool Holds(CssTokenStream condition, const CssReading& reading, int depth);

// What stands between `and` and `or`.
bool HoldsOne(CssTokenStream& condition, const CssReading& reading, int depth) {
    const bool negated = condition.TakeIdent(u"not");
    const CssToken& opening = condition.Next();
    const bool isSelector = opening.IsFunction(u"selector");
    if (!isSelector && !opening.Is(Kind::OpenParen)) return false;
    CssTokenStream inner = condition.Arguments();
    const bool isCondition = inner.Peek().Is(Kind::OpenParen) || inner.Peek().IsIdent(u"not") ||
                             inner.Peek().IsFunction(u"selector");
    const bool holds = isSelector ? UnderstandsSelector(inner)
                       : isCondition
                           ? depth < maxCssSelectorDepth && Holds(inner, reading, depth + 1)
                           : UnderstandsDeclaration(inner, reading);
    return holds != negated;
}

bool Holds(CssTokenStream condition, const CssReading& reading, int depth) {
    bool holds = HoldsOne(condition, reading, depth);
    while (!condition.AtEnd()) {
        const bool isOr = condition.Peek().IsIdent(u"or");
        if (!isOr && !condition.Peek().IsIdent(u"and")) return false;
        condition.Next();
        const bool one = HoldsOne(condition, reading, depth);
        holds = isOr ? holds || one : holds && one;
    }
    return holds;
}

} // namespace

bool SupportsCss(CssTokenStream condition, const CssReading& reading) {
    return Holds(condition, reading, 0);
}
