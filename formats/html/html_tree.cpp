#include "formats/html/html_tree.h"

#include <algorithm>

namespace {
constexpr std::size_t chunkBytes = 64 * 1024;
} // namespace

void* HtmlArena::Take(std::size_t bytes) {
    bytes = (bytes + alignof(HtmlAttribute) - 1) / alignof(HtmlAttribute) * alignof(HtmlAttribute);
    // A large one has a chunk of its own, so that the rest of the last one is not lost.
    if (bytes > chunkBytes / 4) {
        auto chunk = std::make_unique_for_overwrite<std::byte[]>(bytes);
        void* const place = chunk.get();
        chunks_.insert(chunks_.empty() ? chunks_.end() : chunks_.end() - 1, std::move(chunk));
        if (chunks_.size() == 1) left_ = 0;
        return place;
    }
    if (bytes > left_) {
        chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(chunkBytes));
        left_ = chunkBytes;
    }
    void* const place = chunks_.back().get() + (chunkBytes - left_);
    left_ -= bytes;
    return place;
}

char16_t* HtmlArena::Units(std::size_t count) {
    return static_cast<char16_t*>(Take(count * sizeof(char16_t)));
}

HtmlAttribute* HtmlArena::Attributes(std::size_t count) {
    auto* const place = static_cast<HtmlAttribute*>(Take(count * sizeof(HtmlAttribute)));
    std::uninitialized_default_construct_n(place, count);
    return place;
}

HtmlTree::HtmlTree() : nodes_(2), source_(std::make_unique<std::u16string>()) {}

namespace {

template <typename Wanted>
HtmlNodeId FirstChildThat(const HtmlTree& tree, HtmlNodeId id, Wanted wanted) {
    HtmlNodeId child = tree[id].firstChild;
    while (child != noHtmlNode && !wanted(tree[child]))
        child = tree[child].nextSibling;
    return child;
}

} // namespace

HtmlNodeId HtmlTree::RootElement() const {
    return FirstChildThat(*this, htmlDocumentNode,
                          [](const HtmlNode& node) { return node.IsElement(); });
}

HtmlNodeId HtmlTree::Head() const {
    return FirstChildThat(*this, RootElement(),
                          [](const HtmlNode& node) { return node.Is(HtmlName::Head); });
}

HtmlNodeId HtmlTree::Body() const {
    return FirstChildThat(*this, RootElement(), [](const HtmlNode& node) {
        return node.Is(HtmlName::Body) || node.Is(HtmlName::Frameset);
    });
}

HtmlNodeId HtmlTree::Next(HtmlNodeId id, HtmlNodeId top) const {
    return nodes_[id].firstChild != noHtmlNode ? nodes_[id].firstChild : NextAfter(id, top);
}

HtmlNodeId HtmlTree::NextAfter(HtmlNodeId id, HtmlNodeId top) const {
    while (id != top && id != noHtmlNode) {
        if (nodes_[id].nextSibling != noHtmlNode) return nodes_[id].nextSibling;
        id = nodes_[id].parent;
    }
    return noHtmlNode;
}
