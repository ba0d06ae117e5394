#include "platform/qt/text_view/layout/char_formats.h"

#include "platform/qt/text_view/layout/style_runs.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace {
constexpr double minFont = 1, maxFont = 1638; // points

// A colourful book has some tens. For each that is not installed the system looks for another,
// which takes milliseconds; text in fonts beyond is shown in the document's default.
constexpr std::size_t maxFamilies = 100;

// Each family, size and weight is a font of its own to the system, and takes it half a millisecond.
// What goes beyond is shown in the document's default font, in the nearest of some twenty sizes.
constexpr std::size_t maxFonts = 250;

std::uint16_t CoarseSize(std::uint16_t halfPoints) {
    const double steps = std::round(2 * std::log2(std::max<double>(halfPoints, 2)));
    return static_cast<std::uint16_t>(std::lround(std::exp2(steps / 2)));
}

QString FontName(const std::u16string& name) {
    return name.empty() ? QGuiApplication::font().family() : QString::fromStdU16String(name);
}

double FontSize(double points) {
    return std::clamp(points, minFont, maxFont);
}
} // namespace

QFont MakeFont(const ViewFont& font) {
    QFont result(FontName(font.name));
    const double usual = QGuiApplication::font().pointSizeF();
    result.setPointSizeF(FontSize(font.size > 0 ? font.size : usual > 0 ? usual : 10));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}

QColor PlainTextColor(const ViewLook& look, const QPalette& palette) {
    if (!look.autoColor) return ToQColor(look.textColor);
    const QColor back = ToQColor(look.backColor), usual = palette.color(QPalette::Text);
    return Contrast(usual, back) ? usual : ReadableOn(back);
}

CharFormats::CharFormats(const Document& document, const ViewLook& look, const QPalette& palette)
    : document_(document), look_(look), palette_(palette) {
    Reset();
}

void CharFormats::Reset() {
    formats_.assign(document_.charStyles.size(), std::nullopt);
    last_.reset();
}

void CharFormats::ForgetFonts() {
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

// Links alone make a style for each: they share a format where they look the same.
QTextCharFormat CharFormats::FormatFor(const CharStyle& style) {
    CharStyle look = style;
    look.link = std::min<std::uint16_t>(look.link, 1);
    if (!last_ || last_->first != look) last_ = {look, MakeFormat(look)};
    return last_->second;
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

// The style in a font that the text is shown in already, or in another one while there are few.
CharStyle CharFormats::WithinBounds(CharStyle style) {
    if (style.font >= document_.fonts.size()) style.font = 0;
    if (families_.size() < maxFamilies) families_.insert(style.font);
    if (!families_.contains(style.font)) style.font = 0;
    const FontKey key{style.font, style.halfPoints, style.bold, style.italic};
    if (fonts_.size() < maxFonts) fonts_.insert(key);
    if (fonts_.contains(key)) return style;
    style.font = 0;
    style.halfPoints = CoarseSize(style.halfPoints);
    return style;
}

const std::u16string& CharFormats::Family(const CharStyle& style) const {
    const std::u16string& name = document_.fonts[style.font];
    return name.empty() ? look_.font.name : name;
}

QFont CharFormats::StyleFont(const CharStyle& given) {
    if (look_.fontForAll) return MakeFont(look_.font);
    const CharStyle style = WithinBounds(given);
    QFont font(FontName(Family(style)));
    font.setPointSizeF(FontSize(style.halfPoints / 2.0));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikethrough);
    return font;
}

// None: the view's own text colour, which the painter knows.
std::optional<QColor> CharFormats::Foreground(const CharStyle& style) const {
    const QColor back = ToQColor(style.autoBackground ? look_.backColor : style.background);
    const QColor link = palette_.color(QPalette::Link);
    if (look_.autoColor && style.link != 0 && Contrast(link, back)) return link;
    if (look_.autoColor && !style.autoForeground) return ToQColor(style.foreground);
    if (style.autoBackground || Contrast(PlainTextColor(look_, palette_), back))
        return std::nullopt;
    return ReadableOn(back);
}
