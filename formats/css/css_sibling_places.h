// Which child of its parent an element is, by the four ways to count; all children of a parent are
// counted when the first of them is asked for.
#pragma once

#include "formats/html/html_tree.h"

#include <cstdint>
#include <vector>

struct CssSiblingPlace {
    std::uint32_t child = 0, lastChild = 0; // from 1 on
    std::uint32_t ofType = 0, lastOfType = 0;
};

class CssSiblingPlaces {
  public:
    explicit CssSiblingPlaces(const HtmlTree& tree) : tree_(tree) {}
    const CssSiblingPlace& Of(HtmlNodeId element);

  private:
    void Count(HtmlNodeId parent);

    const HtmlTree& tree_;
    std::vector<CssSiblingPlace> places_; // by node, once one was asked for
    std::vector<std::uint32_t> ofName_;   // by name, 0 between counts
};
