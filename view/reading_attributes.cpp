#include "view/reading_attributes.h"

#include "common/contrast.h"
#include "view/paragraph_shape.h"
#include "view/reading_spans.h"

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

CharacterLook CharacterLookAt(TextPane& pane, TextPos position) {
    const LayoutContext& context = pane.Layouts().Context();
    const TextPos at = WithinText(pane, position);
    CharacterLook look;
    look.span = StyleSpanAt(context, at);
    look.style = context.plain ? context.styles.Plain().style : context.styles.At(at).style;
    const Color text = PlainTextColor(context.viewStyle, pane.System());
    const auto shading =
        look.style.background ? look.style.background : ShadingAt(context.document, at);
    look.background = shading.value_or(context.viewStyle.backColor);
    const bool isHidden = shading && !IsReadable(text, *shading);
    look.foreground = look.style.color.value_or(isHidden ? LegibleOn(*shading) : text);
    return look;
}

ParagraphLook ParagraphLookAt(TextPane& pane, TextPos position) {
    TextLayouts& layouts = pane.Layouts();
    const TextSpan span = ReadingParagraphAt(layouts, WithinText(pane, position));
    ParagraphPart part;
    part.start = span.start;
    part.end = EndOf(layouts.Context(), span);
    const ParagraphShape shape =
        ShapeOf(layouts.Context(), part, layouts.Text().Range(span.start, span.end));
    return {span, shape.alignment, shape.rightToLeft};
}
