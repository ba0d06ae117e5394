#include "formats/css/css_rule_index.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"

#include <algorithm>
#include <array>

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
    const std::size_t compounds = compounds_.size(), conditions = conditions_.size(),
                      alternatives = alternatives_.size();
    const std::uint32_t steps = steps_;
    std::array<std::uint32_t, maxCssCompounds> numbers;
    std::uint32_t left = noCssNumber;
    for (std::uint32_t i = 0; i < selector.compoundCount; ++i) {
        if (!AddCompound(sheet, sheet.compounds[selector.compounds + i], left)) {
            if (alternatives_.size() > alternatives) return noCssNumber; // elements meet these
            compounds_.resize(compounds);
            conditions_.resize(conditions);
            steps_ = steps;
            return noCssNumber;
        }
        numbers[i] = static_cast<std::uint32_t>(compounds_.size() - 1);
        if (i + 1 < selector.compoundCount) left = steps_++;
    }
    // Only now that all of them can hold: `div .absent` costs no div anything.
    for (std::uint32_t i = 0; i + 1 < selector.compoundCount; ++i) {
        CssCandidate candidate;
        candidate.compound = numbers[i];
        candidate.step = compounds_[numbers[i + 1]].left;
        AddCandidate(candidate);
    }
    return selector.compoundCount > 0 ? numbers[selector.compoundCount - 1] : noCssNumber;
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
    const std::size_t start = openConditions_.size();
    bool canHold = true;
    for (std::uint32_t i = 0; i < compound.conditionCount && canHold; ++i)
        canHold = AddCondition(sheet, sheet.conditions[compound.conditions + i]);
    const auto first = openConditions_.begin() + static_cast<std::ptrdiff_t>(start);
    if (canHold) {
        indexed.conditions = static_cast<std::uint32_t>(conditions_.size());
        indexed.conditionCount = static_cast<std::uint32_t>(openConditions_.end() - first);
        conditions_.insert(conditions_.end(), first, openConditions_.end());
        compounds_.push_back(indexed);
    }
    openConditions_.erase(first, openConditions_.end());
    return canHold;
}

bool CssRuleIndex::AddCondition(const CssSheet& sheet, CssCondition condition) {
    CssIndexedCondition indexed;
    if (condition.kind == Kind::Never) return false;
    if (condition.kind == Kind::Class || condition.kind == Kind::Id) {
        condition.name = elements.AskName(sheet.texts[condition.name]);
        if (condition.name == 0) return false;
    }
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
    if (condition.kind == Kind::Language) indexed.value = sheet.texts[condition.value];
    if (condition.kind == Kind::Is || condition.kind == Kind::Not) {
        AddAlternatives(sheet, indexed);
        const bool isEmpty = indexed.condition.value == 0;
        if (isEmpty && condition.kind == Kind::Is) return false;
    }
    openConditions_.push_back(indexed);
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
