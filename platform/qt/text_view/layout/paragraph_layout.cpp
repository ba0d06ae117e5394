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
// Pictures stand in the text as this character, made invisible and as wide as the picture by letter
// spacing: it has no direction of its own, and a line may break at either side of it.
constexpr char16_t pictureStandIn = u'\u2014';

// The first picture at or behind a position.
template <class Pictures>
auto FirstFrom(const Pictures& pictures, TextPos position) {
    return std::lower_bound(pictures.begin(), pictures.end(), position,
                            [](const auto& picture, TextPos at) { return picture.position < at; });
}

// What stands in for a unit that is not shaped: no character joins it, and it has no width. For two
// units of one character it is one, too, so that the caret does not come between them.
constexpr char16_t leftOut = u'\u200B';
constexpr char16_t leftOutPair[] = u"\U000E0001";

bool SetsDirection(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

// Shows of an endless cluster its beginning: the shaper's work on one grows with its square.
void CutClusters(QString& text) {
    ClusterLength cluster;
    for (qsizetype at = 0, next = 0; at < text.size(); at = next) {
        const bool pair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        next = at + (pair ? 2 : 1);
        const char32_t character =
            pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
        if (cluster.Add(character) < maxClusterLength) continue;
        if (SetsDirection(character)) continue; // to the text's end, if its end were left out
        text[at] = pair ? leftOutPair[0] : leftOut;
        if (pair) text[at + 1] = leftOutPair[1];
    }
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
    CutClusters(text);
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

std::vector<PlacedPicture> PlacePictures(const LayoutContext& context, TextPos start, TextPos end,
                                         int width) {
    std::vector<PlacedPicture> placed;
    const auto& all = context.document.pictures;
    auto picture = FirstFrom(all, start);
    for (; picture != all.end() && picture->position < end; ++picture)
        placed.push_back({picture->position, PictureSize(context, *picture, width)});
    return placed;
}

// `text` is of the part, or of its beginning.
void PrepareText(const LayoutContext& context, const ParagraphPart& part,
                 const ParagraphShape& shape, QString text, ParagraphLayout& result) {
    for (const PlacedPicture& picture : result.pictures)
        text[picture.position - part.start] = pictureStandIn;
    QList<QTextLayout::FormatRange> formats;
    if (!context.plain) {
        formats = context.formats.Ranges(part.start, part.start + TextPos(text.size()));
        ShowCapitals(context, part.start, text, formats);
    }
    for (const PlacedPicture& picture : result.pictures)
        formats.append(PictureFormatRange(context, picture, part.start));
    const QFont font =
        context.plain ? MakeFont(context.look.font) : context.formats.FormatAt(part.end).font();
    result.text = std::make_unique<QTextLayout>(text, font, context.device);
    result.text->setTextOption(shape.option);
    result.text->setCacheEnabled(true); // shaped once, painted often
    result.fonts = HeldFonts(result.text->font(), formats);
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

// The layout cuts off places left of 0, where it takes blanks to be (see line_places.h): so lines
// of a paragraph that goes to the left stand right of it.
constexpr int roomForBlanks = 1 << 14; // pixels

// Only blanks between words are stretched. A line that a break ends keeps its width, and so does
// one with a tab: what stands behind it would leave its column.
bool IsStretched(const ParagraphLayout& paragraph, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    const QString text = paragraph.text->text();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return false;
    const QStringView words =
        QStringView(text).sliced(line.textStart(), line.textLength()).trimmed();
    return words.contains(u' ') && !words.contains(u'\t');
}

// Lays a line out once more at another width, unless it would break elsewhere then.
void ChangeWidth(QTextLine& line, double width) {
    const double before = line.width();
    const int length = line.textLength();
    line.setLineWidth(width);
    if (line.textLength() != length) line.setLineWidth(before);
}

// Breaks the line; returns how far its text is from the edge where lines begin.
int BreakLine(const ParagraphShape& shape, const ParagraphLayout& paragraph, QTextLine& line) {
    const int indent = paragraph.tops.empty() ? shape.firstIndent : shape.indent;
    const int indents = indent + shape.farIndent;
    const int edge = shape.rightToLeft ? shape.farIndent : indent;
    line.setLineWidth(std::max(1, shape.breakWidth - indents));
    const bool stretched = shape.justified && IsStretched(paragraph, line);
    if (shape.justified && !stretched) ChangeWidth(line, line.naturalTextWidth());
    if (stretched && shape.rightToLeft) {
        line.setPosition(QPointF(roomForBlanks, 0));
        const double blanks = BlanksWidth(*paragraph.text, line);
        line.setPosition(QPointF(0, 0)); // what tab stops are measured from
        ChangeWidth(line, line.width() + blanks);
    }
    const int room = shape.alignWidth - indents - int(std::ceil(line.naturalTextWidth()));
    return stretched ? edge : edge + shape.AlignmentShift(std::max(0, room));
}

// A line that ends at a soft hyphen shows it from when the layout is first asked for its glyphs,
// and then tells other places: so it is asked at once.
void ShowHyphen(const QTextLayout& text, const QTextLine& line) {
    const QString all = text.text();
    const int start = line.textStart();
    if (QStringView(all).sliced(start, line.textLength()).contains(QChar::SoftHyphen))
        line.glyphRuns(start, 1);
}

// Lays out one line whose slot starts at `top`; returns the slot's height.
int PlaceLine(const ParagraphShape& shape, ParagraphLayout& paragraph, QTextLine line, int top) {
    const int left = BreakLine(shape, paragraph, line);
    const int ascent = std::max(int(std::ceil(line.ascent())), TallestPicture(paragraph, line));
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

// Lays out lines up to one with a tab that is not the first: the layout puts what stands behind a
// tab in its right place only in its first line. Where the text goes on behind the layout's, its
// last line may be a part of one, too. The line not wanted stays in it, out of sight.
void PlaceLines(const ParagraphShape& shape, ParagraphLayout& result, bool goesOn) {
    constexpr int outOfSight = 1 << 24; // pixels
    const qsizetype length = result.text->text().size();
    const bool tabs = result.text->text().contains(u'\t');
    int top = shape.spaceBefore;
    result.text->beginLayout();
    for (QTextLine line = result.text->createLine(); line.isValid();
         line = result.text->createLine()) {
        const int height = PlaceLine(shape, result, line, top);
        const bool unfinished = goesOn && line.textStart() + line.textLength() == length;
        if (line.lineNumber() > 0 && (unfinished || (tabs && HasTab(*result.text, line)))) {
            line.setPosition(QPointF(0, outOfSight));
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
    const bool goesOn = end < part.end;
    ParagraphLayout result;
    result.start = part.start;
    result.end = end;
    result.continues = goesOn || !part.last;
    result.pictures = PlacePictures(context, part.start, end, shape.TextWidth());
    PrepareText(context, part, shape, text, result);
    if (shape.rightToLeft) result.origin.setX(-roomForBlanks);
    PlaceLines(shape, result, goesOn);
    result.spaceBefore = shape.spaceBefore;
    if (result.end == part.end) result.spaceAfter = shape.spaceAfter;
    result.tops.back() += result.spaceAfter;
    result.pictures.erase(FirstFrom(result.pictures, result.end), result.pictures.end());
    return result;
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

int ParagraphLayout::BottomWithoutSpace(int line) const {
    return line + 1 < LineCount() ? tops[line + 1] : tops.back() - spaceAfter;
}

double ParagraphLayout::X(int line, TextPos position) const {
    return CaretX(*text, text->lineAt(line), position - start);
}

// What the layout says is often not the nearest place: it loses its way behind marks and ligatures,
// and may even leave the line or split a character.
TextPos ParagraphLayout::PositionInLine(int index, int x) const {
    const TextPos first = LineStart(index), last = LastPlace(index);
    if (last < first) return last; // in the line are only marks of a letter above
    const QTextLine line = text->lineAt(index);
    const TextPos told = start + line.xToCursor(AskedX(*text, line, x));
    TextPos at = std::clamp(told, first, last);
    if (!text->isValidCursorPosition(at - start)) at = std::max(first, PlaceBefore(at));
    constexpr int maxSteps = 64; // with characters that have no width on both sides
    TextPos nearest = at;
    double least = std::abs(X(index, at) - x);
    int steps = 0;
    // Whether it is worth while to look on behind a place; some characters have no width.
    const auto leadsOn = [&](TextPos place) {
        const double distance = std::abs(X(index, place) - x);
        steps = distance < least ? 0 : steps + 1;
        if (distance > least || steps > maxSteps) return false;
        if (distance < least) nearest = place;
        least = distance;
        return true;
    };
    const TextPos from = at;
    for (TextPos next = NextPlace(at); next > at && next <= last && leadsOn(next);
         next = NextPlace(at))
        at = next;
    at = from;
    steps = 0;
    for (TextPos before = PlaceBefore(at); before < at && before >= first && leadsOn(before);
         before = PlaceBefore(at))
        at = before;
    return nearest;
}

TextPos ParagraphLayout::LastPlace(int line) const {
    const bool ends = line + 1 == LineCount() && !(continues && end > LineStart(line));
    return ends ? end : PlaceBefore(LineEnd(line));
}

TextPos ParagraphLayout::BlanksStart(int index) const {
    return start + TextEnd(*text, text->lineAt(index));
}

QRectF ParagraphLayout::TextBox(int index) const {
    const QTextLine line = text->lineAt(index);
    QRectF box = line.naturalTextRect();
    const bool stretched = box.width() > line.naturalTextWidth();
    if (stretched) box.setWidth(box.width() - BlanksWidth(*text, line));
    return box;
}

TextPos ParagraphLayout::CharacterInLine(int index, double x) const {
    const QTextLine line = text->lineAt(index);
    return start + line.xToCursor(AskedX(*text, line, x), QTextLine::CursorOnCharacter);
}

// A line with tabs is in a layout of its own, which is given so many tabs at first: the layout's
// work grows with the square of them, and so would ours with all that are left for each line.
constexpr int minTabs = 16;

// Behind so many tabs from a position on; the text's end where there are fewer.
qsizetype EndOfTabs(const QString& text, qsizetype from, int tabs) {
    while (tabs-- > 0 && from < text.size()) {
        const qsizetype tab = text.indexOf(u'\t', from);
        from = tab < 0 ? text.size() : tab + 1;
    }
    return from;
}

std::vector<ParagraphLayout> LayOutParagraph(const LayoutContext& context,
                                             const ParagraphPart& part) {
    std::vector<ParagraphLayout> layouts;
    ParagraphPart rest = part;
    const QString text = LayoutText(context, part);
    int tabs = minTabs;
    for (int y = 0;;) {
        const ParagraphShape shape = ShapeOf(context, rest, text);
        const qsizetype from = rest.start - part.start;
        const QString ahead = text.sliced(from, EndOfTabs(text, from, tabs) - from);
        ParagraphLayout layout = LayOutPart(context, rest, shape, ahead);
        if (layout.end - rest.start == ahead.size() && layout.end < part.end) {
            tabs *= 2; // the line may go on
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
