// Items of a flex or grid container, each laid out by itself.
#pragma once

#include "formats/css/css_rare_style.h"
#include "view/page/page_layouter.h"

class ItemLayout {
  public:
    // With a content of this width; see PageLayouter::LayOutBlock for `positioned`.
    ItemLayout(PageLayouter& layouter, PageBoxId container, double width,
               std::optional<InlineEdges> positioned)
        : layouter_(layouter), container_(container), width_(width), positioned_(positioned) {}

    std::vector<PageBoxId> Items() const;
    CssAlignItems Alignment(PageBoxId item) const; // never `auto`
    double Sides(PageBoxId item) const;            // margins, borders and paddings
    // Whether it may be narrower than its content: one that says how narrow it may be, or that
    // may scroll (CSS Flexible Box Layout 4.5, CSS Grid Layout 6.6).
    bool MayBeNarrow(PageBoxId item) const;

    // Lengths are of margin boxes. A picture has its own width.
    PageFragmentPtr LayOut(PageBoxId item, double left, double width);
    double Width(PageBoxId item, const PageFragment& fragment) const;
    double Height(PageBoxId item, const PageFragment& fragment) const;
    // As high as that, where nothing says another height.
    PageFragmentPtr StretchedTo(PageBoxId item, PageFragmentPtr fragment, double height) const;
    void Place(PageBoxId item, PageFragmentPtr fragment, double left, double top,
               PageFragment& result) const;

  private:
    PageFragmentPtr Shared(const PageFragment& content, double free) const;
    void ShareInRow(const std::vector<PageBoxId>& items, double free,
                    std::vector<PlacedPart>& parts) const;
    void ShareInColumn(const std::vector<PageBoxId>& items, double free,
                       std::vector<PlacedPart>& parts) const;
    std::optional<InlineEdges> PositionedFrom(const PageBox& box, double left) const;
    const CssBoxStyle& StyleOf(PageBoxId id) const { return *layouter_.Box(id).style; }

    PageLayouter& layouter_;
    const PageBoxId container_;
    const double width_;
    const std::optional<InlineEdges> positioned_;
};
