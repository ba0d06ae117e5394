// The flow of blocks from top to bottom (CSS 2.1, 9.4.1): margins that meet, and floats.
//
// It can begin after any box that is not empty, because heights above it decide about nothing
// below but floats.
#pragma once

#include "view/page/collapsed_margin.h"
#include "view/page/page_layouter.h"
#include "view/page/side_boxes.h"

#include <utility>

class BlockFlow {
  public:
    // Within a box whose content has this room. The flow begins at height 0.
    // Boxes out of the flow stand between `positioned` where nothing in the container says more.
    BlockFlow(PageLayouter& layouter, PageBoxId container, InlineEdges room, PageFragment& result,
              std::optional<InlineEdges> positioned = {});

    // Goes on after a leaf whose border ends at height 0: one with text or a size of its own, or
    // one that was broken after below floats.
    void StartAfter(PageBoxId leaf);
    // All that is in the container.
    void LayOutContent();
    // Lays out the boxes from one to another that is after it; both in the container.
    void LayOut(PageBoxId from, PageBoxId end);
    // Boxes out of the flow that stand elsewhere.
    void LeaveOut(std::vector<PageBoxId> boxes) { leftOut_ = std::move(boxes); }
    // Puts a box of later text beside what was laid out, below the top of a box that is open. False
    // where there is no room for it.
    bool PlaceBeside(const SideBox& side);
    // Ends the boxes that are open, and goes below all floats.
    void Finish();
    // Ends the fragment with boxes open, below all floats or where its last leaf ends.
    void Break(bool belowFloats);

    double Bottom() const { return top_; } // without the last margin

  private:
    struct OpenBlock {
        PageBoxId box = noPageBox;
        InlineEdges room; // of the content
        int placed = -1;  // in the result's boxes
        double insetBelow = 0;
        double contentTop = 0;        // once something stands in it
        bool hasInsetAbove = false;   // its content begins below a border or padding
        bool beginsAbove = false;     // of the result
        BoxMeasure::Shift shift = {}; // of what is within it
        FragmentMark from = {};       // what is within it
    };

    // The padding box that a box out of the flow is placed relative to.
    struct PositionedRoom {
        InlineEdges sides;
        std::optional<double> top, height; // nothing: not known here
        bool isPage = false;
    };

    // Of a border box.
    struct SidePlace {
        PageFragmentPtr fragment;
        double left = 0, top = 0;
    };

    // Lines without text, whose floats stand where the margins end that meet around them.
    struct WaitingFloats {
        PageBoxId lines = noPageBox;
        InlineEdges room;
    };

    void Open(PageBoxId box);
    void Close();
    void LayOutLeaf(PageBoxId id);
    void LayOutLines(PageBoxId box);
    void PlaceFloats(double top);
    double AddLines(PageBoxId box, InlineEdges room, LinesContent content, InlineLayout layout);
    double AddPositioned(const LinesContent& content, const InlineLayout& layout, InlineEdges room);
    std::optional<SidePlace> PlaceOfPositioned(PageBoxId id, std::size_t open);
    std::optional<SidePlace> PlaceOfSibling(const SideBox& side, std::size_t open);
    PageFragmentPtr LayOutPositioned(PageBoxId id, const InlineEdges& page);
    double LeftOf(const CssBoxStyle& style, const InlineEdges& page, double width,
                  double inText) const;
    PositionedRoom RoomOfPositioned(const CssBoxStyle& style) const;
    PositionedRoom RoomIn(std::size_t open) const;
    std::optional<double> TopOf(const CssBoxStyle& style, const PositionedRoom& room,
                                double boxHeight) const;
    bool IsAbovePage(const CssBoxStyle& style, const PositionedRoom& room, double boxHeight) const;
    FloatRect SeenPart(const CssBoxStyle& style, FloatRect box, double containing) const;
    FloatRect BelowWhatItCovers(const CssBoxStyle& style, FloatRect box, double containing) const;
    FloatRect PlaceOf(const CssBoxStyle& style, const PositionedRoom& room, const FloatRect& inText,
                      const InlineLayout& layout) const;
    bool IsClear(const InlineEdges& content, double height) const;
    void AddMarker(const InlineLine& firstLine);
    void AddByItself(PageBoxId id);
    std::optional<InlineEdges> RoomBesideFloats(PageBoxId id);
    PageFragmentPtr LayOutAlone(PageBoxId id, const BoxEdges& edges);
    void BeforeClear(const CssBoxStyle& style);
    void ClearFloats(const CssBoxStyle& style);
    void AddMarginAbove(const CssBoxStyle& style, double containing);
    void AddMarginBelow(const CssBoxStyle& style, double containing);
    void EndMargin();
    // No margin to come moves the block that is open: something stands in it.
    bool IsSettled() const { return settled_ >= open_.size(); }
    int Place(PageBoxId box, const InlineEdges& border);
    OpenBlock OpenedBlock(PageBoxId id, const InlineEdges& content, FragmentMark from) const;
    void MoveRelative(const OpenBlock& block);
    BoxEdges EdgesOf(PageBoxId box) const;

    PageLayouter& layouter_;
    const PageBoxId container_;
    PageFragment& result_;
    const std::optional<InlineEdges> positioned_;
    FloatContext floats_;
    std::vector<OpenBlock> open_; // the container first
    std::vector<int> topless_;    // placed boxes that begin where the margin ends
    std::vector<WaitingFloats> waiting_;
    std::vector<PageBoxId> leftOut_;
    std::size_t markerAt_ = 0; // of the open item of a list that has no line yet; 0 for none
    CollapsedMargin margin_;
    double positionedBottom_ = 0; // of boxes out of the flow that others are kept clear of
    bool beginsAbove_ = false;    // the container, of the result
    std::size_t settled_ = 0;     // open blocks in which something stands, the container first
    bool dropsQuirky_;            // nothing stands yet in a cell or in the page
    double top_ = 0;
};
