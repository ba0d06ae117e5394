#include "platform/none/none_line_breaker.h"

#include <algorithm>
#include <cmath>

namespace {
using Kind = NoneCluster::Kind;

constexpr double rounding = 1e-6; // pixels, of sums of widths

struct PlacedTab {
    std::size_t index = 0;
    const TabStop* alignedAt = nullptr; // a stop that is not Left
    double pen = 0;                     // where it begins
};

class LineBreaker {
  public:
    LineBreaker(const ParagraphText& paragraph, NoneClusters& clusters)
        : paragraph_(paragraph), clusters_(clusters), all_(clusters.all) {}

    std::vector<NoneLine> Break() {
        std::vector<NoneLine> lines;
        bool broken = true; // the line before ends with a break
        for (std::size_t first = 0; first < all_.size() || broken;) {
            indent_ = lines.empty() ? paragraph_.firstIndent : paragraph_.indent;
            room_ = std::max(1, paragraph_.width - indent_);
            lines.push_back(NextLine(first));
            broken = lines.back().end > first && all_[lines.back().end - 1].kind == Kind::Break;
            first = lines.back().end;
        }
        return lines;
    }

  private:
    NoneLine NextLine(std::size_t first) {
        NoneLine line;
        line.first = first;
        line.end = EndOfLine(first);
        const Kind last = line.end > first ? all_[line.end - 1].kind : Kind::Break;
        const bool wrapped = line.end < all_.size() && last != Kind::Break;
        line.visibleEnd = last == Kind::Break && line.end > first ? line.end - 1 : line.end;
        const std::size_t spaces = TrailingSpaces(line);
        if (wrapped && last == Kind::SoftHyphen) ShowHyphen(first, line.end);
        AlignLastTab(spaces);
        if (wrapped)
            line.visibleEnd = spaces;
        else
            LimitSpaces(first, spaces, line.visibleEnd);
        line.line.start = clusters_.StartOf(first);
        line.line.end = clusters_.StartOf(line.end);
        if (wrapped && paragraph_.justified) line.line.justified = Justify(first, line.visibleEnd);
        Place(line);
        SetHeight(line);
        return line;
    }

    std::size_t EndOfLine(std::size_t first) {
        double pen = 0;
        std::size_t chance = first; // the last one to break at; none where it is `first`
        tabs_.clear();
        continues_ = first > 0 && all_[first - 1].kind != Kind::Break;
        for (std::size_t i = first; i < all_.size(); ++i) {
            NoneCluster& each = all_[i];
            if (each.kind == Kind::Break) return i + 1;
            if (each.kind == Kind::Tab) pen += AlignLastTab(i);
            const bool fits = TakeWidth(i, pen);
            const bool keeps = i > 0 && IsAlignedTab(i - 1) && chance > first;
            if (i > first && (IsAlignedTab(i) || (MayBreak(i, pen) && !keeps))) chance = i;
            if (!fits && i > first) return chance > first ? chance : i;
            pen += each.width;
        }
        return all_.size();
    }

    bool IsAlignedTab(std::size_t index) const {
        return !tabs_.empty() && tabs_.back().index == index && tabs_.back().alignedAt;
    }

    bool MayBreak(std::size_t index, double pen) const {
        return all_[index].mayBreak && HyphenFits(all_[index - 1], pen);
    }

    // Spaces always fit. A tab reaches at most to the line's end.
    bool TakeWidth(std::size_t index, double pen) {
        NoneCluster& each = all_[index];
        if (each.kind == Kind::Space) return true;
        const double left = room_ - pen;
        if (each.kind != Kind::Tab) return each.width <= left + rounding;
        const TabStop* const stop = StopOf(indent_ + pen);
        const double next = stop ? stop->position : NextDefaultStop(indent_ + pen);
        each.leader = stop ? stop->leader : TabLeader::None;
        each.width = std::min(next - indent_ - pen, std::max(left, 1.0));
        const bool aligned = stop && stop->alignment != TabAlignment::Left;
        tabs_.push_back({index, aligned ? stop : nullptr, pen});
        if (aligned) each.width = each.style->CharacterWidth(); // as yet
        return left >= (aligned ? each.width : 1);
    }

    const TabStop* StopOf(double from) const {
        return continues_ ? StopAfterWrap(paragraph_.tabStops, from)
                          : NextTabStop(paragraph_.tabStops, from);
    }

    double NextDefaultStop(double from) const {
        const double distance = std::max(1.0, paragraph_.tabDistance);
        return std::ceil((from + 1) / distance - rounding) * distance;
    }

    // Widens the last tab for the text up to `end`, where the next tab is or the line ends;
    // returns by how much.
    double AlignLastTab(std::size_t end) {
        while (!tabs_.empty() && tabs_.back().index >= end)
            tabs_.pop_back();
        if (tabs_.empty() || !tabs_.back().alignedAt) return 0;
        const PlacedTab& tab = tabs_.back();
        double& width = all_[tab.index].width;
        const double before = width;
        width = TabGap(*tab.alignedAt, indent_ + tab.pen, indent_ + room_,
                       MeasureAfterTab(tab, end), all_[tab.index].style->CharacterWidth());
        return width - before;
    }

    TabbedText MeasureAfterTab(const PlacedTab& tab, std::size_t end) const {
        TabbedText text;
        const TextPos start = clusters_.StartOf(tab.index + 1);
        const std::u16string_view units =
            std::u16string_view(clusters_.text)
                .substr(std::size_t(start), std::size_t(clusters_.StartOf(end) - start));
        const TextPos decimals = start + TextPos(UnitsBeforeDecimals(units));
        for (std::size_t i = tab.index + 1; i < end; ++i) {
            text.width += all_[i].width;
            if (all_[i].start < decimals) text.beforeDecimals += all_[i].width;
        }
        return text;
    }

    bool HyphenFits(const NoneCluster& before, double pen) const {
        return before.kind != Kind::SoftHyphen ||
               pen + before.style->CharacterWidth() <= room_ + rounding;
    }

    std::size_t TrailingSpaces(const NoneLine& line) const {
        std::size_t from = line.visibleEnd;
        while (from > line.first && all_[from - 1].kind == Kind::Space)
            --from;
        return from;
    }

    // Spaces at the end of a line that is not wrapped have a width as far as there is room.
    void LimitSpaces(std::size_t first, std::size_t from, std::size_t to) {
        double left = room_;
        for (std::size_t i = first; i < from; ++i)
            left -= all_[i].width;
        for (std::size_t i = from; i < to; ++i) {
            all_[i].width = std::clamp(left, 0.0, all_[i].width);
            left -= all_[i].width;
        }
    }

    // Not where the line is too narrow for any hyphen.
    void ShowHyphen(std::size_t first, std::size_t end) {
        double pen = 0;
        for (std::size_t i = first; i < end; ++i)
            pen += all_[i].width;
        if (HyphenFits(all_[end - 1], pen))
            all_[end - 1].width = all_[end - 1].style->CharacterWidth();
    }

    // False without a space between words, or with a tab.
    bool Justify(std::size_t first, std::size_t end) {
        double left = room_;
        std::vector<std::size_t> spaces;
        bool leading = true;
        for (std::size_t i = first; i < end; ++i) {
            if (all_[i].kind == Kind::Tab) return false;
            leading = leading && all_[i].kind == Kind::Space;
            if (!leading && clusters_.text[std::size_t(all_[i].start)] == u' ') spaces.push_back(i);
            left -= all_[i].width;
        }
        for (const std::size_t space : spaces)
            all_[space].width += std::max(0.0, left) / double(spaces.size());
        return !spaces.empty();
    }

    void Place(NoneLine& line) {
        ResetLineLevels(clusters_.text, line.line.start, line.line.end, paragraph_.rightToLeft,
                        clusters_.levels);
        std::vector<BidiLevel> levels;
        for (std::size_t i = line.first; i < line.end; ++i) {
            all_[i].level = clusters_.levels[std::size_t(all_[i].start)];
            if (i < line.visibleEnd) levels.push_back(all_[i].level);
        }
        line.order = VisualOrder(levels);
        for (std::size_t& index : line.order) {
            index += line.first;
            all_[index].left = line.line.width;
            line.line.width += all_[index].width;
        }
        line.startEdge = paragraph_.rightToLeft ? line.line.width + indent_ : -indent_;
    }

    // An empty line is as high as the font it would have.
    void SetHeight(NoneLine& line) const {
        for (std::size_t i = line.first; i < line.end; ++i) {
            if (all_[i].kind == Kind::Box) continue;
            line.line.ascent = std::max(line.line.ascent, all_[i].style->Ascent());
            line.line.descent = std::max(line.line.descent, all_[i].style->Descent());
        }
        if (line.first < line.end) return;
        const auto& style = static_cast<const NoneStyle&>(*paragraph_.runs.back().style);
        line.line.ascent = style.Ascent();
        line.line.descent = style.Descent();
    }

    const ParagraphText& paragraph_;
    NoneClusters& clusters_;
    std::vector<NoneCluster>& all_;
    int indent_ = 0;
    double room_ = 1;
    bool continues_ = false;      // the line, after a wrapped one
    std::vector<PlacedTab> tabs_; // of the line
};
} // namespace

std::vector<NoneLine> BreakIntoLines(const ParagraphText& paragraph, NoneClusters& clusters) {
    return LineBreaker(paragraph, clusters).Break();
}
