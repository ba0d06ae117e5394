#include "view/text_styles.h"

#include "common/contrast.h"
#include "view/style_runs.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double minSize = 1, maxSize = 1638; // points
constexpr double smallCapitals = 0.8;         // of the surrounding font size

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

TextBaseline BaselineOf(Script script) {
    switch (script) {
    case Script::Superscript: return TextBaseline::Superscript;
    case Script::Subscript: return TextBaseline::Subscript;
    case Script::Normal: break;
    }
    return TextBaseline::Normal;
}
} // namespace

TextStyle StyleOf(const ViewFont& font, const SystemStyle& system) {
    TextStyle style;
    style.font.family = font.name.empty() ? system.fontFamily : font.name;
    style.font.points = std::clamp(font.size > 0 ? font.size : system.fontPoints, minSize, maxSize);
    style.font.bold = font.bold;
    style.font.italic = font.italic;
    style.underline = font.underline;
    style.strikethrough = font.strikethrough;
    return style;
}

// Where both are other colours than a view begins with, the reader chose them for each other.
Color PlainTextColor(const ViewStyle& view, const SystemStyle& system) {
    const ViewStyle usual;
    const bool areChosen = view.textColor != usual.textColor && view.backColor != usual.backColor;
    if (!view.autoColor && areChosen) return view.textColor;
    return ReadableOn(view.backColor, view.autoColor ? system.text : view.textColor);
}

// A paragraph's shading is over that of its cell.
std::optional<Color> ShadingAt(const Document& document, TextPos position) {
    const std::uint32_t index = StyleAt(document.paragraphRuns, position);
    const ParagraphStyle& paragraph =
        document.paragraphStyles[std::min<std::size_t>(index, document.paragraphStyles.size() - 1)];
    if (!paragraph.autoBackground) return paragraph.background;
    const auto row = std::upper_bound(document.rows.begin(), document.rows.end(), position,
                                      [](TextPos at, const TableRow& r) { return at < r.end; });
    if (row == document.rows.end() || position < row->start) return std::nullopt;
    const auto cell = std::upper_bound(row->cells.begin(), row->cells.end(), position,
                                       [](TextPos at, const TableCell& c) { return at < c.end; });
    if (cell == row->cells.end() || cell->autoBackground) return std::nullopt;
    return cell->background;
}

TextStyles::TextStyles(const Document& document, const ViewStyle& view, const SystemStyle& system,
                       LineLayout& layout)
    : document_(document), view_(view), system_(system), layout_(layout) {
    Reset();
}

void TextStyles::Reset() {
    shown_.assign(document_.charStyles.size(), std::nullopt);
    shaded_.clear();
    plain_.reset();
    last_.reset();
    smaller_.reset();
}

void TextStyles::ClearFonts() {
    fonts_.clear();
    families_.clear();
}

const TextStyles::Shown& TextStyles::Plain() {
    if (!plain_) {
        const TextStyle style = StyleOf(view_.font, system_);
        plain_ = Shown{style, layout_.Prepare(style)};
    }
    return *plain_;
}

const TextStyles::Shown& TextStyles::At(TextPos position) {
    const std::size_t style = StyleAt(document_.charRuns, position);
    const std::size_t index = std::min(style, shown_.size() - 1);
    const CharStyle& given = document_.charStyles[index];
    if (const auto shading = ShadingAt(document_, position)) {
        const auto [known, isNew] = shaded_.try_emplace({index, *shading});
        if (isNew) known->second = Prepare(given, *shading);
        return known->second;
    }
    if (!shown_[index]) shown_[index] = Prepare(given, view_.backColor);
    return *shown_[index];
}

const StyleHandle& TextStyles::SmallerAt(TextPos position) {
    const Shown& full = At(position);
    if (!smaller_ || smaller_->first != full.handle) {
        TextStyle style = full.style;
        style.font.points *= smallCapitals;
        smaller_ = {full.handle, layout_.Prepare(style)};
    }
    return smaller_->second;
}

// Each link has a style of its own, but styles that look the same are prepared once.
TextStyles::Shown TextStyles::Prepare(const CharStyle& style, Color background) {
    CharStyle shared = style;
    shared.link = std::min<std::uint16_t>(shared.link, 1);
    if (!last_ || last_->style != shared || last_->background != background) {
        const TextStyle resolved = Resolve(shared, background);
        last_ = {shared, background, Shown{resolved, layout_.Prepare(resolved)}};
    }
    return last_->shown;
}

TextStyle TextStyles::Resolve(const CharStyle& requested, Color background) {
    TextStyle style;
    if (view_.fontForAll) {
        style = StyleOf(view_.font, system_);
    } else {
        const CharStyle limited = WithFontLimit(requested);
        style.font = FontOf(limited);
        style.underline = limited.underline;
        style.strikethrough = limited.strikethrough;
    }
    if (requested.link != 0) style.underline = true;
    style.baseline = BaselineOf(requested.script);
    if (!requested.autoBackground) style.background = requested.background;
    style.color = Foreground(requested, background);
    return style;
}

// Limits the number of different fonts.
CharStyle TextStyles::WithFontLimit(CharStyle style) {
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

TextFont TextStyles::FontOf(const CharStyle& style) const {
    TextFont font;
    font.family = document_.fonts[style.font];
    if (font.family.empty()) font.family = view_.font.name;
    if (font.family.empty()) font.family = system_.fontFamily;
    font.points = std::clamp(style.halfPoints / 2.0, minSize, maxSize);
    font.bold = style.bold;
    font.italic = style.italic;
    return font;
}

// None: the view's text colour, which is drawn with.
std::optional<Color> TextStyles::Foreground(const CharStyle& style, Color background) const {
    const Color back = style.autoBackground ? background : style.background;
    if (view_.autoColor && style.link != 0) return ReadableOn(back, system_.link);
    if (view_.autoColor && !style.autoForeground) return ReadableOn(back, style.foreground);
    if (style.autoBackground || IsReadable(PlainTextColor(view_, system_), back))
        return std::nullopt;
    return LegibleOn(back);
}
