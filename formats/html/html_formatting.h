// The list of active formatting elements: those that a new paragraph opens again, in groups by
// markers. A group is bounded (maxHtmlFormatting).
#pragma once

#include "formats/html/html_tree.h"

#include <vector>

class HtmlFormatting {
  public:
    static constexpr std::size_t none = ~std::size_t{0};

    explicit HtmlFormatting(const HtmlTree& tree) : tree_(tree) {} // observed

    void PushMarker() { ids_.push_back(noHtmlNode); }
    void ClearToMarker();
    // Of equal ones three are kept, the last.
    void Push(HtmlNodeId id);

    // Entries looked at, for tests.
    std::uint64_t Steps() const { return steps_; }

    std::size_t Count() const { return ids_.size(); }
    HtmlNodeId& operator[](std::size_t index) { return ids_[index]; } // noHtmlNode for a marker
    // Behind the last marker.
    std::size_t GroupBegin() const;
    std::size_t LastOf(HtmlName name) const;
    std::size_t IndexOf(HtmlNodeId id) const;

    void RemoveAt(std::size_t index);
    void Remove(HtmlNodeId id);
    void InsertAt(std::size_t index, HtmlNodeId id);

  private:
    bool AreEqual(HtmlNodeId a, HtmlNodeId b) const;

    const HtmlTree& tree_;
    std::vector<HtmlNodeId> ids_;
    mutable std::uint64_t steps_ = 0;
};
