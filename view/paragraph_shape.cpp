#include "view/paragraph_shape.h"

#include "common/text_characters.h"
#include "common/unicode.h"
#include "view/style_runs.h"

#include <algorithm>
#include <cmath>

namespace {
// Twips that remain for the text, however large the indents are.
constexpr std::int32_t minTextWidth = 960;
// Twips; width and height of a picture of unknown size.
constexpr std::int32_t fallbackPictureSize = 480;
constexpr std::int32_t minTab = 60; // twips
constexpr int maxDefaultTabs = 200;
constexpr std::size_t maxCustomTabs = 200; // per paragraph; word processors accept some 60
constexpr int maxPictureHeight = 4096;     // pixels
constexpr int plainTabSpaces = 8;

// The user's choice is absolute; a file's "left" means the start of a line, which depends on the
// direction.
Alignment VisualAlignment(const ViewStyle& viewStyle, const ParagraphStyle& style,
                          bool rightToLeft) {
    if (viewStyle.alignment) return *viewStyle.alignment;
    if (style.alignment == Alignment::Left && rightToLeft) return Alignment::Right;
    return style.alignment;
}

void SetIndents(const LayoutContext& context, const ParagraphStyle& style,
                const ParagraphPart& part, ParagraphShape& shape) {
    const int left = std::max(0, context.Pixels(style.leftIndent));
    const int right = std::max(0, context.Pixels(style.rightIndent));
    const int maxIndent = std::max(0, shape.alignWidth - context.Pixels(minTextWidth));
    shape.indent = std::min(shape.rightToLeft ? right : left, maxIndent);
    shape.endIndent = std::min(shape.rightToLeft ? left : right, maxIndent - shape.indent);
    const int first = part.first ? context.Pixels(style.firstLineIndent) : 0;
    shape.firstIndent = std::clamp(shape.indent + first, 0, maxIndent - shape.endIndent);
}

// Borders are within the indents, where nothing of them is cut off.
void SetBox(const LayoutContext& context, const ParagraphStyle& style, const ParagraphPart& part,
            ParagraphShape& shape) {
    ParagraphBox& box = shape.box = BoxOf(context, part, style);
    if (!box.style) return;
    const int start = std::min(shape.indent, shape.firstIndent), end = shape.endIndent;
    box.left = shape.rightToLeft ? end : start;
    box.right = shape.alignWidth - (shape.rightToLeft ? start : end);
    const int maxInset = std::max(0, box.right - box.left) / 8;
    box.insetLeft = std::min(box.insetLeft, maxInset);
    box.insetRight = std::min(box.insetRight, maxInset);
    const int startInset = shape.rightToLeft ? box.insetRight : box.insetLeft;
    shape.indent += startInset;
    shape.firstIndent += startInset;
    shape.endIndent += shape.rightToLeft ? box.insetLeft : box.insetRight;
    box.spaceAbove = box.joinsAbove ? 0 : shape.spaceBefore;
    box.spaceBelow = box.joinsBelow ? 0 : shape.spaceAfter;
    shape.spaceBefore += box.insetTop;
    shape.spaceAfter += box.insetBottom;
}

void SetSpacing(const LayoutContext& context, const ParagraphStyle& style,
                const ParagraphPart& part, ParagraphShape& shape) {
    if (part.first) shape.spaceBefore = std::max(0, context.Pixels(style.spaceBefore));
    if (part.last) shape.spaceAfter = std::max(0, context.Pixels(style.spaceAfter));
    if (style.lineSpacingIsMultiple && style.lineSpacing != 0)
        shape.lineFactor = std::clamp(std::abs(style.lineSpacing / 240.0), 0.5, 20.0);
    else if (style.lineSpacing < 0)
        shape.exactLine = std::max(1, context.Pixels(-std::max(style.lineSpacing, -0x7FFFFFFF)));
    else
        shape.minLine = context.Pixels(style.lineSpacing);
}

void SetTabs(const LayoutContext& context, const ParagraphStyle& style, ParagraphShape& shape) {
    std::vector<TabStop>& stops = shape.tabStops;
    const std::size_t own = std::min(style.tabStops.size(), maxCustomTabs);
    for (std::size_t i = 0; i < own; ++i)
        stops.push_back({context.Pixels(style.tabStops[i].position), style.tabStops[i].alignment,
                         style.tabStops[i].leader});
    // A hanging indent is a tab stop.
    if (shape.firstIndent < shape.indent) stops.push_back({shape.indent});
    std::stable_sort(stops.begin(), stops.end(),
                     [](const TabStop& a, const TabStop& b) { return a.position < b.position; });
    const int defaultDistance = context.Pixels(std::max(minTab, context.document.defaultTab));
    int stop = stops.empty() ? 0 : stops.back().position / defaultDistance * defaultDistance;
    for (int i = 0; i < maxDefaultTabs && stop < shape.breakWidth; ++i)
        stops.push_back({stop += defaultDistance});
    shape.tabDistance = defaultDistance;
}

void SetPlainTabs(const LayoutContext& context, ParagraphShape& shape) {
    const double space = context.lines.Metrics(*context.styles.Plain().handle).spaceWidth;
    shape.tabDistance = std::max(1.0, plainTabSpaces * space);
}

// By the first strong character outside isolates.
bool StartsRightToLeft(std::u16string_view text) {
    int isolates = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = FirstCharacter(text.substr(at, 2));
        at += std::size_t(UnitsOf(character));
        if (character >= 0x2066 && character <= 0x2068) ++isolates;
        if (character == 0x2069 && isolates > 0) --isolates;
        const Direction direction = StrongDirection(character);
        if (isolates == 0 && direction != Direction::Neutral)
            return direction == Direction::RightToLeft;
    }
    return false;
}
// Scaled down to fit, with its proportions.
Size ScaledToFit(Size size, Size bounds) {
    if (size.width <= bounds.width && size.height <= bounds.height) return size;
    const std::int64_t width = size.width, height = size.height;
    const int fittingWidth = int(bounds.height * width / height);
    const Size fitted = fittingWidth <= bounds.width
                            ? Size{fittingWidth, bounds.height}
                            : Size{bounds.width, int(bounds.width * height / width)};
    return {std::max(1, fitted.width), std::max(1, fitted.height)};
}
} // namespace

int ParagraphShape::TextWidth() const {
    return std::max(1, alignWidth - std::max(indent, firstIndent) - endIndent);
}

int ParagraphShape::LineHeight(int natural) const {
    if (exactLine > 0) return exactLine;
    const int height = int(std::lround(natural * lineFactor));
    return std::max({1, height, minLine});
}

int ParagraphShape::AlignmentShift(int room) const {
    switch (alignment) {
    case Alignment::Left: return 0;
    case Alignment::Right: return room;
    case Alignment::Center: return room / 2;
    case Alignment::Justified: break; // the line is not justified
    }
    return rightToLeft ? room : 0;
}

ParagraphShape ShapeOf(const LayoutContext& context, const ParagraphPart& part,
                       std::u16string_view text) {
    ParagraphShape shape;
    shape.breakWidth = std::max(part.breakWidth, 1);
    shape.alignWidth = std::max(part.alignWidth, 1);
    const Document& document = context.document;
    const auto index = StyleAt(document.paragraphRuns, part.end);
    const ParagraphStyle& style =
        document.paragraphStyles[std::min<std::size_t>(index, document.paragraphStyles.size() - 1)];
    // The direction of a plain text's paragraph is that of its first strong character.
    shape.rightToLeft = context.plain ? StartsRightToLeft(text) : style.rightToLeft;
    shape.alignment = VisualAlignment(context.viewStyle, style, shape.rightToLeft);
    shape.justified =
        shape.alignment == Alignment::Justified && shape.breakWidth <= shape.alignWidth;
    if (context.plain) {
        SetPlainTabs(context, shape);
        return shape;
    }
    SetIndents(context, style, part, shape);
    SetSpacing(context, style, part, shape);
    SetBox(context, style, part, shape);
    SetTabs(context, style, shape);
    return shape;
}

Size PictureSize(const LayoutContext& context, const Picture& picture, int width) {
    Size size{context.Pixels(picture.widthTwips), context.Pixels(picture.heightTwips)};
    if (size.IsEmpty()) {
        const double scale = 15 * context.pixelsPerTwip; // pixels of pictures are 1/96 inch
        const Size natural = context.pictures.NaturalSize(picture);
        size = {int(std::lround(natural.width * scale)), int(std::lround(natural.height * scale))};
    }
    if (size.IsEmpty())
        size = {context.Pixels(fallbackPictureSize), context.Pixels(fallbackPictureSize)};
    return ScaledToFit(size, {std::max(1, width), maxPictureHeight});
}
