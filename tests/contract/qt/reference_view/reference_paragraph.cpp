#include "tests/contract/qt/reference_view/reference_paragraph.h"

#include "platform/qt/text_view/line_layout/pinned_fonts.h"
#include "tests/contract/qt/reference_view/reference_positions.h"
#include "tests/contract/qt/reference_view/reference_shape.h"
#include "tests/contract/qt/reference_view/reference_style.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double farRight = 1 << 14; // offset of lines in right-to-left paragraphs

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

// Returns the distance of the text from the line's start edge.
int Break(const ReferenceShape& shape, const ReferencePart& part, const QTextLayout& layout,
          QTextLine& line) {
    const QString text = layout.text();
    const int indent = line.lineNumber() == 0 ? shape.firstIndent : shape.indent;
    const int edge = shape.rightToLeft ? shape.endIndent : indent;
    line.setLineWidth(std::max(1, part.breakWidth - indent - shape.endIndent));
    const bool stretched = shape.stretches && Stretched(text, line);
    if (shape.stretches && !stretched) Rewidth(line, line.naturalTextWidth());
    if (stretched && shape.rightToLeft) {
        line.setPosition(QPointF(farRight, 0));
        const double blanks = ReferenceSpaces(line, layout, true).Width();
        line.setPosition(QPointF(0, 0));
        Rewidth(line, line.width() + blanks);
    }
    if (stretched) return edge;
    const int room = std::max(0, part.alignWidth - indent - shape.endIndent -
                                     int(std::ceil(line.naturalTextWidth())));
    if (shape.alignment == Alignment::Center) return edge + room / 2;
    if (shape.alignment == Alignment::Right) return edge + room;
    return edge + (shape.alignment == Alignment::Justified && shape.rightToLeft ? room : 0);
}

QChar Shown(const ReferenceSettings& settings, QChar unit, Capitals capitals) {
    if (unit == u'\v' || (unit == u'\a' && !settings.plain)) return QChar::LineSeparator;
    return capitals == Capitals::AsWritten ? unit : QChar(unit.toUpper());
}

// Sets the format of each character separately; QTextLayout merges them.
std::unique_ptr<QTextLayout> Prepared(const ReferenceSettings& settings, const ReferencePart& part,
                                      const ReferenceShape& shape,
                                      const std::vector<Placed>& pictures) {
    QString text;
    QList<QTextLayout::FormatRange> formats;
    const CharStyle plainStyle;
    TextPos runStart = part.start;
    for (TextPos i = part.start; i < part.end; ++i) {
        const CharStyle& style =
            settings.plain ? plainStyle : ReferenceCharStyle(*settings.document, i);
        const QChar unit(settings.text[std::size_t(i)]);
        text += Shown(settings, unit, style.capitals);
        if (settings.plain) continue;
        const auto small = [&](TextPos at) {
            const QChar each(settings.text[std::size_t(at)]);
            return style.capitals == Capitals::Small && QChar(each.toUpper()) != each;
        };
        const bool ends = i + 1 == part.end ||
                          &ReferenceCharStyle(*settings.document, i + 1) != &style ||
                          small(i + 1) != small(i);
        if (!ends) continue;
        formats.append(
            {runStart - part.start, i + 1 - runStart, ReferenceFormat(settings, style, small(i))});
        runStart = i + 1;
    }
    for (const Placed& placed : pictures) {
        const TextPos position = part.start + placed.position;
        for (const Picture& picture : settings.document->pictures)
            if (picture.position == position)
                formats.append({placed.position, 1,
                                ReferencePictureFormat(settings, picture, placed.size.width())});
        text[placed.position] = referencePlaceholder;
    }
    text.replace(u" \u2060"_qs, u"\u00A0\u2060"_qs); // where Qt would break a line
    const QFont font =
        settings.plain
            ? ReferenceFont(settings.style.font)
            : ReferenceStyleFont(settings, ReferenceCharStyle(*settings.document, part.end));
    auto layout = std::make_unique<QTextLayout>(text, font, settings.device);
    layout->setTextOption(shape.option);
    layout->setCacheEnabled(true);
    layout->setFormats(formats);
    return layout;
}

ReferenceLayout LayOutSome(const ReferenceSettings& settings, const ReferencePart& part,
                           const bool* rightToLeft) {
    const QString plainText = QString::fromStdU16String(
        settings.text.substr(std::size_t(part.start), std::size_t(part.end - part.start)));
    const ReferenceShape shape = ReferenceShapeOf(settings, part, plainText, rightToLeft);
    const int textWidth =
        std::max(1, part.alignWidth - std::max(shape.indent, shape.firstIndent) - shape.endIndent);
    std::vector<Placed> pictures;
    for (const Picture& picture : settings.document->pictures)
        if (picture.position >= part.start && picture.position < part.end)
            pictures.push_back({picture.position - part.start,
                                ReferencePictureSize(settings, picture, textWidth)});

    ReferenceLayout out;
    out.start = part.start;
    out.end = part.end;
    out.isContinued = !part.last;
    out.rightToLeft = shape.rightToLeft;
    out.shift = QPointF(shape.rightToLeft ? -farRight : 0, 0);
    out.text = Prepared(settings, part, shape, pictures);
    out.fonts = PinFonts(out.text->font(), out.text->formats());
    const QString text = out.text->text();
    int top = shape.before;
    out.text->beginLayout();
    for (QTextLine line = out.text->createLine(); line.isValid(); line = out.text->createLine()) {
        const int left = Break(shape, part, *out.text, line);
        if (line.lineNumber() > 0 &&
            text.mid(line.textStart(), line.textLength()).contains(u'\t')) {
            out.end = part.start + line.textStart();
            out.isContinued = true;
            break;
        }
        line.glyphRuns(); // shows a soft hyphen at the end, which changes the positions of other
                          // characters
        int ascent = int(std::ceil(line.ascent()));
        const int descent = int(std::ceil(line.descent()));
        for (const Placed& placed : pictures)
            if (placed.position >= line.textStart() &&
                placed.position < line.textStart() + line.textLength())
                ascent = std::max(ascent, placed.size.height());
        const int leading = std::max(0, qRound(line.leading()));
        const int height = shape.SlotHeight(settings, ascent + descent + leading);
        line.setPosition(QPointF(left - out.shift.x(), top + height - descent - line.ascent()));
        out.places.push_back({line.textStart(), top, height});
        top += height;
    }
    out.text->endLayout();
    out.height = top + (out.end == part.end ? shape.after : 0);
    return out;
}
} // namespace

std::vector<ReferenceLayout> LayOutReferencePart(const ReferenceSettings& settings,
                                                 const ReferencePart& part) {
    std::vector<ReferenceLayout> all;
    ReferencePart rest = part;
    do {
        const bool* known = all.empty() ? nullptr : &all.front().rightToLeft;
        all.push_back(LayOutSome(settings, rest, known));
        rest.start = all.back().end;
        rest.first = false;
    } while (rest.start != part.end);
    return all;
}
