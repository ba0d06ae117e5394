#include "formats/html/html_reader.h"
#include "formats/html/html_units.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_source.h"
#include "formats/pictures/svg_tree.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {
constexpr int defaultWidth = 300, defaultHeight = 150; // CSS 2.1, 10.3.2
constexpr int utf8 = 65001;
// An editor writes names and a licence before the root.
constexpr std::size_t rootBytes = 64 << 10;

struct Number {
    double value = 0;
    std::u16string_view rest;
};

std::optional<Number> NumberAt(std::u16string_view text) {
    while (!text.empty() && (IsHtmlSpace(text.front()) || text.front() == u','))
        text.remove_prefix(1);
    char digits[32];
    std::size_t count = 0;
    while (count < sizeof digits && count < text.size() && text[count] < 0x80) {
        digits[count] = static_cast<char>(text[count]);
        ++count;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(digits, digits + count, value);
    if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
    return Number{value, text.substr(std::size_t(end - digits))};
}

// In CSS pixels; nothing for one in per cent or in letters.
std::optional<double> LengthOf(std::u16string_view text) {
    const auto number = NumberAt(text);
    if (!number) return std::nullopt;
    struct {
        std::u16string_view unit;
        double pixels;
    } const units[] = {{u"", 1},    {u"px", 1},         {u"pt", 4.0 / 3},  {u"pc", 16},
                       {u"in", 96}, {u"cm", 96 / 2.54}, {u"mm", 96 / 25.4}};
    std::u16string_view unit = number->rest;
    while (!unit.empty() && IsHtmlSpace(unit.back()))
        unit.remove_suffix(1);
    for (const auto& known : units)
        if (unit == known.unit) return number->value * known.pixels;
    return std::nullopt;
}

std::optional<std::array<double, 4>> ViewBoxOf(std::u16string_view text) {
    std::array<double, 4> box{};
    for (double& side : box) {
        const auto number = NumberAt(text);
        if (!number) return std::nullopt;
        side = number->value;
        text = number->rest;
    }
    if (box[2] <= 0 || box[3] <= 0) return std::nullopt;
    return box;
}

int Side(double pixels) {
    return std::clamp(static_cast<int>(std::lround(std::min(pixels, 1e6))), 1, maxSvgSide);
}
} // namespace

SvgSize SizeOfSvg(const HtmlTree& tree, HtmlNodeId svg) {
    const auto width = LengthOf(SvgAttribute(tree, svg, u"width"));
    const auto height = LengthOf(SvgAttribute(tree, svg, u"height"));
    const auto box = ViewBoxOf(SvgAttribute(tree, svg, u"viewBox"));
    const double ratio = box ? (*box)[3] / (*box)[2] : double{defaultHeight} / defaultWidth;
    if (width && height) return {Side(*width), Side(*height)};
    if (width) return {Side(*width), box ? Side(*width * ratio) : defaultHeight};
    if (height) return {box ? Side(*height / ratio) : defaultWidth, Side(*height)};
    if (box) return {Side((*box)[2]), Side((*box)[3])};
    return {defaultWidth, defaultHeight};
}

SvgSize SizeOfSvg(std::string_view bytes) {
    if (!IsSvg(bytes)) return {};
    const HtmlFile file = ReadHtmlFile(std::string(bytes.substr(0, rootBytes)), utf8, utf8);
    const HtmlNodeId svg = SvgRoot(file.tree);
    return svg == noHtmlNode ? SvgSize{} : SizeOfSvg(file.tree, svg);
}

bool IsSvg(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const std::size_t first = bytes.find_first_not_of(" \t\r\n");
    if (first == bytes.npos || bytes[first] != '<') return false;
    bytes = bytes.substr(first, rootBytes);
    const std::size_t svg = bytes.find("<svg");
    return svg != bytes.npos && bytes.substr(0, svg).find("<html") == bytes.npos;
}
