// The boxes of a page while they are made: those that are open, each within the one before.
#pragma once

#include "formats/css/css_page_styles.h"
#include "view/page/page_box.h"
#include "view/page/page_weights.h"

#include <vector>

class PageBoxStack : public PageNumbers {
  public:
    PageBoxStack(const HtmlTree& tree, const CssPageStyles& styles, const PageWeights& weights);

    const PageBoxes& Boxes() const { return boxes_; }
    const PageBox& operator[](PageBoxId id) const { return boxes_[id]; }
    PageBoxId Next() const { return boxes_.End(); }
    bool IsEmpty() const { return open_.empty(); }
    PageBox& Top() { return boxes_.boxes_[TopId()]; }
    PageBoxId TopId() const { return open_.back().id; }
    PageWeight& Weight() { return open_.back().weight; }
    PageWeight& WeightWithin() { return open_.back().within; }

    void Open(PageBoxKind kind, HtmlNodeId node);
    void Close();
    // A word with an annotation, and either of them: from a node up to another, in a style.
    void OpenRuby(PageBoxKind kind, HtmlNodeId first, HtmlNodeId after, CssStyle style);
    // Of what stands before or after what is in the node: lines, or an empty block.
    void OpenGenerated(HtmlNodeId node, CssStyle style, GeneratedPlace place);
    // One that `content` puts beside what is in the node.
    void AddGeneratedPicture(HtmlNodeId node, CssStyle style, const CssContentItem& item);
    // `letter` is of the text; in lines of its own if its style floats.
    void AddFirstLetter(HtmlNodeId text, const PageFirstLetter& letter, CssStyle style);
    // The box that the node is in, when it makes none of its own.
    void SetBoxOf(HtmlNodeId node) { boxes_.boxOfNode_[node] = TopId(); }
    void MakeTopCanvas() { boxes_.canvas_ = TopId(); }
    bool IsInLongTable() const;
    // Whether the texts in the box that is open are longer.
    bool HasMoreUnits(std::uint32_t units) const;
    // A block of nothing but text is the box of its lines.
    void FoldLines();
    void SetStyle(PageBoxId box, const CssBoxStyle& style);
    void CollapseBorders(PageBoxId table);
    PageBoxes Take() { return std::move(boxes_); }

  private:
    struct OpenBox {
        PageBoxId id = noPageBox, lastChild = noPageBox;
        PageWeight weight = 0; // of lines
        PageWeight within = 0; // in the boxes of these lines
    };

    void Push(PageBox box);
    std::optional<int> Number(PageBoxId box, HtmlName attribute) override;

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageWeights& weights_;
    PageBoxes boxes_;
    std::vector<OpenBox> open_;
};
