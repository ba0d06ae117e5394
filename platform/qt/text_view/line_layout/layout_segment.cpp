#include "platform/qt/text_view/line_layout/layout_segment.h"

#include "platform/qt/text_view/line_layout/line_positions.h"
#include "platform/qt/text_view/line_layout/pinned_fonts.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {
const QTextCharFormat& FormatOf(const StyledRun& run) {
    return static_cast<const QtStyle&>(*run.style).format;
}

const StyledRun& RunAt(const ParagraphText& paragraph, TextPos position) {
    const auto after =
        std::upper_bound(paragraph.runs.begin() + 1, paragraph.runs.end(), position,
                         [](TextPos at, const StyledRun& run) { return at < run.start; });
    return *(after - 1);
}

QTextLayout::FormatRange BoxFormat(const ParagraphText& paragraph, const InlineBox& box,
                                   TextPos start, QPaintDevice& device) {
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
    return {box.at - start, 1, format};
}

// Ascending; they do not overlap.
QList<QTextLayout::FormatRange> Formats(const ParagraphText& paragraph, TextPos start, TextPos end,
                                        QPaintDevice& device) {
    QList<QTextLayout::FormatRange> formats;
    const auto& runs = paragraph.runs;
    auto box = std::lower_bound(paragraph.boxes.begin(), paragraph.boxes.end(), start,
                                [](const InlineBox& each, TextPos at) { return each.at < at; });
    for (auto run = &RunAt(paragraph, start) - runs.data(); run < std::ssize(runs); ++run) {
        const StyledRun& each = runs[std::size_t(run)];
        if (each.start >= end) break;
        TextPos from = std::max(start, each.start);
        const TextPos to =
            run + 1 < std::ssize(runs) ? std::min(end, runs[std::size_t(run) + 1].start) : end;
        for (; box != paragraph.boxes.end() && box->at < to; from = box++->at + 1) {
            if (box->at > from) formats.append({from - start, box->at - from, FormatOf(each)});
            formats.append(BoxFormat(paragraph, *box, start, device));
        }
        if (to > from) formats.append({from - start, to - from, FormatOf(each)});
    }
    return formats;
}

// QTextLayout takes tab stops in the resolution of the primary screen and scales them to its
// device.
double TabStop(const QPaintDevice& device, double pixels) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double defaultDpi = screen ? qRound(screen->logicalDotsPerInchY()) : 0;
    return defaultDpi > 0 ? pixels * defaultDpi / device.logicalDpiY() : pixels;
}

int IndentAt(const ParagraphText& paragraph, TextPos start) {
    return start == 0 ? paragraph.firstIndent : paragraph.indent;
}

// QTextLayout measures tab stops from the start of each line. They are given relative to the first
// line, which is the only one with tabs in its layout.
QTextOption OptionOf(const ParagraphText& paragraph, TextPos start, const QPaintDevice& device) {
    // A delimiter tab whose delimiter does not occur aligns the text behind it like a plain tab, in
    // either direction. For a plain tab QTextLayout measures all text behind it, needlessly.
    constexpr char16_t absentDelimiter = u'\uFFFF';
    const int indent = IndentAt(paragraph, start);
    QList<QTextOption::Tab> tabs;
    for (const int each : paragraph.tabStops)
        if (each > indent)
            tabs.append({TabStop(device, each - indent), QTextOption::DelimiterTab,
                         QChar(absentDelimiter)});
    QTextOption option;
    option.setTabs(tabs);
    option.setTabStopDistance(TabStop(device, paragraph.tabDistance));
    option.setTextDirection(paragraph.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // QTextLayout only justifies; lines are aligned after their visible width is known.
    option.setAlignment(paragraph.justified ? Qt::AlignJustify : Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

void SetFormats(const ParagraphText& paragraph, LayoutSegment& segment, QPaintDevice& device) {
    const TextPos end = segment.start + TextPos(segment.text->text().size());
    const bool isPlain = paragraph.runs.size() == 1 && paragraph.boxes.empty();
    const QTextCharFormat& format = FormatOf(paragraph.runs.front());
    const bool fontOnly = !format.hasProperty(QTextFormat::ForegroundBrush) &&
                          !format.hasProperty(QTextFormat::BackgroundBrush) &&
                          !format.hasProperty(QTextFormat::TextVerticalAlignment) &&
                          !format.hasProperty(QTextFormat::TextBaselineOffset) &&
                          !format.hasProperty(letterSpacingProperty) &&
                          !format.hasProperty(wordSpacingProperty);
    if (isPlain && fontOnly) return; // the layout's own font
    const auto formats = Formats(paragraph, segment.start, end, device);
    segment.fonts = PinFonts(segment.text->font(), formats);
    segment.text->setFormats(formats);
}

// Lines with spaces between words only. A line before a line break keeps its width, and so does a
// line with a tab, where text would leave its column.
bool IsJustifiedLine(const QString& text, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return false;
    const QStringView words =
        QStringView(text).sliced(line.textStart(), line.textLength()).trimmed();
    return words.contains(u' ') && !words.contains(u'\t');
}

// Sets another width unless the line would then break elsewhere.
bool ChangeWidth(QTextLine& line, double width) {
    const double before = line.width();
    const int length = line.textLength();
    line.setLineWidth(width);
    if (line.textLength() == length) return true;
    line.setLineWidth(before);
    return false;
}

// As narrow as the width, or as near to it as the ink of the last letter allows: a justified line
// is stretched to all of its width.
bool Shrink(QTextLine& line, double width, double maxInk) {
    constexpr double step = 0.5;
    for (double more = 0; more <= maxInk; more += step)
        if (ChangeWidth(line, width + more)) return true;
    return false;
}

// Whether lines are as wide as the advances of their letters. QTextLayout itself wants room for the
// ink of the last letter, too.
bool GoesByAdvances(const ParagraphText& paragraph) {
    return static_cast<const QtStyle&>(*paragraph.runs.front().style).exactSize &&
           !paragraph.rightToLeft;
}

// A word, or all there is: its width may be the one that was measured.
bool IsUnbroken(const QString& text, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    if (end >= text.size() || text[end - 1] == QChar::LineSeparator) return true;
    return !QStringView(text).sliced(line.textStart(), line.textLength()).trimmed().contains(u' ');
}

void BreakByAdvances(const ParagraphText& paragraph, const QTextLayout& text, QTextLine& line,
                     int width) {
    const auto& style = static_cast<const QtStyle&>(*paragraph.runs.front().style);
    const double room = width / (1 + style.cutOff);
    line.setLineWidth(width + style.maxInk);
    constexpr int maxWords = 4; // in the room for ink
    for (int i = 0; i < maxWords; ++i) {
        const double advance = line.horizontalAdvance();
        if (advance <= (IsUnbroken(text.text(), line) ? width : room)) break;
        line.setLineWidth(i + 1 < maxWords ? std::max(1.0, advance - 1.0 / 32) : width);
    }
    // The next word may fit into the whole width by Qt's own count; a line that is a little
    // narrower is stretched all the same.
    for (const double less : {0.0, width - room, 1.0, 2.0, 3.0})
        if (ChangeWidth(line, width - less)) return;
    if (!Shrink(line, width, style.maxInk)) ChangeWidth(line, line.naturalTextWidth());
}

// Breaks the line; returns whether it is stretched.
bool BreakLine(const ParagraphText& paragraph, const QTextLayout& text, QTextLine& line, int width,
               bool byAdvances) {
    if (byAdvances)
        BreakByAdvances(paragraph, text, line, width);
    else
        line.setLineWidth(width);
    const bool stretched = paragraph.justified && IsJustifiedLine(text.text(), line);
    const auto& style = static_cast<const QtStyle&>(*paragraph.runs.front().style);
    if (paragraph.justified && !stretched) Shrink(line, line.naturalTextWidth(), style.maxInk);
    if (stretched && paragraph.rightToLeft) {
        line.setPosition(QPointF(roomForSpaces, 0));
        const double spaces = TrailingSpacesWidth(text, line);
        line.setPosition(QPointF(0, 0)); // tab stops are relative to it
        ChangeWidth(line, line.width() + spaces);
    }
    if (paragraph.rightToLeft) line.setPosition(QPointF(roomForSpaces, 0));
    return stretched;
}

bool Has(const QTextLayout& text, const QTextLine& line, QChar unit) {
    const QString all = text.text();
    return QStringView(all).sliced(line.textStart(), line.textLength()).contains(unit);
}

TextLine MetricsOf(const LayoutSegment& segment, const QTextLine& line, double width,
                   bool stretched) {
    TextLine metrics;
    metrics.start = segment.start + line.textStart();
    metrics.end = metrics.start + line.textLength();
    metrics.ascent = line.ascent();
    metrics.descent = line.descent();
    metrics.leading = line.leading();
    metrics.width = width;
    metrics.justified = stretched;
    return metrics;
}

// Stops before the second line with a tab. If the paragraph is continued behind the layout's text,
// the last line may be incomplete and is left out, too.
void BreakLines(const ParagraphText& paragraph, LayoutSegment& segment) {
    QTextLayout& text = *segment.text;
    const qsizetype length = text.text().size();
    const bool isContinued = segment.end < TextPos(paragraph.text.size());
    const bool tabs = text.text().contains(u'\t');
    const bool byAdvances = GoesByAdvances(paragraph);
    text.beginLayout();
    for (QTextLine line = text.createLine(); line.isValid(); line = text.createLine()) {
        const bool isFirst = line.lineNumber() == 0;
        const int indent = isFirst ? IndentAt(paragraph, segment.start) : paragraph.indent;
        const int width = std::max(1, paragraph.width - indent);
        const bool stretched = BreakLine(paragraph, text, line, width, byAdvances);
        const bool unfinished = isContinued && line.textStart() + line.textLength() == length;
        if (!isFirst && (unfinished || (tabs && Has(text, line, u'\t')))) {
            segment.end = segment.start + line.textStart();
            break;
        }
        const double shown = stretched    ? width
                             : byAdvances ? line.horizontalAdvance()
                                          : line.naturalTextWidth();
        segment.metrics.push_back(MetricsOf(segment, line, shown, stretched));
        // A soft hyphen at a line's end is there only after the glyphs have been requested, which
        // changes cursor positions: so they are requested here.
        if (Has(text, line, QChar::SoftHyphen)) line.glyphRuns(line.textStart(), 1);
    }
    text.endLayout();
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

LayoutSegment LayOut(const ParagraphText& paragraph, const QString& text, TextPos start,
                     TextPos end, QPaintDevice& device) {
    LayoutSegment segment;
    segment.start = start;
    segment.end = end;
    segment.text = std::make_unique<QTextLayout>(text.sliced(start, end - start),
                                                 FormatOf(paragraph.runs.back()).font(), &device);
    segment.text->setTextOption(OptionOf(paragraph, start, device));
    segment.text->setCacheEnabled(true); // shaped once, painted often
    SetFormats(paragraph, segment, device);
    BreakLines(paragraph, segment);
    return segment;
}
// The paragraph's text as QTextLayout gets it, which breaks lines behind every space, also before a
// word joiner.
QString SegmentText(const ParagraphText& paragraph) {
    constexpr char16_t wordJoiner = u'\u2060';
    QString text = QStringView(paragraph.text).toString();
    for (qsizetype at = text.indexOf(wordJoiner); at > 0; at = text.indexOf(wordJoiner, at + 1))
        if (text[at - 1] == u' ') text[at - 1] = QChar::Nbsp;
    for (const InlineBox& box : paragraph.boxes)
        text[box.at] = boxPlaceholder;
    return text;
}
} // namespace

std::vector<LayoutSegment> LayOutSegments(const ParagraphText& paragraph, QPaintDevice& device) {
    std::vector<LayoutSegment> segments;
    const QString text = SegmentText(paragraph);
    const TextPos length = TextPos(text.size());
    int tabs = minTabs;
    for (TextPos start = 0; segments.empty() || start < length;) {
        const TextPos end = TextPos(EndOfTabs(text, start, tabs));
        LayoutSegment segment = LayOut(paragraph, text, start, end, device);
        if (segment.end == end && end < length) {
            tabs *= 2; // the line may be incomplete
            continue;
        }
        start = segment.end;
        segments.push_back(std::move(segment));
    }
    return segments;
}
