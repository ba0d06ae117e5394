// The stack of open elements. Whatever is asked of it costs the same at any depth: each entry knows
// the nearest boundaries below it, and the last entry of each name is known.
#pragma once

#include "formats/html/html_tree.h"

#include <array>
#include <vector>

// What ends a search down the stack.
enum class HtmlBoundary : std::uint8_t {
    Scope,       // of "has an element in scope"
    ListScope,   // that, and lists
    ButtonScope, // that, and buttons
    TableScope,
    Special,
    ListSpecial, // special ones but `address`, `div` and `p`
    Mode,        // by which the insertion mode is found again
    Count
};

class HtmlOpenElements {
  public:
    static constexpr int none = -1;

    // Nodes of the tree are observed.
    explicit HtmlOpenElements(const HtmlTree& tree) : tree_(tree) {}

    int Count() const { return static_cast<int>(entries_.size()); }
    HtmlNodeId operator[](int index) const { return entries_[std::size_t(index)].id; }
    HtmlNodeId Current() const { return entries_.empty() ? noHtmlNode : entries_.back().id; }
    bool Contains(HtmlNodeId id) const { return id < isOpen_.size() && isOpen_[id]; }

    void Push(HtmlNodeId id);
    void Pop();
    void PopTo(int count); // leaves that many
    // For elements that are not the innermost: takes off all from `index` on, outermost first.
    std::vector<HtmlNodeId> TakeFrom(int index);
    void Remove(HtmlNodeId id);

    // Indexes of the innermost one; `none` when there is none.
    int LastOf(HtmlName htmlElement) const;
    int Nearest(HtmlBoundary boundary) const;
    // Of the last `reach` entries.
    int IndexOf(HtmlNodeId id, std::size_t reach) const;

    // Entries pushed or looked at, for tests.
    std::uint64_t Steps() const { return steps_; }

    bool Has(HtmlName htmlElement) const { return LastOf(htmlElement) != none; }
    bool HasInScope(HtmlName htmlElement, HtmlBoundary scope = HtmlBoundary::Scope) const {
        return Has(htmlElement) && LastOf(htmlElement) >= Nearest(scope);
    }

  private:
    struct Entry {
        HtmlNodeId id;
        int previousOfName;                                        // below
        std::array<int, std::size_t(HtmlBoundary::Count)> nearest; // at or below
    };

    int& LastIndexOf(HtmlName name);

    const HtmlTree& tree_;
    std::vector<Entry> entries_;
    std::vector<int> lastOfName_; // of HTML elements; `none` for those not open
    std::vector<bool> isOpen_;    // by node
    mutable std::uint64_t steps_ = 0;
};

bool IsSpecialHtmlElement(const HtmlNode& node);
