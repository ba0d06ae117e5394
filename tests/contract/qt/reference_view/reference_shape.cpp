#include "tests/contract/qt/reference_view/reference_shape.h"

#include "tests/contract/qt/reference_view/reference_style.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
double TabUnit(const ReferenceSettings& settings) {
    return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY()) /
           double(settings.device->logicalDpiY());
}

void SetPlainTabs(const ReferenceSettings& settings, ReferenceShape& shape) {
    const double blank =
        QFontMetricsF(ReferenceFont(settings.style.font), settings.device).horizontalAdvance(u' ');
    shape.option.setTabStopDistance(std::max(1.0, 8 * blank) * TabUnit(settings));
}

void SetTabs(const ReferenceSettings& settings, const ParagraphStyle& style,
             const ReferencePart& part, ReferenceShape& shape) {
    std::vector<int> stops;
    for (const std::int32_t stop : style.tabStops)
        stops.push_back(settings.Pixels(stop));
    if (shape.firstIndent < shape.indent) stops.push_back(shape.indent);
    const int last = stops.empty() ? 0 : *std::max_element(stops.begin(), stops.end());
    const int tabDistance = settings.Pixels(std::max(60, settings.document->defaultTab));
    for (int i = 1; i <= 200 && (last / tabDistance + i - 1) * tabDistance < part.breakWidth; ++i)
        stops.push_back((last / tabDistance + i) * tabDistance);
    std::sort(stops.begin(), stops.end());
    QList<QTextOption::Tab> tabs;
    for (const int stop : stops)
        if (stop > shape.firstIndent)
            tabs.append({(stop - shape.firstIndent) * TabUnit(settings),
                         shape.rightToLeft ? QTextOption::RightTab : QTextOption::LeftTab});
    shape.option.setTabs(tabs);
    shape.option.setTabStopDistance(tabDistance * TabUnit(settings));
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

ReferenceShape ReferenceShapeOf(const ReferenceSettings& settings, const ReferencePart& part,
                                const QString& text, const bool* rightToLeft) {
    const ParagraphStyle& style = ReferenceParagraphStyle(*settings.document, part.end);
    ReferenceShape shape;
    shape.rightToLeft = rightToLeft      ? *rightToLeft
                        : settings.plain ? text.isRightToLeft()
                                         : style.rightToLeft;
    shape.alignment = settings.style.alignment.value_or(
        shape.rightToLeft && style.alignment == Alignment::Left ? Alignment::Right
                                                                : style.alignment);
    shape.stretches = shape.alignment == Alignment::Justified && part.breakWidth <= part.alignWidth;
    shape.option.setAlignment(shape.stretches ? Qt::AlignJustify : Qt::AlignLeft);
    shape.option.setTextDirection(shape.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    shape.option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (settings.plain)
        SetPlainTabs(settings, shape);
    else
        SetMeasures(settings, style, part, shape);
    return shape;
}
