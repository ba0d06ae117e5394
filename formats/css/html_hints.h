// What the old attributes of HTML say of style: the "presentational hints" of the HTML Standard,
// Rendering. They count as an author's rules of no specificity, before all others.
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

class HtmlHints {
  public:
    explicit HtmlHints(const HtmlTree& tree);
    // Adds those of an element, some of which stand at elements around it.
    void Read(HtmlNodeId element, CssBlock& block) const;

  private:
    void ReadBody(const HtmlNode& node, CssBlock& block) const;
    void ReadTable(const HtmlNode& node, CssBlock& block) const;
    void ReadCell(HtmlNodeId element, CssBlock& block) const;
    void ReadTableEdges(const HtmlNode& table, CssBlock& block) const;
    void ReadCellEdges(const HtmlNode& table, CssBlock& block) const;
    void ReadRowEdges(HtmlNodeId row, CssBlock& block) const; // of a group of rows, too
    HtmlNodeId TableOf(HtmlNodeId cell) const;

    const HtmlTree& tree_;
    std::u16string_view linkColor_; // of `body`
    // Attributes that nothing but this speaks of.
    HtmlName topMargin_, rightMargin_, bottomMargin_, leftMargin_, marginHeight_, marginWidth_,
        borderColor_, frame_, rules_;
};
