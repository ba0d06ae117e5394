#include "tests/contract/qt/reference_view/reference_shape.h"

#include "tests/contract/qt/reference_view/reference_style.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
double TabUnit(const WholeSetting& setting) {
    return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY()) /
           double(setting.device->logicalDpiY());
}

void SetPlainTabs(const WholeSetting& setting, WholeShape& shape) {
    const double blank =
        QFontMetricsF(WholeFont(setting.look.font), setting.device).horizontalAdvance(u' ');
    shape.option.setTabStopDistance(std::max(1.0, 8 * blank) * TabUnit(setting));
}

void SetTabs(const WholeSetting& setting, const ParagraphStyle& style, const WholePart& part,
             WholeShape& shape) {
    std::vector<int> stops;
    for (const std::int32_t stop : style.tabStops)
        stops.push_back(setting.Pixels(stop));
    if (shape.firstIndent < shape.indent) stops.push_back(shape.indent);
    const int last = stops.empty() ? 0 : *std::max_element(stops.begin(), stops.end());
    const int usual = setting.Pixels(std::max(60, setting.document->defaultTab));
    for (int i = 1; i <= 200 && (last / usual + i - 1) * usual < part.breakWidth; ++i)
        stops.push_back((last / usual + i) * usual);
    std::sort(stops.begin(), stops.end());
    QList<QTextOption::Tab> tabs;
    for (const int stop : stops)
        if (stop > shape.firstIndent)
            tabs.append({(stop - shape.firstIndent) * TabUnit(setting),
                         shape.rightToLeft ? QTextOption::RightTab : QTextOption::LeftTab});
    shape.option.setTabs(tabs);
    shape.option.setTabStopDistance(usual * TabUnit(setting));
}

void SetMeasures(const WholeSetting& setting, const ParagraphStyle& style, const WholePart& part,
                 WholeShape& shape) {
    const int most = std::max(0, part.alignWidth - setting.Pixels(960));
    const int left = std::max(0, setting.Pixels(style.leftIndent));
    const int right = std::max(0, setting.Pixels(style.rightIndent));
    shape.indent = std::min(shape.rightToLeft ? right : left, most);
    shape.farIndent = std::min(shape.rightToLeft ? left : right, most - shape.indent);
    const int extra = part.first ? setting.Pixels(style.firstLineIndent) : 0;
    shape.firstIndent = std::clamp(shape.indent + extra, 0, most - shape.farIndent);
    if (part.first) shape.before = std::max(0, setting.Pixels(style.spaceBefore));
    if (part.last) shape.after = std::max(0, setting.Pixels(style.spaceAfter));
    shape.spacing = style.lineSpacing;
    shape.multiple = style.lineSpacingIsMultiple;
    SetTabs(setting, style, part, shape);
}
} // namespace

int WholeShape::SlotHeight(const WholeSetting& setting, int natural) const {
    if (multiple && spacing != 0) {
        const double factor = std::clamp(std::abs(spacing / 240.0), 0.5, 20.0);
        return std::max(1, int(std::lround(natural * factor)));
    }
    if (spacing < 0) return std::max(1, setting.Pixels(-double(spacing)));
    return std::max({1, natural, setting.Pixels(spacing)});
}

WholeShape WholeShapeOf(const WholeSetting& setting, const WholePart& part, const QString& text,
                        const bool* rightToLeft) {
    const ParagraphStyle& style = WholeParagraphStyle(*setting.document, part.end);
    WholeShape shape;
    shape.rightToLeft = rightToLeft     ? *rightToLeft
                        : setting.plain ? text.isRightToLeft()
                                        : style.rightToLeft;
    shape.alignment = setting.look.alignment.value_or(
        shape.rightToLeft && style.alignment == Alignment::Left ? Alignment::Right
                                                                : style.alignment);
    shape.stretches = shape.alignment == Alignment::Justified && part.breakWidth <= part.alignWidth;
    shape.option.setAlignment(shape.stretches ? Qt::AlignJustify : Qt::AlignLeft);
    shape.option.setTextDirection(shape.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    shape.option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (setting.plain)
        SetPlainTabs(setting, shape);
    else
        SetMeasures(setting, style, part, shape);
    return shape;
}
