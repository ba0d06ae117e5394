// Writes the text of a block's lines as they show it: white space as its style says, each stretch
// in its style and with the node that it is from (CSS Text 3, 4.1).
#pragma once

#include "formats/html/html_tree.h"
#include "view/page/inline_content.h"
#include "view/page/page_fonts.h"
#include "view/page/text_raise.h"

#include <memory>
#include <string_view>

class InlineWriter {
  public:
    // The style is the block's.
    InlineWriter(PageFonts& fonts, const CssInheritedStyle& style);

    InlineContent& Content() { return *content_; }
    TextPos Length() const { return TextPos(content_->text.text.size()); }
    // Whose text is written; of none, it is none of the page's.
    void SetNode(HtmlNodeId node) { node_ = node; }

    // From a unit on.
    void AddText(std::u16string_view text, const CssInheritedStyle& style, const TextPlace& place,
                 std::size_t from = 0);
    void AddBreak(std::size_t unit);
    void AddControls(std::u16string_view controls);
    // What the start or the end of an element takes in its line, in device pixels.
    void AddGap(int width, bool isStart);
    // The unit of a box that stands in the line, and no line breaks on a side where it is joined.
    // Returns where the unit is.
    TextPos AddObject(const CssInheritedStyle& block, HtmlNodeId node, bool joinsBefore,
                      bool joinsAfter);
    bool WrapsIn(const CssInheritedStyle& style) const;
    std::shared_ptr<InlineContent> Finish();

  private:
    std::u16string& Text() { return content_->text.text; }
    void AddUnit(char16_t shown, std::size_t unit);
    void AddLetter(char16_t unit, std::size_t number, const CssInheritedStyle& style,
                   const TextPlace& place);
    void StartRun(const CssInheritedStyle& style, const TextPlace& place, bool smallCapital);
    void AddSpace(std::size_t unit, bool wraps);
    void AddOwnUnit(char16_t unit);
    void ChangeBreak(char16_t next);
    void JoinWords(char16_t next);
    void Hide(TextPos start);
    void RemoveTrailingSpace();
    void RemoveControlsAfterBreak();

    PageFonts& fonts_;
    std::shared_ptr<InlineContent> content_ = std::make_shared<InlineContent>();
    HtmlNodeId node_ = noHtmlNode;
    bool whiteSpaceEnds_ = true; // collapsible: at the start, after a space or a break
};
