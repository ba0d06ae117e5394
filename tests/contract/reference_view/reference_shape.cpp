#include "tests/contract/reference_view/reference_shape.h"

#include "common/unicode.h"
#include "common/utf.h"
#include "tests/contract/reference_view/reference_style.h"

#include <algorithm>
#include <cmath>

namespace {
// By the first strong character outside isolates.
bool StartsLeftwards(std::u16string_view text) {
    int isolates = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const BidiClass direction = BidiClassOf(FirstCharacter(text.substr(at, 2)));
        if (direction == BidiClass::LRI || direction == BidiClass::RLI ||
            direction == BidiClass::FSI)
            ++isolates;
        if (direction == BidiClass::PDI) isolates = std::max(0, isolates - 1);
        if (isolates > 0 || IsLowSurrogate(text[at])) continue;
        if (direction == BidiClass::L) return false;
        if (direction == BidiClass::R || direction == BidiClass::AL) return true;
    }
    return false;
}

void SetPlainTabs(const ReferenceSettings& settings, ReferenceShape& shape) {
    const StyleHandle style = settings.lines->Prepare(ReferenceTextStyle(settings, {}, false));
    shape.tabDistance = std::max(1.0, 8 * settings.lines->Metrics(*style).spaceWidth);
}

void SetTabs(const ReferenceSettings& settings, const ParagraphStyle& style,
             const ReferencePart& part, ReferenceShape& shape) {
    std::vector<TabStop> stops;
    for (const TabStop& stop : style.tabStops)
        stops.push_back({settings.Pixels(stop.position), stop.alignment, stop.leader});
    if (shape.firstIndent < shape.indent) stops.push_back({shape.indent});
    const auto before = [](const TabStop& a, const TabStop& b) { return a.position < b.position; };
    const int last =
        stops.empty() ? 0 : std::max_element(stops.begin(), stops.end(), before)->position;
    const int tabDistance = settings.Pixels(std::max(60, settings.document->defaultTab));
    for (int i = 1; i <= 200 && (last / tabDistance + i - 1) * tabDistance < part.breakWidth; ++i)
        stops.push_back({(last / tabDistance + i) * tabDistance});
    std::stable_sort(stops.begin(), stops.end(), before);
    shape.tabStops = stops;
    shape.tabDistance = tabDistance;
}

void SetMeasures(const ReferenceSettings& settings, const ParagraphStyle& style,
                 const ReferencePart& part, ReferenceShape& shape) {
    const int maxIndent = std::max(0, part.alignWidth - settings.Pixels(960));
    const int left = std::max(0, settings.Pixels(style.leftIndent));
    const int right = std::max(0, settings.Pixels(style.rightIndent));
    shape.indent = std::min(shape.rightToLeft ? right : left, maxIndent);
    shape.endIndent = std::min(shape.rightToLeft ? left : right, maxIndent - shape.indent);
    const int extra = part.first ? settings.Pixels(style.firstLineIndent) : 0;
    shape.firstIndent = std::clamp(shape.indent + extra, 0, maxIndent - shape.endIndent);
    if (part.first) shape.before = std::max(0, settings.Pixels(style.spaceBefore));
    if (part.last) shape.after = std::max(0, settings.Pixels(style.spaceAfter));
    shape.spacing = style.lineSpacing;
    shape.multiple = style.lineSpacingIsMultiple;
    SetTabs(settings, style, part, shape);
}
} // namespace

int ReferenceShape::SlotHeight(const ReferenceSettings& settings, int natural) const {
    if (multiple && spacing != 0) {
        const double factor = std::clamp(std::abs(spacing / 240.0), 0.5, 20.0);
        return std::max(1, int(std::lround(natural * factor)));
    }
    if (spacing < 0) return std::max(1, settings.Pixels(-double(spacing)));
    return std::max({1, natural, settings.Pixels(spacing)});
}

ReferenceShape ReferenceShapeOf(const ReferenceSettings& settings, const ReferencePart& part) {
    const ParagraphStyle& style = ReferenceParagraphStyle(*settings.document, part.end);
    const std::u16string_view text =
        std::u16string_view(settings.text)
            .substr(std::size_t(part.start), std::size_t(part.end - part.start));
    ReferenceShape shape;
    shape.rightToLeft = settings.plain ? StartsLeftwards(text) : style.rightToLeft;
    shape.alignment = settings.style.alignment.value_or(
        shape.rightToLeft && style.alignment == Alignment::Left ? Alignment::Right
                                                                : style.alignment);
    shape.stretches = shape.alignment == Alignment::Justified && part.breakWidth <= part.alignWidth;
    if (settings.plain)
        SetPlainTabs(settings, shape);
    else
        SetMeasures(settings, style, part, shape);
    return shape;
}
