#include "platform/qt/text_view/line_layout/qt_line_layout.h"

#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
constexpr double metresPerInch = 0.0254;

QFont ToQFont(const TextStyle& style, const QPaintDevice& device) {
    QFont font(QString::fromStdU16String(style.font.family));
    font.setPointSizeF(style.font.points);
    font.setBold(style.font.bold);
    font.setItalic(style.font.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikethrough);
    if (style.overline) font.setOverline(true);
    if (style.letterSpacing != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing,
                              FontLetterSpacing(device, style.letterSpacing));
    if (style.wordSpacing != 0) font.setWordSpacing(style.wordSpacing);
    return font;
}

// QTextCharFormat has it in percent of the font's height.
double BaselineOffset(const QFont& font, const QPaintDevice& device, double pixels) {
    const QFontMetricsF metrics(font, &device);
    return pixels * 100 / std::max(1.0, metrics.ascent() + metrics.descent());
}

QTextCharFormat::VerticalAlignment ToAlignment(TextBaseline baseline) {
    switch (baseline) {
    case TextBaseline::Superscript: return QTextCharFormat::AlignSuperScript;
    case TextBaseline::Subscript: return QTextCharFormat::AlignSubScript;
    case TextBaseline::Normal: break;
    }
    return QTextCharFormat::AlignNormal;
}
} // namespace

double FontLetterSpacing(const QPaintDevice& device, double pixels) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const int defaultDpi = screen ? qRound(screen->logicalDotsPerInchY()) : 0;
    // It divides whole numbers.
    return defaultDpi > 0 ? pixels / std::max(1, device.logicalDpiY() / defaultDpi) : pixels;
}

void QtLineLayout::SetResolution(double dpi) {
    screen_.setDotsPerMeterX(qRound(dpi / metresPerInch));
    screen_.setDotsPerMeterY(qRound(dpi / metresPerInch));
}

StyleHandle QtLineLayout::Prepare(const TextStyle& style) {
    QTextCharFormat format;
    format.setFont(ToQFont(style, screen_));
    if (style.letterSpacing != 0) format.setProperty(letterSpacingProperty, style.letterSpacing);
    if (style.wordSpacing != 0) format.setProperty(wordSpacingProperty, style.wordSpacing);
    if (style.raise != 0)
        format.setBaselineOffset(BaselineOffset(format.font(), screen_, style.raise));
    if (style.baseline != TextBaseline::Normal)
        format.setVerticalAlignment(ToAlignment(style.baseline));
    if (style.background) format.setBackground(ToQColor(*style.background));
    if (style.color) format.setForeground(ToQColor(*style.color));
    return std::make_shared<QtStyle>(std::move(format));
}

FontMetrics QtLineLayout::Metrics(const PreparedStyle& style) const {
    const QFontMetricsF metrics(static_cast<const QtStyle&>(style).format.font(), &screen_);
    return {metrics.ascent(), metrics.descent(), metrics.leading(),
            metrics.horizontalAdvance(u' ')};
}

std::unique_ptr<TextLines> QtLineLayout::BreakLines(const ParagraphText& paragraph) {
    return std::make_unique<QtTextLines>(paragraph, screen_);
}
