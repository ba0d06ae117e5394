// The texts of counters in what styles generate (CSS Lists 3, 4), found by one walk over the page.
#pragma once

#include "formats/css/css_page_styles.h"
#include "formats/html/html_tree.h"
#include "view/page/page_box.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

class PageCounters {
  public:
    PageCounters(const HtmlTree& tree, const CssPageStyles& styles);

    // Of one item of the content of a node; "" beyond the limit of all of them.
    std::u16string_view TextOf(HtmlNodeId node, GeneratedPlace place,
                               const CssContentItem& item) const;
    std::size_t Steps() const { return steps_; } // counters looked at

  private:
    struct Instance {
        HtmlNodeId scope = noHtmlNode; // ends with it
        int value = 0;
    };
    using Instances = std::vector<Instance>; // the innermost last

    void Enter(HtmlNodeId element);
    void Leave(HtmlNodeId element);
    void Change(const CssBoxStyle& style, HtmlNodeId scope);
    void AddTexts(HtmlNodeId element, CssStyle style, GeneratedPlace place);
    std::u16string TextOf(const CssContentItem& item) const;

    using Counters = std::map<std::u16string, Instances, std::less<>>;
    struct Opened {
        HtmlNodeId scope;
        Counters::iterator counter;
    };
    void Begin(Counters::iterator counter, HtmlNodeId scope, int value);

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    Counters counters_;          // those that have an instance
    std::vector<Opened> opened_; // instances in the order in which they began
    std::map<std::pair<HtmlNodeId, const CssContentItem*>, std::u16string> texts_[2];
    std::size_t units_ = 0; // of all texts
    std::size_t steps_ = 0;
};
