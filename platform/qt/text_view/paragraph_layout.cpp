#include "platform/qt/text_view/paragraph_layout.h"

#include "platform/qt/text_view/paragraph_shape.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {
// Pictures stand in the text as this character, made invisible and as wide as the picture by letter
// spacing: it has no direction of its own, and a line may break at either side of it.
constexpr char16_t pictureStandIn = u'\u2014';

// The first picture at or behind a position.
template <class Pictures>
auto FirstFrom(const Pictures& pictures, TextPos position) {
    return std::lower_bound(pictures.begin(), pictures.end(), position,
                            [](const auto& picture, TextPos at) { return picture.position < at; });
}

// As QTextLayout wants it: one character for each of the document's.
QString LayoutText(const LayoutContext& context, const ParagraphPart& part) {
    QString text;
    text.reserve(part.end - part.start);
    for (TextPos from = part.start; from < part.end;) {
        const TextPiece piece = context.text->PieceAt(from);
        const TextPos end = std::min(part.end, piece.End());
        text.append(QStringView(piece.units.data() + (from - piece.start), end - from));
        from = end;
    }
    for (QChar& unit : text)
        if (unit == u'\v' || (unit == u'\a' && !context.plain)) unit = QChar::LineSeparator;
    return text;
}

QTextLayout::FormatRange PictureFormatRange(const LayoutContext& context,
                                            const PlacedPicture& picture, TextPos start) {
    QTextCharFormat format = context.formats.FormatAt(picture.position);
    QFont font = format.font();
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    const double own = QFontMetricsF(font, context.device).horizontalAdvance(pictureStandIn);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, picture.size.width() - own));
    format.setFont(font);
    format.setForeground(Qt::transparent);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return {picture.position - start, 1, format};
}

std::vector<PlacedPicture> PlacePictures(const LayoutContext& context, const ParagraphPart& part,
                                         int width) {
    std::vector<PlacedPicture> placed;
    const auto& all = context.document.pictures;
    auto picture = FirstFrom(all, part.start);
    for (; picture != all.end() && picture->position < part.end; ++picture)
        placed.push_back({picture->position, PictureSize(context, *picture, width)});
    return placed;
}

void PrepareText(const LayoutContext& context, const ParagraphPart& part,
                 const ParagraphShape& shape, QString text, ParagraphLayout& result) {
    for (const PlacedPicture& picture : result.pictures)
        text[picture.position - part.start] = pictureStandIn;
    const QFont font =
        context.plain ? MakeFont(context.look.font) : context.formats.FormatAt(part.end).font();
    result.text = std::make_unique<QTextLayout>(text, font, context.device);
    result.text->setTextOption(shape.option);
    result.text->setCacheEnabled(true); // shaped once, painted often
    if (context.plain) return;
    auto formats = context.formats.Ranges(part.start, part.end);
    for (const PlacedPicture& picture : result.pictures)
        formats.append(PictureFormatRange(context, picture, part.start));
    result.text->setFormats(formats);
}

int TallestPicture(const ParagraphLayout& paragraph, const QTextLine& line) {
    const TextPos from = paragraph.start + line.textStart(), to = from + line.textLength();
    int tallest = 0;
    auto picture = FirstFrom(paragraph.pictures, from);
    for (; picture != paragraph.pictures.end() && picture->position < to; ++picture)
        tallest = std::max(tallest, picture->size.height());
    return tallest;
}

// A justified line that reads to the left would leave the room of the blanks behind its last word
// at its beginning, where it is seen.
int JustificationError(const LayoutContext& context, const ParagraphShape& shape,
                       const ParagraphLayout& paragraph, const QTextLine& line) {
    const bool justified = shape.option.alignment() & Qt::AlignJustify;
    const int end = line.textStart() + line.textLength();
    const QString text = paragraph.text->text();
    if (!justified || !shape.rightToLeft || end >= text.size()) return 0;
    int blanks = 0;
    while (blanks < line.textLength() && text[end - 1 - blanks] == u' ')
        ++blanks;
    const QFont font = context.plain ? paragraph.text->font()
                                     : context.formats.FormatAt(paragraph.start + end - 1).font();
    return qRound(blanks * QFontMetricsF(font, context.device).horizontalAdvance(u' '));
}

// Lays out one line whose slot starts at `top`; returns the slot's height.
int PlaceLine(const LayoutContext& context, QTextLine line, const ParagraphShape& shape,
              ParagraphLayout& paragraph, int top) {
    const int indent = paragraph.tops.empty() ? shape.firstIndent : shape.indent;
    const int edge = shape.rightToLeft ? shape.farIndent : indent;
    const int indents = indent + shape.farIndent;
    line.setLineWidth(std::max(1, shape.breakWidth - indents));

    const int ascent = std::max(int(std::ceil(line.ascent())), TallestPicture(paragraph, line));
    const int height = shape.LineHeight(ascent + int(std::ceil(line.descent())));
    const int baseline = top + height - int(std::ceil(line.descent()));
    const int room = shape.alignWidth - indents - int(std::ceil(line.naturalTextWidth()));
    const int shift = shape.AlignmentShift(std::max(0, room)) +
                      JustificationError(context, shape, paragraph, line);
    line.setPosition(QPointF(edge + shift, baseline - line.ascent()));
    paragraph.width =
        std::max(paragraph.width, edge + shift + int(std::ceil(line.naturalTextWidth())));
    return height;
}
} // namespace

int LayoutContext::Pixels(std::int32_t twips) const {
    constexpr int most = 22 * 1440; // the longest measure of a page
    return int(std::lround(std::clamp(twips, -most, most) * pixelsPerTwip));
}

TextPos ParagraphLayout::LineEnd(int line) const {
    return line + 1 < LineCount() ? LineStart(line + 1) : end;
}

int ParagraphLayout::LineOf(TextPos position) const {
    const TextPos at = std::clamp(position, start, end) - start;
    int low = 0, high = LineCount() - 1; // the last line that starts at or before `at`
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (text->lineAt(middle).textStart() <= at)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

QRect ParagraphLayout::PictureBox(const PlacedPicture& picture) const {
    const int at = picture.position - start;
    const QTextLine line = text->lineAt(LineOf(picture.position));
    const double left = std::min(line.cursorToX(at), line.cursorToX(at, QTextLine::Trailing));
    const QPoint base = QPointF(left, line.y() + line.ascent()).toPoint();
    return {base - QPoint(0, picture.size.height()), picture.size};
}

ParagraphLayout LayOutParagraph(const LayoutContext& context, const ParagraphPart& part) {
    const QString text = LayoutText(context, part);
    const ParagraphShape shape = ShapeOf(context, part, text);
    ParagraphLayout result;
    result.start = part.start;
    result.end = part.end;
    result.pictures = PlacePictures(context, part, shape.TextWidth());
    PrepareText(context, part, shape, text, result);

    int top = shape.spaceBefore;
    result.text->beginLayout();
    for (QTextLine line = result.text->createLine(); line.isValid();
         line = result.text->createLine()) {
        const int height = PlaceLine(context, line, shape, result, top);
        result.tops.push_back(result.tops.empty() ? 0 : top);
        top += height;
    }
    result.text->endLayout();
    result.tops.push_back(top + shape.spaceAfter);
    return result;
}
