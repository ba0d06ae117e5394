// The boxes of lines of a page while they are made: where lines begin and end, and where those that
// are too long are divided.
#pragma once

#include "view/page/page_box_stack.h"

class LinesBuilder {
  public:
    LinesBuilder(const HtmlTree& tree, const CssPageStyles& styles, const PageLimits& limits,
                 PageBoxStack& boxes)
        : tree_(tree), styles_(styles), limits_(limits), boxes_(boxes) {}

    bool IsOpen() const {
        return !boxes_.IsEmpty() && boxes_[boxes_.TopId()].kind == PageBoxKind::Lines;
    }
    // They begin with this node, unless they have begun.
    PageBox& Open(HtmlNodeId node);
    // They end before this node.
    void Close(HtmlNodeId after);

    // The next text begins with a block's first letter, which has a style of its own.
    void ExpectFirstLetter(HtmlNodeId block) { letterOf_ = block; }
    HtmlNodeId FirstLetterOf() const { return letterOf_; }
    void ForgetFirstLetter() { letterOf_ = noHtmlNode; }

    void AddText(HtmlNodeId id);
    void AddBreak(HtmlNodeId element);
    // A float or a block that stands in them, with so much in it.
    void AddBox(HtmlNodeId element, const CssBoxStyle& style, PageWeight within);
    // A word with an annotation, that begins with the node.
    void AddRuby(HtmlNodeId first, PageWeight within);
    // The start of an element, whose text follows.
    void AddInline(HtmlNodeId element);
    // Text before or after what is in an element.
    void AddGenerated(CssStyle style, HtmlNodeId first);
    // Pictures there, once the lines are read up to them.
    void AddGeneratedPictures(CssStyle style, HtmlNodeId element);
    // Whether the text makes no line by itself.
    bool IsEmptyText(HtmlNodeId text) const;

  private:
    void Divide(HtmlNodeId after, std::uint32_t unit);
    void MakeRoom(HtmlNodeId node, PageWeight weight);
    std::size_t TextEnd(std::u16string_view text, std::size_t at, CssWhiteSpace whiteSpace) const;
    std::size_t RoomFor(std::u16string_view text) const;
    void AddFirstLetter(HtmlNodeId id);
    void AddUnits(std::size_t units);
    bool IsLong() const { return boxes_.Weight() > limits_.PreferredLines(); }

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageLimits& limits_;
    PageBoxStack& boxes_;
    HtmlNodeId letterOf_ = noHtmlNode;
    bool continues_ = false; // the next lines are of those before
};
