#include "formats/css/css_selector_parser.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_pseudo_classes.h"

#include <algorithm>

namespace {

using Kind = CssToken::Kind;
using Condition = CssCondition::Kind;

// Of an id, a class, a type.
constexpr std::uint32_t idWeight = 1 << 20, classWeight = 1 << 10, typeWeight = 1;
constexpr std::uint32_t maxPart = 0x3FF;

std::uint32_t Add(std::uint32_t a, std::uint32_t b) {
    std::uint32_t sum = 0;
    for (const int shift : {0, 10, 20})
        sum |= std::min((a >> shift & maxPart) + (b >> shift & maxPart), maxPart) << shift;
    return sum;
}

class SelectorParser {
  public:
    explicit SelectorParser(CssSheet& sheet) : sheet_(sheet) {}

    // Selectors that are wrong are left out where that is forgiven, else make the answer false.
    bool ReadList(CssTokenStream list, std::vector<CssSelector>& selectors, int depth,
                  bool forgiving);

  private:
    struct Compound {
        CssCompound compound;
        std::vector<CssCondition> conditions;
        bool empty = true;
    };
    bool ReadSelector(CssTokenStream tokens, CssSelector& selector, int depth);
    bool ReadCompound(CssTokenStream& tokens, CssSelector& selector, Compound& result, int depth);
    bool ReadType(CssTokenStream& tokens, CssSelector& selector, Compound& result);
    bool ReadAttribute(CssTokenStream tokens, Compound& result);
    bool ReadPseudoClass(CssTokenStream& tokens, CssSelector& selector, Compound& result,
                         int depth);
    bool ReadPseudoFunction(const CssToken& name, CssTokenStream arguments, CssSelector& selector,
                            Compound& result, int depth);
    bool ReadPseudoElement(CssTokenStream& tokens, CssSelector& selector, Compound& result);
    void AddName(Compound& result, Condition kind, std::u16string_view name);
    bool HasRoom() const {
        return sheet_.conditions.size() < maxCssConditions &&
               sheet_.compounds.size() < maxCssConditions &&
               sheet_.selectors.size() < maxCssSelectors;
    }

    CssSheet& sheet_;
};

bool SelectorParser::ReadList(CssTokenStream list, std::vector<CssSelector>& selectors, int depth,
                              bool forgiving) {
    if (list.AtEnd()) return forgiving;
    bool more = true;
    while (more) {
        const std::size_t start = list.Place();
        const CssTokenStream one = list.UpToComma();
        CssSelector selector;
        if (HasRoom() && ReadSelector(one, selector, depth))
            selectors.push_back(selector);
        else if (!forgiving)
            return false;
        more = list.EndedByComma(start);
        if (more && list.AtEnd()) return forgiving; // an empty selector behind the comma
    }
    return true;
}

// Combinators are known by what follows: white space alone is one only between compounds.
CssCombinator ReadCombinator(CssTokenStream& tokens) {
    const bool space = tokens.SkipSpace();
    const CssToken& token = tokens.PeekRaw();
    CssCombinator found = space ? CssCombinator::Descendant : CssCombinator::None;
    if (token.IsDelim(u'>')) found = CssCombinator::Child;
    if (token.IsDelim(u'+')) found = CssCombinator::Adjacent;
    if (token.IsDelim(u'~')) found = CssCombinator::Sibling;
    if (found > CssCombinator::Descendant) {
        tokens.NextRaw();
        tokens.SkipSpace();
    }
    return found;
}

bool SelectorParser::ReadSelector(CssTokenStream tokens, CssSelector& selector, int depth) {
    std::vector<CssCompound> compounds;
    CssCombinator combinator = CssCombinator::None;
    tokens.SkipSpace();
    do {
        Compound result;
        if (selector.pseudoElement != CssPseudoElement::None) return false; // nothing behind one
        if (!ReadCompound(tokens, selector, result, depth)) return false;
        result.compound.combinator = combinator;
        result.compound.conditions = static_cast<std::uint32_t>(sheet_.conditions.size());
        result.compound.conditionCount = static_cast<std::uint16_t>(result.conditions.size());
        sheet_.conditions.insert(sheet_.conditions.end(), result.conditions.begin(),
                                 result.conditions.end());
        compounds.push_back(result.compound);
        if (compounds.size() > maxCssCompounds) return false;
        combinator = tokens.AtEndRaw() ? CssCombinator::None : ReadCombinator(tokens);
        if (combinator == CssCombinator::Descendant && tokens.AtEnd()) break;
    } while (combinator != CssCombinator::None);
    if (!tokens.AtEnd()) return false;
    if (depth > 0 && selector.pseudoElement != CssPseudoElement::None) return false;
    selector.compounds = static_cast<std::uint32_t>(sheet_.compounds.size());
    selector.compoundCount = static_cast<std::uint16_t>(compounds.size());
    sheet_.compounds.insert(sheet_.compounds.end(), compounds.begin(), compounds.end());
    return true;
}

void SelectorParser::AddName(Compound& result, Condition kind, std::u16string_view name) {
    CssCondition condition;
    condition.kind = kind;
    condition.name = sheet_.texts.Add(name);
    result.conditions.push_back(condition);
}

bool SelectorParser::ReadCompound(CssTokenStream& tokens, CssSelector& selector, Compound& result,
                                  int depth) {
    if (!ReadType(tokens, selector, result)) return false;
    while (true) {
        const CssToken& token = tokens.PeekRaw();
        const bool behindElement = selector.pseudoElement != CssPseudoElement::None;
        if (token.Is(Kind::Hash) && token.isId) {
            AddName(result, Condition::Id, tokens.NextRaw().text);
            selector.specificity = Add(selector.specificity, idWeight);
        } else if (token.IsDelim(u'.')) {
            tokens.NextRaw();
            if (!tokens.PeekRaw().Is(Kind::Ident)) return false;
            AddName(result, Condition::Class, tokens.NextRaw().text);
            selector.specificity = Add(selector.specificity, classWeight);
        } else if (token.Is(Kind::OpenSquare)) {
            tokens.NextRaw();
            if (!ReadAttribute(tokens.Arguments(), result)) return false;
            selector.specificity = Add(selector.specificity, classWeight);
        } else if (token.Is(Kind::Colon)) {
            tokens.NextRaw();
            if (!ReadPseudoClass(tokens, selector, result, depth)) return false;
            result.empty = false;
            continue;
        } else
            return !result.empty;
        if (behindElement) return false; // but for states, which nothing has
        result.empty = false;
    }
}

// Of namespaces only "any" is known: a sheet that declares others styles no HTML by them.
bool SelectorParser::ReadType(CssTokenStream& tokens, CssSelector& selector, Compound& result) {
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
        selector.specificity = Add(selector.specificity, typeWeight);
        result.empty = false;
    }
    return !tokens.PeekRaw().IsDelim(u'|');
}

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

bool SelectorParser::ReadAttribute(CssTokenStream tokens, Compound& result) {
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
    result.conditions.push_back(condition);
    return tokens.AtEnd();
}

bool SelectorParser::ReadPseudoClass(CssTokenStream& tokens, CssSelector& selector,
                                     Compound& result, int depth) {
    if (tokens.PeekRaw().Is(Kind::Colon)) {
        tokens.NextRaw();
        return ReadPseudoElement(tokens, selector, result);
    }
    const CssToken name = tokens.NextRaw();
    if (name.Is(Kind::Function)) {
        if (selector.pseudoElement != CssPseudoElement::None) return false;
        return ReadPseudoFunction(name, tokens.Arguments(), selector, result, depth);
    }
    if (!name.Is(Kind::Ident)) return false;
    if (const CssPseudoElement old = OldCssPseudoElement(name.text);
        old != CssPseudoElement::None) {
        if (selector.pseudoElement != CssPseudoElement::None) return false;
        selector.pseudoElement = old; // CSS 2 has them with one colon
        selector.specificity = Add(selector.specificity, typeWeight);
        return true;
    }
    const std::vector<CssCondition> conditions = CssPseudoClass(name.text);
    if (conditions.empty()) return false;
    result.conditions.insert(result.conditions.end(), conditions.begin(), conditions.end());
    selector.specificity = Add(selector.specificity, classWeight);
    return true;
}

bool SelectorParser::ReadPseudoFunction(const CssToken& name, CssTokenStream arguments,
                                        CssSelector& selector, Compound& result, int depth) {
    std::optional<CssCondition> condition = CssPseudoFunction(name.text);
    if (!condition) return false;
    std::uint32_t weight = classWeight;
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
    result.conditions.push_back(*condition);
    selector.specificity = Add(selector.specificity, weight);
    return true;
}

bool SelectorParser::ReadPseudoElement(CssTokenStream& tokens, CssSelector& selector,
                                       Compound& result) {
    if (selector.pseudoElement != CssPseudoElement::None) return false;
    const CssToken& name = tokens.NextRaw();
    if (!name.Is(Kind::Ident)) return false;
    selector.pseudoElement = NewCssPseudoElement(name.text);
    selector.specificity = Add(selector.specificity, typeWeight);
    result.empty = false;
    return selector.pseudoElement != CssPseudoElement::None;
}

} // namespace

std::vector<CssSelector> ReadCssSelectors(CssTokenStream list, CssSheet& sheet) {
    const std::size_t selectors = sheet.selectors.size(), compounds = sheet.compounds.size(),
                      conditions = sheet.conditions.size();
    std::vector<CssSelector> result;
    if (SelectorParser(sheet).ReadList(list, result, 0, false)) return result;
    sheet.selectors.resize(selectors);
    sheet.compounds.resize(compounds);
    sheet.conditions.resize(conditions);
    return {};
}
