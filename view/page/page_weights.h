// How much of a page each element is, before any of it has been laid out; and what is laid out in
// one go. A page that keeps within these limits looks as CSS says. Of what exceeds one, all text is
// still there and in order.
//
// The weight of a text is its units; each element adds what its box costs against a letter. Systems
// lay out some million units in a second.
#pragma once

#include "formats/css/css_page_styles.h"

#include <vector>

using PageWeight = std::uint32_t;
constexpr PageWeight elementWeight = 32;

struct PageLimits {
    // What stands by itself: a table, a float, a block in a line, one that keeps floats in. A block
    // beyond it is an ordinary block of the flow; a table beyond it, see below. A table of four
    // columns has some 1,500 rows.
    PageWeight whole = 256 * 1024;
    // Of the text of one paragraph. The text beyond continues in a new line, after a line break if
    // one is near, else after a space.
    PageWeight lines = 32 * 1024;
    // From there on it ends after the next line break, where that is not to be seen.
    PageWeight PreferredLines() const { return lines / 4 * 3; }
    // Rows that are laid out together of a table that is too long. All have the same columns, whose
    // widths are those that some of the rows ask for. Such a table is divided where no cell spans
    // rows, or by force at four times the weight; captions, heads and feet stay where they are
    // written. If a single row is too long, all cells are blocks one below the other.
    PageWeight rows = 64 * 1024;
};
// A float or a block in a line, in the weight of those lines: each breaks what follows again.
constexpr PageWeight boxInLinesWeight = 256;
// A word with an annotation above it: two lines of their own, that nothing else waits for.
constexpr PageWeight rubyWeight = 64;
// An element within a line, with text of its own in a font of its own.
constexpr PageWeight inlineElementWeight = 16;
// Of each piece of generated text, in units; the rest is not shown. Sheets have some words.
constexpr std::size_t maxGenerated = 4096;

// Of what is shown of each node, with all that is in it.
class PageWeights {
  public:
    // The arguments are not kept.
    PageWeights(const HtmlTree& tree, const CssPageStyles& styles, PageWeight whole);

    PageWeight Of(HtmlNodeId node) const { return weights_.empty() ? 0 : weights_[node]; }
    bool IsTooLong(HtmlNodeId node) const { return Of(node) > whole_; }

  private:
    PageWeight whole_;
    std::vector<PageWeight> weights_; // by node; none for a page that is not too long
};
