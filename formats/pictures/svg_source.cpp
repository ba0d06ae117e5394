#include "formats/pictures/svg_source.h"

#include "common/utf.h"
#include "formats/html/html_data_address.h"
#include "formats/html/html_reader.h"
#include "formats/pictures/picture_header.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_tree.h"
#include "formats/pictures/svg_weight.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace {
using namespace std::string_view_literals;

constexpr int utf8 = 65001;
constexpr std::u16string_view blanks = u" \t\n\r\f";

// Sorted, to be searched.
constexpr std::array elements = {
    u"a"sv,    u"circle"sv,         u"defs"sv,  u"ellipse"sv, u"g"sv,        u"image"sv,
    u"line"sv, u"linearGradient"sv, u"path"sv,  u"polygon"sv, u"polyline"sv, u"radialGradient"sv,
    u"rect"sv, u"stop"sv,           u"style"sv, u"svg"sv,     u"switch"sv,   u"symbol"sv,
    u"text"sv, u"tspan"sv,          u"use"sv,
};
constexpr std::array attributes = {
    u"class"sv,
    u"color"sv,
    u"cx"sv,
    u"cy"sv,
    u"d"sv,
    u"display"sv,
    u"dx"sv,
    u"dy"sv,
    u"fill"sv,
    u"fill-opacity"sv,
    u"fill-rule"sv,
    u"font-family"sv,
    u"font-size"sv,
    u"font-style"sv,
    u"font-variant"sv,
    u"font-weight"sv,
    u"fx"sv,
    u"fy"sv,
    u"gradientTransform"sv,
    u"gradientUnits"sv,
    u"height"sv,
    u"id"sv,
    u"offset"sv,
    u"opacity"sv,
    u"points"sv,
    u"preserveAspectRatio"sv,
    u"r"sv,
    u"rx"sv,
    u"ry"sv,
    u"spreadMethod"sv,
    u"stop-color"sv,
    u"stop-opacity"sv,
    u"stroke"sv,
    u"stroke-dasharray"sv,
    u"stroke-dashoffset"sv,
    u"stroke-linecap"sv,
    u"stroke-linejoin"sv,
    u"stroke-miterlimit"sv,
    u"stroke-opacity"sv,
    u"stroke-width"sv,
    u"style"sv,
    u"systemLanguage"sv,
    u"text-anchor"sv,
    u"transform"sv,
    u"viewBox"sv,
    u"visibility"sv,
    u"width"sv,
    u"x"sv,
    u"x1"sv,
    u"x2"sv,
    u"y"sv,
    u"y1"sv,
    u"y2"sv,
};
static_assert(std::ranges::is_sorted(elements) && std::ranges::is_sorted(attributes));

// Whether a value or a sheet speaks of anything outside: `url(` of another thing than a part, a
// rule such as `@import`, or an escape that could hide either.
bool LeadsOutside(std::u16string_view css) {
    std::u16string text(css);
    for (char16_t& unit : text)
        if (unit >= u'A' && unit <= u'Z') unit += u'a' - u'A';
    if (text.find_first_of(u"@\\") != text.npos) return true;
    for (std::size_t at = text.find(u"url"); at != text.npos; at = text.find(u"url", at + 3)) {
        const std::size_t bracket = text.find_first_not_of(blanks, at + 3);
        if (bracket == text.npos || text[bracket] != u'(') continue;
        const std::size_t start = text.find_first_not_of(u" \t\n\r\f'\"", bracket + 1);
        if (start == text.npos || text[start] != u'#') return true;
    }
    return false;
}

class SvgWriter {
  public:
    explicit SvgWriter(const HtmlTree& tree) : tree_(tree) {}

    std::string Write(HtmlNodeId svg) {
        for (HtmlNodeId id = svg; id != noHtmlNode; id = tree_.Next(id, svg))
            if (const auto name = SvgAttribute(tree_, id, u"id"); !name.empty())
                parts_.insert(name);
        WriteElement(svg, true);
        return out_.size() > maxSvgUnits ? std::string() : Utf16ToUtf8(out_);
    }

  private:
    void WriteElement(HtmlNodeId id, bool isRoot) {
        const HtmlNode& node = tree_[id];
        std::u16string_view name = tree_.Name(node.name);
        if (node.nameSpace != HtmlNamespace::Svg || out_.size() > maxSvgUnits ||
            !std::ranges::binary_search(elements, name))
            return;
        if (name == u"style") return WriteSheet(id);
        const bool isSymbol = name == u"symbol"; // drawn where it is used
        const std::u16string_view reference = SvgReference(tree_, id);
        if (name == u"image" && !MayShow(reference)) return;
        if (name == u"use" && !IsPart(reference)) return;
        if (isSymbol) name = u"g";
        if (isSymbol) out_ += u"<defs>";
        out_.append(u"<").append(name);
        if (isRoot)
            out_ += u" xmlns=\"http://www.w3.org/2000/svg\""
                    u" xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
        for (const HtmlAttribute& attribute : node.Attributes())
            WriteAttribute(attribute);
        if (name == u"image" || (name != u"a" && reference.starts_with(u'#')))
            WriteValue(u"xlink:href", reference);
        out_ += u'>';
        WriteContent(id);
        out_.append(u"</").append(name).append(u">");
        if (isSymbol) out_ += u"</defs>";
    }

    void WriteContent(HtmlNodeId id) {
        for (HtmlNodeId child = tree_[id].firstChild; child != noHtmlNode;
             child = tree_[child].nextSibling) {
            if (tree_[child].IsElement()) WriteElement(child, false);
            if (tree_[child].IsText()) WriteText(tree_[child].Text());
        }
    }

    void WriteSheet(HtmlNodeId id) {
        std::u16string sheet;
        for (HtmlNodeId child = tree_[id].firstChild; child != noHtmlNode;
             child = tree_[child].nextSibling)
            if (tree_[child].IsText()) sheet += tree_[child].Text();
        if (LeadsOutside(sheet)) return;
        out_ += u"<style>";
        WriteText(sheet);
        out_ += u"</style>";
    }

    void WriteAttribute(const HtmlAttribute& attribute) {
        const std::u16string_view name = tree_.Name(attribute.name);
        if (attribute.nameSpace == HtmlAttributeNamespace::None &&
            std::ranges::binary_search(attributes, name) && !LeadsOutside(attribute.Value()))
            WriteValue(name, attribute.Value());
    }

    void WriteValue(std::u16string_view name, std::u16string_view value) {
        out_.append(u" ").append(name).append(u"=\"");
        WriteText(value);
        out_ += u'"';
    }

    // Without what XML does not have.
    void WriteText(std::u16string_view text) {
        for (const char16_t unit : text) {
            if (unit == u'&')
                out_ += u"&amp;";
            else if (unit == u'<')
                out_ += u"&lt;";
            else if (unit == u'>')
                out_ += u"&gt;";
            else if (unit == u'"')
                out_ += u"&quot;";
            else if ((unit >= u' ' && unit < 0xFFFE) || unit == u'\t' || unit == u'\n')
                out_ += unit;
        }
    }

    // A renderer complains of a part that the drawing does not have.
    bool IsPart(std::u16string_view reference) const {
        return reference.starts_with(u'#') && parts_.contains(reference.substr(1));
    }

    // A picture that stands in the drawing, of a kind and size that does not surprise.
    bool MayShow(std::u16string_view address) {
        // As it is written here, or a renderer takes it for the name of a file.
        if (!address.starts_with(u"data:")) return false;
        const PictureHeader header = ReadPictureHeader(HtmlDataOf(address));
        if (header.format != PictureFormat::Png && header.format != PictureFormat::Jpeg)
            return false;
        pixels_ += std::int64_t{header.width} * header.height;
        return pixels_ <= maxSvgImagePixels;
    }

    const HtmlTree& tree_;
    std::unordered_set<std::u16string_view> parts_; // their ids
    std::u16string out_;
    std::int64_t pixels_ = 0;
};
} // namespace

std::string SafeSvg(const HtmlTree& tree, HtmlNodeId svg) {
    if (ShapesOfSvg(tree, svg) > maxSvgShapes) return {};
    return SvgWriter(tree).Write(svg);
}

std::string SafeSvg(std::string_view bytes) {
    if (!IsSvg(bytes) || bytes.size() > maxSvgFileBytes) return {};
    const HtmlFile file = ReadHtmlFile(std::string(bytes), utf8, utf8);
    const HtmlNodeId svg = SvgRoot(file.tree);
    return svg == noHtmlNode ? std::string() : SafeSvg(file.tree, svg);
}
