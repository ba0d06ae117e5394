#include "formats/css/css_pseudo_classes.h"

#include "formats/css/css_tokenizer.h"

namespace {

using Kind = CssCondition::Kind;

struct Entry {
    std::u16string_view name;
    Kind kind;
};

constexpr Entry structural[] = {
    {u"first-child", Kind::NthChild},
    {u"last-child", Kind::NthLastChild},
    {u"first-of-type", Kind::NthOfType},
    {u"last-of-type", Kind::NthLastOfType},
    {u"only-child", Kind::NthChild},
    {u"only-child", Kind::NthLastChild},
    {u"only-of-type", Kind::NthOfType},
    {u"only-of-type", Kind::NthLastOfType},
    {u"root", Kind::Root},
    {u"scope", Kind::Root},
    {u"empty", Kind::Empty},
    {u"link", Kind::Link},
    {u"any-link", Kind::Link},
};

constexpr Entry functions[] = {
    {u"nth-child", Kind::NthChild},
    {u"nth-last-child", Kind::NthLastChild},
    {u"nth-of-type", Kind::NthOfType},
    {u"nth-last-of-type", Kind::NthLastOfType},
    {u"is", Kind::Is},
    {u"where", Kind::Is},
    {u"matches", Kind::Is},
    {u"not", Kind::Not},
    {u"lang", Kind::Language},
};

// States of pages with scripts and forms, and of links that were followed, which a reader has not
// for those who look.
constexpr std::u16string_view states[] = {
    u"hover",    u"focus",    u"active",        u"visited",    u"target",   u"focus-within",
    u"enabled",  u"disabled", u"focus-visible", u"checked",    u"valid",    u"invalid",
    u"required", u"optional", u"read-only",     u"read-write", u"autofill", u"indeterminate",
    u"default",  u"in-range", u"out-of-range",  u"fullscreen", u"playing",  u"placeholder-shown",
};

} // namespace

std::vector<CssCondition> CssPseudoClass(std::u16string_view name) {
    CssCondition condition;
    condition.b = 1;
    std::vector<CssCondition> conditions;
    for (const Entry& entry : structural) {
        if (!CssEqual(name, entry.name)) continue;
        condition.kind = entry.kind;
        conditions.push_back(condition);
    }
    condition.kind = Kind::Never;
    for (const std::u16string_view state : states)
        if (CssEqual(name, state)) conditions.push_back(condition);
    return conditions;
}

std::optional<CssCondition> CssPseudoFunction(std::u16string_view name) {
    CssCondition condition;
    for (const Entry& entry : functions) {
        if (!CssEqual(name, entry.name)) continue;
        condition.kind = entry.kind;
        return condition;
    }
    return std::nullopt;
}

CssPseudoElement OldCssPseudoElement(std::u16string_view name) {
    if (CssEqual(name, u"before")) return CssPseudoElement::Before;
    if (CssEqual(name, u"after")) return CssPseudoElement::After;
    if (CssEqual(name, u"first-letter")) return CssPseudoElement::FirstLetter;
    if (CssEqual(name, u"first-line")) return CssPseudoElement::FirstLine;
    return CssPseudoElement::None;
}

CssPseudoElement NewCssPseudoElement(std::u16string_view name) {
    const CssPseudoElement old = OldCssPseudoElement(name);
    if (old != CssPseudoElement::None) return old;
    // Those of other programs with a prefix are names like any other.
    const bool isOurs = CssEqual(name, u"marker") || CssEqual(name, u"selection") ||
                        CssEqual(name, u"placeholder") || CssEqual(name, u"backdrop") ||
                        CssEqual(name.substr(0, 8), u"-webkit-");
    return isOurs ? CssPseudoElement::NotShown : CssPseudoElement::None;
}
