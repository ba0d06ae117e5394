// The rules of all sheets of a page, made ready for its tree: their names are the tree's numbers,
// and each compound of a selector stands under its rarest part, so that an element meets only
// those that may be of it.
#pragma once

#include "formats/css/css_element.h"
#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

enum class CssOrigin : std::uint8_t { UserAgent, Author };

constexpr std::uint32_t noCssNumber = 0xFFFF'FFFF;

struct CssIndexedCondition {
    CssCondition condition; // of a class or an id, `name` is its number
    HtmlName name = HtmlName::None, exactName = HtmlName::None; // of an attribute
    std::u16string_view value;
};

struct CssIndexedCompound {
    HtmlName type = HtmlName::None, exactType = HtmlName::None; // None: any
    bool isAnyType = true;
    CssCombinator combinator = CssCombinator::None;
    std::uint32_t left = noCssNumber; // the step that has to hold at the combinator's other end
    std::uint32_t conditions = 0, conditionCount = 0;
};

// A rule that one of its selectors has brought here.
struct CssIndexedRule {
    const CssSheet* sheet = nullptr;
    const CssRule* rule = nullptr;
    std::uint64_t priority = 0; // by origin, specificity and order
    CssPseudoElement pseudoElement = CssPseudoElement::None;

    CssOrigin Origin() const { return static_cast<CssOrigin>(priority >> 62); }
};

// What a compound that holds leads to: a rule, or a step of a selector whose compounds to the right
// ask for it.
struct CssCandidate {
    std::uint32_t compound = 0;
    std::uint32_t rule = noCssNumber, step = noCssNumber;
    CssOrigin origin = CssOrigin::UserAgent;
};

class CssRuleIndex {
  public:
    explicit CssRuleIndex(const HtmlTree& tree) : tree_(tree), elements(tree) {}

    // In the order of the cascade, so the default sheet first; the sheet has to outlive the index.
    void Add(const CssSheet& sheet, CssOrigin origin);

    // Of no origin above the last one.
    template <typename Test>
    void ForEachCandidate(const CssElement& element, CssOrigin last, Test test) const {
        const auto each = [&](const std::vector<CssCandidate>& candidates) {
            for (const CssCandidate& candidate : candidates) {
                if (candidate.origin > last) return;
                test(candidate);
            }
        };
        const auto all = [&](const Buckets& buckets, std::uint32_t key) {
            const auto found = buckets.find(key);
            if (found != buckets.end()) each(found->second);
        };
        if (element.idNumber) all(byId_, element.idNumber);
        for (const std::uint32_t number : element.classNumbers)
            all(byClass_, number);
        all(byType_, static_cast<std::uint32_t>(element.node->name));
        each(others_);
    }
    const CssIndexedCompound& Compound(std::uint32_t number) const { return compounds_[number]; }
    std::span<const CssIndexedCondition> ConditionsOf(const CssIndexedCompound& compound) const {
        return std::span(conditions_).subspan(compound.conditions, compound.conditionCount);
    }
    const CssIndexedRule& Rule(std::uint32_t number) const { return rules_[number]; }
    std::span<const std::uint32_t> AlternativesOf(const CssIndexedCondition& condition) const {
        return std::span(alternatives_)
            .subspan(condition.condition.name, condition.condition.value);
    }
    std::size_t StepCount() const { return steps_; }

  private:
    using Buckets = std::unordered_map<std::uint32_t, std::vector<CssCandidate>>;

    // The number of the selector's last compound; noCssNumber when nothing of this page can fit.
    std::uint32_t AddSelector(const CssSheet& sheet, const CssSelector& selector);
    bool AddCompound(const CssSheet& sheet, const CssCompound& compound, std::uint32_t left);
    bool AddCondition(const CssSheet& sheet, CssCondition condition);
    void AddAlternatives(const CssSheet& sheet, CssIndexedCondition& condition);
    void AddCandidate(CssCandidate candidate);
    // The list that all elements which the compound holds at look into; nullptr for `others_`.
    std::vector<CssCandidate>* BucketOf(const CssIndexedCompound& compound);

    const HtmlTree& tree_;
    Buckets byId_, byClass_, byType_;
    std::vector<CssCandidate> others_;
    std::vector<CssIndexedCompound> compounds_;
    std::vector<CssIndexedCondition> conditions_;
    // Of the compounds that are being added, one in an argument of the other.
    std::vector<CssIndexedCondition> openConditions_;
    std::vector<std::uint32_t> alternatives_; // compounds in the arguments of :is() and :not()
    std::vector<CssIndexedRule> rules_;
    CssOrigin origin_ = CssOrigin::UserAgent; // of the sheet that is being added
    std::uint64_t order_ = 0;
    std::uint32_t steps_ = 0;

  public:
    CssElementReader elements;
};
