// The boxes of a page (CSS 2.1, 9.2 and 17.2): what is laid out, without places.
//
// They are numbered in document order, so that what is within a box follows it.
#pragma once

#include "formats/css/css_pool.h"
#include "formats/css/css_style.h"
#include "formats/html/html_tree.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

using PageBoxId = std::uint32_t;
constexpr PageBoxId noPageBox = 0, rootPageBox = 1;

enum class PageBoxKind : std::uint8_t {
    Block, // of blocks alone; may be empty
    Lines, // of text, or of floats alone; its boxes are the floats, pictures and blocks in it
    Picture,
    Table,   // of captions, columns, row groups
    Caption, // a block
    Columns,
    Column,
    RowGroup,
    Row,
    Cell, // a block
    Ruby, // of base and annotation, each of them Lines; it stands in a line
};

// Where content that a style generates stands beside what is in its element.
enum class GeneratedPlace : std::uint8_t { None, Before, After };

class PageCounters;

struct PageBox {
    PageBoxKind kind = PageBoxKind::Block;
    bool hasText = false;       // of Lines: it has a line
    bool hasFloats = false;     // of Lines
    bool isFirstLetter = false; // of Lines: they are a floating first letter of those around
    GeneratedPlace generatedPlace = GeneratedPlace::None; // a box of generated content
    bool isTooLong = false;                               // to be laid out by itself
    // The first box in a fieldset is a legend in the line of its border, if it is a block.
    bool isFieldset = false, isLegend = false;
    bool dropsQuirkyMargins = false; // a cell, or the page's body, in quirks mode
    // Lines or a table that is too long are several, one after the other: not the first of them;
    // of tables also not the last one.
    bool continues = false, isContinued = false;
    HtmlNodeId node = noHtmlNode; // none: an anonymous box
    PageBoxId parent = noPageBox, nextSibling = noPageBox;
    PageBoxId end = noPageBox;                         // after the last one within it
    HtmlNodeId first = noHtmlNode, after = noHtmlNode; // of Lines: the nodes, in document order
    // Units of these two, if they are texts that are divided: the first one's from there on, the
    // other one's up to there.
    std::uint32_t firstUnit = 0, afterUnit = 0;
    std::uint32_t units = 0; // of the texts of Lines, as they are written
    std::int32_t number = 0; // of a list's item
    const CssInheritedStyle* text = nullptr;
    const CssBoxStyle* style = nullptr;
    // Of a Picture that stands before or after what is in its node; null: the node is the picture.
    const CssContentItem* generated = nullptr;
};

// Such as a list of chapters at a side of the window.
bool IsFixedBeside(const CssBoxStyle& style);

// It takes no room where it stands. What else a page fixes to the window stands in its text here,
// where nothing covers anything.
inline bool IsOutOfFlow(const CssBoxStyle& style) {
    return style.position == CssPosition::Absolute || IsFixedBeside(style);
}

// Its style says how high it stands.
inline bool HasVerticalInset(const CssBoxStyle& style) {
    return !style.inset[cssTop].IsAuto() || !style.inset[cssBottom].IsAuto();
}

// Boxes of other kinds, such as cells, are laid out as what they are.
inline bool IsFlexContainer(const PageBox& box) {
    return box.style->innerLayout == CssInnerLayout::Flex && box.kind == PageBoxKind::Block;
}

inline bool IsGridContainer(const PageBox& box) {
    return box.style->innerLayout == CssInnerLayout::Grid && box.kind == PageBoxKind::Block;
}

// Not of the element itself, but of what stands before or after what is in it.
inline bool IsGenerated(const PageBox& box) {
    return box.generated || box.generatedPlace != GeneratedPlace::None;
}

inline bool IsHidden(const PageBox& box) {
    return box.text->visibility != CssVisibility::Visible;
}

// Attributes of elements that are numbers.
class PageNumbers {
  public:
    virtual ~PageNumbers() = default;
    virtual std::optional<int> Number(PageBoxId box, HtmlName attribute) = 0; // nothing for none
};

// The first letter of a block that has a style for it: units of a text.
struct PageFirstLetter {
    HtmlNodeId block = noHtmlNode;
    std::uint32_t start = 0, end = 0;
};

class PageBoxes {
  public:
    const PageBox& operator[](PageBoxId id) const { return boxes_[id]; }
    std::size_t Count() const { return boxes_.size() - 1; }
    PageBoxId End() const { return PageBoxId(boxes_.size()); }
    bool IsEmpty(PageBoxId id) const { return boxes_[id].end == id + 1; }
    PageBoxId FirstChild(PageBoxId id) const {
        return id + 1 < boxes_[id].end ? id + 1 : noPageBox;
    }
    // That an element makes, or that a line break or a unit of a text stands in; none for what is
    // not shown and for elements within lines. Of a table in parts the first.
    PageBoxId BoxOf(HtmlNodeId node, std::size_t unit = 0) const {
        PageBoxId box = boxOfNode_[node];
        for (PageBoxId next = boxes_[box].nextSibling; GoesOn(next, node, unit);
             next = boxes_[box].nextSibling)
            box = next;
        return box;
    }

    // Null for a text without one.
    const PageFirstLetter* FirstLetterIn(HtmlNodeId text) const {
        const auto found = firstLetters_.find(text);
        return found == firstLetters_.end() ? nullptr : &found->second;
    }

    // The box whose background is that of all the canvas, and not its own: the root, or the page's
    // body where the root has none (CSS 2.1, 14.2).
    PageBoxId CanvasBox() const { return canvas_; }
    const PageCounters& Counters() const { return *counters_; }
    CssColor CanvasBackground() const { return boxes_[canvas_].style->background; }
    // Of the boxes that an element makes, but not of what is generated in it.
    void SetBackground(HtmlNodeId element, CssColor color);

  private:
    friend class PageBoxStack;
    bool GoesOn(PageBoxId next, HtmlNodeId node, std::size_t unit) const {
        const PageBox& box = boxes_[next];
        return box.continues && box.first == node && box.firstUnit > 0 && box.firstUnit <= unit;
    }

    PageBoxId canvas_ = rootPageBox;
    std::vector<PageBox> boxes_{1}; // the first stands for the window: around the root
    std::vector<PageBoxId> boxOfNode_;
    std::unordered_map<HtmlNodeId, PageFirstLetter> firstLetters_;
    std::shared_ptr<const PageCounters> counters_;
    // Those that differ from their elements'.
    std::shared_ptr<CssPool<CssBoxStyle>> styles_ = std::make_shared<CssPool<CssBoxStyle>>();
};
