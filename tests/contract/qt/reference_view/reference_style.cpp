#include "tests/contract/qt/reference_view/reference_style.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>

QFont ReferenceFont(const ViewFont& font) {
    QFont result(font.name.empty() ? QGuiApplication::font().family()
                                   : QString::fromStdU16String(font.name));
    const double size = font.size > 0 ? font.size : QGuiApplication::font().pointSizeF();
    result.setPointSizeF(std::clamp(size, 1.0, 1638.0));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}

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

QFont ReferenceStyleFont(const ReferenceSettings& settings, const CharStyle& style) {
    ViewFont font = settings.style.font;
    if (!settings.style.fontForAll) {
        if (!settings.document->fonts[style.font].empty())
            font.name = settings.document->fonts[style.font];
        font.size = style.halfPoints / 2.0;
        font.bold = style.bold;
        font.italic = style.italic;
        font.underline = style.underline;
        font.strikethrough = style.strikethrough;
    }
    return ReferenceFont(font);
}

QTextCharFormat ReferenceFormat(const ReferenceSettings& settings, const CharStyle& style,
                                bool smaller) {
    QFont font = ReferenceStyleFont(settings, style);
    if (smaller) font.setPointSizeF(0.8 * font.pointSizeF());
    QTextCharFormat format;
    format.setFont(font);
    if (style.script == Script::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (style.script == Script::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    return format;
}

QTextCharFormat ReferencePictureFormat(const ReferenceSettings& settings, const Picture& picture,
                                       int width) {
    QTextCharFormat format;
    QFont font =
        ReferenceStyleFont(settings, ReferenceCharStyle(*settings.document, picture.position));
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    const double own = QFontMetricsF(font, settings.device).horizontalAdvance(referencePlaceholder);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, width - own));
    format.setFont(font);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return format;
}

QSize ReferencePictureSize(const ReferenceSettings& settings, const Picture& picture, int width) {
    QSize size(settings.Pixels(picture.widthTwips), settings.Pixels(picture.heightTwips));
    if (size.isEmpty() && picture.format != PictureFormat::Other) {
        QByteArray bytes = QByteArray::fromStdString(picture.bytes);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const char* kind = picture.format == PictureFormat::Png ? "png" : "jpeg";
        size = QImageReader(&buffer, kind).size() * (15 * settings.pixelsPerTwip);
    }
    if (size.isEmpty()) size = QSize(settings.Pixels(480), settings.Pixels(480));
    const QSize maxSize(std::max(1, width), 4096);
    if (size.width() > maxSize.width() || size.height() > maxSize.height())
        size.scale(maxSize, Qt::KeepAspectRatio);
    return size.expandedTo(QSize(1, 1));
}
