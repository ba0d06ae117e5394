#include "platform/qt/text_view/layout/char_formats.h"

#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/layout/style_runs.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace {
constexpr double minSize = 1, maxSize = 1638; // points

// A colourful book has some tens. Each family that is not installed costs milliseconds to
// substitute; text in further families is shown in the document's default.
constexpr std::size_t maxFamilies = 100;

// Each family, size and weight is a font engine, which costs half a millisecond. Further ones are
// shown in the document's default family, in the nearest of some twenty sizes.
constexpr std::size_t maxFonts = 250;

std::uint16_t RoundedSize(std::uint16_t halfPoints) {
    const double steps = std::round(2 * std::log2(std::max<double>(halfPoints, 2)));
    return static_cast<std::uint16_t>(std::lround(std::exp2(steps / 2)));
}

QString FontName(const std::u16string& name) {
    return name.empty() ? QGuiApplication::font().family() : QString::fromStdU16String(name);
}

double FontSize(double points) {
    return std::clamp(points, minSize, maxSize);
}
} // namespace

QFont MakeFont(const ViewFont& font) {
    QFont result(FontName(font.name));
    const double standard = QGuiApplication::font().pointSizeF();
    result.setPointSizeF(FontSize(font.size > 0 ? font.size : standard > 0 ? standard : 10));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}

QColor PlainTextColor(const ViewStyle& viewStyle, const QPalette& palette) {
    if (!viewStyle.autoColor) return ToQColor(viewStyle.textColor);
    const QColor back = ToQColor(viewStyle.backColor), standard = palette.color(QPalette::Text);
    return HasContrast(standard, back) ? standard : LegibleOn(back);
}

CharFormats::CharFormats(const Document& document, const ViewStyle& viewStyle,
                         const QPalette& palette)
    : document_(document), viewStyle_(viewStyle), palette_(palette) {
    Reset();
}

void CharFormats::Reset() {
    formats_.assign(document_.charStyles.size(), std::nullopt);
    lastFormat_.reset();
}

void CharFormats::ClearFonts() {
    fonts_.clear();
    families_.clear();
}

const QTextCharFormat& CharFormats::FormatAt(TextPos position) {
    return Format(StyleAt(document_.charRuns, position));
}

QList<QTextLayout::FormatRange> CharFormats::Ranges(TextPos start, TextPos end) {
    QList<QTextLayout::FormatRange> ranges;
    const auto& runs = document_.charRuns;
    for (std::size_t i = RunAt(runs, start); i < runs.size() && runs[i].start < end; ++i) {
        const TextPos from = std::max(start, runs[i].start);
        const TextPos to = i + 1 < runs.size() ? std::min(end, runs[i + 1].start) : end;
        if (from < to) ranges.append({from - start, to - from, Format(runs[i].style)});
    }
    return ranges;
}

const QTextCharFormat& CharFormats::Format(std::uint32_t style) {
    auto& format = formats_[std::min<std::size_t>(style, formats_.size() - 1)];
    if (!format) format = FormatFor(document_.charStyles[&format - formats_.data()]);
    return *format;
}

// Each link has a style of its own, but styles that look the same share a format.
QTextCharFormat CharFormats::FormatFor(const CharStyle& style) {
    CharStyle shared = style;
    shared.link = std::min<std::uint16_t>(shared.link, 1);
    if (!lastFormat_ || lastFormat_->first != shared) lastFormat_ = {shared, MakeFormat(shared)};
    return lastFormat_->second;
}

QTextCharFormat CharFormats::MakeFormat(const CharStyle& style) {
    QFont font = StyleFont(style);
    if (style.link != 0) font.setUnderline(true);
    QTextCharFormat format;
    format.setFont(font);
    if (style.script == Script::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (style.script == Script::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (!style.autoBackground) format.setBackground(ToQColor(style.background));
    if (const auto foreground = Foreground(style)) format.setForeground(*foreground);
    return format;
}

// Limits the number of different fonts.
CharStyle CharFormats::WithFontLimit(CharStyle style) {
    if (style.font >= document_.fonts.size()) style.font = 0;
    if (families_.size() < maxFamilies) families_.insert(style.font);
    if (!families_.contains(style.font)) style.font = 0;
    const FontKey key{style.font, style.halfPoints, style.bold, style.italic};
    if (fonts_.size() < maxFonts) fonts_.insert(key);
    if (fonts_.contains(key)) return style;
    style.font = 0;
    style.halfPoints = RoundedSize(style.halfPoints);
    return style;
}

const std::u16string& CharFormats::Family(const CharStyle& style) const {
    const std::u16string& name = document_.fonts[style.font];
    return name.empty() ? viewStyle_.font.name : name;
}

QFont CharFormats::StyleFont(const CharStyle& requested) {
    if (viewStyle_.fontForAll) return MakeFont(viewStyle_.font);
    const CharStyle style = WithFontLimit(requested);
    QFont font(FontName(Family(style)));
    font.setPointSizeF(FontSize(style.halfPoints / 2.0));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikethrough);
    return font;
}

// None: the view's text colour, which is the painter's pen.
std::optional<QColor> CharFormats::Foreground(const CharStyle& style) const {
    const QColor back = ToQColor(style.autoBackground ? viewStyle_.backColor : style.background);
    const QColor link = palette_.color(QPalette::Link);
    if (viewStyle_.autoColor && style.link != 0 && HasContrast(link, back)) return link;
    if (viewStyle_.autoColor && !style.autoForeground) return ToQColor(style.foreground);
    if (style.autoBackground || HasContrast(PlainTextColor(viewStyle_, palette_), back))
        return std::nullopt;
    return LegibleOn(back);
}
