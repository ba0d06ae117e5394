#include "platform/qt/text_view/accessibility/accessible_attributes.h"

#include "platform/qt/text_view/accessibility/accessible_units.h"
#include "view/paragraph_shape.h"
#include "view/reading_spans.h"

#include <algorithm>

namespace {
void Add(QString& all, const char* name, const QString& value) {
    all += QLatin1String(name) + u':' + value + u';';
}

// Font names may contain anything, and Qt splits the string without an escape syntax.
QString WithoutSeparators(QString name) {
    for (QChar& unit : name)
        if (unit == u':' || unit == u';' || unit == u',' || unit == u'=') unit = u' ';
    return name.simplified();
}

QString ColorText(Color color) {
    return QStringLiteral("rgb(%1,%2,%3)")
        .arg(color & 0xFF)
        .arg(color >> 8 & 0xFF)
        .arg(color >> 16 & 0xFF);
}

void AddFont(QString& all, const TextStyle& style) {
    const QString family = WithoutSeparators(QString::fromStdU16String(style.font.family));
    if (!family.isEmpty()) Add(all, "font-family", family);
    Add(all, "font-size", QString::number(style.font.points) + QStringLiteral("pt"));
    Add(all, "font-weight", style.font.bold ? QStringLiteral("bold") : QStringLiteral("normal"));
    Add(all, "font-style", style.font.italic ? QStringLiteral("italic") : QStringLiteral("normal"));
    if (style.underline) Add(all, "text-underline-type", QStringLiteral("single"));
    if (style.strikethrough) Add(all, "text-line-through-type", QStringLiteral("single"));
}

void AddColors(QString& all, const LayoutContext& context, const TextStyle& style,
               const SystemStyle& system) {
    Add(all, "color", ColorText(style.color.value_or(PlainTextColor(context.viewStyle, system))));
    Add(all, "background-color", ColorText(style.background.value_or(context.viewStyle.backColor)));
}

QString AlignmentName(Alignment alignment) {
    switch (alignment) {
    case Alignment::Left: return QStringLiteral("left");
    case Alignment::Right: return QStringLiteral("right");
    case Alignment::Center: return QStringLiteral("center");
    case Alignment::Justified: return QStringLiteral("justify");
    }
    return {};
}

QString PositionName(TextBaseline baseline) {
    switch (baseline) {
    case TextBaseline::Superscript: return QStringLiteral("super");
    case TextBaseline::Subscript: return QStringLiteral("sub");
    case TextBaseline::Normal: break;
    }
    return QStringLiteral("baseline");
}

// Paragraph styles apply at the character that ends the paragraph; a text without a final break
// ends at its length.
TextPos EndOf(const LayoutContext& context, TextSpan paragraph) {
    const TextSource& text = *context.text;
    const TextPos last = paragraph.end - 1;
    const bool atEnd = paragraph.end == text.Length();
    if (last < paragraph.start || (atEnd && text.UnitAt(last) != u'\n')) return paragraph.end;
    const bool endsRow = !context.plain && last > paragraph.start && text.UnitAt(last - 1) == u'\a';
    return endsRow ? last - 1 : last;
}

void AddParagraph(QString& all, const LayoutContext& context, TextSpan paragraph) {
    ParagraphPart part;
    part.start = paragraph.start;
    part.end = EndOf(context, paragraph);
    const ParagraphShape shape =
        ShapeOf(context, part, context.text->Range(paragraph.start, paragraph.end));
    Add(all, "text-align", AlignmentName(shape.alignment));
    Add(all, "writing-mode", shape.rightToLeft ? QStringLiteral("rl") : QStringLiteral("lr"));
}
} // namespace

AccessibleAttributes AttributesAt(TextLayouts& layouts, TextPos position,
                                  const SystemStyle& system) {
    const LayoutContext& context = layouts.Context();
    const TextSpan paragraph = UnitAt(layouts, position, TextUnit::Paragraph);
    AccessibleAttributes attributes{paragraph, {}};
    if (!context.plain) {
        const TextSpan run = StyleSpanAt(context, position);
        attributes.span = {std::max(paragraph.start, run.start), std::min(paragraph.end, run.end)};
    }
    const TextStyle& style =
        context.plain ? context.styles.Plain().style : context.styles.At(position).style;
    AddFont(attributes.text, style);
    AddColors(attributes.text, context, style, system);
    Add(attributes.text, "text-position", PositionName(style.baseline));
    AddParagraph(attributes.text, context, paragraph);
    return attributes;
}
