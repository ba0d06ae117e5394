#include "platform/qt/text_view/layout/text_layouts.h"

#include <algorithm>
#include <iterator>

namespace {
// A laid-out character takes about 100 bytes, a run as much again, a paragraph some KB.
constexpr std::size_t maxLoad = 512 * 1024, paragraphLoad = 32, maxBlocks = 2048;

std::size_t Load(const TextLayouts::Layout& layout) {
    std::size_t load = 0;
    for (const ParagraphLayout& paragraph : layout->paragraphs)
        load += paragraphLoad + std::size_t(paragraph.text->text().size()) +
                std::size_t(paragraph.text->formats().size());
    return load;
}
} // namespace

TextLayouts::TextLayouts(const LayoutContext& context) : context_(context) {}

void TextLayouts::Forget() {
    byStart_.clear();
    recent_.clear();
    load_ = 0;
    width_ = 0;
}

TextLayouts::Layout TextLayouts::At(TextPos position) {
    const TextPos place = std::clamp(position, 0, Text().Length());
    if (const Layout known = Known(place)) return known;
    const TextBlock block = LayoutBlockAt(Text(), context_.document, place);
    auto layout = std::make_shared<BlockLayout>(LayOutBlock(context_, block));
    ++layoutsMade_;
    width_ = std::max(width_, layout->width);
    load_ += Load(recent_.emplace_front(std::move(layout)));
    byStart_[block.start] = recent_.begin();
    const Layout made = recent_.front();
    Trim();
    return made;
}

TextLayouts::Layout TextLayouts::Known(TextPos position) {
    const auto after = byStart_.upper_bound(position);
    if (after == byStart_.begin()) return nullptr;
    const auto known = std::prev(after)->second;
    const TextBlock& block = (*known)->block;
    if (position >= block.end && !IsLastBlock(Text(), block)) return nullptr;
    recent_.splice(recent_.begin(), recent_, known);
    return recent_.front();
}

TextLayouts::Layout TextLayouts::After(const Layout& layout) {
    return IsLastBlock(Text(), layout->block) ? nullptr : At(layout->block.end);
}

TextLayouts::Layout TextLayouts::Before(const Layout& layout) {
    return layout->block.start == 0 ? nullptr : At(layout->block.start - 1);
}

void TextLayouts::Trim() {
    while (recent_.size() > 1 && (recent_.size() > maxBlocks || load_ > maxLoad)) {
        load_ -= Load(recent_.back());
        byStart_.erase(recent_.back()->block.start);
        recent_.pop_back();
    }
}
