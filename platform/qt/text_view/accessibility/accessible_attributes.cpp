#include "platform/qt/text_view/accessibility/accessible_attributes.h"

#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/accessibility/accessible_units.h"
#include "platform/qt/text_view/layout/paragraph_shape.h"
#include "platform/qt/text_view/layout/style_runs.h"

#include <algorithm>
#include <limits>

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

QString ColorText(const QColor& color) {
    return QStringLiteral("rgb(%1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

void AddFont(QString& all, const QFont& font) {
    const QString family = WithoutSeparators(font.family());
    if (!family.isEmpty()) Add(all, "font-family", family);
    Add(all, "font-size", QString::number(font.pointSizeF()) + QStringLiteral("pt"));
    Add(all, "font-weight", font.bold() ? QStringLiteral("bold") : QStringLiteral("normal"));
    Add(all, "font-style", font.italic() ? QStringLiteral("italic") : QStringLiteral("normal"));
    if (font.underline()) Add(all, "text-underline-type", QStringLiteral("single"));
    if (font.strikeOut()) Add(all, "text-line-through-type", QStringLiteral("single"));
}

void AddColors(QString& all, const LayoutContext& context, const QTextCharFormat& format,
               const QPalette& palette) {
    const QBrush text = format.foreground(), back = format.background();
    Add(all, "color",
        ColorText(text.style() == Qt::NoBrush ? PlainTextColor(context.viewStyle, palette)
                                              : text.color()));
    Add(all, "background-color",
        ColorText(back.style() == Qt::NoBrush ? ToQColor(context.viewStyle.backColor)
                                              : back.color()));
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

QString PositionName(QTextCharFormat::VerticalAlignment alignment) {
    switch (alignment) {
    case QTextCharFormat::AlignSuperScript: return QStringLiteral("super");
    case QTextCharFormat::AlignSubScript: return QStringLiteral("sub");
    default: return QStringLiteral("baseline");
    }
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
    const ParagraphShape shape = ShapeOf(context, part, AccessibleTextOf(context, paragraph));
    Add(all, "text-align", AlignmentName(shape.alignment));
    Add(all, "writing-mode", shape.rightToLeft ? QStringLiteral("rl") : QStringLiteral("lr"));
}

// The run of a character style.
TextSpan StyleSpan(const Document& document, TextPos position) {
    const auto& runs = document.charRuns;
    const std::size_t run = RunAt(runs, position);
    const bool last = run + 1 == runs.size();
    return {runs[run].start, last ? std::numeric_limits<TextPos>::max() : runs[run + 1].start};
}
} // namespace

AccessibleAttributes AttributesAt(TextLayouts& layouts, TextPos position, const QPalette& palette) {
    const LayoutContext& context = layouts.Context();
    const TextSpan paragraph = UnitAt(layouts, position, TextUnit::Paragraph);
    AccessibleAttributes attributes{paragraph, {}};
    QTextCharFormat format;
    format.setFont(MakeFont(context.viewStyle.font));
    if (!context.plain) {
        const TextSpan run = StyleSpan(context.document, position);
        attributes.span = {std::max(paragraph.start, run.start), std::min(paragraph.end, run.end)};
        format = context.formats.FormatAt(position);
    }
    AddFont(attributes.text, format.font());
    AddColors(attributes.text, context, format, palette);
    Add(attributes.text, "text-position", PositionName(format.verticalAlignment()));
    AddParagraph(attributes.text, context, paragraph);
    return attributes;
}
