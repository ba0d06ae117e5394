#include "formats/css/css_selector_parser.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_selector_reader.h"

#include <array>

using Kind = CssToken::Kind;
using Condition = CssCondition::Kind;

bool CssSelectorReader::HasRoom() const {
    return sheet_.conditions.size() < maxCssConditions &&
           sheet_.compounds.size() < maxCssConditions && sheet_.selectors.size() < maxCssSelectors;
}

bool CssSelectorReader::ReadList(CssTokenStream list, std::vector<CssSelector>& selectors,
                                 int depth, bool forgiving) {
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
        if (more && list.AtEnd()) return forgiving; // an empty selector after the comma
    }
    return true;
}

namespace {

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

} // namespace

bool CssSelectorReader::ReadSelector(CssTokenStream tokens, CssSelector& selector, int depth) {
    std::array<CssCompound, maxCssCompounds> compounds;
    std::size_t count = 0;
    CssCombinator combinator = CssCombinator::None;
    tokens.SkipSpace();
    do {
        if (selector.pseudoElement != CssPseudoElement::None) return false; // nothing after one
        Compound result;
        result.firstCondition = conditions_.size();
        const bool isRead = ReadCompound(tokens, selector, result, depth);
        Finish(result);
        if (!isRead || count == maxCssCompounds) return false;
        result.compound.combinator = combinator;
        compounds[count++] = result.compound;
        combinator = tokens.AtEndRaw() ? CssCombinator::None : ReadCombinator(tokens);
        if (combinator == CssCombinator::Descendant && tokens.AtEnd()) break;
    } while (combinator != CssCombinator::None);
    if (!tokens.AtEnd()) return false;
    if (depth > 0 && selector.pseudoElement != CssPseudoElement::None) return false;
    selector.compounds = static_cast<std::uint32_t>(sheet_.compounds.size());
    selector.compoundCount = static_cast<std::uint16_t>(count);
    sheet_.compounds.insert(sheet_.compounds.end(), compounds.begin(), compounds.begin() + count);
    return true;
}

// Its conditions go to the sheet, after those of the compounds in its arguments.
void CssSelectorReader::Finish(Compound& result) {
    const auto first = conditions_.begin() + static_cast<std::ptrdiff_t>(result.firstCondition);
    result.compound.conditions = static_cast<std::uint32_t>(sheet_.conditions.size());
    result.compound.conditionCount = static_cast<std::uint16_t>(conditions_.end() - first);
    sheet_.conditions.insert(sheet_.conditions.end(), first, conditions_.end());
    conditions_.erase(first, conditions_.end());
}

void CssSelectorReader::AddName(Condition kind, std::u16string_view name) {
    CssCondition condition;
    condition.kind = kind;
    condition.name = sheet_.texts.Add(name);
    conditions_.push_back(condition);
}

bool CssSelectorReader::ReadCompound(CssTokenStream& tokens, CssSelector& selector,
                                     Compound& result, int depth) {
    if (!ReadType(tokens, selector, result)) return false;
    while (true) {
        const CssToken& token = tokens.PeekRaw();
        const bool afterElement = selector.pseudoElement != CssPseudoElement::None;
        if (token.Is(Kind::Hash) && token.isId) {
            AddName(Condition::Id, tokens.NextRaw().text);
            selector.specificity = AddCssSpecificity(selector.specificity, cssIdWeight);
        } else if (token.IsDelim(u'.')) {
            tokens.NextRaw();
            if (!tokens.PeekRaw().Is(Kind::Ident)) return false;
            AddName(Condition::Class, tokens.NextRaw().text);
            selector.specificity = AddCssSpecificity(selector.specificity, cssClassWeight);
        } else if (token.Is(Kind::OpenSquare)) {
            tokens.NextRaw();
            if (!ReadAttribute(tokens.Arguments())) return false;
            selector.specificity = AddCssSpecificity(selector.specificity, cssClassWeight);
        } else if (token.Is(Kind::Colon)) {
            tokens.NextRaw();
            if (!ReadPseudoClass(tokens, selector, result, depth)) return false;
            result.empty = false;
            continue;
        } else
            return !result.empty;
        if (afterElement) return false; // but for states, which nothing has
        result.empty = false;
    }
}

std::vector<CssSelector> ReadCssSelectors(CssTokenStream list, CssSheet& sheet) {
    const std::size_t selectors = sheet.selectors.size(), compounds = sheet.compounds.size(),
                      conditions = sheet.conditions.size();
    std::vector<CssSelector> result;
    if (CssSelectorReader(sheet).ReadList(list, result, 0, false)) return result;
    sheet.selectors.resize(selectors);
    sheet.compounds.resize(compounds);
    sheet.conditions.resize(conditions);
    return {};
}
