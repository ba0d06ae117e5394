// Breaks a paragraph into lines.
#include "platform/qt/text_view/layout/paragraph_layout.h"

#include "platform/qt/text_view/layout/capitals.h"
#include "platform/qt/text_view/layout/layout_cost.h"
#include "platform/qt/text_view/layout/line_positions.h"
#include "platform/qt/text_view/layout/paragraph_shape.h"
#include "platform/qt/text_view/layout/pinned_fonts.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {
// Represents a picture in the layout; transparent, and widened to the picture by letter spacing. It
// is neutral in direction, and a line may break on both sides of it.
constexpr char16_t picturePlaceholder = u'\u2014';

// The first picture at or after a position.
template <class Pictures>
auto FirstFrom(const Pictures& pictures, TextPos position) {
    return std::lower_bound(pictures.begin(), pictures.end(), position,
                            [](const auto& picture, TextPos at) { return picture.position < at; });
}

// Replaces a unit that is not shaped: zero width, and nothing combines with it. A surrogate pair is
// replaced by a pair, so that there is no caret position within it.
constexpr char16_t omittedUnit = u'\u200B';
constexpr char16_t omittedPair[] = u"\U000E0001";

bool IsDirectionControl(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

// Shaping a cluster takes quadratic time, so only its beginning is shown.
void TruncateClusters(QString& text) {
    ClusterLength cluster;
    for (qsizetype at = 0, next = 0; at < text.size(); at = next) {
        const bool pair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        next = at + (pair ? 2 : 1);
        const char32_t character =
            pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
        if (cluster.Add(character) < maxClusterLength) continue;
        if (IsDirectionControl(character)) continue; // keeps pairs of them balanced
        text[at] = pair ? omittedPair[0] : omittedUnit;
        if (pair) text[at + 1] = omittedPair[1];
    }
}

// One unit for each unit of the document.
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
    TruncateClusters(text);
    return text;
}

QTextLayout::FormatRange PictureFormatRange(const LayoutContext& context,
                                            const PlacedPicture& picture, TextPos start) {
    QTextCharFormat format = context.formats.FormatAt(picture.position);
    QFont font = format.font();
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    const double own = QFontMetricsF(font, context.device).horizontalAdvance(picturePlaceholder);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, picture.size.width() - own));
    format.setFont(font);
    format.setForeground(Qt::transparent);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return {picture.position - start, 1, format};
}

std::vector<PlacedPicture> PlacePictures(const LayoutContext& context, TextPos start, TextPos end,
                                         int width) {
    std::vector<PlacedPicture> placed;
    const auto& all = context.document.pictures;
    auto picture = FirstFrom(all, start);
    for (; picture != all.end() && picture->position < end; ++picture)
        placed.push_back({picture->position, PictureSize(context, *picture, width)});
    return placed;
}

// `text` is the part's text, or the beginning of it.
void PrepareText(const LayoutContext& context, const ParagraphPart& part,
                 const ParagraphShape& shape, QString text, ParagraphLayout& result) {
    for (const PlacedPicture& picture : result.pictures)
        text[picture.position - part.start] = picturePlaceholder;
    QList<QTextLayout::FormatRange> formats;
    if (!context.plain) {
        formats = context.formats.Ranges(part.start, part.start + TextPos(text.size()));
        ApplyCapitals(context, part.start, text, formats);
    }
    for (const PlacedPicture& picture : result.pictures)
        formats.append(PictureFormatRange(context, picture, part.start));
    const QFont font = context.plain ? MakeFont(context.viewStyle.font)
                                     : context.formats.FormatAt(part.end).font();
    result.text = std::make_unique<QTextLayout>(text, font, context.device);
    result.text->setTextOption(shape.option);
    result.text->setCacheEnabled(true); // shaped once, painted often
    result.fonts = PinFonts(result.text->font(), formats);
    result.text->setFormats(formats);
}

int MaxPictureHeight(const ParagraphLayout& paragraph, const QTextLine& line) {
    const TextPos from = paragraph.start + line.textStart(), to = from + line.textLength();
    int maxHeight = 0;
    auto picture = FirstFrom(paragraph.pictures, from);
    for (; picture != paragraph.pictures.end() && picture->position < to; ++picture)
        maxHeight = std::max(maxHeight, picture->size.height());
    return maxHeight;
}

// QTextLayout clips cursor positions left of 0, where it assumes trailing spaces (see
// line_positions.h): so lines of a right-to-left paragraph are laid out to the right of this.
constexpr int roomForSpaces = 1 << 14; // pixels

// Lines with spaces between words only. A line before a line break keeps its width, and so does a
// line with a tab, where text would leave its column.
bool IsJustifiedLine(const ParagraphLayout& paragraph, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    const QString text = paragraph.text->text();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return false;
    const QStringView words =
        QStringView(text).sliced(line.textStart(), line.textLength()).trimmed();
    return words.contains(u' ') && !words.contains(u'\t');
}

// Sets another width unless the line would then break elsewhere.
void ChangeWidth(QTextLine& line, double width) {
    const double before = line.width();
    const int length = line.textLength();
    line.setLineWidth(width);
    if (line.textLength() != length) line.setLineWidth(before);
}

// Breaks the line; returns the distance of its text from the start edge.
int BreakLine(const ParagraphShape& shape, const ParagraphLayout& paragraph, QTextLine& line) {
    const int indent = paragraph.tops.empty() ? shape.firstIndent : shape.indent;
    const int indents = indent + shape.endIndent;
    const int edge = shape.rightToLeft ? shape.endIndent : indent;
    line.setLineWidth(std::max(1, shape.breakWidth - indents));
    const bool stretched = shape.justified && IsJustifiedLine(paragraph, line);
    if (shape.justified && !stretched) ChangeWidth(line, line.naturalTextWidth());
    if (stretched && shape.rightToLeft) {
        line.setPosition(QPointF(roomForSpaces, 0));
        const double spaces = TrailingSpacesWidth(*paragraph.text, line);
        line.setPosition(QPointF(0, 0)); // tab stops are relative to it
        ChangeWidth(line, line.width() + spaces);
    }
    const int room = shape.alignWidth - indents - int(std::ceil(line.naturalTextWidth()));
    return stretched ? edge : edge + shape.AlignmentShift(std::max(0, room));
}

// The width of a soft hyphen at a line's end is included only after the glyphs have been requested,
// which changes cursor positions: so they are requested here.
void ShowHyphen(const QTextLayout& text, const QTextLine& line) {
    const QString all = text.text();
    const int start = line.textStart();
    if (QStringView(all).sliced(start, line.textLength()).contains(QChar::SoftHyphen))
        line.glyphRuns(start, 1);
}

// Lays out one line at `top`; returns its height.
int PlaceLine(const ParagraphShape& shape, ParagraphLayout& paragraph, QTextLine line, int top) {
    const int left = BreakLine(shape, paragraph, line);
    const int ascent = std::max(int(std::ceil(line.ascent())), MaxPictureHeight(paragraph, line));
    const int descent = int(std::ceil(line.descent()));
    const int height = shape.LineHeight(ascent + descent + std::max(0, qRound(line.leading())));
    const int baseline = top + height - descent;
    line.setPosition(QPointF(left - paragraph.origin.x(), baseline - line.ascent()));
    paragraph.width = std::max(paragraph.width, left + int(std::ceil(line.naturalTextWidth())));
    return height;
}

bool HasTab(const QTextLayout& text, const QTextLine& line) {
    const QString all = text.text();
    return QStringView(all).sliced(line.textStart(), line.textLength()).contains(u'\t');
}

// Stops before the second line with a tab, because QTextLayout places text behind a tab correctly
// only in its first line. If the paragraph is continued after the layout, the last line may be
// incomplete and is left out, too. The line left out is moved offscreen.
void PlaceLines(const ParagraphShape& shape, ParagraphLayout& result, bool isContinued) {
    constexpr int offscreen = 1 << 24; // pixels
    const qsizetype length = result.text->text().size();
    const bool tabs = result.text->text().contains(u'\t');
    int top = shape.spaceBefore;
    result.text->beginLayout();
    for (QTextLine line = result.text->createLine(); line.isValid();
         line = result.text->createLine()) {
        const int height = PlaceLine(shape, result, line, top);
        const bool unfinished = isContinued && line.textStart() + line.textLength() == length;
        if (line.lineNumber() > 0 && (unfinished || (tabs && HasTab(*result.text, line)))) {
            line.setPosition(QPointF(0, offscreen));
            result.end = result.start + line.textStart();
            result.continues = true;
            break;
        }
        ShowHyphen(*result.text, line);
        result.tops.push_back(result.tops.empty() ? 0 : top);
        top += height;
    }
    result.text->endLayout();
    result.tops.push_back(top);
}

ParagraphLayout LayOutPart(const LayoutContext& context, const ParagraphPart& part,
                           const ParagraphShape& shape, const QString& text) {
    const TextPos end = part.start + TextPos(text.size());
    const bool isContinued = end < part.end;
    ParagraphLayout result;
    result.start = part.start;
    result.end = end;
    result.continues = isContinued || !part.last;
    result.pictures = PlacePictures(context, part.start, end, shape.TextWidth());
    PrepareText(context, part, shape, text, result);
    if (shape.rightToLeft) result.origin.setX(-roomForSpaces);
    PlaceLines(shape, result, isContinued);
    result.spaceBefore = shape.spaceBefore;
    if (result.end == part.end) result.spaceAfter = shape.spaceAfter;
    result.box = shape.box;
    result.box.left -= result.origin.x();
    result.box.right -= result.origin.x();
    if (result.end != part.end) result.box.joinsBelow = true;
    result.tops.back() += result.spaceAfter;
    result.pictures.erase(FirstFrom(result.pictures, result.end), result.pictures.end());
    return result;
}
// Each line with a tab starts a new layout of the rest, which is given only so many tabs at first:
// QTextLayout takes quadratic time in tabs.
constexpr int minTabs = 16;

// The position behind the next `tabs` tabs, or the text's end.
qsizetype EndOfTabs(const QString& text, qsizetype from, int tabs) {
    while (tabs-- > 0 && from < text.size()) {
        const qsizetype tab = text.indexOf(u'\t', from);
        from = tab < 0 ? text.size() : tab + 1;
    }
    return from;
}
} // namespace

std::vector<ParagraphLayout> LayOutParagraph(const LayoutContext& context,
                                             const ParagraphPart& part) {
    std::vector<ParagraphLayout> layouts;
    ParagraphPart rest = part;
    const QString text = LayoutText(context, part);
    int tabs = minTabs;
    for (int y = 0;;) {
        const ParagraphShape shape = ShapeOf(context, rest, text);
        const qsizetype from = rest.start - part.start;
        const QString nextText = text.sliced(from, EndOfTabs(text, from, tabs) - from);
        ParagraphLayout layout = LayOutPart(context, rest, shape, nextText);
        if (layout.end - rest.start == nextText.size() && layout.end < part.end) {
            tabs *= 2; // the line may be incomplete
            continue;
        }
        layout.origin.ry() += y;
        y += layout.Height();
        rest.start = layout.end;
        layouts.push_back(std::move(layout));
        if (rest.start == part.end) return layouts;
        rest.first = false;
        rest.rightToLeft = shape.rightToLeft;
    }
}
