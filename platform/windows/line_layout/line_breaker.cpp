#include "platform/windows/line_layout/line_breaker.h"

#include "platform/windows/line_layout/soft_hyphen.h"

#include <algorithm>
#include <cmath>

namespace {

// Where a line ends, and what decides it.
struct LineEnd {
    std::size_t end = 0;
    bool isBreak = false, isTextEnd = false;
};

class Breaker {
  public:
    Breaker(const ParagraphText& paragraph, const TextUnits& text, ShapedText& shaped)
        : paragraph_(paragraph), text_(text), shaped_(shaped) {}

    LineEnd FindEnd(std::size_t start, int indent);
    // Of the line found last, up to `end`; the last one is widened for the text that stands at it.
    std::vector<PlacedTab> TabsUpTo(std::size_t end);

  private:
    bool Fits(int width) const { return x_ + width <= room_; }
    int DefaultTabWidth() const;
    int TabWidth(std::size_t at);
    bool IsAlignedTab(std::size_t at) const;
    int MinGap(std::size_t tab) const;
    const TabStop* StopOf() const;
    int AlignLastTab(std::size_t end);
    TabbedText MeasureAfter(const PlacedTab&, std::size_t end) const;
    bool TakeWidth(std::size_t at, std::size_t next, int& width);
    bool HyphenFits(std::size_t at) const;
    std::size_t EndWithin(std::size_t start, std::size_t at) const;
    std::size_t NextPlace(std::size_t at) const;
    int WidthOf(std::size_t start, std::size_t end) const;

    const ParagraphText& paragraph_;
    const TextUnits& text_;
    ShapedText& shaped_;
    int x_ = 0, indent_ = 0, room_ = 0;
    bool continues_ = false; // the line, after a wrapped one
    std::vector<PlacedTab> tabs_;
};

// From the start edge.
int Breaker::DefaultTabWidth() const {
    const int from = indent_ + x_;
    const double distance = std::max(1.0, paragraph_.tabDistance);
    const double next = (std::floor((from + 0.5) / distance) + 1) * distance;
    return std::max(1, static_cast<int>(std::lround(next)) - from);
}

int Breaker::MinGap(std::size_t tab) const {
    return std::max(1, StyleAt(paragraph_, tab).font->spaceWidth);
}

const TabStop* Breaker::StopOf() const {
    return continues_ ? StopAfterWrap(paragraph_.tabStops, indent_ + x_)
                      : NextTabStop(paragraph_.tabStops, indent_ + x_);
}

// To the next stop; the least of a gap where text has to stand at that, as yet.
int Breaker::TabWidth(std::size_t at) {
    const TabStop* const stop = StopOf();
    tabs_.push_back({at, x_, stop ? *stop : TabStop()});
    if (!stop) return DefaultTabWidth();
    return tabs_.back().IsAligned() ? MinGap(at) : stop->position - indent_ - x_;
}

bool Breaker::IsAlignedTab(std::size_t at) const {
    return !tabs_.empty() && tabs_.back().unit == at && tabs_.back().IsAligned();
}

// For the text up to `end`, where the next tab is or the line ends; returns by how much it grows.
int Breaker::AlignLastTab(std::size_t end) {
    if (tabs_.empty() || !tabs_.back().IsAligned()) return 0;
    const PlacedTab& tab = tabs_.back();
    const double gap = TabGap(tab.stop, indent_ + tab.pen, indent_ + room_, MeasureAfter(tab, end),
                              MinGap(tab.unit));
    const int before = shaped_.widths[tab.unit];
    shaped_.widths[tab.unit] = std::max(1, static_cast<int>(std::lround(gap)));
    return shaped_.widths[tab.unit] - before;
}

TabbedText Breaker::MeasureAfter(const PlacedTab& tab, std::size_t end) const {
    const std::size_t start = tab.unit + 1;
    const std::u16string text(text_.text.begin() + static_cast<std::ptrdiff_t>(start),
                              text_.text.begin() + static_cast<std::ptrdiff_t>(end));
    return {static_cast<double>(WidthOf(start, end)),
            static_cast<double>(WidthOf(start, start + UnitsBeforeDecimals(text)))};
}

std::vector<PlacedTab> Breaker::TabsUpTo(std::size_t end) {
    while (!tabs_.empty() && tabs_.back().unit >= end)
        tabs_.pop_back();
    AlignLastTab(end);
    return std::move(tabs_);
}

// Spaces always do. A tab reaches at most to the line's end.
bool Breaker::TakeWidth(std::size_t at, std::size_t next, int& width) {
    const TextUnit& unit = text_.units[at];
    if (unit.kind == UnitKind::Tab)
        shaped_.widths[at] = std::min(TabWidth(at), std::max(1, room_ - x_));
    width = WidthOf(at, next);
    if (IsAlignedTab(at)) return Fits(MinGap(at));
    return unit.isSpace || width == 0 || x_ + width <= room_;
}

// Whether there is room for the hyphen that is seen if the line ends in front of the unit.
bool Breaker::HyphenFits(std::size_t at) const {
    return text_.units[at - 1].kind != UnitKind::SoftHyphen ||
           Fits(HyphenWidth(paragraph_, at - 1));
}

// Where a line may begin at the earliest, after a unit.
std::size_t Breaker::NextPlace(std::size_t at) const {
    do
        ++at;
    while (at < text_.Size() && (!text_.units[at].caret || text_.units[at].inLigature));
    return at;
}

int Breaker::WidthOf(std::size_t start, std::size_t end) const {
    int width = 0;
    for (; start < end; ++start)
        width += shaped_.widths[start];
    return width;
}

// Within a word: not after a soft hyphen for which there is no room.
std::size_t Breaker::EndWithin(std::size_t start, std::size_t at) const {
    return HyphenFits(at) || at - 1 == start ? at : at - 1;
}

LineEnd Breaker::FindEnd(std::size_t start, int indent) {
    indent_ = indent;
    room_ = std::max(1, paragraph_.width - indent);
    x_ = 0;
    tabs_.clear();
    continues_ = start > 0 && text_.units[start - 1].kind != UnitKind::LineBreak;
    std::size_t candidate = start, next = start; // none yet
    for (std::size_t at = start; at < text_.Size(); at = next) {
        const TextUnit& unit = text_.units[at];
        next = NextPlace(at);
        if (unit.kind == UnitKind::LineBreak) return {at + 1, true, false};
        if (unit.kind == UnitKind::Tab) x_ += AlignLastTab(at);
        const bool keeps = at > start && IsAlignedTab(at - 1) && candidate > start;
        if (unit.mayBreak && at > start && HyphenFits(at) && !keeps) candidate = at;
        int width = 0;
        const bool fits = TakeWidth(at, next, width);
        if (at > start && IsAlignedTab(at)) candidate = at;
        if (!fits && at > start)
            return {candidate > start ? candidate : EndWithin(start, at), false, false};
        x_ += width;
    }
    return {text_.Size(), false, true};
}

// Also those in front of what is not seen: a book may have a zero width space after each space.
void HideTrailingSpaces(const TextUnits& text, ShapedText& shaped, BrokenLine& line) {
    const auto start = static_cast<std::size_t>(line.line.start);
    while (line.visibleEnd > start && text.units[line.visibleEnd - 1].IsBlank())
        ChangeWidth(shaped, --line.visibleEnd, 0);
}

// In a line that is not wrapped they have their width as far as there is room.
void LimitTrailingSpaces(const TextUnits& text, ShapedText& shaped, const BrokenLine& line,
                         int room) {
    const auto start = static_cast<std::size_t>(line.line.start);
    int excess = -room;
    for (std::size_t at = start; at < line.visibleEnd; ++at)
        excess += shaped.widths[at];
    for (std::size_t at = line.visibleEnd; at > start && excess > 0; --at) {
        if (!text.units[at - 1].isSpace) break;
        const int width = shaped.widths[at - 1], less = std::min(width, excess);
        ChangeWidth(shaped, at - 1, width - less);
        excess -= less;
    }
}

BrokenLine MakeLine(const ParagraphText& paragraph, const TextUnits& text, ShapedText& shaped,
                    Breaker& breaker, std::size_t start, const LineEnd& end) {
    BrokenLine line;
    line.line.start = static_cast<TextPos>(start);
    line.line.end = static_cast<TextPos>(end.end);
    line.visibleEnd = end.isBreak ? end.end - 1 : end.end;
    const bool wrapped = !end.isBreak && !end.isTextEnd;
    const int indent = start == 0 ? paragraph.firstIndent : paragraph.indent;
    const int room = std::max(1, paragraph.width - indent);
    line.tabs = breaker.TabsUpTo(StartOfTrailingSpaces(text, line));
    if (wrapped)
        HideTrailingSpaces(text, shaped, line);
    else
        LimitTrailingSpaces(text, shaped, line, room);
    const std::size_t last = line.visibleEnd;
    line.hasHyphen = wrapped && last > start && last == end.end &&
                     text.units[last - 1].kind == UnitKind::SoftHyphen;
    if (line.hasHyphen) shaped.widths[last - 1] = HyphenWidth(paragraph, last - 1);
    if (wrapped && paragraph.justified) line.line.justified = JustifyLine(text, shaped, line, room);
    PlacePieces(text, shaped, line);
    line.startEdge = paragraph.rightToLeft ? static_cast<int>(line.line.width) + indent : -indent;
    MeasureLine(paragraph, shaped, line);
    return line;
}

} // namespace

std::vector<BrokenLine> BreakIntoLines(const ParagraphText& paragraph, const TextUnits& text,
                                       ShapedText& shaped) {
    for (const InlineBox& box : paragraph.boxes)
        if (static_cast<std::size_t>(box.at) < text.Size())
            shaped.widths[static_cast<std::size_t>(box.at)] = std::max(0, box.width);
    Breaker breaker(paragraph, text, shaped);
    std::vector<BrokenLine> lines;
    LineEnd end;
    do {
        const std::size_t start = end.end;
        end = breaker.FindEnd(start, start == 0 ? paragraph.firstIndent : paragraph.indent);
        lines.push_back(MakeLine(paragraph, text, shaped, breaker, start, end));
    } while (!end.isTextEnd);
    return lines;
}
