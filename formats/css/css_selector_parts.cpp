// The parts of a compound: types, attributes, pseudo-classes and pseudo-elements.
#include "formats/css/css_limits.h"
#include "formats/css/css_pseudo_classes.h"
#include "formats/css/css_selector_parser.h"
#include "formats/css/css_selector_reader.h"

#include <algorithm>

using Kind = CssToken::Kind;
using Condition = CssCondition::Kind;

std::uint32_t AddCssSpecificity(std::uint32_t a, std::uint32_t b) {
    constexpr std::uint32_t partMask = 0x3FF;
    std::uint32_t sum = 0;
    for (const int shift : {0, 10, 20})
        sum |= std::min((a >> shift & partMask) + (b >> shift & partMask), partMask) << shift;
    return sum;
}

// Of namespaces only "any" is known: a sheet that declares others styles no HTML by them.
bool CssSelectorReader::ReadType(CssTokenStream& tokens, CssSelector& selector, Compound& result) {
    if (tokens.PeekRaw().IsDelim(u'*') && tokens.PeekRaw(1).IsDelim(u'|')) {
        tokens.NextRaw();
        tokens.NextRaw();
        if (!tokens.PeekRaw().Is(Kind::Ident) && !tokens.PeekRaw().IsDelim(u'*')) return false;
    }
    if (tokens.PeekRaw().IsDelim(u'*')) {
        tokens.NextRaw();
        result.empty = false;
    } else if (tokens.PeekRaw().Is(Kind::Ident)) {
        result.compound.type = sheet_.texts.Add(tokens.NextRaw().text);
        selector.specificity = AddCssSpecificity(selector.specificity, cssTypeWeight);
        result.empty = false;
    }
    return !tokens.PeekRaw().IsDelim(u'|');
}

namespace {

Condition OperatorOf(char16_t delim) {
    switch (delim) {
    case u'~': return Condition::AttributeWord;
    case u'|': return Condition::AttributeDash;
    case u'^': return Condition::AttributeStart;
    case u'$': return Condition::AttributeEnd;
    case u'*': return Condition::AttributePart;
    case u'=': return Condition::AttributeIs;
    default: return Condition::Never;
    }
}

} // namespace

bool CssSelectorReader::ReadAttribute(CssTokenStream tokens) {
    if (tokens.Peek().IsDelim(u'*') && tokens.PeekRaw(1).IsDelim(u'|')) {
        tokens.NextRaw();
        tokens.NextRaw();
    }
    if (!tokens.Peek().Is(Kind::Ident)) return false;
    CssCondition condition;
    condition.kind = Condition::HasAttribute;
    condition.name = sheet_.texts.Add(tokens.Next().text);
    if (!tokens.AtEnd()) {
        const CssToken sign = tokens.Next();
        condition.kind = sign.Is(Kind::Delim) ? OperatorOf(sign.delim) : Condition::Never;
        if (condition.kind == Condition::Never) return false;
        if (sign.delim != u'=' && !tokens.NextRaw().IsDelim(u'=')) return false;
        const CssToken& value = tokens.Next();
        if (!value.Is(Kind::Ident) && !value.Is(Kind::String)) return false;
        condition.value = sheet_.texts.Add(value.text);
        if (tokens.TakeIdent(u"i"))
            condition.caseOf = CssCondition::Case::Ignored;
        else if (tokens.TakeIdent(u"s"))
            condition.caseOf = CssCondition::Case::Exact;
    }
    conditions_.push_back(condition);
    return tokens.AtEnd();
}

bool CssSelectorReader::ReadPseudoClass(CssTokenStream& tokens, CssSelector& selector,
                                        Compound& result, int depth) {
    if (tokens.PeekRaw().Is(Kind::Colon)) {
        tokens.NextRaw();
        return ReadPseudoElement(tokens, selector, result);
    }
    const CssToken name = tokens.NextRaw();
    if (name.Is(Kind::Function)) {
        if (selector.pseudoElement != CssPseudoElement::None) return false;
        return ReadPseudoFunction(name, tokens.Arguments(), selector, depth);
    }
    if (!name.Is(Kind::Ident)) return false;
    if (const CssPseudoElement old = OldCssPseudoElement(name.text);
        old != CssPseudoElement::None) {
        if (selector.pseudoElement != CssPseudoElement::None) return false;
        selector.pseudoElement = old; // CSS 2 has them with one colon
        selector.specificity = AddCssSpecificity(selector.specificity, cssTypeWeight);
        return true;
    }
    const std::vector<CssCondition> conditions = CssPseudoClass(name.text);
    if (conditions.empty()) return false;
    conditions_.insert(conditions_.end(), conditions.begin(), conditions.end());
    selector.specificity = AddCssSpecificity(selector.specificity, cssClassWeight);
    return true;
}

bool CssSelectorReader::ReadPseudoFunction(const CssToken& name, CssTokenStream arguments,
                                           CssSelector& selector, int depth) {
    std::optional<CssCondition> condition = CssPseudoFunction(name.text);
    if (!condition) return false;
    std::uint32_t weight = cssClassWeight;
    if (condition->kind == Condition::Is || condition->kind == Condition::Not) {
        if (depth >= maxCssSelectorDepth) return false;
        std::vector<CssSelector> list;
        if (!ReadList(arguments, list, depth + 1, condition->kind == Condition::Is)) return false;
        weight = 0;
        for (const CssSelector& one : list)
            weight = std::max(weight, one.specificity);
        if (CssEqual(name.text, u"where")) weight = 0;
        condition->name = static_cast<std::uint32_t>(sheet_.selectors.size());
        condition->value = static_cast<std::uint32_t>(list.size());
        sheet_.selectors.insert(sheet_.selectors.end(), list.begin(), list.end());
    } else if (condition->kind == Condition::Language) {
        const CssToken& language = arguments.Next();
        if (!language.Is(Kind::Ident) && !language.Is(Kind::String)) return false;
        condition->value = sheet_.texts.Add(language.text);
        if (!arguments.AtEnd()) return false;
    } else if (condition->kind != Condition::Never) {
        const auto nth = ReadCssNth(arguments);
        if (!nth) return false;
        condition->a = nth->first;
        condition->b = nth->second;
    }
    conditions_.push_back(*condition);
    selector.specificity = AddCssSpecificity(selector.specificity, weight);
    return true;
}

bool CssSelectorReader::ReadPseudoElement(CssTokenStream& tokens, CssSelector& selector,
                                          Compound& result) {
    if (selector.pseudoElement != CssPseudoElement::None) return false;
    const CssToken& name = tokens.NextRaw();
    if (!name.Is(Kind::Ident)) return false;
    selector.pseudoElement = NewCssPseudoElement(name.text);
    selector.specificity = AddCssSpecificity(selector.specificity, cssTypeWeight);
    result.empty = false;
    return selector.pseudoElement != CssPseudoElement::None;
}
