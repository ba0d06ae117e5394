// Lays out boxes of a page that are by themselves, and what a flow asks for on its way.
#pragma once

#include "view/geometry.h"
#include "view/page/box_edges.h"
#include "view/page/flex_sizes.h"
#include "view/page/page_fragment.h"

#include <optional>
#include <unordered_map>

// The text of a block of lines, and where in it its boxes stand.
struct LinesText {
    struct Place {
        TextPos at = 0;
        PageBoxId box = noPageBox;
        bool hasUnit = false; // it stands in the line like a letter
    };
    // Without atoms and floats. Its boxes are gaps that stand for none of the page's.
    std::shared_ptr<InlineContent> content;
    std::vector<Place> boxes; // ascending
};

// The same with its boxes laid out. Each part is at its place in its margins, to which that of the
// margin box is added.
struct LinesContent {
    std::shared_ptr<InlineContent> content;
    std::vector<PlacedPart> atoms, floats;    // in the order of the content's
    std::vector<LinesText::Place> positioned; // boxes that take no room
};

// What the layout asks of those who know the page's text, fonts and pictures.
class PageContent : public PageNumbers {
  public:
    virtual LinesText TextOf(PageBoxId lines) = 0;
    // What stands before an item of a list, outside of its text; null for nothing.
    virtual std::shared_ptr<const InlineContent> MarkerOf(PageBoxId item) = 0;
    // In CSS pixels; empty if it cannot be read.
    virtual Size PictureSize(PageBoxId picture) = 0;
    // What stands for a picture that cannot be shown; null where the page does not say.
    virtual std::shared_ptr<const InlineContent> AlternativeOf(PageBoxId picture) = 0;
};

class PageLayouter {
  public:
    // The arguments must outlive this object.
    PageLayouter(const PageBoxes& boxes, PageContent& content, LineLayout& lines, double scale)
        : boxes_(boxes), content_(content), lines_(lines), measure_(scale) {}

    const PageBoxes& Boxes() const { return boxes_; }
    const PageBox& Box(PageBoxId id) const { return boxes_[id]; }
    const BoxMeasure& Measure() const { return measure_; }
    LineLayout& Lines() { return lines_; }
    PageContent& Content() { return content_; }

    // All without margins; `containing` is the width that percentages are of.
    // As wide as its content within that width, or as its style says.
    PageFragmentPtr LayOutShrunk(PageBoxId id, double containing);
    // A box out of the flow, with its margins no wider than `available` unless its style says so.
    PageFragmentPtr LayOutPositioned(PageBoxId id, double containing, double available);
    // With a content of this width.
    // Boxes out of the flow whose containing block is around this one stand between `positioned`,
    // measured from the left edge of the border; without it within the content.
    PageFragmentPtr LayOutBlock(PageBoxId id, double contentWidth, double containing,
                                std::optional<InlineEdges> positioned = {});
    PageFragmentPtr LayOutPicture(PageBoxId id, double containing);
    LinesContent ContentOf(PageBoxId lines, double containing);

    // A block in the flow, also one whose width follows from its content. `around` is the box that
    // it stands in, with this room.
    BoxEdges EdgesInFlow(PageBoxId id, PageBoxId around, InlineEdges room);

    // The widths that the parts of a table have in common; empty when they are not known yet. Kept
    // for the last table and width alone.
    std::vector<double>& SharedColumns(HtmlNodeId table, double available);

    // Of the content.
    WidthExtent ContentExtent(PageBoxId id);
    WidthExtent LinesExtent(PageBoxId lines);
    // What is taken for it of an item that is too long to be measured.
    WidthExtent LongItemExtent(PageBoxId id) const;
    // Of the margin box, of which percentages are nothing.
    WidthExtent ExtentOfBox(PageBoxId id);

  private:
    BoxEdges EdgesOfLong(PageBoxId id, const CssInheritedStyle& around, InlineEdges room);
    double AddLegend(PageBoxId legend, double left, double contentWidth, PageFragment& fieldset);
    double IndentOf(PageBoxId lines, double containing) const;
    Size PictureContentSize(PageBoxId id, const CssBoxStyle& style, double containing);
    Size LimitPicture(const CssBoxStyle& style, double containing, double width,
                      double height) const;
    PlacedImage PlacedWithin(PageBoxId id, double left, double top, Size size);
    WidthExtent PictureExtent(PageBoxId id);
    Size AlternativeSize(PageBoxId id, double containing, const InlineContent& alternative);
    void AddAlternative(PageBoxId id, double left, double top, Size size,
                        std::shared_ptr<const InlineContent> alternative, PageFragment& fragment);
    double WidthByContent(const CssLength& length, PageBoxId id, double room);
    double ContentHeight(const PageBox& box, const PageFragment& content, double natural,
                         double containing) const;
    double RaiseOf(const PageBox& box, const InlineContent& lines) const;
    PlacedPart PartOf(PageBoxId id, double containing); // at its place in its margins
    void ShiftRelative(PageBoxId id, double containing, PlacedPart& part) const;
    void AddAtom(const LinesText::Place& place, double containing, LinesContent& content);
    void AddFloat(const LinesText::Place& place, double containing, LinesContent& content);

    const PageBoxes& boxes_;
    PageContent& content_;
    LineLayout& lines_;
    BoxMeasure measure_;
    // Of contents: boxes in boxes ask again and again.
    std::unordered_map<PageBoxId, WidthExtent> extents_;
    struct {
        HtmlNodeId table = noHtmlNode;
        double available = 0;
        std::vector<double> widths;
    } columns_;
};

bool HasVisibleBox(const PageBox& box); // a background or a border
