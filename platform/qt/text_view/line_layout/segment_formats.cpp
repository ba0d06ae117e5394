#include "platform/qt/text_view/line_layout/segment_formats.h"

#include "platform/qt/text_view/line_layout/line_edges.h"
#include "platform/qt/text_view/line_layout/pinned_fonts.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/line_layout/segment_text.h"

#include <QFontMetricsF>

#include <algorithm>

namespace {
const StyledRun& RunAt(const ParagraphText& paragraph, TextPos position) {
    const auto after =
        std::upper_bound(paragraph.runs.begin() + 1, paragraph.runs.end(), position,
                         [](TextPos at, const StyledRun& run) { return at < run.start; });
    return *(after - 1);
}

QTextCharFormat BoxFormat(const ParagraphText& paragraph, const InlineBox& box,
                          QPaintDevice& device) {
    QTextCharFormat format = FormatOf(RunAt(paragraph, box.at));
    QFont font = format.font();
    font.setPointSizeF(1);
    font.setUnderline(false);
    font.setStrikeOut(false);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0);
    const double own = QFontMetricsF(font, &device).horizontalAdvance(boxPlaceholder);
    font.setOverline(false);
    const double spacing = std::max(0.0, box.width - own);
    font.setLetterSpacing(QFont::AbsoluteSpacing, FontLetterSpacing(device, spacing));
    format.setFont(font);
    format.setProperty(letterSpacingProperty, spacing);
    format.setForeground(Qt::transparent);
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    return format;
}

// Where the character that a position is in ends. QTextLayout breaks lines within one that has two
// formats.
TextPos CharacterEnd(const QTextLayout& text, TextPos position) {
    constexpr char16_t firstMark = 0x300;
    const QString units = text.text();
    while (position > 0 && position < units.size() && units[position] >= QChar(firstMark) &&
           !IsCharacterStart(text, position))
        ++position;
    return position;
}

// Ascending; they do not overlap.
QList<QTextLayout::FormatRange> Formats(const ParagraphText& paragraph, TextPos start,
                                        const QTextLayout& text, QPaintDevice& device) {
    QList<QTextLayout::FormatRange> formats;
    const auto& runs = paragraph.runs;
    const TextPos end = start + TextPos(text.text().size());
    const auto add = [&](TextPos from, TextPos to, const QTextCharFormat& format) {
        if (to > from) formats.append({from - start, to - from, format});
    };
    auto box = std::lower_bound(paragraph.boxes.begin(), paragraph.boxes.end(), start,
                                [](const InlineBox& each, TextPos at) { return each.at < at; });
    TextPos from = start;
    for (auto run = &RunAt(paragraph, start) - runs.data(); run < std::ssize(runs); ++run) {
        const StyledRun& each = runs[std::size_t(run)];
        if (each.start >= end) break;
        const bool isLast = run + 1 == std::ssize(runs);
        const TextPos nextRun = isLast ? end : std::min(end, runs[std::size_t(run) + 1].start);
        const TextPos to = start + CharacterEnd(text, nextRun - start);
        for (; box != paragraph.boxes.end() && box->at < to; from = box++->at + 1) {
            add(from, box->at, FormatOf(each));
            add(box->at, box->at + 1, BoxFormat(paragraph, *box, device));
        }
        add(from, to, FormatOf(each));
        from = std::max(from, to);
    }
    return formats;
}
} // namespace

const QTextCharFormat& FormatOf(const StyledRun& run) {
    return static_cast<const QtStyle&>(*run.style).format;
}

const QTextCharFormat& FormatAt(const ParagraphText& paragraph, TextPos position) {
    return FormatOf(RunAt(paragraph, position));
}

void SetFormats(const ParagraphText& paragraph, LayoutSegment& segment, QPaintDevice& device) {
    const bool isPlain = paragraph.runs.size() == 1 && paragraph.boxes.empty();
    const QTextCharFormat& format = FormatOf(paragraph.runs.front());
    const bool fontOnly = !format.hasProperty(QTextFormat::ForegroundBrush) &&
                          !format.hasProperty(QTextFormat::BackgroundBrush) &&
                          !format.hasProperty(QTextFormat::TextVerticalAlignment) &&
                          !format.hasProperty(QTextFormat::TextBaselineOffset) &&
                          !format.hasProperty(letterSpacingProperty) &&
                          !format.hasProperty(wordSpacingProperty);
    if (isPlain && fontOnly) return; // the layout's own font
    const auto formats = Formats(paragraph, segment.start, *segment.text, device);
    segment.fonts = PinFonts(segment.text->font(), formats);
    segment.text->setFormats(formats);
}
