#include "formats/css/css_matcher.h"

#include "formats/css/css_limits.h"

#include <algorithm>

CssMatcher::CssMatcher(const HtmlTree& tree, const CssRuleIndex& index)
    : tree_(tree), index_(index), places_(tree), states_(index.StepCount()) {
    frames_.emplace_back().element = htmlDocumentNode;
}

bool CssMatcher::IsExhausted() const {
    return steps_ >= maxCssSteps;
}

void CssMatcher::Open(HtmlNodeId element) {
    const Frame& parent = frames_.back();
    parent_ = parent.element;
    element_.previousElement = parent.lastChild;
    index_.elements.Read(element, parent.language, element_);
    rules_.clear();
    const Frame frame{element, noHtmlNode, held_.size(), siblings_.size(), element_.language};
    const CssOrigin last = IsExhausted() ? CssOrigin::UserAgent : CssOrigin::Author;
    index_.ForEachCandidate(element_, last, [&](const CssCandidate& candidate) {
        if (!Holds(candidate.compound)) return;
        if (candidate.rule != noCssNumber)
            rules_.push_back(candidate.rule);
        else
            held_.push_back({candidate.step, {}});
    });
    // Only now: the element is no ancestor of its own.
    for (std::size_t i = frame.held; i < held_.size(); ++i) {
        State& state = states_[held_[i].step];
        held_[i].before = state;
        state.nearestOpen = element;
    }
    frames_.push_back(frame);
    const auto priority = [this](std::uint32_t rule) { return index_.Rule(rule).priority; };
    if (!std::ranges::is_sorted(rules_, {}, priority)) std::ranges::sort(rules_, {}, priority);
    // A rule that holds is sorted, and its declarations are applied, which takes longer than a
    // test.
    constexpr std::uint64_t stepsOfRule = 6, stepsOfDeclaration = 2;
    for (const std::uint32_t rule : rules_)
        steps_ += stepsOfRule + stepsOfDeclaration * index_.Rule(rule).rule->declarationCount;
}

void CssMatcher::Close() {
    const Frame frame = frames_.back();
    frames_.pop_back();
    for (; siblings_.size() > frame.siblings; siblings_.pop_back()) {
        State& state = states_[siblings_.back().step];
        state.siblingParent = siblings_.back().before.siblingParent;
        state.lastSibling = siblings_.back().before.lastSibling;
    }
    const HtmlNodeId parent = frames_.back().element;
    for (std::size_t i = held_.size(); i-- > frame.held;) {
        State& state = states_[held_[i].step];
        state.nearestOpen = held_[i].before.nearestOpen;
        if (state.siblingParent != parent) siblings_.push_back({held_[i].step, state});
        state.siblingParent = parent;
        state.lastSibling = frame.element;
    }
    held_.resize(frame.held);
    frames_.back().lastChild = frame.element;
}

bool CssMatcher::HoldsToTheLeft(const CssIndexedCompound& compound) const {
    if (compound.combinator == CssCombinator::None) return true;
    const State& left = states_[compound.left];
    switch (compound.combinator) {
    case CssCombinator::Descendant: return left.nearestOpen != noHtmlNode;
    case CssCombinator::Child: return left.nearestOpen == parent_;
    case CssCombinator::Sibling: return left.siblingParent == parent_;
    default: return left.siblingParent == parent_ && left.lastSibling == element_.previousElement;
    }
}

bool CssMatcher::Holds(std::uint32_t number) {
    ++steps_;
    const CssIndexedCompound& compound = index_.Compound(number);
    if (!HoldsToTheLeft(compound)) return false;
    if (!compound.isAnyType) {
        const bool isHtml = element_.node->nameSpace == HtmlNamespace::Html;
        if (element_.node->name != (isHtml ? compound.type : compound.exactType)) return false;
    }
    return std::ranges::all_of(index_.ConditionsOf(compound),
                               [&](const auto& condition) { return HoldsHere(condition); });
}
