#include "tests/contract/qt/reference_view/reference_style.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>

QFont WholeFont(const ViewFont& font) {
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

const CharStyle& WholeCharStyle(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.charRuns)
        if (run.start <= position) style = run.style;
    return document.charStyles[style];
}

const ParagraphStyle& WholeParagraphStyle(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.paragraphRuns)
        if (run.start <= position) style = run.style;
    return document.paragraphStyles[style];
}

QFont WholeStyleFont(const WholeSetting& setting, const CharStyle& style) {
    ViewFont font = setting.look.font;
    if (!setting.look.fontForAll) {
        if (!setting.document->fonts[style.font].empty())
            font.name = setting.document->fonts[style.font];
        font.size = style.halfPoints / 2.0;
        font.bold = style.bold;
        font.italic = style.italic;
        font.underline = style.underline;
        font.strikethrough = style.strikethrough;
    }
    return WholeFont(font);
}

QTextCharFormat WholeFormat(const WholeSetting& setting, const CharStyle& style, bool smaller) {
    QFont font = WholeStyleFont(setting, style);
    if (smaller) font.setPointSizeF(0.8 * font.pointSizeF());
    QTextCharFormat format;
    format.setFont(font);
    if (style.script == Script::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (style.script == Script::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    return format;
}

QTextCharFormat WholePictureFormat(const WholeSetting& setting, const Picture& picture, int width) {
    QTextCharFormat format;
    QFont font = WholeStyleFont(setting, WholeCharStyle(*setting.document, picture.position));
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    const double own = QFontMetricsF(font, setting.device).horizontalAdvance(wholeStandIn);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, width - own));
    format.setFont(font);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return format;
}

QSize WholePictureSize(const WholeSetting& setting, const Picture& picture, int width) {
    QSize size(setting.Pixels(picture.widthTwips), setting.Pixels(picture.heightTwips));
    if (size.isEmpty() && picture.format != PictureFormat::Other) {
        QByteArray bytes = QByteArray::fromStdString(picture.bytes);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const char* kind = picture.format == PictureFormat::Png ? "png" : "jpeg";
        size = QImageReader(&buffer, kind).size() * (15 * setting.pixelsPerTwip);
    }
    if (size.isEmpty()) size = QSize(setting.Pixels(480), setting.Pixels(480));
    const QSize most(std::max(1, width), 4096);
    if (size.width() > most.width() || size.height() > most.height())
        size.scale(most, Qt::KeepAspectRatio);
    return size.expandedTo(QSize(1, 1));
}
