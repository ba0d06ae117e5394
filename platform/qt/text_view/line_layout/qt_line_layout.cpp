#include "platform/qt/text_view/line_layout/qt_line_layout.h"

#include "platform/qt/base/qt_color.h"
#include "platform/qt/text_view/line_layout/installed_families.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
constexpr double metresPerInch = 0.0254;
constexpr double minPoints = 0.01; // QFont keeps its own size instead of none

double PointsOf(const TextStyle& style) {
    return std::max(minPoints, style.font.points);
}

QFont ToQFont(const TextStyle& style, const QPaintDevice& device) {
    QFont font(QString::fromStdU16String(style.font.family));
    font.setPointSizeF(PointsOf(style));
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

// Qt draws fonts of whole pixels only. Raised letters have a size of Qt's own.
double SizeFactor(const TextStyle& style, const QPaintDevice& device) {
    constexpr double pointsPerInch = 72;
    if (!style.font.exactSize || style.baseline != TextBaseline::Normal) return 1;
    const double pixels = PointsOf(style) * device.logicalDpiY() / pointsPerInch;
    return pixels / std::max(1.0, std::round(pixels));
}

// Of a text with letters as often as in books. Where the difference is another one than cutting
// off makes, as with hinted fonts, there is nothing to make good.
double CutOff(const QFont& font, double sizeFactor, const QPaintDevice& device) {
    constexpr double maxMissing = 1.0 / 256;
    constexpr int large = 2048; // pixels; so many units most fonts have
    const QString sample =
        QStringLiteral("eeeeeeetttttaaaaooooiiiinnnnsssshhhrrrddlluuccmwfgypbvk            ");
    QFont largeFont = font;
    largeFont.setPixelSize(large);
    largeFont.setLetterSpacing(QFont::PercentageSpacing, 100);
    const int size = QFontInfo(QFont(font, &device)).pixelSize();
    const double exact =
        QFontMetricsF(largeFont).horizontalAdvance(sample) * size * sizeFactor / large;
    const double missing = exact / QFontMetricsF(font, &device).horizontalAdvance(sample) - 1;
    return missing > 0 && missing < maxMissing ? missing : 0;
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
    exactSizes_.clear();
    screen_.setDotsPerMeterX(qRound(dpi / metresPerInch));
    screen_.setDotsPerMeterY(qRound(dpi / metresPerInch));
}

bool QtLineLayout::IsInstalled(std::u16string_view family) {
    return IsInstalledFamily(QString::fromUtf16(family.data(), qsizetype(family.size())));
}

std::u16string QtLineLayout::FamilyOf(GenericFamily family) {
    return FamilyOfKind(family).toStdU16String();
}

StyleHandle QtLineLayout::Prepare(const TextStyle& style) {
    QTextCharFormat format;
    // A font has one letter spacing: absolute, or the factor of its size.
    const double sizeFactor = style.letterSpacing != 0 ? 1 : SizeFactor(style, screen_);
    QFont font = ToQFont(style, screen_);
    if (sizeFactor != 1) font.setLetterSpacing(QFont::PercentageSpacing, 100 * sizeFactor);
    format.setFont(font);
    if (style.letterSpacing != 0) format.setProperty(letterSpacingProperty, style.letterSpacing);
    if (style.wordSpacing != 0) format.setProperty(wordSpacingProperty, style.wordSpacing);
    if (style.raise != 0)
        format.setBaselineOffset(BaselineOffset(format.font(), screen_, style.raise));
    if (style.baseline != TextBaseline::Normal)
        format.setVerticalAlignment(ToAlignment(style.baseline));
    if (style.background) format.setBackground(ToQColor(*style.background));
    if (style.color) format.setForeground(ToQColor(*style.color));
    auto prepared = std::make_shared<QtStyle>(std::move(format));
    prepared->exactSize = style.font.exactSize;
    prepared->sizeFactor = sizeFactor;
    if (style.font.exactSize) {
        const ExactSize exact = ExactSizeOf(font, sizeFactor);
        prepared->cutOff = exact.cutOff;
        prepared->maxInk = exact.maxInk;
    }
    return prepared;
}

// Measuring takes a tenth of a millisecond, and a page may have a colour for each word.
QtLineLayout::ExactSize QtLineLayout::ExactSizeOf(const QFont& font, double sizeFactor) {
    constexpr std::size_t maxKept = 1024;
    if (const auto known = exactSizes_.find(font); known != exactSizes_.end()) return known->second;
    if (exactSizes_.size() >= maxKept) exactSizes_.clear();
    const ExactSize exact{CutOff(font, sizeFactor, screen_),
                          QFontMetricsF(font, &screen_).height() / 4};
    exactSizes_.emplace(font, exact);
    return exact;
}

FontMetrics QtLineLayout::Metrics(const PreparedStyle& style) const {
    const auto& prepared = static_cast<const QtStyle&>(style);
    const QFontMetricsF metrics(prepared.format.font(), &screen_);
    const double factor = prepared.sizeFactor;
    return {metrics.ascent() * factor, metrics.descent() * factor, metrics.leading() * factor,
            metrics.horizontalAdvance(u' ')};
}

std::unique_ptr<TextLines> QtLineLayout::BreakLines(const ParagraphText& paragraph) {
    return std::make_unique<QtTextLines>(paragraph, screen_);
}
