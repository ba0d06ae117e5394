// The formats of a text pane, for assistive technology.
#include "common/contrast.h"
#include "view/paragraph_shape.h"
#include "view/reading_spans.h"
#include "view/text_pane.h"

#include <algorithm>

namespace {
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

TextPos WithinText(const TextPane& pane, TextPos position) {
    return std::clamp(position, 0, std::max(0, pane.Source().Length() - 1));
}
} // namespace

CharacterFormat TextPane::CharacterFormatAt(TextPos position) {
    const LayoutContext& context = layouts_.Context();
    const TextPos at = WithinText(*this, position);
    CharacterFormat format;
    format.span = StyleSpanAt(context, at);
    format.style = context.plain ? context.styles.Plain().style : context.styles.At(at).style;
    const Color text = PlainTextColor(context.viewStyle, System());
    const auto shading =
        format.style.background ? format.style.background : ShadingAt(context.document, at);
    format.background = shading.value_or(context.viewStyle.backColor);
    const bool isHidden = shading && !IsReadable(text, *shading);
    format.foreground = format.style.color.value_or(isHidden ? LegibleOn(*shading) : text);
    return format;
}

ParagraphFormat TextPane::ParagraphFormatAt(TextPos position) {
    const TextSpan span = ReadingParagraphAt(layouts_, WithinText(*this, position));
    ParagraphPart part;
    part.start = span.start;
    part.end = EndOf(layouts_.Context(), span);
    const ParagraphShape shape =
        ShapeOf(layouts_.Context(), part, layouts_.Text().Range(span.start, span.end));
    return {span, shape.alignment, shape.rightToLeft};
}
