#include "view/html/shown_page.h"

#include "formats/css/css_parser.h"
#include "formats/css/css_sheet_loader.h"
#include "view/page/page_box_builder.h"
#include "view/page/page_repairs.h"

#include <algorithm>
#include <cstdio>

namespace {
constexpr std::uint64_t maxSheetBytes = 16 << 20; // of a file

CssReading ReadingOf(const LoadedPage& page, const PageRenderOptions& options) {
    CssReading reading;
    reading.medium.viewportWidth = float(options.viewport.width / options.scale);
    reading.medium.viewportHeight = float(options.viewport.height / options.scale);
    reading.medium.isPrint = options.onPaper;
    reading.quirks = page.Tree().Quirks() == HtmlQuirks::Full;
    return reading;
}

std::u16string Declaration(std::u16string_view property, std::optional<Color> color) {
    if (!color) return {};
    char digits[8];
    std::snprintf(digits, sizeof digits, "%02x%02x%02x", *color & 0xFF, *color >> 8 & 0xFF,
                  *color >> 16 & 0xFF);
    return std::u16string(property) + u":#" + std::u16string(digits, digits + 6) + u"!important;";
}

// The reader's own colours, as a style sheet after those of the page.
std::u16string ReadersSheet(const PageRenderOptions& options) {
    const std::u16string declarations =
        Declaration(u"color", options.text) + Declaration(u"background-color", options.background);
    std::u16string sheet;
    if (!declarations.empty()) sheet = u"body{" + declarations + u"}";
    if (options.onPaper) sheet += u"pre{white-space:pre-wrap!important}";
    return sheet;
}

// Of a picture that is larger than a sheet, in CSS pixels.
Size FittingSize(Size size, const PageRenderOptions& options) {
    const double across = options.viewport.width / options.scale,
                 down = options.viewport.height / options.scale;
    const double share =
        std::min({1.0, across / std::max(1, size.width), down / std::max(1, size.height)});
    return {int(size.width * share), int(size.height * share)};
}
} // namespace

std::vector<std::u16string> PageSheets(const LoadedPage& page, const PageFiles& files,
                                       const CssMedium& medium) {
    return LoadCssTexts(page.Tree(), medium, page.CodePage(), [&](std::u16string_view address) {
        return files.Read(address, maxSheetBytes);
    });
}

CssPageStyles ShownPage::StylesOf(const LoadedPage& page, const std::vector<std::u16string>& sheets,
                                  const PageRenderOptions& options, std::vector<CssSheet>& read) {
    const CssReading reading = ReadingOf(page, options);
    for (const std::u16string& sheet : sheets)
        read.push_back(ReadCss(sheet, reading));
    if (const std::u16string readers = ReadersSheet(options); !readers.empty())
        read.push_back(ReadCss(readers, reading));
    CssPageStyles styles = StylePage(page.Tree(), read, reading.medium);
    const std::u16string repairs = RepairingSheet(TextSharesOf(page.Tree(), styles));
    if (repairs.empty()) return styles;
    read.push_back(ReadCss(repairs, reading));
    return StylePage(page.Tree(), read, reading.medium);
}

ShownPage::ShownPage(const LoadedPage& page, const std::vector<std::u16string>& sheets,
                     PagePictures& pictures, LineLayout& lines, const PageRenderOptions& options)
    : page_(page), options_(options), styles_(StylesOf(page, sheets, options, sheets_)),
      boxes_(BoxesOf(page.Tree(), styles_, {},
                     [&pictures](HtmlNodeId object) { return pictures.ShowsObject(object); })),
      fonts_(lines, styles_, options.scale, options.dpi),
      text_(page.Tree(), styles_, boxes_, fonts_), layouter_(boxes_, text_, lines, options.scale),
      flow_(layouter_) {
    text_.pictureSize = [this, &pictures](const PageBox& box) {
        const Size size = pictures.NaturalSize(pictures.PictureOf(box));
        return options_.onPaper ? FittingSize(size, options_) : size;
    };
    flow_.SetWidth(options.viewport.width);
}

bool ShownPage::SetBackground(Color color) {
    const HtmlNodeId body = page_.Tree().Body();
    if (body == noHtmlNode || styles_.InheritsBackgrounds()) return false;
    const CssColor opaque = CssColor::FromBgr(color);
    styles_.SetBackground(body, opaque);
    boxes_.SetBackground(body, opaque);
    flow_.ForgetLayouts();
    options_.background = color;
    return true;
}

PageBoxId ShownPage::BoxOf(HtmlNodeId node, std::size_t unit) const {
    return boxes_.BoxOf(node, unit);
}

Color ShownPage::CanvasColor() const {
    const CssColor color = boxes_.CanvasBackground();
    return color.IsTransparent() ? 0xFFFFFF : color.Bgr();
}

Color ShownPage::BodyColor() const {
    const HtmlNodeId body = page_.Tree().Body();
    if (body == noHtmlNode) return CanvasColor();
    const CssColor color = styles_.Of(body).box->background;
    return color.IsTransparent() ? CanvasColor() : color.Bgr();
}

Color ShownPage::TextColor() const {
    const HtmlNodeId body = page_.Tree().Body();
    if (body == noHtmlNode) return 0;
    const CssInheritedStyle& style = *styles_.Of(body).inherited;
    return style.autoColor ? 0 : style.color.Bgr();
}

double ShownPage::TopMargin() const {
    const HtmlNodeId body = page_.Tree().Body();
    if (body == noHtmlNode) return 0;
    const CssBoxStyle& style = *styles_.Of(body).box;
    const double width = options_.viewport.width / options_.scale;
    return (style.margin[cssTop].Of(float(width)) + style.borderWidth[cssTop]) * options_.scale;
}
