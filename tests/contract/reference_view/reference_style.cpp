#include "tests/contract/reference_view/reference_style.h"

#include <algorithm>

const CharStyle& ReferenceCharStyle(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.charRuns)
        if (run.start <= position) style = run.style;
    return document.charStyles[style];
}

const ParagraphStyle& ReferenceParagraphStyle(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.paragraphRuns)
        if (run.start <= position) style = run.style;
    return document.paragraphStyles[style];
}

TextStyle ReferenceTextStyle(const ReferenceSettings& settings, const CharStyle& style,
                             bool smaller) {
    ViewFont font = settings.style.font;
    if (!settings.plain && !settings.style.fontForAll) {
        if (!settings.document->fonts[style.font].empty())
            font.name = settings.document->fonts[style.font];
        font.size = style.halfPoints / 2.0;
        font.bold = style.bold;
        font.italic = style.italic;
        font.underline = style.underline;
        font.strikethrough = style.strikethrough;
    }
    TextStyle result;
    result.font.family = font.name;
    result.font.points = std::clamp(font.size > 0 ? font.size : 10, 1.0, 1638.0);
    if (smaller) result.font.points *= 0.8;
    result.font.bold = font.bold;
    result.font.italic = font.italic;
    result.underline = font.underline;
    result.strikethrough = font.strikethrough;
    if (settings.plain) return result;
    if (style.script == Script::Superscript) result.baseline = TextBaseline::Superscript;
    if (style.script == Script::Subscript) result.baseline = TextBaseline::Subscript;
    return result;
}

Size ReferencePictureSize(const ReferenceSettings& settings, const Picture& picture, int width) {
    Size size{settings.Pixels(picture.widthTwips), settings.Pixels(picture.heightTwips)};
    const double scale = 15 * settings.pixelsPerTwip;
    if (size.IsEmpty()) // what the bench's pictures have
        size = {int(std::lround(40 * scale)), int(std::lround(30 * scale))};
    const std::int64_t maxWidth = std::max(1, width), maxHeight = 4096;
    if (size.width <= maxWidth && size.height <= maxHeight) return size;
    const std::int64_t byHeight = maxHeight * size.width / size.height;
    if (byHeight <= maxWidth) return {std::max(1, int(byHeight)), int(maxHeight)};
    return {int(maxWidth), std::max(1, int(maxWidth * size.height / size.width))};
}
