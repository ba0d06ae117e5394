#include "tests/contract/whole_view/whole_paragraph.h"

#include "tests/contract/whole_view/whole_places.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImageReader>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
constexpr double farRight = 1 << 14; // where lines that go to the left begin
constexpr char16_t standIn = u'\u2014';

const CharStyle& StyleOf(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.charRuns)
        if (run.start <= position) style = run.style;
    return document.charStyles[style];
}

const ParagraphStyle& ParagraphStyleOf(const Document& document, TextPos position) {
    std::uint32_t style = 0;
    for (const StyleRun& run : document.paragraphRuns)
        if (run.start <= position) style = run.style;
    return document.paragraphStyles[style];
}

QFont StyleFont(const WholeSetting& setting, const CharStyle& style) {
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

QTextCharFormat FormatOf(const WholeSetting& setting, const CharStyle& style, bool smaller) {
    QFont font = StyleFont(setting, style);
    if (smaller) font.setPointSizeF(0.8 * font.pointSizeF());
    QTextCharFormat format;
    format.setFont(font);
    if (style.script == Script::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (style.script == Script::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    return format;
}

QTextCharFormat PictureFormat(const WholeSetting& setting, const Picture& picture, int width) {
    QTextCharFormat format;
    QFont font = StyleFont(setting, StyleOf(*setting.document, picture.position));
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    const double own = QFontMetricsF(font, setting.device).horizontalAdvance(standIn);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, width - own));
    format.setFont(font);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return format;
}

// All that a part's layout needs, from its style.
struct Shape {
    bool rightToLeft = false, stretches = false;
    Alignment alignment = Alignment::Left;
    int firstIndent = 0, indent = 0, farIndent = 0, before = 0, after = 0;
    std::int32_t spacing = 0;
    bool multiple = false;
    QTextOption option;
};

double TabUnit(const WholeSetting& setting) {
    return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY()) /
           double(setting.device->logicalDpiY());
}

Shape ShapeOf(const WholeSetting& setting, const WholePart& part, const QString& text,
              const bool* rightToLeft) {
    const ParagraphStyle& style = ParagraphStyleOf(*setting.document, part.end);
    Shape shape;
    shape.rightToLeft = rightToLeft     ? *rightToLeft
                        : setting.plain ? text.isRightToLeft()
                                        : style.rightToLeft;
    shape.alignment = setting.look.alignment.value_or(
        shape.rightToLeft && style.alignment == Alignment::Left ? Alignment::Right
                                                                : style.alignment);
    shape.stretches = shape.alignment == Alignment::Justified && part.breakWidth <= part.alignWidth;
    shape.option.setAlignment(shape.stretches ? Qt::AlignJustify : Qt::AlignLeft);
    shape.option.setTextDirection(shape.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    shape.option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (setting.plain) {
        const double blank =
            QFontMetricsF(WholeFont(setting.look.font), setting.device).horizontalAdvance(u' ');
        shape.option.setTabStopDistance(std::max(1.0, 8 * blank) * TabUnit(setting));
        return shape;
    }
    const int most = std::max(0, part.alignWidth - setting.Pixels(960));
    const int left = std::max(0, setting.Pixels(style.leftIndent));
    const int right = std::max(0, setting.Pixels(style.rightIndent));
    shape.indent = std::min(shape.rightToLeft ? right : left, most);
    shape.farIndent = std::min(shape.rightToLeft ? left : right, most - shape.indent);
    const int extra = part.first ? setting.Pixels(style.firstLineIndent) : 0;
    shape.firstIndent = std::clamp(shape.indent + extra, 0, most - shape.farIndent);
    if (part.first) shape.before = std::max(0, setting.Pixels(style.spaceBefore));
    if (part.last) shape.after = std::max(0, setting.Pixels(style.spaceAfter));
    shape.spacing = style.lineSpacing;
    shape.multiple = style.lineSpacingIsMultiple;

    std::vector<int> stops;
    for (const std::int32_t stop : style.tabStops)
        stops.push_back(setting.Pixels(stop));
    if (shape.firstIndent < shape.indent) stops.push_back(shape.indent);
    const int last = stops.empty() ? 0 : *std::max_element(stops.begin(), stops.end());
    const int usual = setting.Pixels(std::max(60, setting.document->defaultTab));
    for (int i = 1; i <= 200 && (last / usual + i - 1) * usual < part.breakWidth; ++i)
        stops.push_back((last / usual + i) * usual);
    std::sort(stops.begin(), stops.end());
    QList<QTextOption::Tab> tabs;
    for (const int stop : stops)
        if (stop > shape.firstIndent)
            tabs.append({(stop - shape.firstIndent) * TabUnit(setting),
                         shape.rightToLeft ? QTextOption::RightTab : QTextOption::LeftTab});
    shape.option.setTabs(tabs);
    shape.option.setTabStopDistance(usual * TabUnit(setting));
    return shape;
}

int SlotHeight(const WholeSetting& setting, const Shape& shape, int natural) {
    if (shape.multiple && shape.spacing != 0) {
        const double factor = std::clamp(std::abs(shape.spacing / 240.0), 0.5, 20.0);
        return std::max(1, int(std::lround(natural * factor)));
    }
    if (shape.spacing < 0) return std::max(1, setting.Pixels(-double(shape.spacing)));
    return std::max({1, natural, setting.Pixels(shape.spacing)});
}

struct Placed {
    int position = 0; // in the layout
    QSize size;
};

bool Stretched(const QString& text, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return false;
    const QString words = text.mid(line.textStart(), line.textLength()).trimmed();
    return words.contains(u' ') && !words.contains(u'\t');
}

void Rewidth(QTextLine& line, double width) {
    const double before = line.width();
    const int length = line.textLength();
    line.setLineWidth(width);
    if (line.textLength() != length) line.setLineWidth(before);
}

// Where text begins from the edge where lines do.
int Break(const Shape& shape, const WholePart& part, const QTextLayout& layout, QTextLine& line) {
    const QString text = layout.text();
    const int indent = line.lineNumber() == 0 ? shape.firstIndent : shape.indent;
    const int edge = shape.rightToLeft ? shape.farIndent : indent;
    line.setLineWidth(std::max(1, part.breakWidth - indent - shape.farIndent));
    const bool stretched = shape.stretches && Stretched(text, line);
    if (shape.stretches && !stretched) Rewidth(line, line.naturalTextWidth());
    if (stretched && shape.rightToLeft) {
        line.setPosition(QPointF(farRight, 0));
        const double blanks = WholeBlanks(line, layout, true).Width();
        line.setPosition(QPointF(0, 0));
        Rewidth(line, line.width() + blanks);
    }
    if (stretched) return edge;
    const int room = std::max(0, part.alignWidth - indent - shape.farIndent -
                                     int(std::ceil(line.naturalTextWidth())));
    if (shape.alignment == Alignment::Center) return edge + room / 2;
    if (shape.alignment == Alignment::Right) return edge + room;
    return edge + (shape.alignment == Alignment::Justified && shape.rightToLeft ? room : 0);
}

QChar Shown(const WholeSetting& setting, QChar unit, Capitals capitals) {
    if (unit == u'\v' || (unit == u'\a' && !setting.plain)) return QChar::LineSeparator;
    return capitals == Capitals::AsWritten ? unit : QChar(unit.toUpper());
}

// The layout of a text with each character's format set by itself: runs join in it.
std::unique_ptr<QTextLayout> Prepared(const WholeSetting& setting, const WholePart& part,
                                      const Shape& shape, const std::vector<Placed>& pictures) {
    QString text;
    QList<QTextLayout::FormatRange> formats;
    const CharStyle usual;
    TextPos runStart = part.start;
    for (TextPos i = part.start; i < part.end; ++i) {
        const CharStyle& style = setting.plain ? usual : StyleOf(*setting.document, i);
        const QChar unit(setting.text[std::size_t(i)]);
        text += Shown(setting, unit, style.capitals);
        if (setting.plain) continue;
        const auto small = [&](TextPos at) {
            const QChar each(setting.text[std::size_t(at)]);
            return style.capitals == Capitals::Small && QChar(each.toUpper()) != each;
        };
        const bool ends = i + 1 == part.end || &StyleOf(*setting.document, i + 1) != &style ||
                          small(i + 1) != small(i);
        if (!ends) continue;
        formats.append(
            {runStart - part.start, i + 1 - runStart, FormatOf(setting, style, small(i))});
        runStart = i + 1;
    }
    for (const Placed& placed : pictures) {
        const TextPos position = part.start + placed.position;
        for (const Picture& picture : setting.document->pictures)
            if (picture.position == position)
                formats.append(
                    {placed.position, 1, PictureFormat(setting, picture, placed.size.width())});
        text[placed.position] = standIn;
    }
    const QFont font = setting.plain ? WholeFont(setting.look.font)
                                     : StyleFont(setting, StyleOf(*setting.document, part.end));
    auto layout = std::make_unique<QTextLayout>(text, font, setting.device);
    layout->setTextOption(shape.option);
    layout->setCacheEnabled(true);
    layout->setFormats(formats);
    return layout;
}

WholeLaidOut LayOutSome(const WholeSetting& setting, const WholePart& part,
                        const bool* rightToLeft) {
    const QString plainText = QString::fromStdU16String(
        setting.text.substr(std::size_t(part.start), std::size_t(part.end - part.start)));
    const Shape shape = ShapeOf(setting, part, plainText, rightToLeft);
    const int textWidth =
        std::max(1, part.alignWidth - std::max(shape.indent, shape.firstIndent) - shape.farIndent);
    std::vector<Placed> pictures;
    for (const Picture& picture : setting.document->pictures)
        if (picture.position >= part.start && picture.position < part.end)
            pictures.push_back(
                {picture.position - part.start, WholePictureSize(setting, picture, textWidth)});

    WholeLaidOut out;
    out.start = part.start;
    out.end = part.end;
    out.goesOn = !part.last;
    out.rightToLeft = shape.rightToLeft;
    out.shift = QPointF(shape.rightToLeft ? -farRight : 0, 0);
    out.text = Prepared(setting, part, shape, pictures);
    const QString text = out.text->text();
    int top = shape.before;
    out.text->beginLayout();
    for (QTextLine line = out.text->createLine(); line.isValid(); line = out.text->createLine()) {
        const int left = Break(shape, part, *out.text, line);
        if (line.lineNumber() > 0 &&
            text.mid(line.textStart(), line.textLength()).contains(u'\t')) {
            out.end = part.start + line.textStart();
            out.goesOn = true;
            break;
        }
        line.glyphRuns(); // shows the hyphen at its end, which changes the places of the rest
        int ascent = int(std::ceil(line.ascent()));
        const int descent = int(std::ceil(line.descent()));
        for (const Placed& placed : pictures)
            if (placed.position >= line.textStart() &&
                placed.position < line.textStart() + line.textLength())
                ascent = std::max(ascent, placed.size.height());
        const int leading = std::max(0, qRound(line.leading()));
        const int height = SlotHeight(setting, shape, ascent + descent + leading);
        line.setPosition(QPointF(left - out.shift.x(), top + height - descent - line.ascent()));
        out.places.push_back({line.textStart(), top, height});
        top += height;
    }
    out.text->endLayout();
    out.height = top + (out.end == part.end ? shape.after : 0);
    return out;
}
} // namespace

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

std::vector<WholeLaidOut> LayOutWholePart(const WholeSetting& setting, const WholePart& part) {
    std::vector<WholeLaidOut> all;
    WholePart rest = part;
    do {
        const bool* known = all.empty() ? nullptr : &all.front().rightToLeft;
        all.push_back(LayOutSome(setting, rest, known));
        rest.start = all.back().end;
        rest.first = false;
    } while (rest.start != part.end);
    return all;
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
