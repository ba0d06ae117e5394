#include "platform/qt/text_view/layout/paragraph_shape.h"

#include "platform/qt/text_view/layout/style_runs.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
constexpr std::int32_t minTextWidth = 960;   // twips left to the text however large the indents are
constexpr std::int32_t unknownPicture = 480; // twips; the side of one whose size nobody knows
constexpr std::int32_t minTab = 60;          // twips
constexpr int maxDefaultTabs = 200;
constexpr std::size_t maxCustomTabs = 200; // of a paragraph; word processors take some 60
constexpr int tallestPicture = 4096;       // pixels
constexpr int plainTabSpaces = 8;

// The alignment as it is seen. What the user sets holds for the eye; a file's "left" is where a
// paragraph begins, so it follows the direction.
Alignment SeenAlignment(const ViewLook& look, const ParagraphStyle& style, bool rightToLeft) {
    if (look.alignment) return *look.alignment;
    if (style.alignment == Alignment::Left && rightToLeft) return Alignment::Right;
    return style.alignment;
}

void SetIndents(const LayoutContext& context, const ParagraphStyle& style,
                const ParagraphPart& part, ParagraphShape& shape) {
    const int left = std::max(0, context.Pixels(style.leftIndent));
    const int right = std::max(0, context.Pixels(style.rightIndent));
    const int most = std::max(0, shape.alignWidth - context.Pixels(minTextWidth));
    shape.indent = std::min(shape.rightToLeft ? right : left, most);
    shape.farIndent = std::min(shape.rightToLeft ? left : right, most - shape.indent);
    const int first = part.first ? context.Pixels(style.firstLineIndent) : 0;
    shape.firstIndent = std::clamp(shape.indent + first, 0, most - shape.farIndent);
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

// The layout takes tab stops to be measures of the first screen and makes them those of its device.
double TabStop(const LayoutContext& context, double pixels) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double usual = screen ? qRound(screen->logicalDotsPerInchY()) : 0;
    return usual > 0 ? pixels * usual / context.device->logicalDpiY() : pixels;
}

// The layout measures tab stops from where each line begins. So they are told from where the first
// line does: it is the only one of its layout with tabs.
void SetTabs(const LayoutContext& context, const ParagraphStyle& style, ParagraphShape& shape) {
    std::vector<int> stops; // from the paragraph's edge
    const std::size_t own = std::min(style.tabStops.size(), maxCustomTabs);
    for (std::size_t i = 0; i < own; ++i)
        stops.push_back(context.Pixels(style.tabStops[i]));
    // A first line that hangs out to the left has a stop where the other lines begin.
    if (shape.firstIndent < shape.indent) stops.push_back(shape.indent);
    std::sort(stops.begin(), stops.end());
    const int usual = context.Pixels(std::max(minTab, context.document.defaultTab));
    int stop = stops.empty() ? 0 : stops.back() / usual * usual;
    for (int i = 0; i < maxDefaultTabs && stop < shape.breakWidth; ++i)
        stops.push_back(stop += usual);
    // One that aligns a delimiter which is nowhere in the text is one for what stands behind it, in
    // either direction. For a plain one the layout measures all text behind each tab, in vain.
    constexpr char16_t nowhere = u'\uFFFF';
    QList<QTextOption::Tab> tabs;
    for (const int each : stops)
        if (each > shape.firstIndent)
            tabs.append({TabStop(context, each - shape.firstIndent), QTextOption::DelimiterTab,
                         QChar(nowhere)});
    shape.option.setTabs(tabs);
    shape.option.setTabStopDistance(TabStop(context, usual));
}

void SetPlainTabs(const LayoutContext& context, ParagraphShape& shape) {
    const QFontMetricsF metrics(MakeFont(context.look.font), context.device);
    const double distance = std::max(1.0, plainTabSpaces * metrics.horizontalAdvance(u' '));
    shape.option.setTabStopDistance(TabStop(context, distance));
}

void SetDirection(ParagraphShape& shape) {
    const bool justified = shape.alignment == Alignment::Justified;
    shape.option.setTextDirection(shape.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // Only justification is left to the layout: the rest is done where the width is known to be
    // seen.
    shape.justified = justified && shape.breakWidth <= shape.alignWidth;
    shape.option.setAlignment(shape.justified ? Qt::AlignJustify : Qt::AlignLeft);
    shape.option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}
} // namespace

int ParagraphShape::TextWidth() const {
    return std::max(1, alignWidth - std::max(indent, firstIndent) - farIndent);
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
    case Alignment::Justified: break; // of a line that is not stretched
    }
    return rightToLeft ? room : 0;
}

ParagraphShape ShapeOf(const LayoutContext& context, const ParagraphPart& part, QStringView text) {
    ParagraphShape shape;
    shape.breakWidth = std::max(part.breakWidth, 1);
    shape.alignWidth = std::max(part.alignWidth, 1);
    const Document& document = context.document;
    const auto index = StyleAt(document.paragraphRuns, part.end);
    const ParagraphStyle& style =
        document.paragraphStyles[std::min<std::size_t>(index, document.paragraphStyles.size() - 1)];
    // A plain text's paragraph goes the way of its first strong character.
    shape.rightToLeft =
        part.rightToLeft.value_or(context.plain ? text.isRightToLeft() : style.rightToLeft);
    shape.alignment = SeenAlignment(context.look, style, shape.rightToLeft);
    SetDirection(shape);
    if (context.plain) {
        SetPlainTabs(context, shape);
        return shape;
    }
    SetIndents(context, style, part, shape);
    SetSpacing(context, style, part, shape);
    SetTabs(context, style, shape);
    return shape;
}

QSize PictureSize(const LayoutContext& context, const Picture& picture, int width) {
    QSize size(context.Pixels(picture.widthTwips), context.Pixels(picture.heightTwips));
    const double naturalScale = 15 * context.pixelsPerTwip; // pictures count in 96ths of an inch
    if (size.isEmpty()) size = context.pictures.NaturalSize(picture) * naturalScale;
    if (size.isEmpty()) size = QSize(1, 1) * context.Pixels(unknownPicture);
    const QSize most(std::max(1, width), tallestPicture);
    if (size.width() > most.width() || size.height() > most.height())
        size.scale(most, Qt::KeepAspectRatio);
    return size.expandedTo(QSize(1, 1));
}
