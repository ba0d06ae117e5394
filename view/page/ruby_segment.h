// Bases of a ruby and the annotations that stand above them.
#pragma once

#include "formats/css/css_page_styles.h"
#include "view/page/page_weights.h"

// Nodes within a ruby, one after the other: bases from `first` on, and annotations up to `after`,
// which is after the last one in document order.
struct RubySegment {
    HtmlNodeId first = noHtmlNode;
    HtmlNodeId annotation = noHtmlNode; // the first one; none: there are only bases to the end
    HtmlNodeId next = noHtmlNode;       // what follows in the ruby
    HtmlNodeId after = noHtmlNode;
    PageWeight weight = 0;
};

RubySegment RubySegmentFrom(const HtmlTree& tree, const CssPageStyles& styles, HtmlNodeId first);

// Whether it is short and of text, so that it can be kept together in a line.
bool IsRubyWord(const HtmlTree& tree, const CssPageStyles& styles, RubySegment& segment);
