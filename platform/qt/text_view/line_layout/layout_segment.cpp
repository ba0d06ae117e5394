#include "platform/qt/text_view/line_layout/layout_segment.h"

#include "common/text_characters.h"
#include "common/text_words.h"
#include "common/unicode.h"
#include "platform/qt/text_view/line_layout/line_edges.h"
#include "platform/qt/text_view/line_layout/line_places.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/line_layout/segment_formats.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {
constexpr char16_t zeroWidthSpace = 0x200B, wordJoiner = 0x2060;

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
    option.setAlignment(Qt::AlignLeft); // see Stretch
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
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

bool EndsWithinCharacter(const QTextLayout& text, const QTextLine& line) {
    return !IsCharacterStart(text, line.textStart() + line.textLength());
}

// Where a line has no room for a word, it may be broken within a character of several scripts or
// fonts.
void KeepCharacter(const QTextLayout& text, QTextLine& line) {
    constexpr int maxSteps = 64;
    const double step = std::max(1.0, line.height() / 8), before = line.width();
    for (int i = 1; i <= maxSteps && EndsWithinCharacter(text, line); ++i)
        line.setLineWidth(before + i * step);
    if (EndsWithinCharacter(text, line)) line.setLineWidth(before); // as for thousands of marks
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

bool EndsWith(const QString& text, const QTextLine& line, QChar unit) {
    const int end = line.textStart() + line.textLength();
    return end > 0 && text[end - 1] == unit;
}

// As long as it is not broken anew, a stretched line remains so, whatever the layout's alignment:
// with another one, the others of its paragraph remain as they are.
void Stretch(QTextLayout& text, const QTextLine& line) {
    const QTextOption own = text.textOption();
    QTextOption justify = own;
    justify.setAlignment(Qt::AlignJustify);
    text.setTextOption(justify);
    line.naturalTextRect();
    text.setTextOption(own);
}

// Breaks the line; returns whether it is stretched.
bool BreakLine(const ParagraphText& paragraph, QTextLayout& text, QTextLine& line, int width,
               bool byAdvances) {
    if (byAdvances)
        BreakByAdvances(paragraph, text, line, width);
    else
        line.setLineWidth(width);
    KeepCharacter(text, line);
    const bool stretched = paragraph.justified && IsJustifiedLine(text.text(), line);
    constexpr double rounding = 0.5;
    if (!stretched || line.horizontalAdvance() > width + rounding) return false;
    if (EndsWith(text.text(), line, u'\t')) return false;
    const double spaces = paragraph.rightToLeft ? TrailingSpacesWidth(text, line) : 0;
    if (spaces > 0 && !ChangeWidth(line, line.width() + spaces)) return false;
    Stretch(text, line);
    return true;
}

bool Has(const QTextLayout& text, const QTextLine& line, QChar unit) {
    const QString all = text.text();
    return QStringView(all).sliced(line.textStart(), line.textLength()).contains(unit);
}

// Qt 6.4 measures the ink of the last letter by the font of what is behind the line.
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

// The position behind the next `tabs` tabs, or the text's end.
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

LayoutSegment LayOut(const ParagraphText& paragraph, const QString& text, TextPos start,
                     TextPos end, QPaintDevice& device) {
    LayoutSegment segment;
    segment.start = start;
    segment.end = end;
    segment.isUnidirectional = IsUnidirectional(
        std::u16string_view(paragraph.text).substr(std::size_t(start), std::size_t(end - start)),
        paragraph.rightToLeft);
    segment.text = std::make_unique<QTextLayout>(text.sliced(start, end - start),
                                                 FormatOf(paragraph.runs.back()).font(), &device);
    segment.text->setTextOption(OptionOf(paragraph, start, device));
    segment.text->setCacheEnabled(true); // shaped once, painted often
    SetFormats(paragraph, segment, device);
    BreakLines(paragraph, segment);
    return segment;
}

bool IsMark(const QString& text, qsizetype at) {
    if (at >= text.size()) return false;
    const QStringView rest = QStringView(text).sliced(at);
    const char32_t character =
        FirstCharacter(std::u16string_view(rest.utf16(), std::size_t(rest.size())));
    const ClusterJoin join = ClusterJoinOf(character);
    return join == ClusterJoin::Extending || join == ClusterJoin::Joiner;
}

bool IsGlue(char16_t unit) {
    return unit == wordJoiner || unit == u'\uFEFF';
}

// QTextLayout breaks lines behind every space, even before a mark on it or a word joiner.
void KeepSpaces(QString& text) {
    constexpr char16_t firstMark = 0x300;
    for (qsizetype at = 1; at < text.size(); ++at) {
        if (text[at] < QChar(firstMark) || !IsBreakingSpace(text[at - 1].unicode())) continue;
        if (text[at] == QChar(wordJoiner) || IsMark(text, at)) text[at - 1] = QChar::Nbsp;
    }
}

// In front of a line separator it counts some spaces to the line and some not.
void HideSpacesBeforeBreaks(QString& text) {
    for (qsizetype end = text.indexOf(QChar::LineSeparator); end >= 0;
         end = text.indexOf(QChar::LineSeparator, end + 1))
        for (qsizetype at = end - 1; at >= 0 && IsBreakingSpace(text[at].unicode()); --at)
            text[at] = QChar(zeroWidthSpace);
}

// A hyphen that a line ends with is drawn, even where it breaks for a space or does not break.
void HideHyphensAtEnds(QString& text) {
    for (qsizetype at = text.size() - 1; at >= 0; --at) {
        if (text[at] != QChar::SoftHyphen) continue;
        const char16_t next = at + 1 < text.size() ? text[at + 1].unicode() : u'\u2028';
        const bool isSpace =
            next == zeroWidthSpace || next == u'\u2028' || next == u'\t' || IsBreakingSpace(next);
        if (isSpace || next == QChar::SoftHyphen || IsMark(text, at + 1))
            text[at] = QChar(zeroWidthSpace);
        else if (IsGlue(next))
            text[at] = QChar(wordJoiner);
    }
}

// The paragraph's text as QTextLayout gets it.
QString SegmentText(const ParagraphText& paragraph) {
    QString text = QStringView(paragraph.text).toString();
    KeepSpaces(text);
    HideSpacesBeforeBreaks(text);
    HideHyphensAtEnds(text);
    for (const InlineBox& box : paragraph.boxes) {
        text[box.at] = boxPlaceholder;
        // Marks on it would be as wide as it is.
        for (qsizetype at = box.at + 1; IsMark(text, at); ++at)
            text[at] = QChar(zeroWidthSpace);
    }
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
