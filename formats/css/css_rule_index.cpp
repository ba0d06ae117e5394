#include "formats/css/css_rule_index.h"

#include "formats/css/css_tokenizer.h"

#include <algorithm>

namespace {

using Kind = CssCondition::Kind;

bool IsOfAttribute(Kind kind) {
    return kind >= Kind::HasAttribute && kind <= Kind::AttributePart;
}

// HTML 4 has values of these that are written in any case.
bool HasCaselessValue(HtmlName attribute) {
    switch (attribute) {
    case HtmlName::Align:
    case HtmlName::Bgcolor:
    case HtmlName::Charset:
    case HtmlName::Clear:
    case HtmlName::Color:
    case HtmlName::Dir:
    case HtmlName::Face:
    case HtmlName::HttpEquiv:
    case HtmlName::Lang:
    case HtmlName::Media:
    case HtmlName::Type: return true;
    default: return false;
    }
}

} // namespace

void CssRuleIndex::Add(const CssSheet& sheet, CssOrigin origin) {
    origin_ = origin;
    for (const CssRule& rule : sheet.rules) {
        ++order_;
        for (std::uint32_t i = 0; i < rule.selectorCount; ++i) {
            const CssSelector& selector = sheet.selectors[rule.selectors + i];
            if (selector.pseudoElement == CssPseudoElement::NotShown) continue;
            const std::uint32_t last = AddSelector(sheet, selector);
            if (last == noCssNumber) continue;
            CssIndexedRule indexed;
            indexed.sheet = &sheet;
            indexed.rule = &rule;
            indexed.pseudoElement = selector.pseudoElement;
            indexed.priority =
                std::uint64_t(origin) << 62 | std::uint64_t(selector.specificity) << 32 | order_;
            CssCandidate candidate;
            candidate.compound = last;
            candidate.rule = static_cast<std::uint32_t>(rules_.size());
            AddCandidate(candidate);
            rules_.push_back(indexed);
        }
    }
}

std::uint32_t CssRuleIndex::AddSelector(const CssSheet& sheet, const CssSelector& selector) {
    std::uint32_t left = noCssNumber;
    for (std::uint32_t i = 0; i < selector.compoundCount; ++i) {
        if (!AddCompound(sheet, sheet.compounds[selector.compounds + i], left)) return noCssNumber;
        const auto number = static_cast<std::uint32_t>(compounds_.size() - 1);
        if (i + 1 == selector.compoundCount) return number;
        left = steps_++;
        CssCandidate candidate;
        candidate.compound = number;
        candidate.step = left;
        AddCandidate(candidate);
    }
    return noCssNumber;
}

bool CssRuleIndex::AddCompound(const CssSheet& sheet, const CssCompound& compound,
                               std::uint32_t left) {
    CssIndexedCompound indexed;
    indexed.left = left;
    indexed.combinator = compound.combinator;
    if (compound.type) {
        const std::u16string_view type = sheet.texts[compound.type];
        indexed.isAnyType = false;
        indexed.type = tree_.Names().Find(CssLowerCase(type));
        indexed.exactType = tree_.Names().Find(type);
        if (indexed.type == HtmlName::None && indexed.exactType == HtmlName::None) return false;
    }
    std::vector<CssIndexedCondition> conditions;
    for (std::uint32_t i = 0; i < compound.conditionCount; ++i)
        if (!AddCondition(sheet, sheet.conditions[compound.conditions + i], conditions))
            return false;
    indexed.conditions = static_cast<std::uint32_t>(conditions_.size());
    indexed.conditionCount = static_cast<std::uint32_t>(conditions.size());
    conditions_.insert(conditions_.end(), conditions.begin(), conditions.end());
    compounds_.push_back(indexed);
    return true;
}

bool CssRuleIndex::AddCondition(const CssSheet& sheet, CssCondition condition,
                                std::vector<CssIndexedCondition>& conditions) {
    CssIndexedCondition indexed;
    if (condition.kind == Kind::Never) return false;
    if (condition.kind == Kind::Class || condition.kind == Kind::Id)
        condition.name = elements.AddName(sheet.texts[condition.name]);
    indexed.condition = condition;
    if (IsOfAttribute(condition.kind)) {
        const std::u16string_view name = sheet.texts[condition.name];
        indexed.name = tree_.Names().Find(CssLowerCase(name));
        indexed.exactName = tree_.Names().Find(name);
        if (indexed.name == HtmlName::None && indexed.exactName == HtmlName::None) return false;
        indexed.value = sheet.texts[condition.value];
        if (condition.caseOf == CssCondition::Case::OfAttribute && HasCaselessValue(indexed.name))
            indexed.condition.caseOf = CssCondition::Case::Ignored;
    }
    if (condition.kind == Kind::Language) {
        usesLanguage_ = true;
        indexed.value = sheet.texts[condition.value];
    }
    if (condition.kind == Kind::Is || condition.kind == Kind::Not) {
        AddAlternatives(sheet, indexed);
        const bool isEmpty = indexed.condition.value == 0;
        if (isEmpty && condition.kind == Kind::Is) return false;
    }
    conditions.push_back(indexed);
    return true;
}

// Their compounds to the left become steps like those of any selector: what they ask of ancestors
// and siblings is known when an element comes.
void CssRuleIndex::AddAlternatives(const CssSheet& sheet, CssIndexedCondition& condition) {
    std::vector<std::uint32_t> last;
    for (std::uint32_t i = 0; i < condition.condition.value; ++i) {
        const auto number = AddSelector(sheet, sheet.selectors[condition.condition.name + i]);
        if (number != noCssNumber) last.push_back(number);
    }
    condition.condition.name = static_cast<std::uint32_t>(alternatives_.size());
    condition.condition.value = static_cast<std::uint32_t>(last.size());
    alternatives_.insert(alternatives_.end(), last.begin(), last.end());
}

std::vector<CssCandidate>* CssRuleIndex::BucketOf(const CssIndexedCompound& compound) {
    const CssIndexedCondition* ofClass = nullptr;
    for (const CssIndexedCondition& one : ConditionsOf(compound)) {
        if (one.condition.kind == Kind::Id) return &byId_[one.condition.name];
        if (one.condition.kind == Kind::Class) ofClass = &one;
    }
    if (ofClass) return &byClass_[ofClass->condition.name];
    // A name of two spellings (SVG has "foreignObject") may be of either.
    const bool isOneName = !compound.isAnyType && (compound.type == compound.exactType ||
                                                   compound.exactType == HtmlName::None);
    return isOneName ? &byType_[static_cast<std::uint32_t>(compound.type)] : nullptr;
}

void CssRuleIndex::AddCandidate(CssCandidate candidate) {
    candidate.origin = origin_;
    const CssIndexedCompound& compound = compounds_[candidate.compound];
    if (std::vector<CssCandidate>* bucket = BucketOf(compound)) {
        bucket->push_back(candidate);
        return;
    }
    // :is() stands under each of its alternatives. An element may meet it twice, which costs a
    // second look and changes nothing.
    for (const CssIndexedCondition& one : ConditionsOf(compound)) {
        if (one.condition.kind != Kind::Is) continue;
        std::vector<std::vector<CssCandidate>*> buckets;
        for (const std::uint32_t alternative : AlternativesOf(one))
            buckets.push_back(BucketOf(compounds_[alternative]));
        if (std::ranges::find(buckets, nullptr) != buckets.end()) continue;
        for (std::vector<CssCandidate>* bucket : buckets)
            bucket->push_back(candidate);
        return;
    }
    others_.push_back(candidate);
}
