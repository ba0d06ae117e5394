#include "view/page/column_breaks.h"

#include <algorithm>
#include <unordered_map>

namespace {
// Lines of a paragraph that stand together at the end of a column, and at the start of one.
constexpr std::size_t fewestLines = 2;

struct Chunk : ColumnChunk {
    bool keepsNext = false;
};

class ChunkReader {
  public:
    ChunkReader(const PageBoxes& boxes, PageBoxId container)
        : boxes_(boxes), container_(container) {}

    std::vector<ColumnChunk> Read(const PageFragment& text) {
        for (const PlacedLines& lines : text.lines)
            AddLines(lines);
        for (const PlacedPart& part : text.parts)
            Add(noPageBox, part.top, part.top + part.fragment->height);
        for (const PlacedImage& picture : text.pictures)
            Add(picture.box, picture.top, picture.top + picture.height);
        for (const PlacedBox& box : text.boxes)
            if (boxes_.IsEmpty(box.box) && boxes_[box.box].kind != PageBoxKind::Lines)
                Add(box.box, box.top, box.top + box.height);
        for (const auto& [box, chunk] : kept_)
            chunks_.push_back(chunk);
        return Merged();
    }

  private:
    void AddLines(const PlacedLines& lines) {
        const std::vector<InlineLine>& all = lines.layout.lines;
        const auto bottom = [&](std::size_t line) { return all[line].top + all[line].height; };
        for (std::size_t i = 0; i < all.size(); ++i)
            Add(lines.box, all[i].top, bottom(i));
        const std::size_t few = std::min(fewestLines, all.size());
        Add(lines.box, all.front().top, bottom(few - 1));
        Add(lines.box, all[all.size() - few].top, bottom(all.size() - 1));
    }

    void Add(PageBoxId box, double top, double bottom) {
        Chunk chunk{{top, bottom}, false};
        for (; box != noPageBox && box != container_; box = boxes_[box].parent) {
            chunk.keepsNext = chunk.keepsNext || boxes_[box].style->breakAfter == CssBreak::Avoid;
            if (boxes_[box].style->breakInside == CssBreak::Avoid) {
                Chunk& kept = kept_.try_emplace(box, chunk).first->second;
                kept.top = std::min(kept.top, top);
                kept.bottom = std::max(kept.bottom, bottom);
            }
        }
        chunks_.push_back(chunk);
    }

    std::vector<ColumnChunk> Merged() {
        std::ranges::stable_sort(chunks_, {}, &Chunk::top);
        std::vector<ColumnChunk> merged;
        bool keepsNext = false;
        for (const Chunk& chunk : chunks_) {
            constexpr double touching = 0.01;
            if (!merged.empty() && (keepsNext || chunk.top < merged.back().bottom - touching)) {
                keepsNext = chunk.bottom >= merged.back().bottom ? chunk.keepsNext : keepsNext;
                merged.back().bottom = std::max(merged.back().bottom, chunk.bottom);
            } else {
                merged.push_back(chunk);
                keepsNext = chunk.keepsNext;
            }
        }
        return merged;
    }

    const PageBoxes& boxes_;
    const PageBoxId container_;
    std::vector<Chunk> chunks_;
    std::unordered_map<PageBoxId, Chunk> kept_; // by the boxes that are not to be divided
};

ColumnBreaks Filled(const std::vector<ColumnChunk>& chunks, double height) {
    ColumnBreaks breaks;
    for (const ColumnChunk& chunk : chunks) {
        if (breaks.columns.empty() || chunk.bottom - breaks.columns.back().top > height)
            breaks.columns.push_back(chunk);
        else
            breaks.columns.back().bottom = chunk.bottom;
        const ColumnChunk& column = breaks.columns.back();
        breaks.height = std::max(breaks.height, column.bottom - column.top);
    }
    return breaks;
}
} // namespace

std::vector<ColumnChunk> ColumnChunksOf(const PageFragment& text, const PageBoxes& boxes,
                                        PageBoxId container) {
    return ChunkReader(boxes, container).Read(text);
}

// As low as they can be, but with margins between and below the chunks no lower than their share.
ColumnBreaks Balanced(const std::vector<ColumnChunk>& chunks, std::size_t columns,
                      double textHeight) {
    const double share = textHeight / double(columns);
    double low = share, high = share;
    for (const ColumnChunk& chunk : chunks) {
        low = std::max(low, chunk.bottom - chunk.top);
        high = std::max(high, chunk.bottom - chunks.front().top);
    }
    constexpr double exactness = 0.25; // device pixels
    while (high - low > exactness) {
        const double middle = (low + high) / 2;
        (Filled(chunks, middle).columns.size() <= columns ? high : low) = middle;
    }
    ColumnBreaks breaks = Filled(chunks, low);
    if (breaks.columns.size() > columns) breaks = Filled(chunks, high);
    breaks.height = std::max(breaks.height, share);
    return breaks;
}
