#include "platform/qt/text_view/line_layout/tab_gaps.h"

#include "platform/qt/text_view/line_layout/line_breaking.h"
#include "platform/qt/text_view/line_layout/line_places.h"
#include "platform/qt/text_view/line_layout/segment_formats.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {
bool IsLineEndSpace(QChar unit) {
    return (unit.isSpace() && unit != u'\t' && unit.decompositionTag() != QChar::NoBreak) ||
           unit == QChar(u'\u200B');
}

class TabPlacer {
  public:
    TabPlacer(const ParagraphText& paragraph, LayoutSegment& segment, QPaintDevice& device)
        : paragraph_(paragraph), segment_(segment), device_(device), units_(segment.text->text()),
          indent_(segment.start == 0 ? paragraph.firstIndent : paragraph.indent),
          room_(std::max(1, paragraph.width - indent_)) {}

    std::optional<int> Place();

  private:
    void Break();
    int LineEnd() const { return line_.textStart() + line_.textLength(); }
    double PenAt(int tab) const;
    double MinGap(int tab) const;
    const TabStop* StopOf(double pen) const;
    bool MovesToNextLine(int tab, double pen) const;
    double WidthOf(int from, int to) const;
    int UnitsBeforeStop(int start, int end) const;
    TabbedText MeasureAfter(int tab) const;
    void Align(int tab, double pen, const TabStop&);
    void AddLeader(int tab, const TabStop&);

    const ParagraphText& paragraph_;
    LayoutSegment& segment_;
    QPaintDevice& device_;
    const QString units_;
    const int indent_, room_;
    std::vector<double> ends_; // of the gaps so far, from the line's start edge
    QTextLine line_;
};

// With the gaps so far.
void TabPlacer::Break() {
    QTextLayout& text = *segment_.text;
    SetTabs(text, ends_, device_);
    text.beginLayout();
    line_ = text.createLine();
    BreakLine(paragraph_, text, line_, room_, false);
    text.endLayout();
}

double TabPlacer::PenAt(int tab) const {
    const LinePlaces places(*segment_.text, line_, segment_.isUnidirectional);
    const double x = places.CaretX(tab);
    return paragraph_.rightToLeft ? places.Width() - x : x;
}

double TabPlacer::MinGap(int tab) const {
    const QFont font = FormatAt(paragraph_, segment_.start + tab).font();
    return std::max(1.0, QFontMetricsF(font, &device_).horizontalAdvance(u' '));
}

const TabStop* TabPlacer::StopOf(double pen) const {
    const TextPos start = segment_.start;
    const bool continues =
        start > 0 && paragraph_.text[std::size_t(start) - 1] != QChar::LineSeparator;
    return continues ? StopAfterWrap(paragraph_.tabStops, indent_ + pen)
                     : NextTabStop(paragraph_.tabStops, indent_ + pen);
}

// A line does not end between a tab and what stands at its stop. A tab that the line begins with
// stays, and so does one with nothing after it.
bool TabPlacer::MovesToNextLine(int tab, double pen) const {
    const int after = tab + 1;
    if (tab == 0 || after >= units_.size() || units_[after] == QChar::LineSeparator) return false;
    return pen + MinGap(tab) > room_ || LineEnd() <= after;
}

double TabPlacer::WidthOf(int from, int to) const {
    if (from >= to) return 0;
    const LinePlaces places(*segment_.text, line_, segment_.isUnidirectional);
    double width = 0;
    for (const TextExtent& each : places.Extents(from, to))
        width += each.right - each.left;
    return width;
}

int TabPlacer::UnitsBeforeStop(int start, int end) const {
    return int(UnitsBeforeDecimals(units_.sliced(start, end - start).toStdU16String()));
}

// Up to the next tab or the line's end, without spaces there.
TabbedText TabPlacer::MeasureAfter(int tab) const {
    const int start = tab + 1, lineEnd = LineEnd();
    const auto next = units_.indexOf(u'\t', start);
    int end = next >= 0 && next < lineEnd ? int(next) : lineEnd;
    while (end == lineEnd && end > start && IsLineEndSpace(units_[end - 1]))
        --end;
    return {WidthOf(start, end), WidthOf(start, start + UnitsBeforeStop(start, end))};
}

// With the least of a gap the line is broken where its text ends. Then its gap is made as wide as
// it may be: the ink of the last letter may want some pixels of it.
void TabPlacer::Align(int tab, double pen, const TabStop& stop) {
    const double minGap = MinGap(tab);
    const double gap = TabGap(stop, indent_ + pen, indent_ + room_, MeasureAfter(tab), minGap);
    const auto next = units_.indexOf(u'\t', tab + 1);
    const int end = next < 0 ? LineEnd() : std::min(int(next), LineEnd());
    constexpr double step = 0.5;
    const double least = std::max(minGap, gap - line_.height());
    for (ends_.back() = pen + gap; ends_.back() > pen + least; ends_.back() -= step) {
        Break();
        if (LineEnd() >= end) return;
    }
    ends_.back() = pen + minGap;
    Break();
}

void TabPlacer::AddLeader(int tab, const TabStop& stop) {
    const char16_t character = LeaderCharacter(stop.leader);
    if (character == 0) return;
    const TextPos at = segment_.start + tab;
    const QTextCharFormat& format = FormatAt(paragraph_, at);
    SegmentLeader leader{at, indent_, character, QFont(format.font(), &device_), std::nullopt};
    leader.font.setPixelSize(QFontInfo(leader.font).pixelSize());
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        leader.color = format.foreground().color();
    segment_.leaders.push_back(leader);
}

std::optional<int> TabPlacer::Place() {
    Break();
    for (int tab = int(units_.indexOf(u'\t')); tab >= 0 && tab < LineEnd();
         tab = int(units_.indexOf(u'\t', tab + 1))) {
        const double pen = PenAt(tab);
        const TabStop* const stop = StopOf(pen);
        if (!stop) return std::nullopt; // nor for those after it
        if (stop->alignment == TabAlignment::Left) {
            ends_.push_back(stop->position - indent_);
            Break();
        } else {
            ends_.push_back(pen + MinGap(tab));
            Break();
            if (MovesToNextLine(tab, pen)) return tab;
            Align(tab, pen, *stop);
        }
        AddLeader(tab, *stop);
    }
    return std::nullopt;
}
} // namespace

bool HasOwnTabs(const ParagraphText& paragraph) {
    return std::any_of(
        paragraph.tabStops.begin(), paragraph.tabStops.end(), [](const TabStop& each) {
            return each.alignment != TabAlignment::Left || each.leader != TabLeader::None;
        });
}

std::optional<int> PlaceTabs(const ParagraphText& paragraph, LayoutSegment& segment,
                             QPaintDevice& device) {
    return TabPlacer(paragraph, segment, device).Place();
}

double ToTabUnits(const QPaintDevice& device, double pixels) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double defaultDpi = screen ? qRound(screen->logicalDotsPerInchY()) : 0;
    return defaultDpi > 0 ? pixels * defaultDpi / device.logicalDpiY() : pixels;
}

void SetTabs(QTextLayout& text, const std::vector<double>& ends, const QPaintDevice& device) {
    // A delimiter tab whose delimiter does not occur aligns the text after it like a plain tab, in
    // either direction. For a plain tab QTextLayout measures all text after it, needlessly.
    constexpr char16_t absentDelimiter = u'\uFFFF';
    QList<QTextOption::Tab> tabs;
    for (const double each : ends)
        tabs.append({ToTabUnits(device, each), QTextOption::DelimiterTab, QChar(absentDelimiter)});
    QTextOption option = text.textOption();
    option.setTabs(tabs);
    text.setTextOption(option);
}
