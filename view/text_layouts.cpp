#include "view/text_layouts.h"

#include <algorithm>
#include <iterator>

namespace {
// A character costs about 100 bytes, a run about as much, a paragraph some KB.
constexpr std::size_t maxCost = 512 * 1024, paragraphCost = 32, maxBlocks = 2048;

std::size_t Cost(const TextLayouts::Layout& layout) {
    std::size_t cost = 0;
    for (const ParagraphLayout& paragraph : layout->paragraphs)
        cost += paragraphCost + std::size_t(paragraph.end - paragraph.start) + paragraph.runs;
    return cost;
}
} // namespace

TextLayouts::TextLayouts(const LayoutContext& context) : context_(context) {}

void TextLayouts::Clear() {
    byStart_.clear();
    recent_.clear();
    cost_ = 0;
    width_ = 0;
}

TextLayouts::Layout TextLayouts::At(TextPos position) {
    const TextPos clamped = std::clamp(position, 0, Text().Length());
    if (Layout cached = FindCached(clamped)) return cached;
    const TextBlock block = LayoutBlockAt(Text(), context_.document, clamped);
    auto layout = std::make_shared<BlockLayout>(LayOutBlock(context_, block));
    ++layoutsMade_;
    width_ = std::max(width_, layout->width);
    cost_ += Cost(recent_.emplace_front(std::move(layout)));
    byStart_[block.start] = recent_.begin();
    Layout made = recent_.front();
    EvictOld();
    return made;
}

TextLayouts::Layout TextLayouts::FindCached(TextPos position) {
    const auto after = byStart_.upper_bound(position);
    if (after == byStart_.begin()) return nullptr;
    const auto cached = std::prev(after)->second;
    const TextBlock& block = (*cached)->block;
    if (position >= block.end && !IsLastBlock(Text(), block)) return nullptr;
    recent_.splice(recent_.begin(), recent_, cached);
    return recent_.front();
}

TextLayouts::Layout TextLayouts::After(const Layout& layout) {
    return IsLastBlock(Text(), layout->block) ? nullptr : At(layout->block.end);
}

TextLayouts::Layout TextLayouts::Before(const Layout& layout) {
    return layout->block.start == 0 ? nullptr : At(layout->block.start - 1);
}

void TextLayouts::EvictOld() {
    while (recent_.size() > 1 && (recent_.size() > maxBlocks || cost_ > maxCost)) {
        cost_ -= Cost(recent_.back());
        byStart_.erase(recent_.back()->block.start);
        recent_.pop_back();
    }
}
