#include "platform/qt/text_view/accessibility/accessible_attributes.h"

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

void AddParagraph(QString& all, const ParagraphFormat& paragraph) {
    Add(all, "text-align", AlignmentName(paragraph.alignment));
    Add(all, "writing-mode", paragraph.rightToLeft ? QStringLiteral("rl") : QStringLiteral("lr"));
}
} // namespace

AccessibleAttributes AttributesAt(ReadablePane& pane, TextPos position) {
    const ParagraphFormat paragraph = pane.ParagraphFormatAt(position);
    const CharacterFormat character = pane.CharacterFormatAt(position);
    AccessibleAttributes attributes;
    attributes.span = {std::max(paragraph.span.start, character.span.start),
                       std::min(paragraph.span.end, character.span.end)};
    AddFont(attributes.text, character.style);
    Add(attributes.text, "color", ColorText(character.foreground));
    Add(attributes.text, "background-color", ColorText(character.background));
    Add(attributes.text, "text-position", PositionName(character.style.baseline));
    AddParagraph(attributes.text, paragraph);
    return attributes;
}
