// Reads the text of a block's lines from the page's elements, in document order.
#pragma once

#include "view/page/generated_text.h"
#include "view/page/inline_writer.h"
#include "view/page/page_layouter.h"

// An edge of an inline box: on these lines, or on others of the block.
enum class InlineEdge : std::uint8_t { Here, Elsewhere };

class LinesReader {
  public:
    // The arguments must outlive this object.
    LinesReader(const HtmlTree& tree, const CssPageStyles& styles, const PageBoxes& boxes,
                PageFonts& fonts, PageBoxId lines);

    LinesText Read();
    // The same with the styles that texts have in the block's first line.
    std::shared_ptr<const InlineFirstLine> ReadFirstLine(CssStyle firstLine);
    // Of the block that the lines begin; its `box` is null where no rule is of it.
    CssStyle FirstLineStyle() const;

  private:
    void ReadAll();
    const CssInheritedStyle& StyleIn(HtmlNodeId element);
    void ReadFrom(HtmlNodeId id);
    void AddUpTo(HtmlNodeId text, std::size_t from, std::size_t end);
    void AddUnits(HtmlNodeId text, std::size_t from, std::size_t end);
    void AddFirstLetter(HtmlNodeId text, const PageFirstLetter& letter);
    bool Enter(HtmlNodeId id);
    void Leave(HtmlNodeId element, HtmlNodeId next);
    void AddControls(std::u16string_view controls);
    void AddClear(CssClear clear);
    void AddSide(const CssBoxStyle& style, CssSide side);
    void OpenAround(HtmlNodeId node);
    void OpenDecoration(HtmlNodeId element, CssStyle style, InlineEdge start,
                        const TextPlace& place);
    void CloseDecoration(HtmlNodeId element, InlineEdge end);
    void AddBox();
    void AddRuby();
    bool IsRubyAt(HtmlNodeId id) const;
    char16_t FirstUnit(HtmlNodeId from, HtmlNodeId after) const;
    char16_t LastUnit(HtmlNodeId from, HtmlNodeId after) const;
    void AddMarker();
    void AddGenerated(CssStyle style, HtmlNodeId element, GeneratedPlace place);
    void AddContent(CssStyle style, HtmlNodeId element, GeneratedPlace generatedPlace,
                    const TextPlace& place);
    TextPlace PlaceOf(HtmlNodeId element);
    TextPlace PlaceWithin(HtmlNodeId element, CssStyle style);
    bool IsInline(HtmlNodeId element) const;

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageBoxes& boxes_;
    PageFonts& fonts_;
    const PageBoxId id_;
    const PageBox& lines_;
    const GeneratedText generated_;
    InlineWriter writer_;
    std::vector<LinesText::Place> places_;
    struct OpenElement {
        HtmlNodeId element = noHtmlNode; // none: what is generated in one
        std::size_t decoration = 0;      // of the content's
    };
    std::vector<OpenElement> open_;
    const CssInheritedStyle* firstLine_ = nullptr; // that is read
    HtmlNodeId container_ = noHtmlNode;            // the element that the lines are in
    Color background_ = 0;                         // behind them
    PageBoxId nextBox_ = noPageBox;
};
