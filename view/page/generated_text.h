// What `content` puts before and after what is in an element (CSS 2.1, 12.2).
#pragma once

#include "formats/css/css_page_styles.h"
#include "formats/html/html_tree.h"
#include "view/page/page_counters.h"

#include <string_view>

class GeneratedText {
  public:
    // The arguments must outlive this object.
    GeneratedText(const HtmlTree& tree, const CssPageStyles& styles, const PageCounters& counters)
        : tree_(tree), styles_(styles), counters_(counters) {}

    // Refers to the page and its styles.
    std::u16string_view Of(const CssContentItem& item, HtmlNodeId element,
                           GeneratedPlace place) const;

  private:
    bool IsQuoteWithin(HtmlNodeId element) const;
    bool OpensQuote(CssStyle before) const;

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageCounters& counters_;
};
