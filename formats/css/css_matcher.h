// Which rules are of which element: the elements of a page are opened and closed in its order.
//
// Of every selector it is kept how far it has come: the steps (compounds with all that is to their
// left) that hold at the open elements and at siblings before. So whether a compound's left side
// holds is one look, nothing is ever tried again, and the work is one test for each candidate of
// each element, however the selectors are made.
#pragma once

#include "formats/css/css_rule_index.h"
#include "formats/css/css_sibling_places.h"

#include <cstdint>
#include <vector>

class CssMatcher {
  public:
    CssMatcher(const HtmlTree& tree, const CssRuleIndex& index);

    // Of an element whose parent was opened last. The rules come in the order of the cascade.
    void Open(HtmlNodeId element);
    void Close();
    const std::vector<std::uint32_t>& Rules() const { return rules_; } // of the element opened last

    void AddSteps(std::uint64_t steps) { steps_ += steps; } // of work beside the matching
    std::uint64_t Steps() const { return steps_; }
    bool IsExhausted() const; // no more than the default sheet is matched

  private:
    struct State {                           // of a step
        HtmlNodeId nearestOpen = noHtmlNode; // where it holds, of the open elements
        // The parent of the last element that was closed and where it held, and that element.
        HtmlNodeId siblingParent = noHtmlNode, lastSibling = noHtmlNode;
    };
    struct Held { // by an open element, and what was before
        std::uint32_t step = 0;
        State before;
    };
    struct Frame {
        HtmlNodeId element = noHtmlNode;
        HtmlNodeId lastChild = noHtmlNode; // the element closed last within
        std::size_t held = 0;              // the first of its own
        std::size_t siblings = 0;          // likewise, in `siblings_`
        std::u16string_view language;
    };

    bool Holds(std::uint32_t number); // of a compound
    bool HoldsToTheLeft(const CssIndexedCompound& compound) const;
    bool HoldsHere(const CssIndexedCondition& condition);
    bool AttributeHolds(const CssIndexedCondition& condition);
    bool IsEmpty();
    bool IsNth(const CssIndexedCondition& condition);

    const HtmlTree& tree_;
    const CssRuleIndex& index_;
    CssSiblingPlaces places_;
    CssElement element_;
    HtmlNodeId parent_ = noHtmlNode;
    std::vector<std::uint32_t> rules_;
    std::vector<State> states_; // by step
    std::vector<Frame> frames_;
    std::vector<Held> held_;     // of all frames, one after the other
    std::vector<Held> siblings_; // likewise: the states that children of a frame have changed
    std::uint64_t steps_ = 0;
};
