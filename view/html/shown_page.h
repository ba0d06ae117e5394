// A page styled and laid out for a window: made again for another resolution, zoom or colour, and
// for another size where its style sheets ask for that.
#pragma once

#include "formats/css/css_reading.h"
#include "view/html/loaded_page.h"
#include "view/html/page_files.h"
#include "view/html/page_pictures.h"
#include "view/page/page_flow.h"
#include "view/page/page_text.h"

#include <optional>

struct PageRenderOptions {
    double scale = 1;                      // device pixels of one of CSS
    double dpi = 96;                       // that the line layout has
    Size viewport;                         // device pixels
    std::optional<Color> text, background; // of the body, in place of its own
    bool onPaper = false;                  // where one cannot scroll to the side
    bool operator==(const PageRenderOptions&) const = default;
};

// The texts of the style sheets that a page asks for, in their order.
std::vector<std::u16string> PageSheets(const LoadedPage& page, const PageFiles& files,
                                       const CssMedium& medium = {});

class ShownPage {
  public:
    // All references must outlive this object.
    ShownPage(const LoadedPage& page, const std::vector<std::u16string>& sheets,
              PagePictures& pictures, LineLayout& lines, const PageRenderOptions& options);

    const PageRenderOptions& Options() const { return options_; }
    // In place of the body's own, without styling and measuring the page again. False where other
    // elements follow it.
    bool SetBackground(Color color);
    const CssPageStyles& Styles() const { return styles_; }
    const PageBoxes& Boxes() const { return boxes_; }
    PageFlow& Flow() { return flow_; }
    PageFonts& Fonts() { return fonts_; }
    // The box of lines that a node's text stands in, or that an element makes; nothing for what is
    // not shown.
    PageBoxId BoxOf(HtmlNodeId node, std::size_t unit = 0) const;

    Color CanvasColor() const; // after everything; white where the page says nothing
    Color BodyColor() const;   // after the body's text
    Color TextColor() const;   // of the body
    double TopMargin() const;  // of the body with its border; device pixels

  private:
    static CssPageStyles StylesOf(const LoadedPage& page, const std::vector<std::u16string>& sheets,
                                  const PageRenderOptions& options, std::vector<CssSheet>& read);

    const LoadedPage& page_;
    PageRenderOptions options_;
    std::vector<CssSheet> sheets_;
    CssPageStyles styles_;
    PageBoxes boxes_;
    PageFonts fonts_;
    PageText text_;
    PageLayouter layouter_;
    PageFlow flow_;
};
