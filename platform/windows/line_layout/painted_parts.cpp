#include "platform/windows/line_layout/line_painter.h"

#include <algorithm>

namespace {

class Divider {
  public:
    explicit Divider(const PaintedLine& painted) : painted_(painted) {}

    void Divide(const VisualPiece&, std::vector<PaintedPart>&) const;

  private:
    std::size_t EndOfStyle(std::size_t at, PaintedPart&) const;
    std::size_t EndOfRun(std::size_t at, PaintedPart&) const;
    std::size_t ClusterFrom(const GlyphRun*, std::size_t unit) const;
    int EdgeX(const VisualPiece&, std::size_t unit) const;

    const PaintedLine& painted_;
};

std::size_t Divider::EndOfStyle(std::size_t at, PaintedPart& part) const {
    const auto& styles = painted_.styles;
    const auto after =
        std::upper_bound(styles.begin() + 1, styles.end(), static_cast<TextPos>(at),
                         [](TextPos place, const StyledRun& run) { return place < run.start; });
    part.style = static_cast<const WinStyle*>((after - 1)->style.get());
    return after == styles.end() ? painted_.text.Size() : static_cast<std::size_t>(after->start);
}

std::size_t Divider::EndOfRun(std::size_t at, PaintedPart& part) const {
    const auto& runs = painted_.shaped.runs;
    const auto run =
        std::upper_bound(runs.begin(), runs.end(), at,
                         [](std::size_t place, const GlyphRun& each) { return place < each.end; });
    if (run != runs.end() && run->start <= at) {
        part.run = &*run;
        return run->end;
    }
    // Gaps and what is not seen, one by one: each has its kind.
    return at + 1;
}

// A ligature belongs to the style of its first character.
std::size_t Divider::ClusterFrom(const GlyphRun* run, std::size_t unit) const {
    if (!run || unit >= run->end || run->StartsCluster(unit)) return unit;
    return NextCluster(*run, unit);
}

int Divider::EdgeX(const VisualPiece& piece, std::size_t unit) const {
    const int along = painted_.before[unit] - painted_.before[piece.start];
    return piece.left + (piece.rightToLeft ? piece.width - along : along);
}

void Divider::Divide(const VisualPiece& piece, std::vector<PaintedPart>& parts) const {
    for (std::size_t at = piece.start; at < piece.end;) {
        PaintedPart part;
        const std::size_t end = std::min({piece.end, EndOfStyle(at, part), EndOfRun(at, part)});
        part.start = ClusterFrom(part.run, at);
        part.end = std::min(piece.end, ClusterFrom(part.run, end));
        const auto [left, right] = std::minmax({EdgeX(piece, part.start), EdgeX(piece, part.end)});
        part.left = left;
        part.right = right;
        if (part.start < part.end && left < right) parts.push_back(part);
        at = end;
    }
}

} // namespace

std::vector<PaintedPart> PartsOf(const PaintedLine& painted) {
    std::vector<PaintedPart> parts;
    const Divider divider(painted);
    for (const VisualPiece& piece : painted.line.pieces)
        divider.Divide(piece, parts);
    return parts;
}
