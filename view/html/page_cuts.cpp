#include "view/html/page_cuts.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double smallShare = 1.0 / 3; // of a page's height

constexpr std::size_t orphans = 2, widows = 2; // lines, as CSS has them by default

class SpanCollector {
  public:
    explicit SpanCollector(int pageHeight) : pageHeight_(pageHeight) {}

    void Collect(const PageFragment& fragment, double top) {
        for (const PlacedLines& lines : fragment.lines) {
            for (const InlineLine& line : lines.layout.lines)
                Add(top + line.top, line.height, SolidSpan::Kind::Line);
            AddKept(lines.layout.lines, top);
        }
        for (const PlacedImage& picture : fragment.pictures)
            Add(top + picture.top, picture.height, SolidSpan::Kind::Picture);
        // Rules, and frames around nothing.
        for (const PlacedBox& box : fragment.boxes)
            if (box.height < pageHeight_ * smallShare)
                Add(top + box.top, box.height, SolidSpan::Kind::Part);
        for (const PlacedPart& part : fragment.parts) {
            const bool isSimple = part.fragment->parts.size() <= 1;
            const double maxHeight = isSimple ? pageHeight_ : pageHeight_ * smallShare;
            if (part.fragment->height <= maxHeight)
                Add(top + part.top, part.fragment->height, SolidSpan::Kind::Part);
            Collect(*part.fragment, top + part.top);
        }
    }

    std::vector<SolidSpan> spans;

  private:
    // No line of a paragraph stands alone on a sheet.
    void AddKept(const std::vector<InlineLine>& lines, double top) {
        const auto add = [&](std::size_t first, std::size_t last) {
            const double from = lines[first].top;
            Add(top + from, lines[last].top + lines[last].height - from, SolidSpan::Kind::Kept);
        };
        if (lines.size() < 2) return;
        add(0, std::min(orphans, lines.size()) - 1);
        add(lines.size() - std::min(widows, lines.size()), lines.size() - 1);
    }

    void Add(double top, double height, SolidSpan::Kind kind) {
        if (height <= 0 || height > pageHeight_) return;
        spans.push_back({int(std::floor(top)), int(std::ceil(top + height)), kind});
    }

    int pageHeight_;
};

void AddHeads(const PageFragment& fragment, double top, int pageHeight,
              std::vector<TableHead>& heads) {
    const double height = fragment.headBottom - fragment.headTop;
    if (height > 0 && height < pageHeight * smallShare)
        heads.push_back({int(std::floor(top + fragment.headTop)),
                         int(std::ceil(top + fragment.headBottom)),
                         int(std::floor(top + fragment.height))});
    for (const PlacedPart& part : fragment.parts)
        AddHeads(*part.fragment, top + part.top, pageHeight, heads);
}
} // namespace

std::vector<TableHead> TableHeads(const PageFragment& fragment, int pageHeight) {
    std::vector<TableHead> heads;
    AddHeads(fragment, 0, pageHeight, heads);
    return heads;
}

std::vector<SolidSpan> SolidSpans(const PageFragment& fragment, int pageHeight) {
    SpanCollector collector(pageHeight);
    collector.Collect(fragment, 0);
    return std::move(collector.spans);
}

// Spans of neighbours touch or overlap by the pixel that their edges were rounded to.
int CutBetween(const std::vector<SolidSpan>& spans, SolidSpan::Kind upTo, int from, int limit) {
    int cut = limit;
    for (bool moved = true; moved && cut > from;) {
        moved = false;
        for (const SolidSpan& span : spans) {
            if (span.kind > upTo || span.top >= cut - 1 || span.bottom <= cut + 1) continue;
            cut = span.top;
            moved = true;
        }
    }
    return std::max(cut, from);
}
