// The list of active formatting elements: those that a new paragraph opens again, in groups by
// markers. A group is bounded (maxHtmlFormatting).
#pragma once

#include "formats/html/html_tree.h"

#include <vector>

class HtmlFormatting {
  public:
    static constexpr std::size_t none = ~std::size_t{0};

    explicit HtmlFormatting(const HtmlTree& tree) : tree_(tree) {} // observed

    void PushMarker() { entries_.emplace_back(); }
    void ClearToMarker();
    // Of equal ones three are kept, the last.
    void Push(HtmlNodeId id);

    // Entries looked at, for tests.
    std::uint64_t Steps() const { return steps_; }

    std::size_t Count() const { return entries_.size(); }
    // noHtmlNode for a marker. Only a clone may take the place of an element.
    HtmlNodeId& operator[](std::size_t index) { return entries_[index].id; }
    // After the last marker.
    std::size_t GroupBegin() const;
    std::size_t LastOf(HtmlName name) const;
    std::size_t IndexOf(HtmlNodeId id) const;

    void RemoveAt(std::size_t index);
    void Remove(HtmlNodeId id);
    // Takes the entry at `index` to before that at `before`, with a clone in its place.
    void Move(std::size_t index, std::size_t before, HtmlNodeId clone);

  private:
    struct Entry {
        HtmlNodeId id = noHtmlNode;
        std::uint64_t hash = 0; // of name and attributes
    };
    std::uint64_t HashOf(HtmlNodeId id) const;
    bool AreEqual(const Entry& a, const Entry& b) const;

    const HtmlTree& tree_;
    std::vector<Entry> entries_;
    mutable std::uint64_t steps_ = 0;
};
