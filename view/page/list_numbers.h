// The numbers of the items of a page's lists, one after the other as the page is read.
#pragma once

#include "formats/css/css_page_styles.h"
#include "formats/html/html_tree.h"

#include <unordered_map>

class ListNumbers {
  public:
    ListNumbers(const HtmlTree& tree, const CssPageStyles& styles) : tree_(tree), styles_(styles) {}

    int Next(HtmlNodeId item);

  private:
    int CountItems(HtmlNodeId list) const;

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    std::unordered_map<HtmlNodeId, int> next_; // of each list
};
