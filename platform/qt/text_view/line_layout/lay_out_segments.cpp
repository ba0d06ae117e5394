#include "platform/qt/text_view/line_layout/lay_out_segments.h"

#include "common/text_characters.h"
#include "common/unicode.h"
#include "platform/qt/text_view/line_layout/line_breaking.h"
#include "platform/qt/text_view/line_layout/line_places.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/line_layout/segment_formats.h"
#include "platform/qt/text_view/line_layout/segment_text.h"
#include "platform/qt/text_view/line_layout/tab_gaps.h"

#include <algorithm>

namespace {
int IndentAt(const ParagraphText& paragraph, TextPos start) {
    return start == 0 ? paragraph.firstIndent : paragraph.indent;
}

// QTextLayout measures tab stops from the start of each line. They are given relative to the first
// line, which is the only one with tabs in its layout.
std::vector<double> TabsFrom(const ParagraphText& paragraph, TextPos start) {
    const int indent = IndentAt(paragraph, start);
    std::vector<double> tabs;
    for (const TabStop& each : paragraph.tabStops)
        if (each.position > indent) tabs.push_back(each.position - indent);
    return tabs;
}

QTextOption OptionOf(const ParagraphText& paragraph, const QPaintDevice& device) {
    QTextOption option;
    option.setTabStopDistance(ToTabUnits(device, paragraph.tabDistance));
    option.setTextDirection(paragraph.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(Qt::AlignLeft); // see Stretch
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

bool Has(const QTextLayout& text, const QTextLine& line, QChar unit) {
    const QString all = text.text();
    return QStringView(all).sliced(line.textStart(), line.textLength()).contains(unit);
}

// Qt 6.4 measures the ink of the last letter by the font of what is after the line.
double ShownWidth(const QTextLine& line, bool inksBeyond) {
    const double advance = line.horizontalAdvance(), maxInk = inksBeyond ? line.height() / 3 : 0;
    return std::clamp(line.naturalTextWidth(), advance, advance + maxInk);
}

TextLine MetricsOf(const LayoutSegment& segment, const QTextLine& line, double width,
                   bool stretched) {
    TextLine metrics;
    metrics.start = segment.start + line.textStart();
    metrics.end = metrics.start + line.textLength();
    metrics.ascent = line.ascent();
    metrics.descent = line.descent();
    metrics.leading = line.leading();
    metrics.width = std::max(0.0, width);
    metrics.justified = stretched;
    return metrics;
}

// Stops before the second line with a tab. If the paragraph is continued after the layout's text,
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
        const bool inksBeyond = !byAdvances && !EndsWith(text.text(), line, boxPlaceholder);
        const double shown = stretched ? width : ShownWidth(line, inksBeyond);
        // A soft hyphen at a line's end is there only after the glyphs have been requested, which
        // changes cursor positions: so they are requested here.
        if (Has(text, line, QChar::SoftHyphen)) line.glyphRuns(line.textStart(), 1);
        const double hyphen = EndsWith(text.text(), line, QChar::SoftHyphen) && !stretched
                                  ? LinePlaces(text, line, segment.isUnidirectional).Width() - shown
                                  : 0;
        segment.metrics.push_back(
            MetricsOf(segment, line, shown + std::max(0.0, hyphen), stretched));
    }
    text.endLayout();
}

// Each line with a tab starts a new layout of the rest, which is given only so many tabs at first:
// QTextLayout takes quadratic time in tabs.
constexpr int minTabs = 16;

// The position after the next `tabs` tabs, or the text's end.
qsizetype EndOfTabs(const QString& text, qsizetype from, int tabs) {
    while (tabs-- > 0 && from < text.size()) {
        const qsizetype tab = text.indexOf(u'\t', from);
        from = tab < 0 ? text.size() : tab + 1;
    }
    return from;
}

bool TurnsLeftToRight(char32_t character) {
    constexpr char32_t firstOfOthers = 0x590; // Hebrew
    if (character < firstOfOthers) return false;
    const BidiClass kind = BidiClassOf(character);
    return kind == BidiClass::R || kind == BidiClass::AL || kind == BidiClass::AN ||
           kind >= BidiClass::LRE;
}

bool TurnsRightToLeft(char32_t character) {
    const BidiClass kind = BidiClassOf(character);
    return kind == BidiClass::L || kind == BidiClass::EN || kind == BidiClass::AN ||
           kind >= BidiClass::LRE;
}

// Whether all of it has the direction of its paragraph.
bool IsUnidirectional(std::u16string_view text, bool rightToLeft) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = FirstCharacter(text.substr(at, 2));
        if (rightToLeft ? TurnsRightToLeft(character) : TurnsLeftToRight(character)) return false;
        at += std::size_t(UnitsOf(character));
    }
    return true;
}

LayoutSegment Prepare(const ParagraphText& paragraph, const QString& text, TextPos start,
                      TextPos end, QPaintDevice& device) {
    LayoutSegment segment;
    segment.start = start;
    segment.end = end;
    segment.isUnidirectional = IsUnidirectional(
        std::u16string_view(paragraph.text).substr(std::size_t(start), std::size_t(end - start)),
        paragraph.rightToLeft);
    segment.text = std::make_unique<QTextLayout>(text.sliced(start, end - start),
                                                 FormatOf(paragraph.runs.back()).font(), &device);
    segment.text->setTextOption(OptionOf(paragraph, device));
    segment.text->setCacheEnabled(true); // shaped once, painted often
    SetFormats(paragraph, segment, device);
    return segment;
}

// The same with a box in a tab's place that has no room in the line: so the next one begins there.
LayoutSegment PrepareUpTo(int tab, const ParagraphText& paragraph, const QString& text,
                          TextPos start, QPaintDevice& device) {
    ParagraphText cut = paragraph;
    const TextPos at = start + tab;
    std::erase_if(cut.boxes, [&](const InlineBox& each) { return each.at >= at; });
    cut.boxes.push_back({at, paragraph.width + 1});
    QString withBox = text;
    withBox[at] = QChar(boxPlaceholder);
    return Prepare(cut, withBox, start, at + 1, device);
}

LayoutSegment LayOut(const ParagraphText& paragraph, const QString& text, TextPos start,
                     TextPos end, QPaintDevice& device) {
    LayoutSegment segment = Prepare(paragraph, text, start, end, device);
    if (!HasOwnTabs(paragraph) || !segment.text->text().contains(u'\t')) {
        SetTabs(*segment.text, TabsFrom(paragraph, start), device);
    } else if (const auto moved = PlaceTabs(paragraph, segment, device)) {
        segment = PrepareUpTo(*moved, paragraph, text, start, device);
        PlaceTabs(paragraph, segment, device);
    }
    BreakLines(paragraph, segment);
    return segment;
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
