#include "platform/qt/text_view/text_layouts.h"

#include <algorithm>

namespace {
// A laid-out character takes about 100 bytes, a block about 2 KB.
constexpr std::size_t mostUnits = 512 * 1024, mostBlocks = 2048;

std::size_t Units(const TextLayouts::Layout& layout) {
    return std::size_t(layout->block.end - layout->block.start);
}
} // namespace

TextLayouts::TextLayouts(const LayoutContext& context) : context_(context) {}

void TextLayouts::Forget() {
    byStart_.clear();
    recent_.clear();
    units_ = 0;
    width_ = 0;
}

TextLayouts::Layout TextLayouts::At(TextPos position) {
    const TextPos place = std::clamp(position, 0, Text().Length());
    const TextBlock block = BlockAt(Text(), context_.document.rows, place);
    if (const auto known = byStart_.find(block.start); known != byStart_.end()) {
        recent_.splice(recent_.begin(), recent_, known->second);
        return recent_.front();
    }
    auto layout = std::make_shared<BlockLayout>(LayOutBlock(context_, block));
    ++layoutsMade_;
    width_ = std::max(width_, layout->width);
    units_ += Units(recent_.emplace_front(std::move(layout)));
    byStart_[block.start] = recent_.begin();
    const Layout made = recent_.front();
    Trim();
    return made;
}

TextLayouts::Layout TextLayouts::After(const Layout& layout) {
    return IsLastBlock(Text(), layout->block) ? nullptr : At(layout->block.end);
}

TextLayouts::Layout TextLayouts::Before(const Layout& layout) {
    return layout->block.start == 0 ? nullptr : At(layout->block.start - 1);
}

void TextLayouts::Trim() {
    while (recent_.size() > 1 && (recent_.size() > mostBlocks || units_ > mostUnits)) {
        units_ -= Units(recent_.back());
        byStart_.erase(recent_.back()->block.start);
        recent_.pop_back();
    }
}
