// The text of a page as its lines show it: white space as its style says, generated text, line
// breaks; each stretch in its style (CSS Text 3, 4.1).
#pragma once

#include "formats/css/css_page_styles.h"
#include "view/page/page_fonts.h"
#include "view/page/page_layouter.h"

#include <functional>

class PageText : public PageContent {
  public:
    // The arguments must outlive this object.
    PageText(const HtmlTree& tree, const CssPageStyles& styles, const PageBoxes& boxes,
             PageFonts& fonts)
        : tree_(tree), styles_(styles), boxes_(boxes), fonts_(fonts) {}

    LinesText TextOf(PageBoxId lines) override;
    Size PictureSize(PageBoxId picture) override;
    std::shared_ptr<const InlineContent> AlternativeOf(PageBoxId picture) override;
    std::shared_ptr<const InlineContent> MarkerOf(PageBoxId item) override;
    std::optional<int> Number(PageBoxId box, HtmlName attribute) override;

    // In CSS pixels.
    std::function<Size(const PageBox&)> pictureSize;

  private:
    std::shared_ptr<InlineContent> PlainContent(PageBoxId id, std::u16string_view text);

    const HtmlTree& tree_;
    const CssPageStyles& styles_;
    const PageBoxes& boxes_;
    PageFonts& fonts_;
};
